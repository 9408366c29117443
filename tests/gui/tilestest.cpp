#include <gtest/gtest.h>

#include <QImage>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "fixture/smallproject.h"
#include "mapview/tiles.h"
#include "ui/cellarray.h"

TEST(TileBankTest, AMissingOrTooSmallBankIsNamedAndLeavesTheBankAsItWas) {
    QTemporaryDir dir;
    QString error;
    const bool loadedBefore = Tiles::Bank().IsLoaded();
    EXPECT_FALSE(Tiles::Bank().Load(dir.filePath(QStringLiteral("Tiles.png")), error));
    EXPECT_TRUE(error.contains(QStringLiteral("Tiles.png")));
    QImage small(256, 256, QImage::Format_RGB32);  // 256 pictures, not 520
    small.fill(Qt::white);
    ASSERT_TRUE(small.save(dir.filePath(QStringLiteral("Small.png"))));
    error.clear();
    EXPECT_FALSE(Tiles::Bank().Load(dir.filePath(QStringLiteral("Small.png")), error));
    EXPECT_TRUE(error.contains(QStringLiteral("Small.png")));
    QFile garbage(dir.filePath(QStringLiteral("Garbage.png")));
    ASSERT_TRUE(garbage.open(QIODevice::WriteOnly));
    garbage.write("not a picture at all");
    garbage.close();
    EXPECT_FALSE(Tiles::Bank().Load(garbage.fileName(), error));
    EXPECT_EQ(Tiles::Bank().IsLoaded(), loadedBefore);
}

TEST(CellArrayTest, PressesDecodeToTheCellUnderThePointerAndNeverWrap) {
    QWidget parent;
    CellArray cells(&parent, 8, 6, 255);
    QSignalSpy spy(&cells, &CellArray::MouseDown);
    // 32 columns of 16 pixels; the last cell is 17 pixels wide.
    EXPECT_EQ(cells.width(), 31 * 16 + 17);
    EXPECT_EQ(cells.CellAt(QPoint(0, 0)), 0);
    EXPECT_EQ(cells.CellAt(QPoint(17, 0)), 1);
    EXPECT_EQ(cells.CellAt(QPoint(64, 0)), 16);   // the next slot
    EXPECT_EQ(cells.CellAt(QPoint(0, 16)), 4);    // the second row of slot 0
    EXPECT_EQ(cells.CellAt(QPoint(0, 64)), 128);  // slot 8, the second slot row
    EXPECT_EQ(cells.CellAt(QPoint(31 * 16 + 16, 0)), 16 * 7 + 3);
    EXPECT_EQ(cells.CellAt(QPoint(-1, 0)), -1);
    cells.SetCellVisible(1, false);
    EXPECT_EQ(cells.CellAt(QPoint(17, 0)), -1);
    QTest::mousePress(&cells, Qt::RightButton, Qt::NoModifier, QPoint(20, 70));
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy[0][0].toInt(), 128 + 1);
    EXPECT_EQ(spy[0][1].toInt(), 2);
    QTest::mousePress(&cells, Qt::LeftButton, Qt::NoModifier, QPoint(17, 0));  // hidden cell
    EXPECT_EQ(spy.count(), 1);
}

// What the widget puts on the screen: each visible cell shows its picture of
// the bank, cut by its index, unscaled at its place; a hidden cell or one
// without a picture shows the background, and a changed picture shows at the
// next paint. An index outside the bank has the "no picture" picture.
TEST(CellArrayTest, PaintsEachVisibleCellsPictureAtItsPlace) {
    QTemporaryDir dir;
    ASSERT_TRUE(Fixture::IndexTileBank().save(dir.filePath(QStringLiteral("Tiles.png"))));
    QString error;
    ASSERT_TRUE(Tiles::Bank().Load(dir.filePath(QStringLiteral("Tiles.png")), error));
    QWidget parent;
    parent.setAutoFillBackground(true);
    QPalette palette = parent.palette();
    palette.setColor(QPalette::Window, QColor(1, 2, 3));
    parent.setPalette(palette);
    CellArray cells(&parent, 2, 2, 255);
    parent.resize(cells.size());
    for (int i = 0; i < cells.Count(); ++i)
        cells.SetPicture(i, TilePicture(i));
    cells.SetCellVisible(5, false);
    cells.SetPicture(6, nullptr);
    const auto colourOf = [](int index) { return qRgb(index % 256, index / 256, 7); };

    QImage shot = parent.grab().toImage();
    EXPECT_EQ(TilePicture(520), Tiles::Bank().NoPicture());
    EXPECT_EQ(TilePicture(-1), Tiles::Bank().NoPicture());
    EXPECT_EQ(TilePicture(32767), Tiles::Bank().NoPicture());
    for (int i : {0, 3, 4, 15, 16, 17, 63}) {
        SCOPED_TRACE(i);
        const QRect rect = cells.CellRect(i);
        EXPECT_EQ(rect.size(), QSize(17, 17));
        // The picture's 16 x 16 pixels, from the cell's top left corner.
        EXPECT_EQ(shot.pixel(rect.topLeft()), colourOf(i));
        EXPECT_EQ(shot.pixel(rect.topLeft() + QPoint(15, 15)), colourOf(i));
    }
    const QRgb background = qRgb(1, 2, 3);
    EXPECT_EQ(shot.pixel(cells.CellRect(5).topLeft() + QPoint(4, 4)), background);
    EXPECT_EQ(shot.pixel(cells.CellRect(6).topLeft() + QPoint(4, 4)), background);
    // A slot holds its 16 cells in rows of four; slot 1 lies to the right of
    // slot 0, slot 2 below it.
    EXPECT_EQ(cells.CellRect(7).topLeft(), QPoint(48, 16));
    EXPECT_EQ(cells.CellRect(16).topLeft(), QPoint(64, 0));
    EXPECT_EQ(cells.CellRect(32).topLeft(), QPoint(0, 64));

    cells.SetPicture(17, TilePicture(519));
    cells.SetCellVisible(5, true);
    shot = parent.grab().toImage();
    EXPECT_EQ(shot.pixel(cells.CellRect(17).topLeft() + QPoint(15, 15)), colourOf(519));
    EXPECT_EQ(shot.pixel(cells.CellRect(5).topLeft() + QPoint(8, 8)), colourOf(5));
}
