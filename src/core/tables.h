#pragma once

#include <QByteArray>
#include <QString>
#include <array>

#include "core/field.h"
#include "core/limits.h"

// Columns of the tileset table, one row per tileset.
enum TilesetColumn {
    TilesetField0,
    TilesetField1,
    TilesetLastTile,   // highest tile number of the tileset
    TilesetTileBase,   // bank index of the tileset's tile 0
    TilesetLastBlock,  // highest block number
    TilesetBlockPos,   // ROM position of block 0's 16 tile bytes
    TilesetBlockBias,  // ROM byte of a block = block number + bias
    TilesetColumnCount
};

// Columns of the category table; column 0 is never filled.
enum CategoryColumn { CatName = 1, CatFirstMap, CatMapCount, CategoryColumnCount };

// Columns of the map table, one row per map.
enum MapColumn {
    MapField0,
    MapName,
    MapGridPos,
    MapObjectPos,  // border byte, then the warp count and the warps; 1 = none
    MapField4,
    MapRows,
    MapField6,
    MapCols,
    MapTileset,
    MapNote,
    MapWarpToPos,  // 1 = no warp-to list
    MapPlacementFix,
    MapWarpsOk,
    MapWarpToCount,
    MapXShift,
    MapYShift,
    MapWildPos,  // 1 = no wild encounters
    MapEventsOk,
    MapColumnCount
};

// The value 1 in a position column means the map has no such data.
inline constexpr std::int32_t NoData = 1;

template <int Columns>
using Table = std::array<std::array<Field, Columns>, Limits::TableRows>;
using TilesetTableT = Table<TilesetColumnCount>;
using CategoryTableT = Table<CategoryColumnCount>;
using MapTableT = Table<MapColumnCount>;
using TilesetRowT = TilesetTableT::value_type;
using MapRowT = MapTableT::value_type;

// What a map's row lets the editor reach. The border block and the warps
// live in the object data; the warp-to list is edited beside the warps.
inline bool HasObjectData(const MapRowT& map) {
    return map[MapObjectPos].ToInt32() != NoData;
}
inline bool WarpsEditable(const MapRowT& map) {
    return HasObjectData(map) && map[MapWarpsOk].IsTrue();
}
inline bool HasWarpToList(const MapRowT& map) {
    return map[MapWarpToPos].ToInt32() != NoData;
}
inline bool WarpToEditable(const MapRowT& map) {
    return WarpsEditable(map) && HasWarpToList(map);
}
inline bool WildEditable(const MapRowT& map) {
    return map[MapWildPos].ToInt32() != NoData;
}
inline bool EventsEditable(const MapRowT& map) {
    return map[MapEventsOk].IsTrue();
}

// The picture of the tile bank that shows a tile number of a tileset.
inline int TileBankIndex(const TilesetRowT& set, int tile) {
    return set[TilesetTileBase].ToInt16() + tile;
}

// Reads a tileset file into the table; `lastRow`, when given, becomes the
// highest row the file filled. On failure returns false and puts a message
// for the user, naming the file, into error; the table is then not to be used.
bool LoadTilesetFile(const QString& path, TilesetTableT& table, QString& error,
                     std::int16_t* lastRow = nullptr);
// The same from the file's content, already read; `path` names the file in messages.
bool LoadTilesetFile(const QString& path, const QByteArray& content, TilesetTableT& table,
                     QString& error, std::int16_t* lastRow = nullptr);

// Reads Maps.twy into the category and map tables; categoryCount becomes the
// highest category row in use.
bool LoadMapsFile(const QString& path, CategoryTableT& categories, MapTableT& maps,
                  std::int16_t& categoryCount, QString& error);
// The same from the file's content, already read; `path` names the file in messages.
bool LoadMapsFile(const QString& path, const QByteArray& content, CategoryTableT& categories,
                  MapTableT& maps, std::int16_t& categoryCount, QString& error);
