#include <QTest>

#include "core/defines.h"
#include "mapview/compose.h"
#include "mapview/tiles.h"
#include "support/apptest.h"

namespace {
// Maps of every width and height from 1 to 9, with a block number that tells
// the square: block = (x + 3 * y) % 21.
Fixture::SmallProject SizesProject() {
    Fixture::SmallProject project(256 * 1024);
    project.AddTileset(20, 2, 0);
    const int sizes = project.AddCategory(QStringLiteral("Sizes"), 0);
    for (int n = 1; n <= 9; ++n)
        project.AddMap(sizes, QStringLiteral("Square %1").arg(n), n, n, 0,
                       [](int x, int y) { return (x + 3 * y) % 21; });
    project.AddMap(sizes, QStringLiteral("Eight by three"), 8, 3, 0, [](int, int) { return 1; });
    project.AddMap(sizes, QStringLiteral("Nine by six"), 9, 6, 0,
                   [](int x, int y) { return (x + 3 * y) % 21; });
    project.AddMap(sizes, QStringLiteral("Eight by six"), 8, 6, 0, [](int, int) { return 2; });
    project.AddMap(sizes, QStringLiteral("Wide"), 40, 30, 0,
                   [](int x, int y) { return (x + 3 * y) % 21; });
    return project;
}

int ExpectedSide(int blocks, int most) {
    return 960 * std::min(blocks, most) + 15;
}
}  // namespace

class MapViewTest : public AppTest {};

TEST_F(MapViewTest, FrameAndGridlinesFitEveryMapSizeFromOneToNine) {
    MainForm* form = StartUp(SizesProject());
    ASSERT_NE(form, nullptr);
    MapView* view = form->View;
    for (int n = 1; n <= 9; ++n) {
        SCOPED_TRACE(n);
        GoTo(form, 0, n - 1);
        ASSERT_EQ(Defines.MapWidth, n);
        EXPECT_EQ(view->Shape2->WidthTwips(), ExpectedSide(n, 8));
        EXPECT_EQ(view->Shape2->HeightTwips(), ExpectedSide(n, 6));
        EXPECT_EQ(view->Shape2->LeftTwips(), 120);
        for (int k = 1; k <= 7; ++k) {
            EXPECT_EQ(view->Lines[k]->isVisibleTo(form), k < n) << "vertical " << k;
            EXPECT_EQ(view->Lines[k]->X1(), 120 + 960 * k);
            EXPECT_EQ(view->Lines[k]->Y1(), 120);
            EXPECT_EQ(view->Lines[k]->Y2(), 120 + ExpectedSide(n, 6));
        }
        for (int k = 1; k <= 5; ++k) {
            EXPECT_EQ(view->Lines[7 + k]->isVisibleTo(form), k < n) << "horizontal " << k;
            EXPECT_EQ(view->Lines[7 + k]->Y1(), 120 + 960 * k);
            EXPECT_EQ(view->Lines[7 + k]->X2(), 120 + ExpectedSide(n, 8));
        }
        EXPECT_EQ(view->HScroll->isVisibleTo(form), n > 8);
        EXPECT_EQ(view->VScroll->isVisibleTo(form), n > 6);
        // Exactly the cells of the slots on the map are visible.
        for (int i = 0; i < 768; ++i) {
            const int slot = i / 16;
            const bool onMap = slot % 8 < n && slot / 8 < n;
            ASSERT_EQ(view->MapTile->CellVisible(i), onMap) << "cell " << i;
        }
    }
}

TEST_F(MapViewTest, EightByThreeHasAllVerticalLinesEndingAtTheFrame) {
    MainForm* form = StartUp(SizesProject());
    ASSERT_NE(form, nullptr);
    GoTo(form, 0, 9);
    ASSERT_EQ(Defines.MapWidth, 8);
    ASSERT_EQ(Defines.MapHeight, 3);
    for (int k = 1; k <= 7; ++k) {
        EXPECT_TRUE(form->View->Lines[k]->isVisibleTo(form));
        EXPECT_EQ(form->View->Lines[k]->Y2() - form->View->Lines[k]->Y1(), 2895);
    }
    EXPECT_TRUE(form->View->Lines[8]->isVisibleTo(form));
    EXPECT_TRUE(form->View->Lines[9]->isVisibleTo(form));
    EXPECT_FALSE(form->View->Lines[10]->isVisibleTo(form));
}

TEST_F(MapViewTest, NineBySixScrollsToShowColumnsTwoToNine) {
    MainForm* form = StartUp(SizesProject());
    ASSERT_NE(form, nullptr);
    GoTo(form, 0, 10);
    MapView* view = form->View;
    EXPECT_TRUE(view->HScroll->isVisibleTo(form));
    EXPECT_FALSE(view->VScroll->isVisibleTo(form));
    EXPECT_EQ(view->HScroll->minimum(), 1);
    EXPECT_EQ(view->HScroll->maximum(), 2);
    EXPECT_EQ(view->HScroll->pageStep(), 7);
    EXPECT_EQ(view->HScroll->singleStep(), 1);
    view->HScroll->setValue(2);
    EXPECT_EQ(view->ViewCol, 2);
    // Slot 0 now shows column 2 of row 1, slot 7 column 9.
    for (int slot : {0, 7, 47}) {
        const int x = 2 + slot % 8;
        const int y = 1 + slot / 8;
        const int block = (x + 3 * y) % 21;
        for (int t = 0; t < 16; ++t)
            ASSERT_EQ(view->MapTile->Picture(16 * slot + t),
                      TilePicture(TileIndex(Defines.BlockTiles[block][t])))
                << "slot " << slot << " place " << t;
    }
}

TEST_F(MapViewTest, ScrollMaximaAndTheEightBySixMapThatFitsExactly) {
    MainForm* form = StartUp(SizesProject());
    ASSERT_NE(form, nullptr);
    GoTo(form, 0, 11);
    EXPECT_FALSE(form->View->HScroll->isVisibleTo(form));
    EXPECT_FALSE(form->View->VScroll->isVisibleTo(form));
    EXPECT_EQ(form->View->Shape2->WidthTwips(), 7695);
    EXPECT_EQ(form->View->Shape2->HeightTwips(), 5775);
    GoTo(form, 0, 12);
    EXPECT_EQ(form->View->HScroll->maximum(), 40 - 7);
    EXPECT_EQ(form->View->VScroll->maximum(), 30 - 5);
    EXPECT_EQ(form->View->VScroll->pageStep(), 6);
    form->View->VScroll->setValue(25);
    form->View->HScroll->setValue(33);
    // The last slot shows the map's last square.
    const int block = (40 + 3 * 30) % 21;
    EXPECT_EQ(form->View->MapTile->Picture(16 * 47 + 5),
              TilePicture(TileIndex(Defines.BlockTiles[block][5])));
    // A new map puts the view back in its top left corner.
    GoTo(form, 0, 12);
    EXPECT_EQ(form->View->ViewCol, 1);
    EXPECT_EQ(form->View->ViewRow, 1);
    EXPECT_EQ(form->View->HScroll->value(), 1);
}

TEST_F(MapViewTest, GridlinesToggleAndFollowTheMapLoadedWhileOff) {
    MainForm* form = StartUp(SizesProject());
    ASSERT_NE(form, nullptr);
    GoTo(form, 0, 1);  // 2 x 2
    ASSERT_TRUE(form->mnuGridlines->isChecked());
    EXPECT_EQ(form->mnuGridlines->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_G));
    EXPECT_TRUE(form->View->Lines[1]->isVisibleTo(form));
    EXPECT_EQ(form->View->Lines[1]->X1(), 1080);
    form->mnuGridlines->trigger();
    EXPECT_FALSE(form->mnuGridlines->isChecked());
    for (int k = 1; k <= 12; ++k)
        EXPECT_FALSE(form->View->Lines[k]->isVisibleTo(form));
    EXPECT_EQ(form->View->Shape2->WidthTwips(), 1935);
    GoTo(form, 0, 4);  // 5 x 5 while the lines are off
    for (int k = 1; k <= 12; ++k)
        EXPECT_FALSE(form->View->Lines[k]->isVisibleTo(form));
    form->mnuGridlines->trigger();
    for (int k = 1; k <= 7; ++k)
        EXPECT_EQ(form->View->Lines[k]->isVisibleTo(form), k < 5);
    EXPECT_EQ(form->View->Lines[1]->Y2(), 120 + 4815);
}

TEST_F(MapViewTest, HiddenSlotsOfASmallMapTakeNoPress) {
    MainForm* form = StartUp(SizesProject());
    ASSERT_NE(form, nullptr);
    GoTo(form, 0, 0);  // 1 x 1
    const int before = Defines.MapGrid[1][2];
    PressCell(form->View->MapTile, 16);  // slot 1, outside the map
    EXPECT_FALSE(form->MapChanged);
    EXPECT_EQ(Defines.MapGrid[1][2], before);
    EXPECT_EQ(form->View->MapTile->CellAt(form->View->MapTile->CellCentre(16)), -1);
    PressCell(form->View->MapTile, 5);
    EXPECT_TRUE(form->MapChanged);
}

TEST_F(MapViewTest, EachCellShowsTheBankPictureOfItsTileNumber) {
    Fixture::SmallProject project;
    // Block 0 holds the tile numbers 0 to 15; block 1 holds 95 and 96 of a
    // tileset based at 424, the last picture of the bank and one past it.
    project.AddTileset(3, 0, 0, [](int b, int t) { return b == 0 ? t : 7; });
    project.AddTileset(3, 0, 424, [](int, int t) { return t < 8 ? 95 : 96; });
    project.AddTileset(3, 0, 0, [](int, int) { return 94; });
    const int cat = project.AddCategory(QStringLiteral("Pictures"), 0);
    project.AddMap(cat, QStringLiteral("Reading order"), 2, 1, 0,
                   [](int x, int) { return x == 1 ? 0 : 1; });
    project.AddMap(cat, QStringLiteral("Bank end"), 1, 1, 1, [](int, int) { return 0; });
    project.AddMap(cat, QStringLiteral("Next run"), 1, 1, 2, [](int, int) { return 0; });
    MainForm* form = StartUp(project);
    ASSERT_NE(form, nullptr);
    CellArray* cells = form->View->MapTile;
    for (int t = 0; t < 16; ++t)
        EXPECT_EQ(cells->Picture(t), TilePicture(t)) << t;
    // Place 4 is the first tile of the second row of the block.
    EXPECT_EQ(cells->CellOffsetTwips(4), QPoint(0, 240));
    EXPECT_EQ(cells->CellOffsetTwips(16), QPoint(960, 0));
    for (int t = 16; t < 32; ++t)
        EXPECT_EQ(cells->Picture(t), TilePicture(7));
    GoTo(form, 0, 1);
    EXPECT_EQ(cells->Picture(0), TilePicture(519));
    EXPECT_EQ(cells->Picture(15), Tiles::Bank().NoPicture());
    GoTo(form, 0, 2);
    // A tile number past the tileset's last tile shows the next run's picture.
    EXPECT_EQ(cells->Picture(0), TilePicture(94));
}

TEST_F(MapViewTest, BlockNumbersOutsideTheTableDrawTheNoPictureCell) {
    Fixture::SmallProject project;
    project.AddTileset(7, 10, 0);
    const int cat = project.AddCategory(QStringLiteral("Odd"), 0);
    // Grid bytes 3 (below the bias 10) and 255 (block 245, past the last block).
    project.AddMap(
        cat, QStringLiteral("Odd bytes"), 2, 1, 0, [](int x, int) { return x == 1 ? 3 - 10 : 245; },
        1 - 10);
    MainForm* form = StartUp(project);
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(Defines.MapGrid[1][1], -7);
    EXPECT_EQ(Defines.MapGrid[1][2], 245);
    EXPECT_EQ(form->View->MapTile->Picture(0), Tiles::Bank().NoPicture());
    // Block 245 is a row of the table, which keeps what it held.
    EXPECT_NE(form->View->MapTile->Picture(16), nullptr);
    // Picking the odd square up beeps and leaves the palette alone.
    const int curBlock = form->CurBlock;
    PressCell(form->View->MapTile, 0, Qt::RightButton);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Beep), 1);
    EXPECT_EQ(form->CurBlock, curBlock);
    EXPECT_EQ(form->BorderNum, -9);
    EXPECT_EQ(form->BorderBlock->Picture(0), Tiles::Bank().NoPicture());
    // A save gives every odd byte back as it was read: the file stays the same.
    const QByteArray before = ReadFile(Defines.RomPath);
    Script.AnswerNo();  // no backup
    form->mnuSave->trigger();
    EXPECT_EQ(Script.Count(QStringLiteral("Your changes to the map have been saved!")), 1);
    EXPECT_EQ(ReadFile(Defines.RomPath), before);
}
