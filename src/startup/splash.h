#pragma once

#include <QLabel>

#include "ui/form.h"
#include "ui/oneshottimer.h"

// The picture shown while the main window loads. Its load asks for the ROM
// file; its timer loads the main window once the picture is up.
class Splash : public Form {
    Q_OBJECT
public:
    Splash();

    QLabel* Picture;
    QLabel* Label1;
    OneShotTimer* Timer1;

    void Timer1_Timer();

protected:
    void Form_Load() override;
};
