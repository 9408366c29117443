#include <algorithm>

#include "support/placementtest.h"
#include "warpedit/warpedit.h"

// The warp editor, and through it what it shares with the event editor: the
// placement view's symbols, squares and gridlines on the main window's map.
namespace {

constexpr int RomSize = 64 * 1024;

// Map rows of the project.
enum { Town, Wide, Three, Eight, Many, Outside, AtEnd };

const QString Saved = QStringLiteral("Your changes to the warps have been saved!");

Fixture::SmallProject WarpProject() {
    Fixture::SmallProject project(RomSize);
    project.AddTileset(3, 0);
    const int cat = project.AddCategory(QStringLiteral("Warps"), 0);
    const auto add = [&](const char* name, int cols, int rows) {
        return project.AddMap(cat, QString::fromLatin1(name), cols, rows, 0,
                              [](int x, int y) { return (x + y) % 4; });
    };
    add("Town", 10, 8);
    add("Wide", 40, 30);
    add("Three", 3, 2);
    add("Eight", 8, 6);
    add("Many", 4, 4);
    add("Outside", 4, 4);
    add("At the end", 4, 4);
    // The town's coordinates are stored less its offsets of 2 and 3.
    project.Map(Town).XShift = 2;
    project.Map(Town).YShift = 3;
    project.AddWarps(Town, {{1, 4, 5, 6}, {3, 7, 0, 255}, {0, 0, 128, 1}});
    project.AddWarpTo(Town, {{Fixture::EventPlacement(10, 1, 0, 0), 2, 3},
                             {Fixture::EventPlacement(10, 0, 1, 0), 0, 0}});
    // Around the edges of the view's 16 x 12 squares.
    project.AddWarps(Wide, {{0, 15, 0, 0}, {0, 16, 0, 0}, {11, 2, 0, 0}, {12, 1, 0, 0}});
    project.AddWarpTo(Wide, {});
    for (const int map : {Three, Eight})
        project.AddWarps(map, {{0, 0, 1, 1}});
    // Seventeen warps, one past a full list, and a full list of warp-to points.
    std::vector<Fixture::Warp> seventeen(17);
    for (int i = 0; i < 17; ++i)
        seventeen[i] = {i % 8, i % 8, i, i};
    project.AddWarps(Many, seventeen);
    project.AddWarpTo(Many, std::vector<Fixture::WarpToPoint>(16));
    // Lists of three warps: one ends with the ROM's last byte, the other
    // would run one byte past it.
    project.Map(AtEnd).ObjectPos = RomSize - 13;
    project.Map(Outside).ObjectPos = RomSize - 12;
    project.Rom.PutByte(RomSize - 12, 3);
    project.Rom.PutByte(RomSize - 11, 3);
    for (const int map : {Outside, Three, Eight, AtEnd})
        project.AddWarpTo(map, {{0, 0, 0}});
    return project;
}

}  // namespace

class WarpEditTest : public PlacementTest<WarpEdit, &MainForm::mnuWarpEdit> {
protected:
    void SetUp() override {
        AppTest::SetUp();
        StartUpOn(Project);
    }
    const Fixture::MapRow& Row(int map) const { return Project.Categories[0].Maps[map]; }

    Fixture::SmallProject Project = WarpProject();
};

// A placement and a typed target, then a save: the bytes of the list alone
// change, the offsets come off for the ROM and go back on for the window, and
// a target of 255, the highest, is no fault. A field outside a byte is not saved.
TEST_F(WarpEditTest, TheWarpSaveRewritesExactlyItsListWithTheOffsetsTakenOff) {
    WarpEdit* w = Open(Town);
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->WarpCount, 3);
    EXPECT_EQ(w->Warps[0], (WarpRecord{1 + 3, 4 + 2, 5, 6}));

    // Behind the window's back: the count, both ends of the list and the
    // byte after it. The save puts back the list and nothing else.
    const int p = Row(Town).ObjectPos;
    const int first = p + 2;
    const int last = first + 4 * 3 - 1;
    for (const int at : {p + 1, first, last, last + 1})
        PutRomByte(at, 0xEE);
    const QByteArray tampered = ReadFile(Defines.RomPath);

    // A typed target is lost when another warp is selected.
    w->ToMap->setText(QStringLiteral("77"));
    PressSymbol(w, 1);
    EXPECT_EQ(w->DWarpNum->text(), QStringLiteral("Warp Number: 1"));
    EXPECT_EQ(w->ToMap->text(), QStringLiteral("255"));
    EXPECT_EQ(w->ToPoint->text(), QStringLiteral("0"));
    // Warp 1 to the square right of and below the top left of block (2, 3);
    // its point typed, and rounded half to even.
    PressCell(w, 1, 2, 10);
    EXPECT_TRUE(w->WarpsChanged);
    Script.AnswerNo();
    EXPECT_FALSE(CloseWindow(w));  // closing asks about the placement; No keeps the window
    EXPECT_EQ(w->Warps[1][0], 5);  // y = 2 * 3 - 2 + 1
    EXPECT_EQ(w->Warps[1][1], 3);  // x = 2 * 2 - 2 + 1
    w->ToPoint->setText(QStringLiteral(" 2.5 "));
    Save(w);
    EXPECT_FALSE(w->WarpsChanged);
    EXPECT_EQ(Script.Count(Saved), 1);
    const QByteArray after = ReadFile(Defines.RomPath);
    EXPECT_EQ(Differences(tampered, after),
              (std::vector<int>{first, first + 4, first + 5, first + 6, last}));
    // Warps 0 and 2 as read; warp 1 at y 5 - 3 and x 3 - 2, point 2, map 255.
    EXPECT_EQ(after.mid(first - 1, 12), QByteArray::fromHex("01040506 020102FF 00008001"));
    // After its save the window shows the warp where it was put and the
    // typed point as a number.
    EXPECT_EQ(w->Warps[1], (WarpRecord{5, 3, 2, 255}));
    PressSymbol(w, 0);
    PressSymbol(w, 1);
    EXPECT_EQ(w->ToPoint->text(), QStringLiteral("2"));

    // A field outside a byte refuses the save, the entry and the field named,
    // and leaves the table in the window's coordinates.
    Script.Clear();
    w->ToMap->setText(QStringLiteral("256"));
    Save(w);
    ExpectRefused(QStringLiteral("Warp 1"), QStringLiteral("Warp-To Map"), after);
    w->ToMap->setText(QStringLiteral("6"));
    PressSymbol(w, 2);
    PressCell(w, 0, 2, 2);  // x = 1 falls below the map's offset of 2
    Save(w);
    ExpectRefused(QStringLiteral("Warp 2"), QStringLiteral("its x"), after);
    EXPECT_EQ(w->Warps[2][1], 1);
}

TEST_F(WarpEditTest, TheWarpToSaveWritesTheEventPlacementAndLeavesTheWarpsAlone) {
    WarpEdit* w = Open(Town);
    ASSERT_NE(w, nullptr);
    w->EditWarpTo->click();
    EXPECT_FALSE(w->ToMap->isVisible());
    EXPECT_TRUE(w->Label4->isVisible());
    EXPECT_EQ(w->WarpCount, 2);
    EXPECT_EQ(w->WarpSym[0]->Picture(), &w->WarpToSel);
    EXPECT_EQ(w->WarpSym[1]->Picture(), &w->WarpToNon);
    const QByteArray before = ReadFile(Defines.RomPath);

    // Point 1 to block (3, 4) of a map 10 wide: 239 + 10 + 2 + 3 x 16 = 299,
    // which carries once. Every quadrant gives the same placement.
    PressSymbol(w, 1);
    EXPECT_EQ(w->DWarpNum->text(), QStringLiteral("Warp-To Number: 1"));
    for (const int place : {0, 3, 12, 15}) {
        PressCell(w, 2, 3, place);
        EXPECT_EQ(w->Label4->text(), QStringLiteral("Event Placement: 43"));
        EXPECT_EQ(w->Label6->text(), QStringLiteral("199"));
    }
    EXPECT_EQ(w->Warps[1], (WarpRecord{43, 199, 7, 5}));
    Save(w);
    EXPECT_EQ(Script.Count(Saved), 1);
    const int q = Row(Town).WarpToPos;
    const QByteArray after = ReadFile(Defines.RomPath);
    // The high byte was 199 already.
    EXPECT_EQ(Differences(before, after), (std::vector<int>{q + 4, q + 6, q + 7}));
    EXPECT_EQ(RomByte(after, q + 4), 43);
    EXPECT_EQ(RomByte(after, q + 6), 7 - 3);
    EXPECT_EQ(RomByte(after, q + 7), 5 - 2);

    // Back to the warps: read again from the ROM, untouched.
    w->EditWarps->click();
    EXPECT_EQ(w->Warps[0], (WarpRecord{4, 6, 5, 6}));
    EXPECT_EQ(w->WarpSym[0]->Picture(), &w->WarpSel);
}

TEST_F(WarpEditTest, SymbolsShowOnlyInsideTheViewAndFollowItsScrolls) {
    WarpEdit* w = Open(Wide);
    ASSERT_NE(w, nullptr);
    const auto& sym = w->WarpSym;
    EXPECT_TRUE(sym[0]->isVisibleTo(w));
    EXPECT_EQ(sym[0]->LeftTwips(), 7320);  // x = 15
    EXPECT_FALSE(sym[1]->isVisibleTo(w));  // x = 16
    EXPECT_TRUE(sym[2]->isVisibleTo(w));
    EXPECT_EQ(sym[2]->TopTwips(), 5400);   // y = 11
    EXPECT_FALSE(sym[3]->isVisibleTo(w));  // y = 12
    EXPECT_FALSE(sym[4]->isVisibleTo(w));  // no warp

    // Each bar scrolls one square a step, until the last column or row
    // reaches the view's edge.
    MapView* view = w->Placement->View;
    EXPECT_EQ(view->HScroll->maximum(), 40 - 7);
    EXPECT_EQ(view->VScroll->maximum(), 30 - 5);
    view->VScroll->setValue(1);
    view->HScroll->setValue(2);
    EXPECT_EQ(sym[2]->LeftTwips(), 120);  // x = 2
    EXPECT_TRUE(sym[1]->isVisibleTo(w));
    EXPECT_EQ(sym[1]->LeftTwips(), 6840);  // x = 16
    EXPECT_FALSE(sym[3]->isVisibleTo(w));  // x = 1
}

// Of two symbols on one square the selected one is in front, also after a
// scroll; a press on it selects it and never moves it.
TEST_F(WarpEditTest, APressOnASymbolSelectsItAndNeverMovesIt) {
    WarpEdit* w = Open(Town);
    ASSERT_NE(w, nullptr);
    // Warp 2 onto warp 0's square (x 6, y 4: block 4, 3, its upper left).
    PressSymbol(w, 2);
    PressCell(w, 3, 2, 0);
    ASSERT_EQ(w->Warps[2][1], 6);
    ASSERT_EQ(w->Warps[2][0], 4);
    w->WarpsChanged = false;
    const QPoint square =
        w->WarpSym[0]->mapTo(w->Client(), QPoint(16, 16));  // the middle of the square
    EXPECT_EQ(w->Client()->childAt(square), w->WarpSym[2]);
    PressSymbol(w, 0);
    EXPECT_EQ(w->SelWarp, 0);
    EXPECT_EQ(w->Client()->childAt(square), w->WarpSym[0]);
    EXPECT_EQ(w->WarpSym[0]->Picture(), &w->WarpSel);
    EXPECT_EQ(w->WarpSym[2]->Picture(), &w->WarpNon);
    EXPECT_FALSE(w->WarpsChanged);
    // Whatever lies in front, a scroll that puts the symbols back brings the
    // selected one to the front.
    w->WarpSym[2]->raise();
    w->Placement->View->VScroll->setValue(2);
    w->Placement->View->VScroll->setValue(1);
    EXPECT_EQ(w->Client()->childAt(square), w->WarpSym[0]);
}

// The view both editors place their entries on is the main window's map
// view with gridlines at half-block pitch. Its frame, scroll bars, cells and
// lines follow the map's size, with at most 8 x 6 blocks in view, and each
// line runs the frame's length. The view starts from the main window's
// setting, and lines turned on fit the map loaded while they were off.
TEST_F(WarpEditTest, TheViewAndItsGridlinesFitTheMapSize) {
    Form->mnuGridlines->trigger();
    struct Case {
        int map, cols, rows;
    };
    for (const Case& c : {Case{Three, 3, 2}, Case{Eight, 8, 6}, Case{Wide, 40, 30}}) {
        SCOPED_TRACE(c.cols);
        WarpEdit* w = Open(c.map);
        ASSERT_NE(w, nullptr);
        MapView* view = w->Placement->View;
        const int width = 960 * std::min(c.cols, 8) + 15;
        const int height = 960 * std::min(c.rows, 6) + 15;
        EXPECT_EQ(view->Shape2->WidthTwips(), width);
        EXPECT_EQ(view->Shape2->HeightTwips(), height);
        EXPECT_EQ(view->HScroll->isVisibleTo(w), c.cols > 8);
        EXPECT_EQ(view->VScroll->isVisibleTo(w), c.rows > 6);
        for (int i = 0; i < 768; ++i)
            ASSERT_EQ(view->MapTile->CellVisible(i), i / 16 % 8 < c.cols && i / 128 < c.rows) << i;
        EXPECT_FALSE(w->CheckGrid->isChecked());
        EXPECT_FALSE(view->Vertical[0]->isVisibleTo(w));
        w->CheckGrid->click();
        ASSERT_EQ(view->Vertical.size(), 15u);
        ASSERT_EQ(view->Horizontal.size(), 11u);
        for (int k = 1; k <= 15; ++k)
            EXPECT_EQ(view->Vertical[k - 1]->isVisibleTo(w), k < 2 * c.cols) << k;
        for (int k = 1; k <= 11; ++k)
            EXPECT_EQ(view->Horizontal[k - 1]->isVisibleTo(w), k < 2 * c.rows) << k;
        EXPECT_EQ(view->Vertical[0]->Y2(), 120 + height);  // each line runs the frame's length
        EXPECT_EQ(view->Horizontal[0]->X2(), 120 + width);
        // A cell beyond the map takes no press.
        PressCell(w, 7, 5, 0);
        EXPECT_EQ(w->WarpsChanged, c.map != Three);
        w->WarpsChanged = false;
        ASSERT_TRUE(CloseWindow(w));
    }
}

TEST_F(WarpEditTest, ListsTheEditorCannotReadWhollyAreToldOnOpening) {
    // Seventeen warps: the first sixteen, and a word about it; sixteen
    // warp-to points are a full list, shown without a word.
    WarpEdit* w = Open(Many);
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->WarpCount, 16);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Information), 1);
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("17")));
    w->EditWarpTo->click();
    EXPECT_EQ(w->WarpCount, 16);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Information), 1);
    ASSERT_TRUE(CloseWindow(w));

    // A list that ends with the ROM opens; one a byte longer keeps the window shut.
    w = Open(AtEnd);
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->WarpCount, 3);
    ASSERT_TRUE(CloseWindow(w));
    Script.Clear();
    EXPECT_EQ(Open(Outside), nullptr);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    EXPECT_TRUE(Form->isVisible());
}
