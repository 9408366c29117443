#include "check/columnnames.h"

#include <QStringList>

namespace Check {

namespace {
QString Named(const QStringList& names, int column) {
    return column >= 0 && column < names.size() ? names[column] : QString();
}
}  // namespace

QString TilesetColumnName(int column) {
    static const QStringList names = {
        QStringLiteral("first field"), QStringLiteral("second field"),
        QStringLiteral("last tile"),   QStringLiteral("tile base"),
        QStringLiteral("last block"),  QStringLiteral("block position"),
        QStringLiteral("block bias"),
    };
    return Named(names, column);
}

QString CategoryColumnName(int column) {
    static const QStringList names = {QString(), QStringLiteral("name"),
                                      QStringLiteral("first map row"),
                                      QStringLiteral("number of maps")};
    return Named(names, column);
}

QString MapColumnName(int column) {
    static const QStringList names = {
        QStringLiteral("first field"),      QStringLiteral("name"),
        QStringLiteral("grid position"),    QStringLiteral("object data position"),
        QStringLiteral("fifth field"),      QStringLiteral("height"),
        QStringLiteral("seventh field"),    QStringLiteral("width"),
        QStringLiteral("tileset"),          QStringLiteral("note"),
        QStringLiteral("warp-to position"), QStringLiteral("placement fix"),
        QStringLiteral("warps editable"),   QStringLiteral("warp-to count"),
        QStringLiteral("x shift"),          QStringLiteral("y shift"),
        QStringLiteral("wild position"),    QStringLiteral("events editable"),
    };
    return Named(names, column);
}

QString EventTypeColumnName(int column) {
    static const QStringList names = {
        QStringLiteral("first field"),
        QStringLiteral("name"),
        QStringLiteral("list column"),
        QStringLiteral("record size"),
        QStringLiteral("first bias"),
        QStringLiteral("second bias"),
        QStringLiteral("y byte"),
        QStringLiteral("x byte"),
        QStringLiteral("text byte"),
        QStringLiteral("picture byte"),
        QStringLiteral("movement 1 byte"),
        QStringLiteral("movement 2 byte"),
        QStringLiteral("item byte"),
        QStringLiteral("Morlick set byte"),
        QStringLiteral("trainer type byte"),
    };
    return Named(names, column);
}

QString SpeciesColumnName(int column) {
    static const QStringList names = {QStringLiteral("code"), QStringLiteral("name"),
                                      QStringLiteral("list place")};
    return Named(names, column);
}

QString EventsColumnName(int column, const EventTypeTableT& types, int lastType) {
    if (column == 0) return QStringLiteral("map row");
    for (int t = 0; t <= lastType; ++t) {
        const int listColumn = types[t][TypeListColumn].ToInt32();
        const QString name = types[t][TypeName].ToText();
        if (column == listColumn) return QStringLiteral("position of the \"%1\" list").arg(name);
        if (column == listColumn + 1) return QStringLiteral("number of \"%1\" records").arg(name);
    }
    return QStringLiteral("column %1").arg(column);
}

}  // namespace Check
