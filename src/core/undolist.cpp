#include "core/undolist.h"

void UndoList::Push(MapStep step) {
    if (UndoCount() == Limits::UndoDepth) Done_.pop_front();
    Done_.push_back(std::move(step));
    Undone_.clear();
}

bool UndoList::Undo(MapGridT& grid) {
    if (Done_.empty()) return false;
    Done_.back().Apply(grid, false);
    Undone_.push_back(std::move(Done_.back()));
    Done_.pop_back();
    return true;
}

bool UndoList::Redo(MapGridT& grid) {
    if (Undone_.empty()) return false;
    Undone_.back().Apply(grid, true);
    Done_.push_back(std::move(Undone_.back()));
    Undone_.pop_back();
    return true;
}

void UndoList::Clear() {
    Done_.clear();
    Undone_.clear();
}
