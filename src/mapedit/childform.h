#pragma once

#include "ui/form.h"

// A window opened from the main window, which is hidden while it is up.
// Closing it brings the main window back and activates it.
class ChildForm : public Form {
    Q_OBJECT
protected:
    void Form_Unload(bool& Cancel) override;
};
