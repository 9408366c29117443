#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QTest>

#include "core/defines.h"
#include "mapedit/about.h"
#include "mapview/tiles.h"
#include "startup/program.h"
#include "support/apptest.h"

namespace {
const QString SavedMessage = QStringLiteral("Your changes to the map have been saved!");
const QString DiscardQuestion = QStringLiteral("Discard the changes you have made?");

// A tileset of 21 blocks (BlockCount 20) with bias 2, and a map of 12 x 9 on
// it: a region of block 1 in the top left 6 x 4 squares, square (7, 5) of
// block 1 that touches it only at a corner, blocks 12, 14 and 20 down column
// 8, a square and the border of byte 0, elsewhere blocks 2 to 4. A map
// without object data or events, one on a tileset of 8 blocks without warps,
// a category without maps, and one more.
Fixture::SmallProject EditProject() {
    Fixture::SmallProject project;
    project.AddTileset(20, 2);
    project.AddTileset(7, 0);
    const int cat = project.AddCategory(QStringLiteral("Edit"), 0);
    const int field = project.AddMap(
        cat, QStringLiteral("Field"), 12, 9, 0,
        [](int x, int y) {
            if ((x <= 6 && y <= 4) || (x == 7 && y == 5)) return 1;
            if (x == 8 && y <= 3) return y == 1 ? 12 : y == 2 ? 14 : 20;
            return x == 12 && y == 1 ? -2 : (x + y) % 3 + 2;
        },
        -2);
    project.Map(field).WildPos = 0x100;
    const int bare =
        project.AddMap(cat, QStringLiteral("Bare"), 3, 3, 0, [](int, int) { return 5; });
    project.Map(bare).ObjectPos = 1;
    project.Map(bare).EventsOk = false;
    const int small =
        project.AddMap(cat, QStringLiteral("Small set"), 3, 3, 1, [](int x, int) { return x; });
    project.Map(small).WarpsOk = false;
    project.AddCategory(QStringLiteral("Nothing here"), 3);
    const int more = project.AddCategory(QStringLiteral("More, with a comma"), 10);
    project.AddMap(more, QStringLiteral("Far, away"), 5, 1, 0, [](int, int) { return 6; });
    // Two blocks whose definitions run one byte past the ROM's end.
    const int beyond = project.AddTileset(1, 0);
    project.Tileset(beyond).BlockPos = project.Rom.Size() - 32 + 2;
    project.AddMap(more, QStringLiteral("Blocks past the end"), 2, 2, beyond,
                   [](int, int) { return 0; });
    return project;
}

// The bank picture at a place of a block: the fixture's tilesets have tile
// (b * 3 + t) % 94 at place t of block b, and tile base 0.
const QPixmap* BlockPicture(int block, int place) {
    return TilePicture((block * 3 + place) % 94);
}
}  // namespace

class MapEditTest : public AppTest {
protected:
    void SetUp() override {
        AppTest::SetUp();
        Form = StartUp(Project);
        ASSERT_NE(Form, nullptr);
        Cells = Form->View->MapTile;
        // The keys work while the window has the focus.
        QApplication::setActiveWindow(Form);
        Original = Defines.MapGrid;
    }
    // The middle of a square's block in the view's cells.
    QPoint At(int x, int y) const {
        return QPoint((x - Form->View->ViewCol) * 64 + 32, (y - Form->View->ViewRow) * 64 + 32);
    }
    void Click(int x, int y, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(Cells, button, Qt::NoModifier, At(x, y));
    }
    void Key(QKeyCombination keys) { QTest::keyClick(Form, keys.key(), keys.keyboardModifiers()); }
    void Drag(std::initializer_list<QPoint> path) {
        QTest::mousePress(Cells, Qt::LeftButton, Qt::NoModifier, *path.begin());
        for (const QPoint& point : path)
            QTest::mouseMove(Cells, point);
        QTest::mouseRelease(Cells, Qt::LeftButton, Qt::NoModifier, *(path.end() - 1));
    }
    // A move of the pointer with no button held.
    void Hover(QPoint point) {
        QMouseEvent move(QEvent::MouseMove, point, Cells->mapToGlobal(point), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(Cells, &move);
    }
    QString Readout() const { return Form->PointerText->text(); }
    // The squares of the map whose blocks differ from `grid`, row by row.
    static std::vector<QPoint> Changed(const MapGridT& grid) {
        std::vector<QPoint> squares;
        for (int y = 1; y <= 9; ++y)
            for (int x = 1; x <= 12; ++x)
                if (Defines.MapGrid[y][x] != grid[y][x]) squares.push_back({x, y});
        return squares;
    }
    // Paints square (2, 1) with block 3, so that there is something to save.
    void Paint() {
        PressCell(Form->SideBlock, 16 * 3);
        Click(2, 1);
    }
    const Fixture::MapRow& Field() const { return Project.Categories[0].Maps[0]; }

    const Fixture::SmallProject Project = EditProject();
    MainForm* Form = nullptr;
    CellArray* Cells = nullptr;
    MapGridT Original;
};

// The palette shows six blocks from the bar's value on, and the hex of the
// framed block with its bias; a pick-up brings a block to the top slot, or,
// near the end of the tileset, to the bottom slot; a small tileset keeps the
// palette inside its blocks.
TEST_F(MapEditTest, PaletteSelectsAndPicksUpBlocks) {
    EXPECT_EQ(Form->Scroll->maximum(), 15);
    EXPECT_EQ(Form->BlockHex->text(), QStringLiteral("Hex: 02"));
    // A press with either button selects; scrolling with the frame in place
    // selects the block that moves under it.
    PressCell(Form->SideBlock, 16 * 2 + 5, Qt::RightButton);
    EXPECT_EQ(Form->SelBorder->TopTwips(), 2040);
    Form->Scroll->setValue(1);
    EXPECT_EQ(Form->CurBlock, 3);
    EXPECT_EQ(Form->BlockHex->text(), QStringLiteral("Hex: 05"));

    Click(8, 1, Qt::RightButton);  // block 12 < 20 - 6
    EXPECT_EQ(Form->Scroll->value(), 12);
    EXPECT_EQ(Form->SelBorder->TopTwips(), 120);
    EXPECT_EQ(Form->CurBlock, 12);
    Click(8, 2, Qt::RightButton);  // block 14 = 20 - 6
    EXPECT_EQ(Form->Scroll->value(), 9);
    EXPECT_EQ(Form->SelBorder->TopTwips(), 4920);
    EXPECT_EQ(Form->CurBlock, 14);
    Click(8, 3, Qt::RightButton);  // block 20, the last
    EXPECT_EQ(Form->Scroll->value(), 15);
    EXPECT_EQ(Form->CurBlock, 20);
    PressCell(Form->BorderBlock, 0, Qt::RightButton);  // byte 0 is no block
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Beep), 1);
    EXPECT_EQ(Form->CurBlock, 20);

    GoTo(Form, 0, 2);  // eight blocks: the bar cannot move past 2
    EXPECT_EQ(Form->Scroll->maximum(), 2);
    // Block 1 would go to the bottom slot, but the bar stops at 0: the frame
    // goes to slot 1 instead.
    Click(1, 1, Qt::RightButton);
    EXPECT_EQ(Form->Scroll->value(), 0);
    EXPECT_EQ(Form->SelBorder->TopTwips(), 1080);
    EXPECT_EQ(Form->CurBlock, 1);
}

// The Map Tools in one story, by keys and drags over the view: a stroke
// given up makes no step; each other step is undone and redone whole;
// Select, Copy and Paste go through the clipboard's text; a save writes
// exactly the squares the steps left and the border byte, with the bias put
// back.
TEST_F(MapEditTest, ToolsMakeWholeStepsThatUndoRedoAndSaveExactly) {
    const QByteArray before = ReadFile(Defines.RomPath);
    Key(Qt::Key_B);
    QTest::mousePress(Cells, Qt::LeftButton, Qt::NoModifier, At(7, 1));
    QTest::mouseMove(Cells, At(8, 3));
    Key(Qt::Key_Escape);
    QTest::mouseRelease(Cells, Qt::LeftButton, Qt::NoModifier, At(8, 3));
    EXPECT_EQ(Defines.MapGrid, Original);
    EXPECT_FALSE(Form->MapChanged);
    EXPECT_FALSE(Form->mnuUndo->isEnabled());

    PressCell(Form->SideBlock, 16 * 5);  // block 5
    // A stroke that turns a corner, then leaves the view below: it keeps to
    // the view's last row.
    Drag({At(1, 5), At(4, 5), At(4, 6), At(4, 6) + QPoint(0, 300)});
    const std::vector<QPoint> stroke = {{1, 5}, {2, 5}, {3, 5}, {4, 5}, {4, 6}};
    EXPECT_EQ(Changed(Original), stroke);
    EXPECT_TRUE(Form->MapChanged);
    // A key on the palette's bar in the middle of a stroke brings block 6
    // under the frame; going back, the stroke changes its squares twice.
    QTest::mousePress(Cells, Qt::LeftButton, Qt::NoModifier, At(1, 6));
    QTest::mouseMove(Cells, At(3, 6));
    QTest::keyClick(Form->Scroll, Qt::Key_Down);
    QTest::mouseMove(Cells, At(1, 6));
    QTest::mouseRelease(Cells, Qt::LeftButton, Qt::NoModifier, At(1, 6));
    EXPECT_EQ(Defines.MapGrid[6][1], 6);

    Key(Qt::Key_R);
    QTest::mousePress(Cells, Qt::LeftButton, Qt::NoModifier, At(8, 4));
    QTest::mouseMove(Cells, At(7, 2));
    EXPECT_EQ(Form->View->MarkSquares(MapView::ToolMark), QRect(7, 2, 2, 3));
    QTest::mouseRelease(Cells, Qt::LeftButton, Qt::NoModifier, At(7, 2));
    EXPECT_EQ(Defines.MapGrid[4][8], 6);
    EXPECT_TRUE(Form->View->MarkSquares(MapView::ToolMark).isEmpty());
    Key(Qt::Key_F);
    const MapGridT beforeFill = Defines.MapGrid;
    Click(3, 3);
    EXPECT_EQ(Changed(beforeFill).size(), 6u * 4u);  // not across the corner to (7, 5)

    // Undo and redo by their keys; the readout follows the square under the
    // pointer.
    Hover(At(3, 2));
    EXPECT_EQ(Readout(), QStringLiteral("X 2  Y 1  Block 06"));
    const MapGridT done = Defines.MapGrid;
    Key(Qt::CTRL | Qt::Key_Z);
    EXPECT_EQ(Defines.MapGrid, beforeFill);
    EXPECT_EQ(Readout(), QStringLiteral("X 2  Y 1  Block 01"));
    EXPECT_TRUE(Form->mnuRedo->isEnabled());
    Key(Qt::CTRL | Qt::Key_Z);
    Key(Qt::CTRL | Qt::Key_Z);  // the stroke that changed squares twice
    EXPECT_EQ(Changed(Original), stroke);
    Key(Qt::CTRL | Qt::Key_Y);
    Key(Qt::CTRL | Qt::Key_Y);
    Key(Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
    EXPECT_EQ(Defines.MapGrid, done);
    EXPECT_FALSE(Form->mnuRedo->isEnabled());
    EXPECT_EQ(Cells->Picture(0), BlockPicture(6, 0));

    QClipboard* clipboard = QGuiApplication::clipboard();
    Key(Qt::Key_S);
    Drag({At(7, 5), At(5, 4)});
    EXPECT_EQ(Form->Selection(), QRect(5, 4, 3, 2));
    Key(Qt::CTRL | Qt::Key_C);
    EXPECT_EQ(clipboard->text(), QStringLiteral("06 06 06\n03 04 01\n"));
    Key(Qt::CTRL | Qt::Key_A);
    EXPECT_EQ(Form->Selection(), QRect(1, 1, 12, 9));
    // Text that is no pattern beeps; a block above the last one is named.
    clipboard->setText(QStringLiteral("1 2\n3\n"));
    Key(Qt::CTRL | Qt::Key_V);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Beep), 1);
    clipboard->setText(QStringLiteral("14 15\n"));
    Key(Qt::CTRL | Qt::Key_V);
    EXPECT_EQ(Script.Count(QStringLiteral("The pattern holds the block 15, but the last block of "
                                          "this map's tileset is 14. Nothing was pasted.")),
              1);
    clipboard->setText(QStringLiteral("7 8 9\na b c\n"));
    Key(Qt::CTRL | Qt::Key_V);
    Hover(At(3, 2));
    EXPECT_EQ(Form->View->MarkSquares(MapView::ToolMark), QRect(3, 2, 3, 2));
    Click(3, 2);
    EXPECT_EQ(Defines.MapGrid[3][5], 12);
    Key(Qt::Key_Escape);

    // The border is no undo step; the Pencil paints even a square that
    // holds its block: the bottom right one, the last byte of the grid,
    // reached with the bars at their ends.
    PressCell(Form->BorderBlock, 0);
    EXPECT_EQ(Form->BorderBlock->Picture(7), BlockPicture(6, 7));
    QTest::keyClick(Form->View->HScroll, Qt::Key_End);
    QTest::keyClick(Form->View->VScroll, Qt::Key_End);
    Key(Qt::Key_P);
    Click(12, 9);
    Click(12, 9);
    EXPECT_EQ(Form->Undo.UndoCount(), 7);
    Script.AnswerNo();
    Form->mnuSave->trigger();
    EXPECT_EQ(
        Script.Count(QStringLiteral("Make a backup of the ROM (%1.BAK)?").arg(Defines.RomPath)), 1);
    EXPECT_EQ(Script.Count(SavedMessage), 1);
    EXPECT_FALSE(Form->MapChanged);
    const QByteArray after = ReadFile(Defines.RomPath);
    std::vector<int> positions = {Field().ObjectPos};
    EXPECT_EQ(after[Field().ObjectPos - 1], 6 + 2);
    for (const QPoint& square : Changed(Original)) {
        positions.push_back(Field().GridPos + (square.y() - 1) * 12 + square.x() - 1);
        EXPECT_EQ(after[positions.back() - 1], Defines.MapGrid[square.y()][square.x()] + 2);
    }
    std::sort(positions.begin(), positions.end());
    EXPECT_EQ(Differences(before, after), positions);
}

// Save As copies the ROM and writes the map into the copy; over an existing
// file it asks first.
TEST_F(MapEditTest, SaveAsCopiesThenWritesTheMapIntoTheNewFile) {
    const QString first = Defines.RomPath;
    const QByteArray before = ReadFile(first);
    Paint();
    const QString copy = PathOf(QStringLiteral("copy.gb"));
    Script.ChooseFile(copy);
    const size_t chooser = Script.Transcript().size();
    Form->mnuSaveAs->trigger();
    EXPECT_EQ(Script.Transcript()[chooser].title, QStringLiteral("Tarnwey - Save ROM File As"));
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Question), 0);  // no backup, no overwrite
    EXPECT_EQ(Defines.RomPath, copy);
    EXPECT_FALSE(Form->MapChanged);
    EXPECT_EQ(ReadFile(first), before);
    EXPECT_EQ(Differences(before, ReadFile(copy)), (std::vector<int>{Field().GridPos + 1}));

    // Overwriting an existing file asks; No writes nothing.
    const QString other = PathOf(QStringLiteral("other.gb"));
    QFile::copy(first, other);
    Script.ChooseFile(other);
    Script.AnswerNo();
    Form->mnuSaveAs->trigger();
    EXPECT_EQ(Script.Count(QStringLiteral("This file already exists. Overwrite it?")), 1);
    EXPECT_EQ(ReadFile(other), before);
}

// The menu bar in order, separators as "-", with the captions, the shortcuts
// and the state of each entry when the window first shows.
TEST_F(MapEditTest, MenuBarAndWindowSizeAreAsTheUserFirstSeesThem) {
    EXPECT_EQ(Form->Client()->size(), QSize(633, 521));
    EXPECT_EQ(Form->minimumSize(), Form->maximumSize());
    EXPECT_EQ(Form->windowTitle(), QStringLiteral("Tarnwey"));
    QStringList menus;
    for (QAction* menu : Form->MenuBar()->actions()) {
        QStringList entries;
        for (QAction* entry : menu->menu()->actions()) {
            QString text = entry->isSeparator() ? QStringLiteral("-") : entry->text();
            for (const QKeySequence& keys : entry->shortcuts())
                text += u' ' + keys.toString();
            if (!entry->isEnabled()) text += QStringLiteral(" (off)");
            if (entry->isChecked()) text += QStringLiteral(" (checked)");
            entries << text;
        }
        menus << menu->text() + QStringLiteral(": ") + entries.join(QStringLiteral(", "));
    }
    EXPECT_EQ(
        menus.join(u'\n'),
        QStringLiteral("&File: &Open Ctrl+O, -, &Save Ctrl+S, Save &As, -, &Exit\n"
                       "&Edit: &Undo Ctrl+Z (off), &Redo Ctrl+Y Ctrl+Shift+Z (off), -, "
                       "&Copy Ctrl+C (off), &Paste Ctrl+V, Select &All Ctrl+A\n"
                       "&Tools: &Pencil P (checked), &Brush B, &Rectangle R, &Fill F, &Select S\n"
                       "&Mode: Building Block Editor Ctrl+B, -, Wild &Morlick Editor Ctrl+P, "
                       "&Warp Editor Ctrl+W, E&vent Editor Ctrl+E\n"
                       "&Options: Display &Gridlines Ctrl+G (checked)\n"
                       "&Help: &About F1"));
    EXPECT_TRUE(Form->ToolButtons[0]->isChecked());
    EXPECT_EQ(Form->ToolButtons[2]->toolTip(), QStringLiteral("Rectangle (R)"));
    // About hides the main window until its own button closes it.
    Form->mnuAbout->trigger();
    EXPECT_FALSE(Form->isVisible());
    const About* about = Form->findChild<About*>();
    ASSERT_NE(about, nullptr);
    EXPECT_EQ(QStringList({about->windowTitle(), about->Label1->text(), about->Command1->text()}),
              QStringList({"About Tarnwey", "Tarnwey Version 1.2", "^_^"}));
    QTest::mouseClick(about->Command1, Qt::LeftButton);
    EXPECT_TRUE(Form->isVisible());
}

// Browsing the lists shows the notes and loads nothing; "Go" on a category
// without maps beeps; with changes, "Go" asks first; a map's row sets the
// border block and the editor commands; a map that cannot be read is refused.
TEST_F(MapEditTest, GoAsksBeforeItDiscardsAndSetsTheCommandsFromTheMapRow) {
    Paint();
    PressRow(Form->CatList, 2);
    EXPECT_EQ(Form->MapList->item(0)->text(), QStringLiteral("Far, away"));
    EXPECT_EQ(Form->MapComment->text(), QStringLiteral("Note of Far, away"));
    PressRow(Form->CatList, 1);
    EXPECT_EQ(Form->MapList->count(), 0);
    Form->Command2->click();
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Beep), 1);
    Script.AnswerNo();
    GoTo(Form, 0, 1);
    EXPECT_EQ(Script.Count(DiscardQuestion), 1);
    EXPECT_EQ(Defines.CurMap, 0);
    EXPECT_EQ(Defines.MapGrid[1][2], 3);
    EXPECT_TRUE(Form->mnuUndo->isEnabled());
    Script.AnswerYes();

    struct Case {
        int row;
        bool border, warps, wild, events;
    };
    for (const Case& c : {Case{1, false, false, false, false}, Case{2, true, false, false, true},
                          Case{0, true, true, true, true}}) {
        SCOPED_TRACE(c.row);
        GoTo(Form, 0, c.row);
        EXPECT_EQ(Defines.CurMap, c.row);
        EXPECT_FALSE(Form->MapChanged);
        EXPECT_FALSE(Form->mnuUndo->isEnabled());
        EXPECT_EQ(Form->CurMapName->text(), Defines.MapTable[c.row][MapName].ToText());
        EXPECT_EQ(Form->BorderBlock->isVisibleTo(Form), c.border);
        EXPECT_EQ(Form->mnuWarpEdit->isEnabled(), c.warps);
        EXPECT_EQ(Form->mnuWildEdit->isEnabled(), c.wild);
        EXPECT_EQ(Form->mnuEventEdit->isEnabled(), c.events);
    }
    EXPECT_EQ(Script.Count(DiscardQuestion), 2);
    EXPECT_EQ(Defines.MapGrid[1][2], 1);  // loaded afresh
    // A map whose blocks cannot be read whole is refused; the loaded map stays.
    GoTo(Form, 2, 1);
    ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("block definitions")));
    EXPECT_EQ(Defines.CurMap, 0);
    Paint();
    Script.AnswerYes();
    Form->mnuExit->trigger();
    EXPECT_EQ(Script.Count(QStringLiteral("Exit without saving the changes you have made?")), 1);
    EXPECT_TRUE(Program::Ended());
    EXPECT_FALSE(Form->isVisible());
}
