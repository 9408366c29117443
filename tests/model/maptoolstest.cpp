#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/mapdrawing.h"
#include "core/mappattern.h"
#include "core/undolist.h"

namespace {
// A map written as rows of one hexadecimal digit a square, top row first.
using Picture = std::vector<std::string>;

struct Map {
    std::unique_ptr<MapGridT> Grid = std::make_unique<MapGridT>();
    int Width = 0;
    int Height = 0;
};

Map MakeMap(const Picture& rows) {
    Map map;
    map.Height = static_cast<int>(rows.size());
    map.Width = static_cast<int>(rows[0].size());
    for (int y = 1; y <= map.Height; ++y)
        for (int x = 1; x <= map.Width; ++x)
            (*map.Grid)[y][x] = static_cast<std::int16_t>(
                std::stoi(rows[static_cast<size_t>(y - 1)].substr(static_cast<size_t>(x - 1), 1),
                          nullptr, 16));
    return map;
}

Picture Draw(const Map& map) {
    Picture rows;
    for (int y = 1; y <= map.Height; ++y) {
        std::string row;
        for (int x = 1; x <= map.Width; ++x)
            row += "0123456789ABCDEF"[(*map.Grid)[y][x] & 15];
        rows.push_back(row);
    }
    return rows;
}
}  // namespace

// Each tool on a small map: the squares it paints, the step holding only the
// squares it changed, and the step applied backwards giving the map back.
TEST(MapTools, StepsChangeExactlyTheirSquaresAndUndoWhole) {
    const Picture start = {
        "11112",  //
        "12212",  //
        "12121",  //
        "21113",
    };
    Pattern pattern;
    ASSERT_TRUE(ParsePattern(QStringLiteral("7 8\n9 A\n"), pattern));
    struct Case {
        const char* name;
        std::function<MapStep(const Map&)> step;
        Picture after;
    };
    const std::vector<Case> cases = {
        {"rectangle from corner to corner, both included",
         [](const Map& m) {
             return RectangleStep(*m.Grid, SquaresBetween({4, 3}, {2, 2}), 5);
         },
         {"11112", "15552", "15551", "21113"}},
        {"fill side by side only, not across the corners at (5, 3) and (2, 4)",
         [](const Map& m) {
             return FillStep(*m.Grid, m.Width, m.Height, {1, 1}, 6);
         },
         {"66662", "62262", "62121", "21113"}},
        {"fill down the last column",
         [](const Map& m) {
             return FillStep(*m.Grid, m.Width, m.Height, {5, 1}, 6);
         },
         {"11116", "12216", "12121", "21113"}},
        {"stamp over the bottom right corner, clipped",
         [&pattern](const Map& m) {
             return StampStep(*m.Grid, m.Width, m.Height, pattern, {5, 4});
         },
         {"11112", "12212", "12121", "21117"}},
        {"brush squares of a line",
         [](const Map& m) {
             return PaintStep(*m.Grid, LineSquares({1, 4}, {5, 1}), 0);
         },
         {"11110", "12002", "10121", "01113"}},
        {"brush over squares that mostly hold the block already",
         [](const Map& m) {
             return PaintStep(*m.Grid, LineSquares({1, 1}, {5, 1}), 1);
         },
         {"11111", "12212", "12121", "21113"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Map map = MakeMap(start);
        const MapStep step = c.step(map);
        step.Apply(*map.Grid);
        EXPECT_EQ(Draw(map), c.after);
        // Only changed squares, each with its old and new block.
        int changed = 0;
        for (size_t y = 0; y < start.size(); ++y)
            for (size_t x = 0; x < start[y].size(); ++x)
                changed += start[y][x] != c.after[y][x];
        EXPECT_EQ(static_cast<int>(step.Changes.size()), changed);
        step.Apply(*map.Grid, false);
        EXPECT_EQ(Draw(map), start);
    }
}

TEST(MapTools, ClipboardTextAndItsParser) {
    Map map = MakeMap({"0AB", "1DE"});
    (*map.Grid)[1][1] = 0xF1;
    QString text;
    ASSERT_TRUE(PatternText(*map.Grid, QRect(1, 1, 3, 2), text));
    EXPECT_EQ(text, QStringLiteral("F1 0A 0B\n01 0D 0E\n"));
    (*map.Grid)[2][2] = -1;  // a byte below the tileset's bias has no text
    EXPECT_FALSE(PatternText(*map.Grid, QRect(1, 1, 3, 2), text));
    EXPECT_EQ(text, QStringLiteral("F1 0A 0B\n01 0D 0E\n"));

    const QString wide = QStringLiteral("1 ").repeated(255);
    struct Case {
        QString text;
        bool ok;
        int width = 0, height = 0;
        std::vector<std::int16_t> blocks = {};
    };
    const std::vector<Case> cases = {
        {"a\tb  f\r\nFf 0 1\r\n\n  \n", true, 3, 2, {10, 11, 15, 255, 0, 1}},
        {"1 2\n3\n", false},
        {wide, true, 255, 1, std::vector<std::int16_t>(255, 1)},
        {wide + "1", false},
        {QString("1\n").repeated(255), true, 1, 255, std::vector<std::int16_t>(255, 1)},
        {QString("1\n").repeated(256), false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text.left(40).toStdString());
        Pattern pattern;
        pattern.Width = -1;
        ASSERT_EQ(ParsePattern(c.text, pattern), c.ok);
        if (!c.ok) {
            EXPECT_EQ(pattern.Width, -1);  // a refused text leaves the pattern alone
            continue;
        }
        EXPECT_EQ(pattern.Width, c.width);
        EXPECT_EQ(pattern.Height, c.height);
        EXPECT_EQ(pattern.Blocks, c.blocks);
    }
}

// Undo and redo of whole steps; the list reaches back 100 steps and a new
// step empties the redo list.
TEST(MapTools, UndoListKeepsOneHundredWholeSteps) {
    Map map = MakeMap({"000", "000"});
    UndoList list;
    const auto push = [&](int x, int y, int block) {
        MapStep step = PaintStep(*map.Grid, {{x, y}, {x + 1, y}}, static_cast<std::int16_t>(block));
        step.Apply(*map.Grid);
        list.Push(step);
    };
    for (int n = 1; n <= 101; ++n)
        push(1 + n % 2, 1 + n % 2, n % 16);
    EXPECT_EQ(list.UndoCount(), 100);
    const Picture last = Draw(map);
    for (int n = 0; n < 100; ++n)
        ASSERT_TRUE(list.Undo(*map.Grid));
    EXPECT_FALSE(list.Undo(*map.Grid));
    EXPECT_EQ(Draw(map), (Picture{"000", "011"}));  // as step 1 left it
    for (int n = 0; n < 100; ++n)
        ASSERT_TRUE(list.Redo(*map.Grid));
    EXPECT_FALSE(list.Redo(*map.Grid));
    EXPECT_EQ(Draw(map), last);
    list.Undo(*map.Grid);
    push(1, 1, 7);
    EXPECT_EQ(list.RedoCount(), 0);
}
