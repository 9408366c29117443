#include "check/cells.h"

#include <set>

#include "check/columnnames.h"

namespace Check {

namespace {
Finding Cell(const QString& file, int row, const QString& name, int column,
             const QString& columnName) {
    Finding cell;
    cell.File = file;
    cell.Row = row;
    cell.Name = name;
    cell.Column = column;
    cell.ColumnName = columnName;
    return cell;
}
}  // namespace

Finding TilesetCell(const VersionFiles& version, int tileset, int column) {
    return Cell(version.TilesetFile, tileset, QString(), column, TilesetColumnName(column));
}

Finding CategoryCell(const SharedFiles& files, int category, int column) {
    return Cell(QStringLiteral("Maps.twy"), category, files.Categories[category][CatName].ToText(),
                column, CategoryColumnName(column));
}

Finding MapCell(const SharedFiles& files, int map, int column) {
    return Cell(QStringLiteral("Maps.twy"), map, files.Maps[map][MapName].ToText(), column,
                MapColumnName(column));
}

Finding TypeCell(const SharedFiles& files, int type, int column) {
    return Cell(QStringLiteral("EventTypes.twy"), type, files.EventTypes[type][TypeName].ToText(),
                column, EventTypeColumnName(column));
}

Finding ListCell(const SharedFiles& files, int map, int column) {
    return Cell(QStringLiteral("Events.twy"), map, files.Maps[map][MapName].ToText(), column,
                EventsColumnName(column, files.EventTypes, files.LastEventType));
}

Finding SpeciesCell(const SharedFiles& files, int record, int column) {
    const auto& records = files.Species.Records;
    return Cell(QStringLiteral("Morlick.twy"), record,
                record < static_cast<int>(records.size())
                    ? records[static_cast<size_t>(record)].Name
                    : QString(),
                column, SpeciesColumnName(column));
}

QString MapLabel(const SharedFiles& files, int map) {
    return QStringLiteral("map %1 \"%2\"").arg(map).arg(files.Maps[map][MapName].ToText());
}

std::vector<int> MapRowsInUse(const SharedFiles& files) {
    std::set<int> rows;
    for (int c = 0; c <= files.LastCategory; ++c) {
        const auto& category = files.Categories[c];
        const int first = category[CatFirstMap].ToInt16();
        for (int r = first; r < first + category[CatMapCount].ToInt16(); ++r)
            rows.insert(r);
    }
    return {rows.begin(), rows.end()};
}

}  // namespace Check
