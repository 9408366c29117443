#include <unistd.h>
#include <QDir>
#include <QFile>
#include <QTest>

#include "core/defines.h"
#include "mapedit/about.h"
#include "mapview/tiles.h"
#include "rom/rombackup.h"
#include "startup/program.h"
#include "support/apptest.h"

namespace {
const QString SavedMessage = QStringLiteral("Your changes to the map have been saved!");

// A tileset of 21 blocks (BlockCount 20) with bias 2, and maps on it: one
// with a border byte of 0 and a square of byte 0, one without object data.
Fixture::SmallProject EditProject() {
    Fixture::SmallProject project;
    project.AddTileset(20, 2);
    project.AddTileset(7, 0);
    const int cat = project.AddCategory(QStringLiteral("Edit"), 0);
    project.AddMap(
        cat, QStringLiteral("Field"), 12, 9, 0,
        [](int x, int y) { return x == 1 && y == 1 ? -2 : (x * y) % 21; }, -2);
    const int bare =
        project.AddMap(cat, QStringLiteral("Bare"), 3, 3, 0, [](int, int) { return 5; });
    project.Map(bare).ObjectPos = 1;
    project.AddMap(cat, QStringLiteral("Small set"), 3, 3, 1, [](int x, int) { return x; });
    return project;
}

// The bank picture at a place of a block: the fixture's tilesets have tile
// (b * 3 + t) % 94 at place t of block b, and tile base 0.
const QPixmap* BlockPicture(int block, int place) {
    return TilePicture((block * 3 + place) % 94);
}
}  // namespace

class MapEditTest : public AppTest {};

TEST_F(MapEditTest, PaletteShowsSixBlocksAndTheHexOfTheSelection) {
    MainForm* form = StartUp(EditProject());
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->Scroll->minimum(), 0);
    EXPECT_EQ(form->Scroll->maximum(), 15);
    EXPECT_EQ(form->Scroll->pageStep(), 3);
    EXPECT_EQ(form->CurBlock, 0);
    EXPECT_EQ(form->BlockHex->text(), QStringLiteral("Hex: 02"));
    EXPECT_EQ(form->SelBorder->TopTwips(), 120);
    for (int k = 0; k < 6; ++k)
        EXPECT_EQ(form->SideBlock->Picture(16 * k + 3), BlockPicture(k, 3));
    // A press with either button selects; scrolling with the frame in place
    // selects the block that moves under it.
    PressCell(form->SideBlock, 16 * 2 + 5, Qt::RightButton);
    EXPECT_EQ(form->SelBorder->TopTwips(), 2040);
    EXPECT_EQ(form->CurBlock, 2);
    form->Scroll->setValue(1);
    EXPECT_EQ(form->CurBlock, 3);
    EXPECT_EQ(form->BlockHex->text(), QStringLiteral("Hex: 05"));
    form->Scroll->setValue(8);
    PressCell(form->SideBlock, 0);
    EXPECT_EQ(form->BlockHex->text(), QStringLiteral("Hex: 0A"));
}

TEST_F(MapEditTest, PickingUpBringsTheBlockToTheTopOrBottomSlot) {
    Fixture::SmallProject project = EditProject();
    const int cat = 0;
    project.AddMap(cat, QStringLiteral("Picks"), 3, 1, 0, [](int x, int) {
        return x == 1 ? 13 : x == 2 ? 14 : 20;
    });
    MainForm* form = StartUp(project);
    ASSERT_NE(form, nullptr);
    GoTo(form, 0, 3);
    PressCell(form->View->MapTile, 0, Qt::RightButton);  // block 13 < 20 - 6
    EXPECT_EQ(form->Scroll->value(), 13);
    EXPECT_EQ(form->SelBorder->TopTwips(), 120);
    EXPECT_EQ(form->CurBlock, 13);
    PressCell(form->View->MapTile, 16, Qt::RightButton);  // block 14
    EXPECT_EQ(form->Scroll->value(), 9);
    EXPECT_EQ(form->SelBorder->TopTwips(), 4920);
    EXPECT_EQ(form->CurBlock, 14);
    PressCell(form->View->MapTile, 32, Qt::RightButton);  // block 20, the last
    EXPECT_EQ(form->Scroll->value(), 15);
    EXPECT_EQ(form->CurBlock, 20);
    // Picking up changes nothing of the map.
    EXPECT_FALSE(form->MapChanged);
    EXPECT_EQ(form->Undo.UndoCount(), 0);
    EXPECT_FALSE(form->mnuUndo->isEnabled());
}

TEST_F(MapEditTest, ASmallTilesetKeepsThePaletteInsideItsBlocks) {
    MainForm* form = StartUp(EditProject());
    ASSERT_NE(form, nullptr);
    PressCell(form->SideBlock, 16 * 5);  // slot 5, block 5
    GoTo(form, 0, 2);                    // eight blocks: the bar cannot move past 2
    EXPECT_EQ(form->Scroll->maximum(), 2);
    EXPECT_EQ(form->CurBlock, 5);
    // Block 1 would go to the bottom slot, but the bar stops at 0: the frame
    // goes to slot 1 instead.
    PressCell(form->View->MapTile, 0, Qt::RightButton);
    EXPECT_EQ(form->Scroll->value(), 0);
    EXPECT_EQ(form->SelBorder->TopTwips(), 1080);
    EXPECT_EQ(form->CurBlock, 1);
    // At the end of the bar the last slot shows the last block.
    form->Scroll->setValue(2);
    EXPECT_EQ(form->CurBlock, 3);
    EXPECT_TRUE(form->SideBlock->CellVisible(16 * 5));
    EXPECT_EQ(form->SideBlock->Picture(16 * 5), BlockPicture(7, 0));
}

TEST_F(MapEditTest, PaintingAndUndoReachBackExactlyOneHundredSteps) {
    MainForm* form = StartUp(EditProject());
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->mnuUndo->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Z));
    auto original = Defines.MapGrid;
    // 101 paints on squares of the first row and column, each with its own block.
    std::vector<std::pair<int, int>> squares;
    for (int step = 0; step < 101; ++step) {
        const int slot = step % 8;
        form->Scroll->setValue(step % 15);
        PressCell(form->SideBlock, 16 * (step % 6));
        PressCell(form->View->MapTile, 16 * slot + 5);
        squares.push_back({1, 1 + slot});
    }
    EXPECT_TRUE(form->mnuUndo->isEnabled());
    EXPECT_EQ(form->Undo.UndoCount(), 100);
    // Replaying step 1 on the original gives the state that 100 undos reach.
    auto afterFirst = original;
    afterFirst[1][1] = static_cast<std::int16_t>(0 % 15 + 0 % 6);
    for (int i = 0; i < 100; ++i)
        form->mnuUndo->trigger();
    EXPECT_FALSE(form->mnuUndo->isEnabled());
    for (int y = 1; y <= 9; ++y)
        for (int x = 1; x <= 12; ++x)
            ASSERT_EQ(Defines.MapGrid[y][x], afterFirst[y][x]) << x << "," << y;
    // Undo leaves the changed flag set.
    EXPECT_TRUE(form->MapChanged);
}

TEST_F(MapEditTest, OnePaintAndOneUndo) {
    MainForm* form = StartUp(EditProject());
    ASSERT_NE(form, nullptr);
    const int before = Defines.MapGrid[2][3];
    PressCell(form->SideBlock, 16 * 4);
    // Painting a square with the block it holds still counts as a step.
    PressCell(form->View->MapTile, 16 * (2 + 8) + 15);
    EXPECT_EQ(Defines.MapGrid[2][3], 4);
    EXPECT_EQ(form->View->MapTile->Picture(16 * 10), BlockPicture(4, 0));
    form->mnuUndo->trigger();
    EXPECT_EQ(Defines.MapGrid[2][3], before);
    EXPECT_EQ(form->View->MapTile->Picture(16 * 10), BlockPicture(before, 0));
    EXPECT_FALSE(form->mnuUndo->isEnabled());
    EXPECT_TRUE(form->MapChanged);
}

TEST_F(MapEditTest, BorderBlockPaintsAndPicksUp) {
    MainForm* form = StartUp(EditProject());
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->BorderNum, -2);
    PressCell(form->SideBlock, 16 * 3);
    PressCell(form->BorderBlock, 7);
    EXPECT_EQ(form->BorderNum, 3);
    EXPECT_TRUE(form->MapChanged);
    EXPECT_EQ(form->Undo.UndoCount(), 0);  // the border is not an undo step
    EXPECT_EQ(form->BorderBlock->Picture(7), BlockPicture(3, 7));
    PressCell(form->SideBlock, 0);
    PressCell(form->BorderBlock, 0, Qt::RightButton);
    EXPECT_EQ(form->CurBlock, 3);
}

TEST_F(MapEditTest, SaveWritesOnlyTheBorderByteAndTheGrid) {
    const Fixture::SmallProject project = EditProject();
    MainForm* form = StartUp(project);
    ASSERT_NE(form, nullptr);
    const QByteArray before = ReadFile(Defines.RomPath);
    PressCell(form->SideBlock, 16 * 5);
    PressCell(form->View->MapTile, 16 * 9);  // square (2, 2), which held block 4
    PressCell(form->BorderBlock, 0);
    Script.AnswerNo();  // no backup
    form->mnuSave->trigger();
    EXPECT_EQ(
        Script.Count(QStringLiteral("Make a backup of the ROM (%1.BAK)?").arg(Defines.RomPath)), 1);
    EXPECT_EQ(Script.Count(SavedMessage), 1);
    EXPECT_FALSE(form->MapChanged);
    const QByteArray after = ReadFile(Defines.RomPath);
    ASSERT_EQ(after.size(), before.size());
    const Fixture::MapRow& map = project.Categories[0].Maps[0];
    EXPECT_EQ(Differences(before, after), (std::vector<int>{map.ObjectPos, map.GridPos + 12 + 1}));
    EXPECT_EQ(static_cast<quint8>(after[map.ObjectPos - 1]), 5 + 2);
    EXPECT_EQ(static_cast<quint8>(after[map.GridPos + 12]), 5 + 2);
    // Undo after the save leaves the flag clear; the next save writes the result.
    form->mnuUndo->trigger();
    EXPECT_FALSE(form->MapChanged);
    Script.AnswerNo();
    form->mnuSave->trigger();
    const QByteArray undone = ReadFile(Defines.RomPath);
    EXPECT_EQ(Differences(before, undone), (std::vector<int>{map.ObjectPos}));
    // The zero bytes (border and square (1, 1)) were written as zero bytes.
    EXPECT_EQ(undone[map.GridPos - 1], 0);
    Script.AnswerYes();
    form->mnuExit->trigger();
    EXPECT_EQ(Script.Count(QStringLiteral("Do you want to exit Tarnwey?")), 1);
}

// The last row and the last column are saved too: the bottom right square,
// painted after scrolling the view to it, is the last byte of the grid.
TEST_F(MapEditTest, SaveWritesTheBottomRightSquareReachedByScrolling) {
    const Fixture::SmallProject project = EditProject();
    MainForm* form = StartUp(project);
    ASSERT_NE(form, nullptr);
    const QByteArray before = ReadFile(Defines.RomPath);
    QTest::keyClick(form->View->HScroll, Qt::Key_End);
    QTest::keyClick(form->View->VScroll, Qt::Key_End);
    PressCell(form->SideBlock, 16 * 5);
    PressCell(form->View->MapTile, 16 * 47 + 15);  // the last slot
    EXPECT_EQ(Defines.MapGrid[9][12], 5);
    Script.AnswerNo();  // no backup
    form->mnuSave->trigger();
    EXPECT_EQ(Script.Count(SavedMessage), 1);
    const QByteArray after = ReadFile(Defines.RomPath);
    const int last = project.Categories[0].Maps[0].GridPos + 12 * 9 - 1;
    EXPECT_EQ(Differences(before, after), (std::vector<int>{last}));
    EXPECT_EQ(static_cast<quint8>(after[last - 1]), 5 + 2);
}

TEST_F(MapEditTest, SaveOfAMapWithoutObjectDataWritesPositionOneBackUnchanged) {
    const Fixture::SmallProject project = EditProject();
    MainForm* form = StartUp(project);
    ASSERT_NE(form, nullptr);
    GoTo(form, 0, 1);
    const QByteArray before = ReadFile(Defines.RomPath);
    PressCell(form->View->MapTile, 0);
    Script.AnswerNo();
    form->mnuSave->trigger();
    const QByteArray after = ReadFile(Defines.RomPath);
    const Fixture::MapRow& map = project.Categories[0].Maps[1];
    EXPECT_EQ(Differences(before, after), (std::vector<int>{map.GridPos}));
    EXPECT_EQ(after[0], before[0]);
}

TEST_F(MapEditTest, AFailedBackupStepWritesNothingAndSaysWhere) {
    MainForm* form = StartUp(EditProject());
    ASSERT_NE(form, nullptr);
    const QByteArray before = ReadFile(Defines.RomPath);
    // A folder in the way of the temporary copy makes the copy fail.
    ASSERT_TRUE(QDir(Folder()).mkpath(QStringLiteral("temp.twy/inside")));
    PressCell(form->View->MapTile, 0);
    Script.AnswerYes();
    form->mnuSave->trigger();
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    EXPECT_EQ(Script.Count(SavedMessage), 0);
    EXPECT_TRUE(Script.Transcript().back().text.contains(Defines.RomPath));
    EXPECT_EQ(ReadFile(Defines.RomPath), before);
    EXPECT_TRUE(form->MapChanged);
}

TEST_F(MapEditTest, SaveAsCopiesThenWritesTheMapIntoTheNewFile) {
    const Fixture::SmallProject project = EditProject();
    MainForm* form = StartUp(project);
    ASSERT_NE(form, nullptr);
    const QString first = Defines.RomPath;
    const QByteArray before = ReadFile(first);
    PressCell(form->SideBlock, 16 * 3);
    PressCell(form->View->MapTile, 16);

    // Cancelling the chooser changes nothing.
    Script.CancelFile();
    form->mnuSaveAs->trigger();
    EXPECT_EQ(Script.Transcript().back().title, QStringLiteral("Tarnwey - Save ROM File As"));
    EXPECT_EQ(Defines.RomPath, first);
    EXPECT_TRUE(form->MapChanged);

    const QString copy = PathOf(QStringLiteral("copy.gb"));
    Script.ChooseFile(copy);
    form->mnuSaveAs->trigger();
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Question), 0);  // no backup, no overwrite
    EXPECT_EQ(Defines.RomPath, copy);
    EXPECT_FALSE(form->MapChanged);
    EXPECT_EQ(ReadFile(first), before);
    const Fixture::MapRow& map = project.Categories[0].Maps[0];
    EXPECT_EQ(Differences(before, ReadFile(copy)), (std::vector<int>{map.GridPos + 1}));

    // Overwriting an existing file asks; No writes nothing.
    const QString other = PathOf(QStringLiteral("other.gb"));
    QFile::copy(first, other);
    Script.ChooseFile(other);
    Script.AnswerNo();
    form->mnuSaveAs->trigger();
    EXPECT_EQ(Script.Count(QStringLiteral("This file already exists. Overwrite it?")), 1);
    EXPECT_EQ(ReadFile(other), before);
    EXPECT_EQ(Defines.RomPath, copy);

    // The next save's backup lies beside the new file.
    Script.AnswerYes();
    form->mnuSave->trigger();
    EXPECT_TRUE(QFile::exists(copy + QStringLiteral(".BAK")));
    EXPECT_FALSE(QFile::exists(first + QStringLiteral(".BAK")));
}

TEST_F(MapEditTest, SaveAsOntoTheOpenFileKeepsItsBytes) {
    const Fixture::SmallProject project = EditProject();
    MainForm* form = StartUp(project);
    ASSERT_NE(form, nullptr);
    const QByteArray before = ReadFile(Defines.RomPath);
    PressCell(form->SideBlock, 16 * 3);
    PressCell(form->View->MapTile, 16);
    Script.ChooseFile(Defines.RomPath);
    Script.AnswerYes();
    form->mnuSaveAs->trigger();
    const QByteArray after = ReadFile(Defines.RomPath);
    ASSERT_EQ(after.size(), before.size());
    EXPECT_EQ(Differences(before, after),
              (std::vector<int>{project.Categories[0].Maps[0].GridPos + 1}));
    EXPECT_EQ(Script.Count(SavedMessage), 1);
}

TEST_F(MapEditTest, SaveAsOntoTheOpenRomUnderAnotherNameWritesInPlace) {
    // A second name of the very file: a hard link here; another case on a disk
    // that ignores case, or a short name, elsewhere. It is the open ROM.
    const Fixture::SmallProject project = EditProject();
    MainForm* form = StartUp(project);
    ASSERT_NE(form, nullptr);
    const QString rom = Defines.RomPath;
    const QString alias = PathOf(QStringLiteral("alias.gb"));
    ASSERT_EQ(::link(QFile::encodeName(rom).constData(), QFile::encodeName(alias).constData()), 0);
    const QByteArray before = ReadFile(rom);
    PressCell(form->SideBlock, 16 * 3);
    PressCell(form->View->MapTile, 16);
    Script.ChooseFile(alias);
    Script.AnswerYes();
    form->mnuSaveAs->trigger();
    EXPECT_EQ(Script.Count(SavedMessage), 1) << Script.Texts().join(u'|').toStdString();
    EXPECT_EQ(Defines.RomPath, rom);
    EXPECT_EQ(Differences(before, ReadFile(rom)),
              (std::vector<int>{project.Categories[0].Maps[0].GridPos + 1}));
    EXPECT_EQ(ReadFile(alias), ReadFile(rom));
}

TEST_F(MapEditTest, SaveAsThatCannotCopyKeepsTheFileItWouldReplace) {
    // The open ROM has gone from the disk; the target already exists and the
    // user agrees to overwrite it. The target must stay whole.
    const Fixture::SmallProject project = EditProject();
    MainForm* form = StartUp(project);
    ASSERT_NE(form, nullptr);
    const QString rom = Defines.RomPath;
    const QString other = PathOf(QStringLiteral("other.gb"));
    const QByteArray otherBytes("another ROM the user keeps");
    QFile file(other);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(otherBytes);
    file.close();
    ASSERT_TRUE(QFile::remove(rom));
    PressCell(form->View->MapTile, 16);
    Script.ChooseFile(other);
    Script.AnswerYes();
    form->mnuSaveAs->trigger();
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1)
        << Script.Texts().join(u'|').toStdString();
    EXPECT_EQ(ReadFile(other), otherBytes);
    EXPECT_EQ(Defines.RomPath, rom);
    EXPECT_TRUE(form->MapChanged);
}

TEST_F(MapEditTest, ExitAndClosingAskTheSameQuestionOnce) {
    MainForm* form = StartUp(EditProject());
    ASSERT_NE(form, nullptr);
    Script.AnswerNo();
    form->mnuExit->trigger();
    EXPECT_EQ(Script.Count(QStringLiteral("Do you want to exit Tarnwey?")), 1);
    EXPECT_TRUE(form->isVisible());
    Script.AnswerNo();
    EXPECT_FALSE(form->close());
    EXPECT_EQ(Script.Count(QStringLiteral("Do you want to exit Tarnwey?")), 2);
    EXPECT_TRUE(form->isVisible());

    PressCell(form->View->MapTile, 0);
    Script.AnswerNo();
    EXPECT_FALSE(form->close());
    EXPECT_EQ(Script.Count(QStringLiteral("Exit without saving the changes you have made?")), 1);
    Script.AnswerYes();
    form->mnuExit->trigger();
    EXPECT_EQ(Script.Count(QStringLiteral("Exit without saving the changes you have made?")), 2);
    EXPECT_TRUE(Program::Ended());
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Question), 4);
}

TEST_F(MapEditTest, ModeCommandsHideTheMainWindowUntilTheChildCloses) {
    MainForm* form = StartUp(EditProject());
    ASSERT_NE(form, nullptr);
    PressCell(form->View->MapTile, 0);
    struct Entry {
        QAction* action;
        QString caption;
    };
    for (const Entry& e :
         {Entry{form->mnuBlockEdit, QStringLiteral("Tarnwey - Building Block Editor")},
          Entry{form->mnuWarpEdit, QStringLiteral("Warp Editor")},
          Entry{form->mnuAbout, QStringLiteral("About Tarnwey")}}) {
        SCOPED_TRACE(e.caption.toStdString());
        e.action->trigger();
        EXPECT_FALSE(form->isVisible());
        QWidget* shown = nullptr;
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->isVisible()) {
                EXPECT_EQ(shown, nullptr) << "two windows on screen";
                shown = w;
            }
        ASSERT_NE(shown, nullptr);
        EXPECT_EQ(shown->windowTitle(), e.caption);
        shown->close();
        EXPECT_TRUE(form->isVisible());
        EXPECT_FALSE(shown->isVisible());
    }
    // About's own button closes it the same way.
    form->mnuAbout->trigger();
    About* about = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* a = qobject_cast<About*>(w); a && a->isVisible()) about = a;
    ASSERT_NE(about, nullptr);
    EXPECT_EQ(about->Command1->text(), QStringLiteral("^_^"));
    EXPECT_EQ(about->Label1->text(), QStringLiteral("Tarnwey Version 1.2"));
    QTest::mouseClick(about->Command1, Qt::LeftButton);
    EXPECT_FALSE(about->isVisible());
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(form->MapChanged);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Question), 0);
}

// The menu bar in order, separators included, with captions, shortcuts and
// the state each entry has when the window first shows.
TEST_F(MapEditTest, MenuBarAndWindowSizeAreAsTheUserFirstSeesThem) {
    MainForm* form = StartUp(EditProject());
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->Client()->size(), QSize(633, 521));
    EXPECT_EQ(form->minimumSize(), form->maximumSize());
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Tarnwey"));

    struct Entry {
        QString caption;  // empty for a separator
        QKeySequence shortcut;
        bool enabled = true;
    };
    const auto sequence = [](QKeyCombination keys) { return QKeySequence(keys); };
    const std::vector<std::pair<QString, std::vector<Entry>>> expected = {
        {QStringLiteral("&File"),
         {{QStringLiteral("&Open"), sequence(Qt::CTRL | Qt::Key_O)},
          {},
          {QStringLiteral("&Save"), sequence(Qt::CTRL | Qt::Key_S)},
          {QStringLiteral("Save &As"), {}},
          {},
          {QStringLiteral("&Exit"), {}}}},
        {QStringLiteral("&Edit"),
         {{QStringLiteral("&Undo"), sequence(Qt::CTRL | Qt::Key_Z), false},
          {QStringLiteral("&Redo"), sequence(Qt::CTRL | Qt::Key_Y), false},
          {},
          {QStringLiteral("&Copy"), sequence(Qt::CTRL | Qt::Key_C), false},
          {QStringLiteral("&Paste"), sequence(Qt::CTRL | Qt::Key_V)},
          {QStringLiteral("Select &All"), sequence(Qt::CTRL | Qt::Key_A)}}},
        {QStringLiteral("&Tools"),
         {{QStringLiteral("&Pencil"), sequence(QKeyCombination(Qt::Key_P))},
          {QStringLiteral("&Brush"), sequence(QKeyCombination(Qt::Key_B))},
          {QStringLiteral("&Rectangle"), sequence(QKeyCombination(Qt::Key_R))},
          {QStringLiteral("&Fill"), sequence(QKeyCombination(Qt::Key_F))},
          {QStringLiteral("&Select"), sequence(QKeyCombination(Qt::Key_S))}}},
        {QStringLiteral("&Mode"),
         {{QStringLiteral("Building Block Editor"), sequence(Qt::CTRL | Qt::Key_B)},
          {},
          {QStringLiteral("Wild &Morlick Editor"), sequence(Qt::CTRL | Qt::Key_P), false},
          {QStringLiteral("&Warp Editor"), sequence(Qt::CTRL | Qt::Key_W)},
          {QStringLiteral("E&vent Editor"), sequence(Qt::CTRL | Qt::Key_E)}}},
        {QStringLiteral("&Options"),
         {{QStringLiteral("Display &Gridlines"), sequence(Qt::CTRL | Qt::Key_G)}}},
        {QStringLiteral("&Help"),
         {{QStringLiteral("&About"), sequence(QKeyCombination(Qt::Key_F1))}}},
    };
    const QList<QAction*> menus = form->MenuBar()->actions();
    ASSERT_EQ(menus.size(), static_cast<qsizetype>(expected.size()));
    for (size_t m = 0; m < expected.size(); ++m) {
        SCOPED_TRACE(expected[m].first.toStdString());
        EXPECT_EQ(menus[m]->text(), expected[m].first);
        const QList<QAction*> entries = menus[m]->menu()->actions();
        ASSERT_EQ(entries.size(), static_cast<qsizetype>(expected[m].second.size()));
        for (qsizetype e = 0; e < entries.size(); ++e) {
            const Entry& want = expected[m].second[static_cast<size_t>(e)];
            EXPECT_EQ(entries[e]->isSeparator(), want.caption.isEmpty()) << e;
            if (want.caption.isEmpty()) continue;
            EXPECT_EQ(entries[e]->text(), want.caption);
            EXPECT_EQ(entries[e]->shortcut(), want.shortcut) << want.caption.toStdString();
            EXPECT_EQ(entries[e]->isEnabled(), want.enabled) << want.caption.toStdString();
        }
    }
    EXPECT_TRUE(form->mnuGridlines->isCheckable());
    EXPECT_TRUE(form->mnuGridlines->isChecked());
    EXPECT_EQ(form->mnuRedo->shortcuts(),
              (QList<QKeySequence>{sequence(Qt::CTRL | Qt::Key_Y),
                                   sequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)}));
    // The Pencil is chosen at start, in the menu and on its button.
    EXPECT_TRUE(form->mnuTool[0]->isChecked());
    EXPECT_TRUE(form->ToolButtons[0]->isChecked());
    EXPECT_EQ(form->ToolButtons[2]->toolTip(), QStringLiteral("Rectangle (R)"));
}
