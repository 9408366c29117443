#pragma once

#include "demo/art/tilecanvas.h"

// Painters for the outdoor pictures that several runs of the bank share: the
// forest and coast sets reuse the grass, trees and water of the overworld, so
// they are drawn once here.
namespace Fixture::OutdoorArt {

TileCanvas Grass(int variant);
TileCanvas TallGrass();
TileCanvas Flower(int variant);
TileCanvas Path();
TileCanvas Tree();     // 16 x 16
TileCanvas Bush();     // 16 x 16
TileCanvas Boulder();  // 16 x 16
TileCanvas Sign();     // 16 x 16
TileCanvas Water(int variant);

// Sides of a picture, for edges.
enum Side { North = 1, East = 2, South = 4, West = 8 };
// Corners, for inner edges where land touches only diagonally.
enum Corner { NorthEast = 1, NorthWest = 2, SouthEast = 4, SouthWest = 8 };

// Water with a shore on the given sides and inner corners: a land strip, a
// dark outline, and a shadow under a north shore.
TileCanvas Shore(const TileCanvas& water, int sides, int corners);

}  // namespace Fixture::OutdoorArt
