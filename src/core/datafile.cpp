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

bool Finish(const FieldReader& reader, bool read, const QString& path, QString& error,
            const QString& consequence) {
    const int line = reader.RunawayQuoteLine();
    if (reader.QuoteLeftOpenLine() == 0 && (read || line == 0)) return read;
    // The first quote that ran off its line is named: where one closing
    // quote is missing, every quote after it pairs wrongly, up to the last.
    error = Damaged(path,
                    (line == reader.QuoteLeftOpenLine()
                         ? QStringLiteral("the quote that opens on line %1 is never closed.")
                         : QStringLiteral("the quote that opens on line %1 is not closed on that "
                                          "line, and the fields after it are out of step."))
                        .arg(line),
                    consequence);
    return false;
}

}  // namespace DataFile
