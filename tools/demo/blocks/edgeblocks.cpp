#include "demo/blocks/edgeblocks.h"

#include <vector>

namespace Fixture {

void AddEdgeBlocks(BlockSet& set, const std::string& blockName, const std::string& edgeTiles,
                   const std::function<std::string(int x, int y)>& inner) {
    for (const char* suffixText : EdgeSuffixes) {
        const std::string suffix = suffixText;
        const bool innerCorner = suffix.size() == 4;
        const bool north = !innerCorner && suffix.find('n') != std::string::npos;
        const bool south = !innerCorner && suffix.find('s') != std::string::npos;
        const bool west = !innerCorner && suffix.find('w') != std::string::npos;
        const bool east = !innerCorner && suffix.find('e') != std::string::npos;
        std::vector<std::string> tiles;
        for (int y = 0; y < 4; ++y)
            for (int x = 0; x < 4; ++x) {
                std::string side;
                if (north && y == 0) side += 'n';
                if (south && y == 3) side += 's';
                if (west && x == 0) side += 'w';
                if (east && x == 3) side += 'e';
                if (innerCorner) {
                    // Only the one tile in that corner shows the land.
                    const bool top = suffix[2] == 'n';
                    const bool left = suffix[3] == 'w';
                    if (y == (top ? 0 : 3) && x == (left ? 0 : 3)) side = suffix.substr(1);
                }
                tiles.push_back(side.empty() ? inner(x, y) : edgeTiles + "_" + side);
            }
        set.Add(blockName + suffix, tiles);
    }
}

}  // namespace Fixture
