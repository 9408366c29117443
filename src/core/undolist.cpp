#include "core/undolist.h"

void UndoList::Push(MapStep step) {
    if (UndoCount() == Limits::UndoDepth) Done_.pop_front();
    Done_.push_back(std::move(step));
    Undone_.clear();
}

namespace {
// Applies the newest step of one list to the grid and moves it onto the other.
template <typename From, typename To>
bool MoveNewest(From& from, To& to, MapGridT& grid, bool forwards) {
    if (from.empty()) return false;
    from.back().Apply(grid, forwards);
    to.push_back(std::move(from.back()));
    from.pop_back();
    return true;
}
}  // namespace

bool UndoList::Undo(MapGridT& grid) {
    return MoveNewest(Done_, Undone_, grid, false);
}

bool UndoList::Redo(MapGridT& grid) {
    return MoveNewest(Undone_, Done_, grid, true);
}

void UndoList::Clear() {
    Done_.clear();
    Undone_.clear();
}
