#include "core/mappattern.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

#include "core/hextext.h"
#include "core/limits.h"

bool PatternText(const MapGridT& grid, QRect squares, QString& text) {
    QString lines;
    for (int y = squares.top(); y <= squares.bottom(); ++y) {
        for (int x = squares.left(); x <= squares.right(); ++x) {
            const int block = grid[y][x];
            if (block < 0) return false;
            lines += HexText(block);
            lines += x < squares.right() ? u' ' : u'\n';
        }
    }
    text = lines;
    return true;
}

bool ParsePattern(const QString& text, Pattern& pattern) {
    static const QRegularExpression HexField(QStringLiteral("^[0-9A-Fa-f]{1,2}$"));
    static const QRegularExpression Blanks(QStringLiteral("[ \t]+"));
    QStringList lines = text.split(u'\n');
    const auto blank = [](const QString& line) { return line.trimmed().isEmpty(); };
    while (!lines.isEmpty() && blank(lines.back()))
        lines.removeLast();
    if (lines.isEmpty() || lines.size() > Limits::MapSizeMax) return false;
    Pattern read;
    read.Height = static_cast<int>(lines.size());
    for (QString line : lines) {
        // A line of a text written on Windows ends in a carriage return.
        if (line.endsWith(u'\r')) line.chop(1);
        int count = 0;
        for (const QString& field : line.split(Blanks, Qt::SkipEmptyParts)) {
            if (!HexField.match(field).hasMatch()) return false;
            read.Blocks.push_back(static_cast<std::int16_t>(field.toInt(nullptr, 16)));
            ++count;
        }
        if (count == 0 || count > Limits::MapSizeMax) return false;
        if (read.Width == 0) read.Width = count;
        if (count != read.Width) return false;
    }
    pattern = std::move(read);
    return true;
}

int FirstBlockAbove(const Pattern& pattern, int lastBlock) {
    const auto above = std::find_if(pattern.Blocks.begin(), pattern.Blocks.end(),
                                    [lastBlock](std::int16_t block) { return block > lastBlock; });
    return above == pattern.Blocks.end() ? -1 : *above;
}
