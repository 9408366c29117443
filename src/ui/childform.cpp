#include "ui/childform.h"

ChildForm::ChildForm(Form* owner) : Form(owner), Owner_(owner) {
    setAttribute(Qt::WA_DeleteOnClose);
}

bool ChildForm::OpenOverOwner() {
    if (!ShowForm()) {
        deleteLater();
        return false;
    }
    if (Owner_) Owner_->HideForm();
    return true;
}

void ChildForm::Form_Unload(bool& Cancel) {
    Cancel = false;
    hide();
    if (Owner_) Owner_->ShowForm();
}
