#pragma once

#include <QByteArray>
#include <QString>

#include "core/fieldreader.h"

// The shared steps of reading a data file, with messages that name the file.
// `consequence` is the sentence that tells the user what cannot go on.
namespace DataFile {

inline const QString ProgramStops = QStringLiteral("Tarnwey cannot go on without it.");

bool ReadWhole(const QString& path, QByteArray& content, QString& error,
               const QString& consequence = ProgramStops);

QString Damaged(const QString& path, const QString& what,
                const QString& consequence = ProgramStops);

// Ends the reading of a file with `reader`, which came to `read`. A quote
// that is never closed is damage even when every record was read. A reading
// that failed after a quoted text ran on over a line end was most likely put
// out of step by a missing closing quote, far from where it then failed: the
// message names the line where that quote opened instead.
bool Finish(const FieldReader& reader, bool read, const QString& path, QString& error,
            const QString& consequence = ProgramStops);

// Reads one record of `count` fields into row[first..]. A file that ends
// inside a record is an error: half a record would give wrong positions in
// the ROM.
template <typename Row>
bool ReadRecord(FieldReader& reader, Row& row, int first, int count, const QString& path,
                const QString& what, QString& error, const QString& consequence = ProgramStops) {
    for (int c = 0; c < count; ++c) {
        if (!reader.ReadField(row[first + c])) {
            error = Damaged(path,
                            QStringLiteral("it ends inside the record of %1 (line %2).")
                                .arg(what)
                                .arg(reader.Line()),
                            consequence);
            return false;
        }
    }
    return true;
}

}  // namespace DataFile
