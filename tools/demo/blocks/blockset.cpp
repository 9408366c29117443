#include "demo/blocks/blockset.h"

#include <QtGlobal>

namespace Fixture {

quint8 BlockSet::TileNumber(const std::string& name) const {
    return static_cast<quint8>(Run_->Number(name));
}

int BlockSet::Add(const std::string& name, const BlockDef& block) {
    if (Names_.count(name)) qFatal("Block %s is defined twice", name.c_str());
    Blocks_.push_back(block);
    Names_.emplace(name, Count() - 1);
    return Count() - 1;
}

int BlockSet::Add(const std::string& name, const std::vector<std::string>& tiles) {
    if (tiles.size() != 16) qFatal("Block %s needs 16 tiles", name.c_str());
    BlockDef block{};
    for (size_t i = 0; i < 16; ++i)
        block[i] = TileNumber(tiles[i]);
    return Add(name, block);
}

int BlockSet::AddQuarters(const std::string& name, const std::string& topLeft,
                          const std::string& topRight, const std::string& bottomLeft,
                          const std::string& bottomRight) {
    const std::string quarters[4] = {topLeft, topRight, bottomLeft, bottomRight};
    BlockDef block{};
    for (int q = 0; q < 4; ++q) {
        const std::string& quarter = quarters[q];
        for (int y = 0; y < 2; ++y)
            for (int x = 0; x < 2; ++x) {
                const std::string tile =
                    quarter.starts_with('=') ? quarter.substr(1) : Part(quarter, x, y);
                const int place = ((q / 2) * 2 + y) * 4 + (q % 2) * 2 + x;
                block[static_cast<size_t>(place)] = TileNumber(tile);
            }
    }
    return Add(name, block);
}

void BlockSet::AddPicture(const std::string& name,
                          const std::vector<std::vector<std::string>>& rows) {
    const int blocksDown = static_cast<int>(rows.size()) / 4;
    const int blocksAcross = static_cast<int>(rows.front().size()) / 4;
    for (int by = 0; by < blocksDown; ++by)
        for (int bx = 0; bx < blocksAcross; ++bx) {
            std::vector<std::string> tiles;
            for (int y = 0; y < 4; ++y)
                for (int x = 0; x < 4; ++x)
                    tiles.push_back(
                        rows[static_cast<size_t>(by * 4 + y)][static_cast<size_t>(bx * 4 + x)]);
            Add(Part(name, bx, by), tiles);
        }
}

int BlockSet::Number(const std::string& name) const {
    const auto found = Names_.find(name);
    if (found == Names_.end()) qFatal("No block named %s", name.c_str());
    return found->second;
}

}  // namespace Fixture
