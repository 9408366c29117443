#pragma once

#include <cstdint>
#include <vector>

#include "core/defines.h"

// The grid of block numbers, by map row and map column counted from 1.
using MapGridT = decltype(WorkingState::MapGrid);

// One square that a step changed: where it lies and its block before and after.
struct SquareChange {
    std::int16_t Row = 0;
    std::int16_t Column = 0;
    std::int16_t Old = 0;
    std::int16_t New = 0;
    bool operator==(const SquareChange&) const = default;
};

// One user action on the map: the squares it changed, in the order it changed
// them. The tools build steps; the undo list applies them forwards and
// backwards.
class MapStep {
public:
    std::vector<SquareChange> Changes;

    bool Empty() const { return Changes.empty(); }
    void Add(int row, int column, int old, int now) {
        Changes.push_back({static_cast<std::int16_t>(row), static_cast<std::int16_t>(column),
                           static_cast<std::int16_t>(old), static_cast<std::int16_t>(now)});
    }
    // Puts the new blocks into the grid, or, backwards, the old ones in the
    // reverse order, so a square changed twice ends as it began.
    void Apply(MapGridT& grid, bool forwards = true) const;
    void Append(const MapStep& later);
};
