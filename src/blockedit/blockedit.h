#pragma once

#include <QLabel>

#include "ui/childform.h"

// The building block editor window. It opens from the main window's Mode menu.
class BlockEdit : public ChildForm {
    Q_OBJECT
public:
    explicit BlockEdit(Form* owner);

    QLabel* Placeholder;
};
