#pragma once

#include <QPoint>
#include <QRect>
#include <cstdint>
#include <vector>

#include "core/mappattern.h"
#include "core/mapstep.h"

// The squares the drawing tools change, worked out on the grid without
// changing it. A square is a QPoint of map column and map row, both counted
// from 1; a rectangle of squares is a QRect of them. Each step holds only the
// squares whose block it changes.

// The rectangle with two squares as opposite corners, both included.
QRect SquaresBetween(QPoint a, QPoint b);

// The squares of the straight line from one square to another, both ends
// included, each next to the one before side by side or corner to corner.
std::vector<QPoint> LineSquares(QPoint from, QPoint to);

// Paints `block` on each square of the list.
MapStep PaintStep(const MapGridT& grid, const std::vector<QPoint>& squares, std::int16_t block);

// Paints `block` on every square of the rectangle.
MapStep RectangleStep(const MapGridT& grid, QRect squares, std::int16_t block);

// Paints `block` on the region of squares that hold the start square's block
// and touch it side by side, on a map of `width` x `height`.
MapStep FillStep(const MapGridT& grid, int width, int height, QPoint start, std::int16_t block);

// Puts a pattern's blocks with its top left on `topLeft`; what falls outside
// the map of `width` x `height` is left off.
MapStep StampStep(const MapGridT& grid, int width, int height, const Pattern& pattern,
                  QPoint topLeft);
