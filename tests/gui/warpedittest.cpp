#include <QFile>
#include <QTest>
#include <limits>
#include <memory>

#include "core/defines.h"
#include "mapview/compose.h"
#include "mapview/tiles.h"
#include "support/apptest.h"
#include "warpedit/warpedit.h"

namespace {

constexpr int RomSize = 64 * 1024;

// Map rows of the project.
enum { Town, Wide, One, Three, Eight, NoWarpTo, Many, Outside, Empty, AtEnd };

const QString Saved = QStringLiteral("Your changes to the warps have been saved!");
const QString Discard = QStringLiteral("Discard the changes you have made?");

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
    add("One", 1, 1);
    add("Three", 3, 2);
    add("Eight", 8, 6);
    add("No warp-to", 4, 4);
    add("Many", 4, 4);
    add("Outside", 4, 4);
    add("Empty", 4, 4);
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
    for (const int map : {One, Three, Eight})
        project.AddWarps(map, {{0, 0, 1, 1}});
    project.AddWarps(NoWarpTo, {{2, 2, 9, 9}});
    std::vector<Fixture::Warp> seventeen(17);
    for (int i = 0; i < 17; ++i)
        seventeen[i] = {i % 8, i % 8, i, i};
    project.AddWarps(Many, seventeen);
    project.AddWarps(Empty, {});
    // Lists of three warps: one ends with the ROM's last byte, the other
    // would run one byte past it.
    project.Map(AtEnd).ObjectPos = RomSize - 13;
    project.Map(Outside).ObjectPos = RomSize - 12;
    project.Rom.PutByte(RomSize - 12, 3);
    project.Rom.PutByte(RomSize - 11, 3);
    for (const int map : {Many, Outside, Empty, One, Three, Eight, NoWarpTo, AtEnd})
        project.AddWarpTo(map, {{0, 0, 0}});
    project.Map(NoWarpTo).WarpToPos = 1;
    return project;
}

}  // namespace

class WarpEditTest : public AppTest {
protected:
    void SetUp() override {
        AppTest::SetUp();
        Form = StartUp(Project);
        ASSERT_NE(Form, nullptr);
    }
    WarpEdit* Open(int map = Town) {
        GoTo(Form, 0, map);
        Form->mnuWarpEdit->trigger();
        for (WarpEdit* w : Form->findChildren<WarpEdit*>())
            if (w->isVisible()) return w;
        return nullptr;
    }
    bool Close(WarpEdit* w) {
        const bool closed = w->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return closed;
    }
    // Presses the cell of a view block (0 to 7, 0 to 5) at a place (0 to 15).
    static void PressCell(WarpEdit* w, int bx, int by, int place) {
        ::PressCell(w->Placement->View->MapTile, 16 * (bx + 8 * by) + place);
    }
    static void PressSymbol(WarpEdit* w, int index) {
        QTest::mousePress(w->WarpSym[index], Qt::LeftButton);
    }
    void Save(WarpEdit* w) {
        Script.AnswerNo();  // no backup
        QTest::mouseClick(w->Command1, Qt::LeftButton);
    }
    const Fixture::MapRow& Row(int map) const { return Project.Categories[0].Maps[map]; }
    void PutRomByte(int position, quint8 value) {
        QFile file(Defines.RomPath);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.seek(position - 1);
        file.write(reinterpret_cast<const char*>(&value), 1);
    }
    quint8 RomByte(const QByteArray& rom, int position) const {
        return static_cast<quint8>(rom[position - 1]);
    }

    Fixture::SmallProject Project = WarpProject();
    MainForm* Form = nullptr;
};

TEST_F(WarpEditTest, TheWarpSaveRewritesExactlyItsListWithTheOffsetsTakenOff) {
    WarpEdit* w = Open();
    ASSERT_NE(w, nullptr);
    // The table holds the window's coordinates: the offsets are on.
    EXPECT_EQ(w->WarpCount, 3);
    EXPECT_EQ(w->Warps[0], (WarpRecord{1 + 3, 4 + 2, 5, 6}));
    EXPECT_EQ(w->ToMap->text(), QStringLiteral("6"));
    EXPECT_EQ(w->ToPoint->text(), QStringLiteral("5"));
    EXPECT_EQ(w->DWarpNum->text(), QStringLiteral("Warp Number: 0"));

    // A save with no move rewrites the same bytes.
    const QByteArray before = ReadFile(Defines.RomPath);
    Save(w);
    EXPECT_EQ(Script.Count(Saved), 1);
    EXPECT_EQ(ReadFile(Defines.RomPath), before);
    EXPECT_EQ(w->Warps[0], (WarpRecord{4, 6, 5, 6}));  // the offsets are back on

    // Behind the window's back: the count, both ends of the list and the
    // byte after it. The save puts back the list and nothing else.
    const int p = Row(Town).ObjectPos;
    const int first = p + 2;
    const int last = first + 4 * 3 - 1;
    for (const int at : {p + 1, first, last, last + 1})
        PutRomByte(at, 0xEE);
    const QByteArray tampered = ReadFile(Defines.RomPath);

    // Warp 1 to the square right of and below the top left of block (2, 3).
    PressSymbol(w, 1);
    PressCell(w, 1, 2, 10);
    EXPECT_TRUE(w->WarpsChanged);
    EXPECT_EQ(w->Warps[1][0], 5);  // y = 2 * 3 - 2 + 1
    EXPECT_EQ(w->Warps[1][1], 3);  // x = 2 * 2 - 2 + 1
    Save(w);
    EXPECT_FALSE(w->WarpsChanged);
    const QByteArray after = ReadFile(Defines.RomPath);
    ASSERT_EQ(after.size(), tampered.size());
    EXPECT_EQ(Differences(tampered, after), (std::vector<int>{first, first + 4, first + 5, last}));
    EXPECT_EQ(RomByte(after, first), 1);
    EXPECT_EQ(RomByte(after, first + 4), 5 - 3);
    EXPECT_EQ(RomByte(after, first + 5), 3 - 2);
    EXPECT_EQ(RomByte(after, last), 1);
    EXPECT_EQ(RomByte(after, p), RomByte(before, p));  // the border byte
    EXPECT_EQ(RomByte(after, p + 1), 0xEE);            // the count is never written
    EXPECT_EQ(RomByte(after, last + 1), 0xEE);

    // Reopened, the window finds the warp where it was put.
    ASSERT_TRUE(Close(w));
    w = Open();
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->Warps[1][0], 5);
    EXPECT_EQ(w->Warps[1][1], 3);
}

TEST_F(WarpEditTest, TheWarpToSaveWritesTheEventPlacementAndLeavesTheWarpsAlone) {
    WarpEdit* w = Open();
    ASSERT_NE(w, nullptr);
    w->EditWarpTo->click();
    EXPECT_EQ(w->DWarpNum->text(), QStringLiteral("Warp-To Number: 0"));
    EXPECT_FALSE(w->ToMap->isVisible());
    EXPECT_FALSE(w->Label3->isVisible());
    EXPECT_TRUE(w->Label4->isVisible());
    EXPECT_EQ(w->WarpCount, 2);
    EXPECT_EQ(w->Warps[0][2], 2 + 3);
    EXPECT_EQ(w->Warps[0][3], 3 + 2);
    EXPECT_EQ(w->WarpSym[0]->Picture(), &w->WarpToSel);
    EXPECT_EQ(w->WarpSym[1]->Picture(), &w->WarpToNon);
    const QByteArray before = ReadFile(Defines.RomPath);

    // Point 1 to block (3, 4) of a map 10 wide: 239 + 10 + 2 + 3 x 16 = 299,
    // which carries once. Every quadrant gives the same placement.
    PressSymbol(w, 1);
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
    EXPECT_EQ(RomByte(after, q + 5), 199);
    EXPECT_EQ(RomByte(after, q + 6), 7 - 3);
    EXPECT_EQ(RomByte(after, q + 7), 5 - 2);

    // Back to the warps: read again from the ROM, untouched.
    w->EditWarps->click();
    EXPECT_EQ(w->Warps[0], (WarpRecord{4, 6, 5, 6}));
    EXPECT_EQ(w->WarpSym[0]->Picture(), &w->WarpSel);

    // The carry works downwards too.
    std::int32_t low = 0;
    std::int32_t high = 0;
    EventPlacement(10, 0, 0, -250, low, high);
    EXPECT_EQ(low, 255);
    EXPECT_EQ(high, 197);
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
    for (int i = 4; i < 16; ++i)
        EXPECT_FALSE(sym[i]->isVisibleTo(w)) << i;

    w->Placement->View->HScroll->setValue(2);
    EXPECT_EQ(sym[2]->LeftTwips(), 120);  // x = 2
    EXPECT_TRUE(sym[1]->isVisibleTo(w));
    EXPECT_EQ(sym[1]->LeftTwips(), 6840);  // x = 16
    EXPECT_FALSE(sym[3]->isVisibleTo(w));  // x = 1

    // The selected entry is placed even when its symbol is out of view.
    w->Placement->View->HScroll->setValue(10);
    EXPECT_FALSE(sym[0]->isVisibleTo(w));
    PressCell(w, 0, 0, 0);
    EXPECT_EQ(w->Warps[0][1], 18);
    EXPECT_EQ(w->Warps[0][0], 0);
    EXPECT_TRUE(sym[0]->isVisibleTo(w));
    EXPECT_EQ(sym[0]->LeftTwips(), 120);
}

TEST_F(WarpEditTest, APressOnASymbolSelectsItAndNeverMovesIt) {
    WarpEdit* w = Open();
    ASSERT_NE(w, nullptr);
    // Warp 2 onto warp 0's square (x 6, y 4: block 4, 3, its upper left).
    PressSymbol(w, 2);
    PressCell(w, 3, 2, 0);
    ASSERT_EQ(w->Warps[2][1], 6);
    ASSERT_EQ(w->Warps[2][0], 4);
    w->WarpsChanged = false;
    const QPoint square =
        w->WarpSym[0]->mapTo(w->Client(), QPoint(16, 16));  // the middle of the square
    // Warp 2, selected, lies on top: a press there reaches it.
    EXPECT_EQ(w->Client()->childAt(square), w->WarpSym[2]);
    PressSymbol(w, 0);
    EXPECT_EQ(w->SelWarp, 0);
    EXPECT_EQ(w->Client()->childAt(square), w->WarpSym[0]);
    EXPECT_EQ(w->WarpSym[0]->Picture(), &w->WarpSel);
    EXPECT_EQ(w->WarpSym[2]->Picture(), &w->WarpNon);
    EXPECT_EQ(w->Warps[0], (WarpRecord{4, 6, 5, 6}));
    EXPECT_FALSE(w->WarpsChanged);
    // After a scroll the selected one is still on top.
    w->Placement->View->VScroll->setValue(2);
    w->Placement->View->VScroll->setValue(1);
    EXPECT_EQ(w->Client()->childAt(square), w->WarpSym[0]);
    // Closing asks nothing: no placement since the flag was cleared.
    EXPECT_TRUE(Close(w));
    EXPECT_EQ(Script.Count(Discard), 0);
}

TEST_F(WarpEditTest, TypedTargetsReachOnlyTheRowSelectedAtTheSave) {
    WarpEdit* w = Open();
    ASSERT_NE(w, nullptr);
    const int first = Row(Town).ObjectPos + 2;
    w->ToMap->setText(QStringLiteral("77"));
    PressSymbol(w, 1);  // the typed 77 is lost
    EXPECT_EQ(w->ToMap->text(), QStringLiteral("255"));
    w->ToPoint->setText(QStringLiteral(" 2.5 "));
    w->ToMap->setText(QStringLiteral("12abc"));
    const QByteArray before = ReadFile(Defines.RomPath);
    Save(w);
    const QByteArray after = ReadFile(Defines.RomPath);
    EXPECT_EQ(Differences(before, after), (std::vector<int>{first + 6, first + 7}));
    EXPECT_EQ(RomByte(after, first + 6), 2);   // half to even
    EXPECT_EQ(RomByte(after, first + 7), 12);  // the number the text begins with
    EXPECT_EQ(RomByte(after, first + 3), 6);   // warp 0's target, as it was
    // The typed values now stand in the table.
    PressSymbol(w, 0);
    PressSymbol(w, 1);
    EXPECT_EQ(w->ToMap->text(), QStringLiteral("12"));
    EXPECT_EQ(w->ToPoint->text(), QStringLiteral("2"));
    w->ToPoint->setText(QStringLiteral("abc"));
    w->ToMap->setText(QStringLiteral("3.5"));
    Save(w);
    EXPECT_EQ(RomByte(ReadFile(Defines.RomPath), first + 6), 0);
    EXPECT_EQ(RomByte(ReadFile(Defines.RomPath), first + 7), 4);
}

TEST_F(WarpEditTest, AFieldOutsideAByteIsRefusedAndNothingIsWritten) {
    WarpEdit* w = Open();
    ASSERT_NE(w, nullptr);
    const QByteArray before = ReadFile(Defines.RomPath);
    // Beyond a byte, even beyond a double.
    w->ToMap->setText(QStringLiteral("1e999"));
    Save(w);
    ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("Warp 0")));
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("Warp-To Map")));
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Question), 0);  // refused before the backup
    EXPECT_EQ(w->ToMap->text(), QStringLiteral("1e999"));

    // An x that falls below the map's offset of 2.
    w->ToMap->setText(QStringLiteral("6"));
    PressSymbol(w, 2);
    PressCell(w, 0, 2, 2);  // x = 1, y = 4
    Script.Clear();
    Save(w);
    ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("Warp 2")));
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("its x")));
    EXPECT_EQ(ReadFile(Defines.RomPath), before);
    EXPECT_EQ(w->Warps[2][1], 1);  // still in the window's coordinates
    EXPECT_EQ(w->Warps[0], (WarpRecord{4, 6, 5, 6}));
    EXPECT_TRUE(w->WarpsChanged);
}

TEST_F(WarpEditTest, GridlinesAtHalfBlockPitchFitTheMap) {
    struct Case {
        int map;
        int cols;
        int rows;
    };
    for (const Case& c : {Case{One, 1, 1}, Case{Three, 3, 2}, Case{Eight, 8, 6}}) {
        SCOPED_TRACE(c.cols);
        WarpEdit* w = Open(c.map);
        ASSERT_NE(w, nullptr);
        MapView* view = w->Placement->View;
        const int width = 960 * c.cols + 15;
        const int height = 960 * c.rows + 15;
        EXPECT_EQ(view->Shape2->WidthTwips(), width);
        for (int pass = 0; pass < 2; ++pass) {
            ASSERT_EQ(view->Vertical.size(), 15u);
            ASSERT_EQ(view->Horizontal.size(), 11u);
            for (int k = 1; k <= 15; ++k) {
                Line* line = view->Vertical[k - 1];
                EXPECT_EQ(line->isVisibleTo(w), k < 2 * c.cols) << k;
                EXPECT_EQ(line->X1(), 120 + 480 * k);
                EXPECT_EQ(line->Y2(), 120 + height);
            }
            for (int k = 1; k <= 11; ++k) {
                Line* line = view->Horizontal[k - 1];
                EXPECT_EQ(line->isVisibleTo(w), k < 2 * c.rows) << k;
                EXPECT_EQ(line->X2(), 120 + width);
            }
            // Off hides every line; on brings back the same ones.
            w->CheckGrid->click();
            for (size_t n = 1; n < view->Lines.size(); ++n)
                EXPECT_FALSE(view->Lines[n]->isVisibleTo(w)) << n;
            w->CheckGrid->click();
        }
        // The names: Line13 is vertical line 8, Line21 horizontal line 6.
        EXPECT_EQ(view->Lines[13], view->Vertical[7]);
        EXPECT_EQ(view->Lines[21], view->Horizontal[5]);
        EXPECT_EQ(view->Lines[12], view->Horizontal[4]);
        ASSERT_TRUE(Close(w));
    }
    // The view starts from the main window's setting.
    Form->mnuGridlines->trigger();
    WarpEdit* w = Open(Eight);
    ASSERT_NE(w, nullptr);
    EXPECT_FALSE(w->CheckGrid->isChecked());
    EXPECT_FALSE(w->Placement->View->Vertical[0]->isVisibleTo(w));
}

TEST_F(WarpEditTest, ListsTheEditorCannotReadWhollyAreToldOnOpening) {
    // No warp-to list: that mode cannot be chosen.
    WarpEdit* w = Open(NoWarpTo);
    ASSERT_NE(w, nullptr);
    EXPECT_FALSE(w->EditWarpTo->isEnabled());
    ASSERT_TRUE(Close(w));

    // Seventeen warps: the first sixteen, and a word about it.
    w = Open(Many);
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->WarpCount, 16);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Information), 1);
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("17")));
    const QByteArray before = ReadFile(Defines.RomPath);
    Save(w);
    EXPECT_EQ(ReadFile(Defines.RomPath), before);
    ASSERT_TRUE(Close(w));

    // A list that ends with the ROM opens; one a byte longer keeps the window shut.
    w = Open(AtEnd);
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->WarpCount, 3);
    ASSERT_TRUE(Close(w));
    EXPECT_EQ(Open(Outside), nullptr);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    EXPECT_TRUE(Form->isVisible());

    // No warps: a save confirms and writes nothing; a placement fills row 0.
    w = Open(Empty);
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->WarpCount, 0);
    EXPECT_FALSE(w->WarpSym[0]->isVisibleTo(w));
    PressCell(w, 0, 0, 0);
    EXPECT_TRUE(w->WarpSym[0]->isVisibleTo(w));
    EXPECT_TRUE(w->WarpsChanged);
    Script.Clear();
    Save(w);
    EXPECT_EQ(Script.Count(Saved), 1);
    EXPECT_FALSE(w->WarpsChanged);
    EXPECT_EQ(ReadFile(Defines.RomPath), before);
}

// Offsets from Maps.twy were taken as 32-bit numbers, so that the highest and
// the lowest overflowed a field when they went on or off a byte. They are
// held to 16 bits now, and an unmoved warp is written back as it was.
TEST_F(WarpEditTest, OffsetsAtTheEndsOfTheRangeNoLongerOverflowAField) {
    auto& town = Defines.MapTable[Town];
    town[MapXShift] = Field::Number(std::numeric_limits<std::int32_t>::max());
    town[MapYShift] = Field::Number(std::numeric_limits<std::int32_t>::min());
    WarpEdit* w = Open(Town);
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->Warps[0][1], 4 + 32767);  // x
    EXPECT_EQ(w->Warps[0][0], 1 - 32768);  // y
    EXPECT_FALSE(w->WarpSym[0]->isVisibleTo(w));
    const QByteArray before = ReadFile(Defines.RomPath);
    Save(w);
    EXPECT_EQ(Script.Count(Saved), 1);
    EXPECT_EQ(ReadFile(Defines.RomPath), before);
}

// The editor works on the map as the main window holds it: unsaved painting
// shows in it, comes back untouched, and the map save writes it afterwards.
TEST_F(WarpEditTest, UnsavedPaintingShowsInTheEditorAndSurvivesIt) {
    const int fromRom = Defines.MapGrid[1][1];
    const int painted = (fromRom + 1) % 4;
    const QPixmap* paintedTile = TilePicture(TileIndex(Defines.BlockTiles[painted][0]));
    ASSERT_NE(paintedTile, TilePicture(TileIndex(Defines.BlockTiles[fromRom][0])));
    ::PressCell(Form->SideBlock, 16 * painted);
    ::PressCell(Form->View->MapTile, 0);
    ::PressCell(Form->BorderBlock, 0);
    const auto grid = std::make_unique<decltype(Defines.MapGrid)>(Defines.MapGrid);
    Form->mnuWarpEdit->trigger();
    WarpEdit* w = Form->findChildren<WarpEdit*>().value(0);
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->Placement->View->MapTile->Picture(0), paintedTile);
    // A placement: closing asks, and No keeps the window.
    PressCell(w, 1, 2, 0);
    Script.AnswerNo();
    EXPECT_FALSE(Close(w));
    // After the warp save closing asks nothing.
    Save(w);
    EXPECT_TRUE(Close(w));
    EXPECT_TRUE(*grid == Defines.MapGrid);
    EXPECT_EQ(Form->BorderNum, painted);
    EXPECT_TRUE(Form->MapChanged);
    EXPECT_EQ(Form->Undo.UndoCount(), 1);
    Script.AnswerNo();  // no backup
    Form->mnuSave->trigger();
    const QByteArray after = ReadFile(Defines.RomPath);
    EXPECT_EQ(RomByte(after, Row(Town).GridPos), painted);
    EXPECT_EQ(RomByte(after, Row(Town).ObjectPos), painted);
    EXPECT_EQ(Script.Count(Discard), 1);
}
