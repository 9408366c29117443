#include <QTest>

#include "core/defines.h"
#include "mapview/tiles.h"
#include "support/apptest.h"

namespace {
// Maps of every width and height from 1 to 9 and four more sizes, with a
// block number that tells the square: block = (x + 3 * y) % 21.
Fixture::SmallProject SizesProject() {
    Fixture::SmallProject project(256 * 1024);
    project.AddTileset(20, 2, 0);
    const int sizes = project.AddCategory(QStringLiteral("Sizes"), 0);
    const auto block = [](int x, int y) { return (x + 3 * y) % 21; };
    for (int n = 1; n <= 9; ++n)
        project.AddMap(sizes, QStringLiteral("Square %1").arg(n), n, n, 0, block);
    project.AddMap(sizes, QStringLiteral("Eight by three"), 8, 3, 0, block);
    project.AddMap(sizes, QStringLiteral("Nine by six"), 9, 6, 0, block);
    project.AddMap(sizes, QStringLiteral("Eight by six"), 8, 6, 0, block);
    project.AddMap(sizes, QStringLiteral("Wide"), 40, 30, 0, block);
    return project;
}

// The bank picture at a place of the square (x, y) of a SizesProject map:
// the fixture's tileset has tile (b * 3 + t) % 94 at place t of block b.
const QPixmap* PictureAt(int x, int y, int place) {
    return TilePicture(((x + 3 * y) % 21 * 3 + place) % 94);
}
}  // namespace

class MapViewTest : public AppTest {};

// The frame, the gridlines, the scroll bars and the cells shown follow the
// size of each map; at most 8 x 6 blocks are in view.
TEST_F(MapViewTest, FrameGridlinesScrollBarsAndCellsFitTheMapSize) {
    MainForm* form = StartUp(SizesProject());
    ASSERT_NE(form, nullptr);
    MapView* view = form->View;
    struct Case {
        int cols, rows, frameWidth, frameHeight;
    };
    const Case cases[] = {
        {1, 1, 975, 975},     {2, 2, 1935, 1935}, {3, 3, 2895, 2895}, {4, 4, 3855, 3855},
        {5, 5, 4815, 4815},   {6, 6, 5775, 5775}, {7, 7, 6735, 5775}, {8, 8, 7695, 5775},
        {9, 9, 7695, 5775},   {8, 3, 7695, 2895}, {9, 6, 7695, 5775}, {8, 6, 7695, 5775},
        {40, 30, 7695, 5775},
    };
    for (int row = 0; row < static_cast<int>(std::size(cases)); ++row) {
        const Case& c = cases[row];
        SCOPED_TRACE(QStringLiteral("%1 x %2").arg(c.cols).arg(c.rows).toStdString());
        GoTo(form, 0, row);
        ASSERT_EQ(Defines.MapWidth, c.cols);
        ASSERT_EQ(Defines.MapHeight, c.rows);
        EXPECT_EQ(view->Shape2->LeftTwips(), 120);
        EXPECT_EQ(view->Shape2->TopTwips(), 120);
        EXPECT_EQ(view->Shape2->WidthTwips(), c.frameWidth);
        EXPECT_EQ(view->Shape2->HeightTwips(), c.frameHeight);
        // Vertical lines 1 to 7 between the columns, horizontal lines 8 to 12
        // between the rows, each running the frame's length.
        for (int k = 1; k <= 7; ++k) {
            EXPECT_EQ(view->Lines[k]->isVisibleTo(form), k < c.cols) << "vertical " << k;
            EXPECT_EQ(view->Lines[k]->X1(), 120 + 960 * k);
            EXPECT_EQ(view->Lines[k]->Y1(), 120);
            EXPECT_EQ(view->Lines[k]->Y2(), 120 + c.frameHeight);
        }
        for (int k = 1; k <= 5; ++k) {
            EXPECT_EQ(view->Lines[7 + k]->isVisibleTo(form), k < c.rows) << "horizontal " << k;
            EXPECT_EQ(view->Lines[7 + k]->Y1(), 120 + 960 * k);
            EXPECT_EQ(view->Lines[7 + k]->X2(), 120 + c.frameWidth);
        }
        EXPECT_EQ(view->HScroll->isVisibleTo(form), c.cols > 8);
        EXPECT_EQ(view->VScroll->isVisibleTo(form), c.rows > 6);
        for (int i = 0; i < 768; ++i) {
            const int slot = i / 16;
            ASSERT_EQ(view->MapTile->CellVisible(i), slot % 8 < c.cols && slot / 8 < c.rows)
                << "cell " << i;
        }
    }
}

// Each bar scrolls one square a step, until the last column or row reaches
// the view's edge; a new map starts in its top left corner again.
TEST_F(MapViewTest, ScrollingShowsTheSquaresFromTheScrollPosition) {
    MainForm* form = StartUp(SizesProject());
    ASSERT_NE(form, nullptr);
    MapView* view = form->View;
    GoTo(form, 0, 10);  // 9 x 6
    EXPECT_EQ(view->HScroll->minimum(), 1);
    EXPECT_EQ(view->HScroll->maximum(), 2);
    EXPECT_EQ(view->HScroll->pageStep(), 7);
    EXPECT_EQ(view->HScroll->singleStep(), 1);
    view->HScroll->setValue(2);
    EXPECT_EQ(view->ViewCol, 2);
    for (int slot : {0, 7, 47})
        for (int t = 0; t < 16; ++t)
            ASSERT_EQ(view->MapTile->Picture(16 * slot + t),
                      PictureAt(2 + slot % 8, 1 + slot / 8, t))
                << "slot " << slot << " place " << t;

    GoTo(form, 0, 12);  // 40 x 30
    EXPECT_EQ(view->HScroll->maximum(), 33);
    EXPECT_EQ(view->VScroll->maximum(), 25);
    EXPECT_EQ(view->VScroll->pageStep(), 6);
    EXPECT_EQ(view->VScroll->singleStep(), 1);
    view->VScroll->setValue(25);
    view->HScroll->setValue(33);
    EXPECT_EQ(view->MapTile->Picture(0), PictureAt(33, 25, 0));
    EXPECT_EQ(view->MapTile->Picture(16 * 47 + 5), PictureAt(40, 30, 5));
    GoTo(form, 0, 12);
    EXPECT_EQ(view->ViewCol, 1);
    EXPECT_EQ(view->ViewRow, 1);
    EXPECT_EQ(view->HScroll->value(), 1);
    EXPECT_EQ(view->VScroll->value(), 1);
    EXPECT_EQ(view->MapTile->Picture(16 * 47 + 5), PictureAt(8, 6, 5));
}

TEST_F(MapViewTest, GridlinesToggleAndFollowTheMapLoadedWhileOff) {
    MainForm* form = StartUp(SizesProject());
    ASSERT_NE(form, nullptr);
    GoTo(form, 0, 1);  // 2 x 2
    ASSERT_TRUE(form->mnuGridlines->isChecked());
    EXPECT_TRUE(form->View->Lines[1]->isVisibleTo(form));
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
