#include "core/tables.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include "core/fieldreader.h"

namespace {
bool ReadWholeFile(const QString& path, QByteArray& content, QString& error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral(
                    "The data file \"%1\" could not be read (%2).\n\n"
                    "Tarnwey needs it beside the program and cannot go on without it.")
                    .arg(QFileInfo(path).fileName(), file.errorString());
        return false;
    }
    content = file.readAll();
    return true;
}

QString Damaged(const QString& path, const QString& what) {
    return QStringLiteral("The data file \"%1\" is damaged: %2\n\nTarnwey cannot go on without it.")
        .arg(QFileInfo(path).fileName(), what);
}

// Reads one record of `count` fields into row[first..]. A file that ends inside
// a record is an error: half a record would give wrong positions in the ROM.
template <typename Row>
bool ReadRecord(FieldReader& reader, Row& row, int first, int count, const QString& path,
                const QString& what, QString& error) {
    for (int c = 0; c < count; ++c) {
        if (!reader.ReadField(row[first + c])) {
            error = Damaged(path, QStringLiteral("it ends inside the record of %1 (line %2).")
                                      .arg(what)
                                      .arg(reader.Line()));
            return false;
        }
    }
    return true;
}
}  // namespace

bool LoadTilesetFile(const QString& path, TilesetTableT& table, QString& error) {
    QByteArray content;
    if (!ReadWholeFile(path, content, error)) return false;
    FieldReader reader(content);
    reader.SkipLine();
    int row = -1;
    do {
        ++row;
        if (row >= Limits::TableRows) {
            error = Damaged(path, QStringLiteral("it holds more than %1 tilesets (line %2).")
                                      .arg(Limits::TableRows)
                                      .arg(reader.Line()));
            return false;
        }
        table[row] = {};
        if (!ReadRecord(reader, table[row], 0, TilesetColumnCount, path,
                        QStringLiteral("tileset %1").arg(row), error))
            return false;
    } while (!reader.AtEnd());
    return true;
}

bool LoadMapsFile(const QString& path, CategoryTableT& categories, MapTableT& maps,
                  std::int16_t& categoryCount, QString& error) {
    QByteArray content;
    if (!ReadWholeFile(path, content, error)) return false;
    FieldReader reader(content);
    reader.SkipLine();
    int category = -1;
    do {
        reader.SkipLine();  // the marker line of a group
        ++category;
        if (category >= Limits::TableRows) {
            error = Damaged(path, QStringLiteral("it holds more than %1 categories (line %2).")
                                      .arg(Limits::TableRows)
                                      .arg(reader.Line()));
            return false;
        }
        auto& cat = categories[category];
        cat = {};
        if (!ReadRecord(reader, cat, CatName, CategoryColumnCount - CatName, path,
                        QStringLiteral("category %1").arg(category), error))
            return false;
        const int first = cat[CatFirstMap].ToInt16();
        const int count = cat[CatMapCount].ToInt16();
        if (first < 0 || first >= Limits::TableRows || count < 0 ||
            first + count > Limits::TableRows) {
            error = Damaged(path, QStringLiteral("the category \"%1\" names map rows %2 to %3, "
                                                 "outside the rows 0 to %4 (line %5).")
                                      .arg(cat[CatName].ToText())
                                      .arg(first)
                                      .arg(first + count - 1)
                                      .arg(Limits::TableRows - 1)
                                      .arg(reader.Line()));
            return false;
        }
        for (int r = first; r < first + count; ++r) {
            maps[r] = {};
            if (!ReadRecord(reader, maps[r], 0, MapColumnCount, path,
                            QStringLiteral("map %1").arg(r), error))
                return false;
        }
    } while (!reader.AtEnd());
    categoryCount = static_cast<std::int16_t>(category);
    return true;
}
