#include <QTest>

#include "core/defines.h"
#include "mapview/tiles.h"
#include "support/apptest.h"

// The main window's map view. Its gridlines are checked through the warp
// editor's view, which draws them at half-block pitch with the same code.
namespace {
// Maps around the view's 8 x 6 blocks, with a block number that tells the
// square: block = (x + 3 * y) % 21.
enum { OneByOne, SevenBySeven, NineBySix, EightByThree, Wide };

Fixture::SmallProject SizesProject() {
    Fixture::SmallProject project(256 * 1024);
    project.AddTileset(20, 2, 0);
    const int sizes = project.AddCategory(QStringLiteral("Sizes"), 0);
    const auto block = [](int x, int y) { return (x + 3 * y) % 21; };
    const auto add = [&](int cols, int rows) {
        project.AddMap(sizes, QStringLiteral("%1 x %2").arg(cols).arg(rows), cols, rows, 0, block);
    };
    add(1, 1);
    add(7, 7);
    add(9, 6);
    add(8, 3);
    add(40, 30);
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
// size of each map; at most 8 x 6 blocks are in view, and a hidden cell
// takes no press.
TEST_F(MapViewTest, FrameScrollBarsAndCellsFitTheMapSize) {
    MainForm* form = StartUp(SizesProject());
    ASSERT_NE(form, nullptr);
    MapView* view = form->View;
    struct Case {
        int map, cols, rows, frameWidth, frameHeight;
    };
    for (const Case& c : {Case{OneByOne, 1, 1, 975, 975}, Case{SevenBySeven, 7, 7, 6735, 5775},
                          Case{NineBySix, 9, 6, 7695, 5775}, Case{EightByThree, 8, 3, 7695, 2895},
                          Case{Wide, 40, 30, 7695, 5775}}) {
        SCOPED_TRACE(QStringLiteral("%1 x %2").arg(c.cols).arg(c.rows).toStdString());
        GoTo(form, 0, c.map);
        EXPECT_EQ(view->Shape2->WidthTwips(), c.frameWidth);
        EXPECT_EQ(view->Shape2->HeightTwips(), c.frameHeight);
        for (int k = 1; k <= 7; ++k)
            EXPECT_EQ(view->Lines[k]->isVisibleTo(form), k < c.cols) << "vertical " << k;
        for (int k = 1; k <= 5; ++k)
            EXPECT_EQ(view->Lines[7 + k]->isVisibleTo(form), k < c.rows) << "horizontal " << k;
        EXPECT_EQ(view->HScroll->isVisibleTo(form), c.cols > 8);
        EXPECT_EQ(view->VScroll->isVisibleTo(form), c.rows > 6);
        for (int i = 0; i < 768; ++i) {
            const int slot = i / 16;
            ASSERT_EQ(view->MapTile->CellVisible(i), slot % 8 < c.cols && slot / 8 < c.rows)
                << "cell " << i;
        }
    }
    GoTo(form, 0, OneByOne);
    const int before = Defines.MapGrid[1][2];
    PressCell(view->MapTile, 16);  // slot 1, outside the map
    EXPECT_FALSE(form->MapChanged);
    EXPECT_EQ(Defines.MapGrid[1][2], before);
    PressCell(view->MapTile, 5);
    EXPECT_TRUE(form->MapChanged);
}

// Each bar scrolls one square a step, until the last column or row reaches
// the view's edge; a new map starts in its top left corner again.
TEST_F(MapViewTest, ScrollingShowsTheSquaresFromTheScrollPosition) {
    MainForm* form = StartUp(SizesProject());
    ASSERT_NE(form, nullptr);
    MapView* view = form->View;
    GoTo(form, 0, NineBySix);
    EXPECT_EQ(view->HScroll->maximum(), 2);
    view->HScroll->setValue(2);
    EXPECT_EQ(view->ViewCol, 2);
    for (int slot : {0, 7, 47})
        for (int t = 0; t < 16; ++t)
            ASSERT_EQ(view->MapTile->Picture(16 * slot + t),
                      PictureAt(2 + slot % 8, 1 + slot / 8, t))
                << "slot " << slot << " place " << t;

    GoTo(form, 0, Wide);
    EXPECT_EQ(view->HScroll->maximum(), 33);
    EXPECT_EQ(view->VScroll->maximum(), 25);
    view->VScroll->setValue(25);
    view->HScroll->setValue(33);
    EXPECT_EQ(view->MapTile->Picture(0), PictureAt(33, 25, 0));
    EXPECT_EQ(view->MapTile->Picture(16 * 47 + 5), PictureAt(40, 30, 5));
    GoTo(form, 0, Wide);
    EXPECT_EQ(view->ViewCol, 1);
    EXPECT_EQ(view->ViewRow, 1);
    EXPECT_EQ(view->MapTile->Picture(16 * 47 + 5), PictureAt(8, 6, 5));
}
