#include "core/datafile.h"

#include <QFile>
#include <QFileInfo>

namespace DataFile {

bool ReadWhole(const QString& path, QByteArray& content, QString& error,
               const QString& consequence) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("The data file \"%1\" could not be read (%2).\n\n%3")
                    .arg(QFileInfo(path).fileName(), file.errorString(),
                         consequence == ProgramStops
                             ? QStringLiteral("Tarnwey needs it beside the program and cannot "
                                              "go on without it.")
                             : consequence);
        return false;
    }
    content = file.readAll();
    return true;
}

QString Damaged(const QString& path, const QString& what, const QString& consequence) {
    return QStringLiteral("The data file \"%1\" is damaged: %2\n\n%3")
        .arg(QFileInfo(path).fileName(), what, consequence);
}

}  // namespace DataFile
