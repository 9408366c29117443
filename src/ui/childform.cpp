#include "ui/childform.h"

void ChildForm::Form_Unload(bool& Cancel) {
    Cancel = false;
    hide();
    if (Owner_) Owner_->ShowForm();
}
