#pragma once

#include <array>

#include "demo/art/tilerun.h"

namespace Fixture {

// The six runs of the tile bank with their named tiles. Block definitions
// look their tile numbers up here, so the bank and the demo tilesets always
// agree.
struct TileCatalogue {
    static constexpr int RunCount = 6;
    // First bank index and length of each run, run 1 first.
    static constexpr std::array<int, RunCount> RunBase{0, 94, 167, 261, 357, 424};
    static constexpr std::array<int, RunCount> RunSize{94, 73, 94, 96, 67, 96};
    static constexpr int Pictures = 520;

    std::array<TileRun, RunCount> Runs;

    // Run n counts from 1, as in RunBase.
    const TileRun& Run(int n) const { return Runs[static_cast<size_t>(n - 1)]; }
    // The tile at a bank index, 0 to 519.
    const Tile& At(int index) const;
};

// Built once, on first use.
const TileCatalogue& Catalogue();

}  // namespace Fixture
