#pragma once

#include <QLabel>

#include "ui/childform.h"

// The event editor window. It opens from the main window's Mode menu.
class EventEdit : public ChildForm {
    Q_OBJECT
public:
    explicit EventEdit(Form* owner);

    QLabel* Placeholder;
};
