#include "mapedit/childform.h"

#include "core/startup/program.h"
#include "mapedit/mainform.h"

void ChildForm::Form_Unload(bool& Cancel) {
    Cancel = false;
    hide();
    if (MainForm* main = Program::MainWindow()) main->ShowForm();
}
