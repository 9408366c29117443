#include "core/morlickfile.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include "core/datafile.h"
#include "core/fieldreader.h"

namespace {
const QString WildStop = QStringLiteral("The wild Morlick cannot be edited until it is mended.");

QString Damaged(const QString& path, const QString& what, int line) {
    return QStringLiteral("The data file \"%1\" is damaged: %2 (line %3).\n\n%4")
        .arg(QFileInfo(path).fileName(), what)
        .arg(line)
        .arg(WildStop);
}

// A code is hexadecimal whatever its digits look like: "10" is sixteen.
bool ReadCode(const Field& field, std::int16_t& code) {
    static const QRegularExpression hex(QStringLiteral("^[0-9A-Fa-f]{1,8}$"));
    if (!hex.match(field.Written()).hasMatch()) return false;
    const uint value = field.Written().toUInt(nullptr, 16);
    if (value > static_cast<uint>(Limits::TableRows - 1)) return false;
    code = static_cast<std::int16_t>(value);
    return true;
}

bool ReadSpecies(FieldReader& reader, const QString& path, MorlickTables& tables, QString& error) {
    tables = {};
    Field count;
    if (!reader.ReadField(count) || count.kind() != Field::Kind::Number) {
        error = Damaged(path, QStringLiteral("it does not begin with the number of species"), 1);
        return false;
    }
    // The species list shows places 1 to n, and places are rows 0 to 255.
    const int n = count.ToInt32();
    if (n < 0 || n > MaxSpecies) {
        error = Damaged(path,
                        QStringLiteral("it gives %1 species, but there can be 0 to %2")
                            .arg(count.Written())
                            .arg(MaxSpecies),
                        1);
        return false;
    }
    for (int r = 0; r < n; ++r) {
        // Messages name the line where the species' record begins.
        const int line = reader.Line();
        std::array<Field, 3> record;
        for (Field& field : record) {
            if (!reader.ReadField(field)) {
                error = Damaged(path,
                                QStringLiteral("it ends inside species %1 of the %2 it announces")
                                    .arg(r + 1)
                                    .arg(n),
                                line);
                return false;
            }
        }
        MorlickEntry entry;
        if (!ReadCode(record[0], entry.Code)) {
            error = Damaged(path,
                            QStringLiteral("the code \"%1\" of species %2 is no hexadecimal "
                                           "number from 0 to FF")
                                .arg(record[0].Written())
                                .arg(r + 1),
                            line);
            return false;
        }
        entry.Name = record[1].Written();
        const int place = record[2].ToInt32();
        if (record[2].kind() != Field::Kind::Number || place < 0 || place > Limits::TableRows - 1) {
            error = Damaged(path,
                            QStringLiteral("the list place \"%1\" of species %2 is no number "
                                           "from 0 to %3")
                                .arg(record[2].Written())
                                .arg(r + 1)
                                .arg(Limits::TableRows - 1),
                            line);
            return false;
        }
        entry.Place = static_cast<std::int16_t>(place);
        entry.Named = true;
        tables.ByCode[entry.Code] = entry;
        tables.ByList[entry.Place] = entry;
        tables.Records.push_back(entry);
    }
    // What follows the announced records is no part of the list: the wild
    // editor leaves it unread, and tarnwey-check points it out.
    if (!reader.AtEnd()) tables.ExtraLine = reader.Line();
    tables.Count = n;
    return true;
}
}  // namespace

bool LoadMorlickFile(const QString& path, MorlickTables& tables, QString& error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral(
                    "The data file \"%1\" could not be read (%2).\n\n"
                    "Tarnwey needs it beside the program to name the wild Morlick.")
                    .arg(QFileInfo(path).fileName(), file.errorString());
        return false;
    }
    return LoadMorlickFile(path, file.readAll(), tables, error);
}

bool LoadMorlickFile(const QString& path, const QByteArray& content, MorlickTables& tables,
                     QString& error) {
    FieldReader reader(content);
    return DataFile::Finish(reader, ReadSpecies(reader, path, tables, error), path, error,
                            WildStop);
}
