#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include "ui/cellarray.h"

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
