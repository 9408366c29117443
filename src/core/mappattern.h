#pragma once

#include <QRect>
#include <QString>
#include <cstdint>
#include <vector>

#include "core/mapstep.h"

// A rectangle of blocks as copied from a map or read from the clipboard.
struct Pattern {
    int Width = 0;
    int Height = 0;
    std::vector<std::int16_t> Blocks;  // row by row, top row first

    std::int16_t At(int column, int row) const {
        return Blocks[static_cast<size_t>(row * Width + column)];
    }
    bool operator==(const Pattern&) const = default;
};

// The clipboard text of a rectangle of squares: one line a map row, top row
// first, each block as two upper-case hexadecimal digits, separated by single
// spaces, each line ending in a line feed. False, with nothing written, when
// a square holds a number below 0, which has no such text.
bool PatternText(const MapGridT& grid, QRect squares, QString& text);

// Reads clipboard text as a pattern: blocks of one or two hexadecimal digits
// in either case, separated by blanks or tabs, the same count on every line,
// at most 255 x 255, blank lines at the end ignored. False for any other text.
bool ParsePattern(const QString& text, Pattern& pattern);

// The first block of the pattern, in reading order, above `lastBlock`; -1
// when there is none.
int FirstBlockAbove(const Pattern& pattern, int lastBlock);
