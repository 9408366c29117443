#include <cstdlib>

#include "core/dialogs.h"

namespace {
DialogService* Current = nullptr;
}

DialogService& Dialogs() {
    // Reaching a dialog with no service installed is a fault of the program's
    // set-up, never of the user's data.
    if (!Current) std::abort();
    return *Current;
}

void SetDialogs(DialogService* service) {
    Current = service;
}
