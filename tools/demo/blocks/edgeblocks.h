#pragma once

#include <functional>
#include <string>

#include "demo/blocks/blockset.h"

namespace Fixture {

// Suffixes of the 13 blocks of an area with edges (a lake, a rock mass, the
// sea): the plain inside, four sides, four outer corners and four inner
// corners. A suffix names where the other ground lies: "_n" has it to the
// north, "_inw" only diagonally to the north-west.
inline constexpr const char* EdgeSuffixes[13] = {"",    "_n",  "_s",   "_w",   "_e",   "_nw", "_ne",
                                                 "_sw", "_se", "_inw", "_ine", "_isw", "_ise"};

// Adds the 13 blocks of an area named blockName + suffix. Edge tiles are
// named edgeTiles + suffix ("shore_nw"); inside tiles come from inner(x, y)
// for the tile's place in the block.
void AddEdgeBlocks(BlockSet& set, const std::string& blockName, const std::string& edgeTiles,
                   const std::function<std::string(int x, int y)>& inner);

}  // namespace Fixture
