#include "demo/art/tilecatalogue.h"

#include "demo/art/tileruns.h"

namespace Fixture {

namespace {
TileCatalogue Build() {
    // Places of the all-lightest picture in each run.
    TileCatalogue catalogue{{
        TileRun(0, 94, {0, 13, 29, 35}),
        TileRun(94, 73, {17, 72}),
        TileRun(167, 94, {17}),
        TileRun(261, 96, {}),
        TileRun(357, 67, {0, 66}),
        TileRun(424, 96, {0}),
    }};
    auto& runs = catalogue.Runs;
    TileRuns::DrawOverworld(runs[0]);
    TileRuns::DrawHouse(runs[1]);
    TileRuns::DrawHall(runs[2], runs[1]);
    TileRuns::DrawCavern(runs[3]);
    TileRuns::DrawForest(runs[4], runs[0]);
    TileRuns::DrawWilds(runs[5]);
    return catalogue;
}
}  // namespace

const Tile& TileCatalogue::At(int index) const {
    for (int run = RunCount - 1; run >= 0; --run)
        if (index >= RunBase[static_cast<size_t>(run)])
            return Runs[static_cast<size_t>(run)].At(index - RunBase[static_cast<size_t>(run)]);
    return Runs[0].At(0);
}

const TileCatalogue& Catalogue() {
    static const TileCatalogue catalogue = Build();
    return catalogue;
}

}  // namespace Fixture
