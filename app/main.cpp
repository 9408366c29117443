#include <QApplication>

#include "core/defines.h"
#include "startup/program.h"
#include "ui/programfont.h"
#include "ui/qtdialogs.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    // Windows are shown and hidden in turn; the program ends only by its own
    // Exit, never because no window happens to be up.
    QApplication::setQuitOnLastWindowClosed(false);
    ApplyProgramFont();
    QtDialogs dialogs;
    SetDialogs(&dialogs);
    Defines.ProgramFolder = QCoreApplication::applicationDirPath();
    Program::SetOnEnd([] { QCoreApplication::exit(0); });
    Program::Main();
    if (Program::Ended()) return 0;
    return QApplication::exec();
}
