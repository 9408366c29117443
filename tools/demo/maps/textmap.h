#pragma once

#include <map>
#include <string>
#include <vector>

#include "demo/blocks/blockset.h"
#include "fixture/mapgrid.h"

namespace Fixture {

// Draws a map from rows of letters, one letter a block. The legend gives each
// letter a block name; a name that is a picture of several blocks (added
// with AddPicture) fills as many letters as the picture is wide and high.
// Letters of an area kind (water, rock, sea) are given the area's edge
// blocks from their neighbours, so that shores and cliffs join up.
class TextMap {
public:
    explicit TextMap(const BlockSet& set) : Set_(set) {}

    // A letter that stands for one block, or for a picture of w x h blocks.
    void Block(char letter, const std::string& name, int w = 1, int h = 1);
    // A letter of an area whose 13 edge blocks are named name + suffix. The
    // letters in sameKind count as inside the area for its edges.
    void Area(char letter, const std::string& name, const std::string& sameKind);

    MapGrid Draw(const std::vector<std::string>& rows) const;

private:
    struct Picture {
        std::string Name;
        int W = 1;
        int H = 1;
    };
    struct AreaKind {
        std::string Name;
        std::string SameKind;
    };
    std::string EdgeSuffix(const std::vector<std::string>& rows, int x, int y,
                           const std::string& sameKind) const;

    const BlockSet& Set_;
    std::map<char, Picture> Pictures_;
    std::map<char, AreaKind> Areas_;
};

}  // namespace Fixture
