#pragma once

// Sizes that the whole program shares, named once.
namespace Limits {
inline constexpr int TableRows = 256;     // rows of every data table, 0 to 255
inline constexpr int LastBlock = 255;     // highest block number a tileset can have
inline constexpr int MapSizeMax = 255;    // a map is at most 255 x 255 blocks
inline constexpr int TilesPerBlock = 16;  // a block is 4 x 4 tile pictures
inline constexpr int BankPictures = 520;  // pictures in the tile bank, 0 to 519
// Tiles of a tileset, 0 to 159: the cells of the block editor's tile chooser.
inline constexpr int TilesetTiles = 160;
inline constexpr int UndoDepth = 100;  // paint steps the undo list reaches back
inline constexpr int MaxWarps = 16;
inline constexpr int MaxEvents = 32;
inline constexpr int WildSlots = 10;       // level and species pairs of a wild list
inline constexpr int ViewSlotsAcross = 8;  // the map view shows 8 x 6 blocks
inline constexpr int ViewSlotsDown = 6;
inline constexpr int PaletteSlots = 6;
}  // namespace Limits
