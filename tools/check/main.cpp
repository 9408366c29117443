#include <QCoreApplication>
#include <QTextStream>
#include <cstdio>

#include "check/checkcommand.h"
#include "cli/commandline.h"

// tarnwey-check: the data files of a program folder checked against a ROM,
// without a window.
int main(int argc, char** argv) {
    Cli::QuietToolkit();
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    const int status = Check::RunCheckCommand(QCoreApplication::arguments(), out, err);
    out.flush();
    err.flush();
    return status;
}
