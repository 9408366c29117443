#pragma once

#include <cstdint>

class CellArray;

// The bank index of a tile number of the current tileset: the tileset's tile
// base plus the number, as a 16-bit value. Nothing bounds it by the tileset's
// last tile; an index outside the bank draws the "no picture" cell.
std::int16_t TileIndex(int tile);

// Sets cells first to first + 15 of an array to the 16 tile pictures of a
// block, in reading order. A block number that names no row of BlockTiles
// shows 16 "no picture" cells.
void ComposeBlock(CellArray& cells, int first, int block);
