#pragma once

#include <QLabel>

#include "ui/childform.h"

// The warp editor window. It opens from the main window's Mode menu.
class WarpEdit : public ChildForm {
    Q_OBJECT
public:
    explicit WarpEdit(Form* owner);

    QLabel* Placeholder;
};
