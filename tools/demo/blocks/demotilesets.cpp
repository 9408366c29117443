#include "demo/blocks/demotilesets.h"

#include "demo/art/tilecatalogue.h"

namespace Fixture {

namespace {
DemoTilesets Build() {
    const TileCatalogue& bank = Catalogue();
    DemoTilesets sets{{BlockSet(bank.Run(1)), BlockSet(bank.Run(2)), BlockSet(bank.Run(3)),
                       BlockSet(bank.Run(4)), BlockSet(bank.Run(5)), BlockSet(bank.Run(6)),
                       BlockSet(bank.Run(6))}};
    DemoBlockDrawing::DrawOverworld(sets.Sets[DemoTilesets::Overworld]);
    DemoBlockDrawing::DrawCottage(sets.Sets[DemoTilesets::Cottage]);
    DemoBlockDrawing::DrawHall(sets.Sets[DemoTilesets::Hall]);
    DemoBlockDrawing::DrawCavern(sets.Sets[DemoTilesets::Cavern]);
    DemoBlockDrawing::DrawForest(sets.Sets[DemoTilesets::Forest]);
    DemoBlockDrawing::DrawWilds(sets.Sets[DemoTilesets::Wilds]);
    DemoBlockDrawing::DrawHarbour(sets.Sets[DemoTilesets::Harbour]);
    return sets;
}
}  // namespace

const DemoTilesets& DemoBlocks() {
    static const DemoTilesets sets = Build();
    return sets;
}

}  // namespace Fixture
