#pragma once

#include <deque>
#include <vector>

#include "core/limits.h"
#include "core/mapstep.h"

// The steps that can be undone, the newest last, and those undone that can be
// put back. It reaches back 100 steps of any size; the 101st pushes out the
// oldest.
class UndoList {
public:
    // Records a step that is already on the grid. A new step empties the
    // redo list.
    void Push(MapStep step);
    // Takes the newest step back off the grid; false when there is none.
    bool Undo(MapGridT& grid);
    // Puts the last step undone back onto the grid; false when there is none.
    bool Redo(MapGridT& grid);
    void Clear();
    int UndoCount() const { return static_cast<int>(Done_.size()); }
    int RedoCount() const { return static_cast<int>(Undone_.size()); }

private:
    std::deque<MapStep> Done_;
    std::vector<MapStep> Undone_;
};
