#pragma once

#include "ui/form.h"

// A window opened from the main window, which is hidden while it is up.
// Closing it brings the main window back and activates it.
class ChildForm : public Form {
    Q_OBJECT
public:
    // `owner` is the window that opened this one and comes back at its close.
    explicit ChildForm(Form* owner) : Owner_(owner) {}

protected:
    void Form_Unload(bool& Cancel) override;

private:
    Form* Owner_;
};
