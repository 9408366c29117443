#pragma once

#include <QPixmap>
#include <QPoint>
#include <array>
#include <cstdint>

#include "core/limits.h"

class CellArray;

// The bank index of a tile number of the current tileset: the tileset's tile
// base plus the number, as a 16-bit value. Nothing bounds it by the tileset's
// last tile; an index outside the bank draws the "no picture" cell.
std::int16_t TileIndex(int tile);

// The 16 tile pictures of a block of the current tileset, in reading order.
// A block number that names no row of BlockTiles gives 16 "no picture" cells.
// Every drawing of a block, on the screen or into a file, takes its pictures
// from here.
std::array<const QPixmap*, Limits::TilesPerBlock> BlockPictures(int block);

// Where the picture of place t (0 to 15) of a block lies, in pixels from the
// block's top left corner: column t mod 4, row t div 4, 16 pixels apart.
QPoint PlaceOffset(int place);

// Sets cells first to first + 15 of an array to the 16 tile pictures of a
// block, in reading order.
void ComposeBlock(CellArray& cells, int first, int block);
