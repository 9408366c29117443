#include <algorithm>

#include "check/cells.h"
#include "check/checks.h"
#include "core/defines.h"
#include "mapview/maploader.h"

namespace Check {

void CheckTilesets(const VersionFiles& version, AreaMap* areas, std::vector<Finding>& out) {
    for (int t = 0; t <= version.LastTileset; ++t) {
        const TilesetRowT& set = version.Tilesets[t];
        const int lastTile = set[TilesetLastTile].ToInt16();
        if (lastTile > Limits::TilesetTiles - 1)
            out.push_back(Found(TilesetCell(version, t, TilesetLastTile),
                                QStringLiteral("The last tile is %1, but a tileset has tiles 0 "
                                               "to %2: the block editor shows no more.")
                                    .arg(lastTile)
                                    .arg(Limits::TilesetTiles - 1)));
        const int firstPicture = TileBankIndex(set, 0);
        const int lastPicture = TileBankIndex(set, std::max(lastTile, 0));
        if (firstPicture < 0 || lastPicture > Limits::BankPictures - 1)
            out.push_back(Found(TilesetCell(version, t, TilesetTileBase),
                                QStringLiteral("Tiles 0 to %1 from the tile base %2 would be bank "
                                               "pictures %3 to %4, but the tile bank has "
                                               "pictures 0 to %5.")
                                    .arg(std::max(lastTile, 0))
                                    .arg(set[TilesetTileBase].ToInt16())
                                    .arg(firstPicture)
                                    .arg(lastPicture)
                                    .arg(Limits::BankPictures - 1)));
        const int lastBlock = set[TilesetLastBlock].ToInt16();
        if (!IsBlockRow(lastBlock)) {
            out.push_back(Found(TilesetCell(version, t, TilesetLastBlock),
                                QStringLiteral("The last block is %1, but a tileset has blocks 0 "
                                               "to %2 at most.")
                                    .arg(lastBlock)
                                    .arg(Limits::LastBlock)));
            continue;
        }
        if (!areas) continue;
        PlacedArea blocks;
        blocks.Area = BlockArea(set);
        blocks.Cell = TilesetCell(version, t, TilesetBlockPos);
        blocks.What = QStringLiteral("the block definitions");
        blocks.Whose = QStringLiteral("the block definitions of tileset %1").arg(t);
        blocks.Blocks = true;
        areas->Place(blocks, out);
    }
}

}  // namespace Check
