#pragma once

#include <array>
#include <cstdint>

#include "core/limits.h"

// The paint steps that can be undone: one record per painted square, the
// newest last. It holds at most 100 records; the 101st pushes out the oldest.
class UndoList {
public:
    struct Record {
        std::int16_t Row = 0;
        std::int16_t Column = 0;
        std::int16_t Block = 0;  // the block that was there before the paint
    };

    void Push(const Record& record);
    // Takes the newest record off the list. The list must not be empty.
    Record Pop();
    void Clear() { UndoCount_ = 0; }
    int UndoCount() const { return UndoCount_; }

private:
    // Row 0 stays unused, so that row n holds the n-th record.
    std::array<Record, Limits::UndoDepth + 1> Rows_{};
    int UndoCount_ = 0;
};
