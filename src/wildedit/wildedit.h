#pragma once

#include <QLabel>

#include "ui/childform.h"

// The wild encounter editor window. It opens from the main window's Mode menu.
class WildEdit : public ChildForm {
    Q_OBJECT
public:
    explicit WildEdit(Form* owner);

    QLabel* Placeholder;
};
