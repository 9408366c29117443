#include "mapview/maploader.h"

#include "core/defines.h"
#include "rom/romfile.h"

namespace {
QString MapLabel(int map) {
    return QStringLiteral("The map \"%1\" (row %2 of Maps.twy)")
        .arg(Defines.MapTable[map][MapName].ToText())
        .arg(map);
}

bool Outside(RomFile& rom, const RomArea& area, const QString& what, int map, QString& error) {
    if (rom.Contains(area)) return false;
    error = MapLabel(map) +
            QStringLiteral(
                " could not be loaded: its %1 (%2 bytes from position %3) would be read "
                "from outside the ROM file, which has %4 bytes.\n\nThe data files do not "
                "fit this ROM.")
                .arg(what)
                .arg(area.Bytes)
                .arg(area.Start)
                .arg(rom.Size());
    return true;
}
}  // namespace

RomArea BlockArea(const TilesetRowT& set) {
    return {set[TilesetBlockPos].ToInt32(),
            (set[TilesetLastBlock].ToInt16() + 1) * Limits::TilesPerBlock};
}

MapPlace FindMapPlace(const MapRowT& map, const TilesetRowT& set) {
    MapPlace place;
    place.Blocks = BlockArea(set);
    place.Border = {map[MapObjectPos].ToInt32(), 1};
    place.Grid = {map[MapGridPos].ToInt32(), map[MapRows].ToInt16() * map[MapCols].ToInt16()};
    return place;
}

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
    if (!IsBlockRow(lastBlock)) {
        error = MapLabel(map) +
                QStringLiteral(" uses tileset %1, whose last block %2 lies outside 0 to %3.")
                    .arg(tileset)
                    .arg(lastBlock)
                    .arg(Limits::LastBlock);
        return false;
    }
    if (!IsMapSize(height) || !IsMapSize(width)) {
        error =
            MapLabel(map) + QStringLiteral(" is %1 x %2 blocks; a map is 1 to %3 blocks each way.")
                                .arg(width)
                                .arg(height)
                                .arg(Limits::MapSizeMax);
        return false;
    }

    const MapPlace place = FindMapPlace(row, set);
    if (Outside(rom, place.Blocks, QStringLiteral("block definitions"), map, error) ||
        Outside(rom, place.Border, QStringLiteral("border block"), map, error) ||
        Outside(rom, place.Grid, QStringLiteral("grid"), map, error))
        return false;
    const std::int32_t borderPos = place.Border.Start;
    const std::int32_t gridPos = place.Grid.Start;

    // Every position is known to lie inside the file: from here on nothing fails.
    const int bias = set[TilesetBlockBias].ToInt16();
    Defines.CurTileset = static_cast<std::int16_t>(tileset);
    Defines.BlockCount = static_cast<std::int16_t>(lastBlock);
    std::int32_t p = place.Blocks.Start;
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
