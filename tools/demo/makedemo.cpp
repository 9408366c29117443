// Makes the bundled demo: the two ROMs, the six data files and the tile bank,
// written into the folder named on the command line.
#include <QTextStream>

#include "demo/demoproject.h"

int main(int argc, char** argv) {
    QTextStream err(stderr);
    if (argc != 2) {
        err << "Usage: makedemo <folder>\n";
        return 2;
    }
    QString error;
    if (!Fixture::WriteProject(Fixture::DemoProject(), QString::fromLocal8Bit(argv[1]), &error)) {
        err << error << '\n';
        return 1;
    }
    return 0;
}
