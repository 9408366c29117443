#pragma once

#include <QLabel>

#include "mapedit/childform.h"

// The warp editor window. It opens from the main window's Mode menu.
class WarpEdit : public ChildForm {
    Q_OBJECT
public:
    WarpEdit();

    QLabel* Placeholder;
};
