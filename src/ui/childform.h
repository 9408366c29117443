#pragma once

#include "ui/form.h"

// A window opened from another one (the main window), which is hidden while
// this one is up. Each opening makes a new window whose Form_Load reads what
// it shows; closing it deletes it with everything it held and brings its
// owner back.
class ChildForm : public Form {
    Q_OBJECT
public:
    // `owner` is the window that opened this one and comes back at its close.
    explicit ChildForm(Form* owner);

    // Shows this window in place of its owner. False, with the owner left on
    // screen and this window deleted, when its load refused to open it.
    bool OpenOverOwner();

protected:
    void Form_Unload(bool& Cancel) override;

private:
    Form* Owner_;
};
