#include "mapedit/undolist.h"

#include <algorithm>

void UndoList::Push(const Record& record) {
    if (UndoCount_ == Limits::UndoDepth) {
        // Full: the oldest record goes and the others move down one row.
        std::copy(Rows_.begin() + 2, Rows_.end(), Rows_.begin() + 1);
        UndoCount_ = Limits::UndoDepth - 1;
    }
    Rows_[++UndoCount_] = record;
}

UndoList::Record UndoList::Pop() {
    return Rows_[UndoCount_--];
}
