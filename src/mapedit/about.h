#pragma once

#include <QLabel>
#include <QPushButton>

#include "ui/childform.h"

// Who made the program, with a picture of its own.
class About : public ChildForm {
    Q_OBJECT
public:
    explicit About(Form* owner);

    QLabel* Picture;
    QLabel* Label1;
    QLabel* Credits;
    QPushButton* Command1;

    void Command1_Click() { Unload(); }
};
