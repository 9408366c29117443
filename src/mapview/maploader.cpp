#include "mapview/maploader.h"

#include "core/defines.h"
#include "rom/romfile.h"

namespace {
QString MapLabel(int map) {
    return QStringLiteral("The map \"%1\" (row %2 of Maps.twy)")
        .arg(Defines.MapTable[map][MapName].ToText())
        .arg(map);
}

bool Outside(RomFile& rom, std::int32_t position, std::int32_t count, const QString& what, int map,
             QString& error) {
    if (rom.Contains(position, count)) return false;
    error = MapLabel(map) +
            QStringLiteral(
                " could not be loaded: its %1 (%2 bytes from position %3) would be read "
                "from outside the ROM file, which has %4 bytes.\n\nThe data files do not "
                "fit this ROM.")
                .arg(what)
                .arg(count)
                .arg(position)
                .arg(rom.Size());
    return true;
}
}  // namespace

bool ReadMap(int map, LoadedMap& loaded, QString& error) {
    RomFile rom;
    if (!rom.Open(Defines.RomPath)) {
        error = rom.Error();
        return false;
    }
    return ReadMap(rom, map, loaded, error);
}

bool ReadMap(RomFile& rom, int map, LoadedMap& loaded, QString& error) {
    if (map < 0 || map >= Limits::TableRows) {
        error = QStringLiteral("There is no map at row %1.").arg(map);
        return false;
    }
    const auto& row = Defines.MapTable[map];
    const int tileset = row[MapTileset].ToInt16();
    if (tileset < 0 || tileset >= Limits::TableRows) {
        error =
            MapLabel(map) + QStringLiteral(" names tileset %1, which cannot exist.").arg(tileset);
        return false;
    }
    const auto& set = Defines.TilesetTable[tileset];
    const int lastBlock = set[TilesetLastBlock].ToInt16();
    const int height = row[MapRows].ToInt16();
    const int width = row[MapCols].ToInt16();
    if (lastBlock < 0 || lastBlock > Limits::LastBlock) {
        error = MapLabel(map) +
                QStringLiteral(" uses tileset %1, whose last block %2 lies outside 0 to %3.")
                    .arg(tileset)
                    .arg(lastBlock)
                    .arg(Limits::LastBlock);
        return false;
    }
    if (height < 1 || height > Limits::MapSizeMax || width < 1 || width > Limits::MapSizeMax) {
        error =
            MapLabel(map) + QStringLiteral(" is %1 x %2 blocks; a map is 1 to %3 blocks each way.")
                                .arg(width)
                                .arg(height)
                                .arg(Limits::MapSizeMax);
        return false;
    }

    const std::int32_t blockPos = set[TilesetBlockPos].ToInt32();
    const std::int32_t borderPos = row[MapObjectPos].ToInt32();
    const std::int32_t gridPos = row[MapGridPos].ToInt32();
    const int blockBytes = (lastBlock + 1) * Limits::TilesPerBlock;
    if (Outside(rom, blockPos, blockBytes, QStringLiteral("block definitions"), map, error) ||
        Outside(rom, borderPos, 1, QStringLiteral("border block"), map, error) ||
        Outside(rom, gridPos, width * height, QStringLiteral("grid"), map, error))
        return false;

    // Every position is known to lie inside the file: from here on nothing fails.
    const int bias = set[TilesetBlockBias].ToInt16();
    Defines.CurTileset = static_cast<std::int16_t>(tileset);
    Defines.BlockCount = static_cast<std::int16_t>(lastBlock);
    std::int32_t p = blockPos;
    for (int b = 0; b <= lastBlock; ++b)
        for (int t = 0; t < Limits::TilesPerBlock; ++t)
            Defines.BlockTiles[b][t] = rom.ReadByte(p++);
    loaded.BorderPos = borderPos;
    loaded.GridPos = gridPos;
    // The position is read also for a map without object data; its value is
    // then of no use but is written back unchanged by a save.
    loaded.BorderNum = static_cast<std::int16_t>(rom.ReadByte(borderPos) - bias);
    Defines.MapHeight = static_cast<std::int16_t>(height);
    Defines.MapWidth = static_cast<std::int16_t>(width);
    p = gridPos;
    for (int y = 1; y <= height; ++y)
        for (int x = 1; x <= width; ++x)
            Defines.MapGrid[y][x] = static_cast<std::int16_t>(rom.ReadByte(p++) - bias);
    Defines.RomSize = rom.Size();
    return true;
}
