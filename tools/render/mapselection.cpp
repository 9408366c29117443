#include "render/mapselection.h"

#include <algorithm>

#include "core/defines.h"

namespace {
// The map rows of every category, in the order of the category table.
std::vector<int> ListedRows() {
    std::vector<int> rows;
    for (int c = 0; c <= Defines.CategoryCount; ++c) {
        const int first = Defines.CategoryTable[c][CatFirstMap].ToInt16();
        const int count = Defines.CategoryTable[c][CatMapCount].ToInt16();
        for (int r = first; r < first + count; ++r)
            rows.push_back(r);
    }
    return rows;
}

bool SameName(const QString& a, const QString& b) {
    return a.simplified().compare(b.simplified(), Qt::CaseInsensitive) == 0;
}

void AddOnce(std::vector<int>& rows, int row) {
    if (std::find(rows.begin(), rows.end(), row) == rows.end()) rows.push_back(row);
}
}  // namespace

bool SelectMaps(const QStringList& names, std::vector<int>& rows, QString& error) {
    rows.clear();
    const std::vector<int> listed = ListedRows();
    if (names.isEmpty()) {
        for (const int row : listed)
            AddOnce(rows, row);
        return true;
    }
    for (const QString& name : names) {
        bool isRow = false;
        const int row = name.trimmed().toInt(&isRow, 10);
        if (isRow) {
            if (std::find(listed.begin(), listed.end(), row) == listed.end()) {
                error = QStringLiteral("No category of Maps.twy lists a map at row %1.").arg(row);
                return false;
            }
            AddOnce(rows, row);
            continue;
        }
        bool found = false;
        for (const int r : listed) {
            if (!SameName(Defines.MapTable[r][MapName].ToText(), name)) continue;
            AddOnce(rows, r);
            found = true;
        }
        for (int c = 0; !found && c <= Defines.CategoryCount; ++c) {
            if (!SameName(Defines.CategoryTable[c][CatName].ToText(), name)) continue;
            const int first = Defines.CategoryTable[c][CatFirstMap].ToInt16();
            const int count = Defines.CategoryTable[c][CatMapCount].ToInt16();
            for (int r = first; r < first + count; ++r)
                AddOnce(rows, r);
            found = true;
        }
        if (!found) {
            error = QStringLiteral("No map and no category of Maps.twy is named \"%1\".").arg(name);
            return false;
        }
    }
    return true;
}

QString PictureFileName(int row) {
    QString name;
    for (const QChar c : Defines.MapTable[row][MapName].ToText().simplified()) {
        if (c.isLetterOrNumber() || c == u'-')
            name += c;
        else if (c == u' ' || c == u'_')
            name += u'_';
    }
    return QStringLiteral("%1_%2.png").arg(row, 3, 10, QLatin1Char('0')).arg(name);
}
