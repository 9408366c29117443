#pragma once

#include <initializer_list>
#include <map>
#include <string>
#include <vector>

#include "demo/art/tilerun.h"
#include "fixture/blockdata.h"

namespace Fixture {

// The building blocks of one tileset, each under a name, with their tiles
// looked up by name in the tileset's run of the bank.
class BlockSet {
public:
    explicit BlockSet(const TileRun& run) : Run_(&run) {}

    const TileRun& Run() const { return *Run_; }
    int Count() const { return static_cast<int>(Blocks_.size()); }
    const std::vector<BlockDef>& Blocks() const { return Blocks_; }

    // Adds a block given as 16 tile names in reading order.
    int Add(const std::string& name, const std::vector<std::string>& tiles);
    int Add(const std::string& name, const BlockDef& block);
    // Adds a block of four quarters, each a 16 x 16 picture drawn with
    // AddCanvas (named "name") or a single tile name repeated (named "=name").
    int AddQuarters(const std::string& name, const std::string& topLeft,
                    const std::string& topRight, const std::string& bottomLeft,
                    const std::string& bottomRight);
    // Cuts a picture of whole blocks, given as rows of tile names, into
    // blocks named "name:x:y" in reading order.
    void AddPicture(const std::string& name, const std::vector<std::vector<std::string>>& rows);

    int Number(const std::string& name) const;

    // The tile number of a named tile of the run.
    quint8 TileNumber(const std::string& name) const;

private:
    const TileRun* Run_;
    std::vector<BlockDef> Blocks_;
    std::map<std::string, int> Names_;
};

}  // namespace Fixture
