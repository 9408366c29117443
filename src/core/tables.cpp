#include "core/tables.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include "core/datafile.h"
#include "core/fieldreader.h"

bool LoadTilesetFile(const QString& path, TilesetTableT& table, QString& error,
                     std::int16_t* lastRow) {
    QByteArray content;
    if (!DataFile::ReadWhole(path, content, error)) return false;
    return LoadTilesetFile(path, content, table, error, lastRow);
}

namespace {
bool ReadTilesets(FieldReader& reader, const QString& path, TilesetTableT& table, QString& error,
                  std::int16_t* lastRow) {
    reader.SkipLine();
    int row = -1;
    do {
        ++row;
        if (row >= Limits::TableRows) {
            error =
                DataFile::Damaged(path, QStringLiteral("it holds more than %1 tilesets (line %2).")
                                            .arg(Limits::TableRows)
                                            .arg(reader.Line()));
            return false;
        }
        table[row] = {};
        if (!DataFile::ReadRecord(reader, table[row], 0, TilesetColumnCount, path,
                                  QStringLiteral("tileset %1").arg(row), error))
            return false;
    } while (!reader.AtEnd());
    if (lastRow) *lastRow = static_cast<std::int16_t>(row);
    return true;
}

bool ReadMaps(FieldReader& reader, const QString& path, CategoryTableT& categories, MapTableT& maps,
              std::int16_t& categoryCount, QString& error) {
    reader.SkipLine();
    int category = -1;
    do {
        reader.SkipLine();  // the marker line of a group
        ++category;
        if (category >= Limits::TableRows) {
            error = DataFile::Damaged(path,
                                      QStringLiteral("it holds more than %1 categories (line %2).")
                                          .arg(Limits::TableRows)
                                          .arg(reader.Line()));
            return false;
        }
        auto& cat = categories[category];
        cat = {};
        if (!DataFile::ReadRecord(reader, cat, CatName, CategoryColumnCount - CatName, path,
                                  QStringLiteral("category %1").arg(category), error))
            return false;
        const int first = cat[CatFirstMap].ToInt16();
        const int count = cat[CatMapCount].ToInt16();
        if (first < 0 || first >= Limits::TableRows || count < 0 ||
            first + count > Limits::TableRows) {
            error = DataFile::Damaged(path,
                                      QStringLiteral("the category \"%1\" names map rows %2 to %3, "
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
            if (!DataFile::ReadRecord(reader, maps[r], 0, MapColumnCount, path,
                                      QStringLiteral("map %1").arg(r), error))
                return false;
        }
    } while (!reader.AtEnd());
    categoryCount = static_cast<std::int16_t>(category);
    return true;
}
}  // namespace

bool LoadTilesetFile(const QString& path, const QByteArray& content, TilesetTableT& table,
                     QString& error, std::int16_t* lastRow) {
    FieldReader reader(content);
    // The last row is told only of a file that was read whole.
    std::int16_t last = -1;
    if (!DataFile::Finish(reader, ReadTilesets(reader, path, table, error, &last), path, error))
        return false;
    if (lastRow) *lastRow = last;
    return true;
}

bool LoadMapsFile(const QString& path, CategoryTableT& categories, MapTableT& maps,
                  std::int16_t& categoryCount, QString& error) {
    QByteArray content;
    if (!DataFile::ReadWhole(path, content, error)) return false;
    return LoadMapsFile(path, content, categories, maps, categoryCount, error);
}

bool LoadMapsFile(const QString& path, const QByteArray& content, CategoryTableT& categories,
                  MapTableT& maps, std::int16_t& categoryCount, QString& error) {
    FieldReader reader(content);
    // The count is told only of a file that was read whole.
    std::int16_t count = 0;
    if (!DataFile::Finish(reader, ReadMaps(reader, path, categories, maps, count, error), path,
                          error))
        return false;
    categoryCount = count;
    return true;
}
