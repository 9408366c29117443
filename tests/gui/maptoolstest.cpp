#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QTest>

#include "core/defines.h"
#include "mapview/tiles.h"
#include "support/apptest.h"

namespace {
// A map of 12 x 9 on a tileset whose last block is 20 (bias 2): a region of
// block 1 in the top left 6 x 4 squares, and square (7, 5) of block 1 that
// touches it only at a corner; elsewhere blocks 2 to 4.
Fixture::SmallProject ToolProject() {
    Fixture::SmallProject project;
    project.AddTileset(20, 2);
    const int cat = project.AddCategory(QStringLiteral("Tools"), 0);
    project.AddMap(cat, QStringLiteral("Field"), 12, 9, 0, [](int x, int y) {
        return (x <= 6 && y <= 4) || (x == 7 && y == 5) ? 1 : (x + y) % 3 + 2;
    });
    project.AddMap(cat, QStringLiteral("Other"), 3, 3, 0, [](int, int) { return 0; });
    return project;
}
}  // namespace

class MapToolsTest : public AppTest {
protected:
    MainForm* Start() {
        Form_ = StartUp(ToolProject());
        if (!Form_) return nullptr;
        Cells_ = Form_->View->MapTile;
        // The keys work while the window has the focus.
        QApplication::setActiveWindow(Form_);
        return Form_;
    }
    // The middle of a square's block in the view's cells.
    QPoint At(int x, int y) const {
        return QPoint((x - Form_->View->ViewCol) * 64 + 32, (y - Form_->View->ViewRow) * 64 + 32);
    }
    void Key(QKeyCombination keys) { QTest::keyClick(Form_, keys.key(), keys.keyboardModifiers()); }
    void Drag(std::initializer_list<QPoint> path) {
        QTest::mousePress(Cells_, Qt::LeftButton, Qt::NoModifier, *path.begin());
        for (const QPoint& point : path)
            QTest::mouseMove(Cells_, point);
        QTest::mouseRelease(Cells_, Qt::LeftButton, Qt::NoModifier, *(path.end() - 1));
    }
    // A move of the pointer with no button held.
    void Hover(QPoint point) {
        QMouseEvent move(QEvent::MouseMove, point, Cells_->mapToGlobal(point), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(Cells_, &move);
    }
    // The squares of the map whose blocks differ from `grid`.
    static std::vector<QPoint> Changed(const MapGridT& grid) {
        std::vector<QPoint> squares;
        for (int y = 1; y <= 9; ++y)
            for (int x = 1; x <= 12; ++x)
                if (Defines.MapGrid[y][x] != grid[y][x]) squares.push_back({x, y});
        return squares;
    }
    static std::vector<QPoint> Squares(QRect rect) {
        std::vector<QPoint> squares;
        for (int y = rect.top(); y <= rect.bottom(); ++y)
            for (int x = rect.left(); x <= rect.right(); ++x)
                squares.push_back({x, y});
        return squares;
    }

    MainForm* Form_ = nullptr;
    CellArray* Cells_ = nullptr;
};

// Brush, Rectangle and Fill driven by keys and drags over the viewport: each
// makes one step of exactly its squares, undone and redone whole, and a save
// writes exactly the squares the steps left.
TEST_F(MapToolsTest, DragsMakeWholeStepsThatUndoRedoAndSaveExactly) {
    ASSERT_NE(Start(), nullptr);
    const QByteArray before = ReadFile(Defines.RomPath);
    const MapGridT original = Defines.MapGrid;
    PressCell(Form_->SideBlock, 16 * 5);  // block 5
    // A second press on the chosen tool's button keeps it chosen.
    QTest::mouseClick(Form_->ToolButtons[3], Qt::LeftButton);
    QTest::mouseClick(Form_->ToolButtons[3], Qt::LeftButton);
    EXPECT_EQ(Form_->CurTool(), ToolKind::Fill);
    EXPECT_TRUE(Form_->mnuTool[3]->isChecked());
    Key(Qt::Key_B);
    EXPECT_EQ(Form_->CurTool(), ToolKind::Brush);
    EXPECT_TRUE(Form_->ToolButtons[1]->isChecked());
    EXPECT_FALSE(Form_->ToolButtons[3]->isChecked());
    EXPECT_FALSE(Form_->mnuTool[0]->isChecked());
    // A fast move from (1, 6) to (4, 6), then out below the view: the stroke
    // keeps to the view's last row.
    Drag({At(1, 6), At(4, 6), At(4, 6) + QPoint(0, 300)});
    EXPECT_EQ(Changed(original), Squares(QRect(1, 6, 4, 1)));
    EXPECT_EQ(Form_->Undo.UndoCount(), 1);
    EXPECT_TRUE(Form_->MapChanged);

    Key(Qt::Key_R);
    EXPECT_EQ(Form_->CurTool(), ToolKind::Rectangle);
    MapGridT step = Defines.MapGrid;
    QTest::mousePress(Cells_, Qt::LeftButton, Qt::NoModifier, At(8, 4));
    QTest::mouseMove(Cells_, At(7, 2));
    EXPECT_EQ(Form_->View->MarkSquares(MapView::ToolMark), QRect(7, 2, 2, 3));
    QTest::mouseRelease(Cells_, Qt::LeftButton, Qt::NoModifier, At(7, 2));
    EXPECT_EQ(Changed(step), Squares(QRect(7, 2, 2, 3)));
    EXPECT_TRUE(Form_->View->MarkSquares(MapView::ToolMark).isEmpty());

    Key(Qt::Key_F);
    step = Defines.MapGrid;
    Drag({At(3, 3)});
    EXPECT_EQ(Changed(step), Squares(QRect(1, 1, 6, 4)));  // not across the corner to (7, 5)
    EXPECT_EQ(Defines.MapGrid[5][7], 1);
    EXPECT_EQ(Form_->Undo.UndoCount(), 3);

    const MapGridT done = Defines.MapGrid;
    Key(Qt::CTRL | Qt::Key_Z);
    EXPECT_EQ(Defines.MapGrid, step);
    EXPECT_TRUE(Form_->mnuRedo->isEnabled());
    Key(Qt::CTRL | Qt::Key_Z);
    Key(Qt::CTRL | Qt::Key_Y);
    Key(Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
    EXPECT_EQ(Defines.MapGrid, done);
    EXPECT_FALSE(Form_->mnuRedo->isEnabled());
    EXPECT_EQ(Form_->View->MapTile->Picture(0), TilePicture(5 * 3));

    Script.AnswerNo();  // no backup
    Form_->mnuSave->trigger();
    const QByteArray after = ReadFile(Defines.RomPath);
    const int grid = Fixture::SmallProject(ToolProject()).Categories[0].Maps[0].GridPos;
    std::vector<int> positions;
    for (const QPoint& square : Changed(original))
        positions.push_back(grid + (square.y() - 1) * 12 + square.x() - 1);
    std::sort(positions.begin(), positions.end());
    EXPECT_EQ(Differences(before, after), positions);
    for (int position : positions)
        EXPECT_EQ(after[position - 1], 5 + 2);
}

// Select, Copy, Select All and Paste through the system clipboard.
TEST_F(MapToolsTest, CopyAndPasteGoThroughTheClipboardText) {
    ASSERT_NE(Start(), nullptr);
    QClipboard* clipboard = QGuiApplication::clipboard();
    EXPECT_FALSE(Form_->mnuCopy->isEnabled());
    Key(Qt::Key_S);
    Drag({At(7, 5), At(5, 4)});
    EXPECT_EQ(Form_->Selection(), QRect(5, 4, 3, 2));
    Key(Qt::CTRL | Qt::Key_C);
    EXPECT_EQ(clipboard->text(), QStringLiteral("01 01 04\n03 04 01\n"));
    // The outline stays on its squares when the view scrolls.
    const QRect outline = Form_->View->Overlay->Mark(MapView::SelectionMark);
    Form_->View->HScroll->setValue(2);
    EXPECT_EQ(Form_->View->Overlay->Mark(MapView::SelectionMark), outline.translated(-64, 0));
    Form_->View->HScroll->setValue(1);
    Key(Qt::CTRL | Qt::Key_A);
    EXPECT_EQ(Form_->Selection(), QRect(1, 1, 12, 9));

    // Text that is no pattern beeps; a block above the last one is named.
    const MapGridT original = Defines.MapGrid;
    clipboard->setText(QStringLiteral("1 2\n3\n"));
    Key(Qt::CTRL | Qt::Key_V);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Beep), 1);
    clipboard->setText(QStringLiteral("14 15\n"));
    Key(Qt::CTRL | Qt::Key_V);
    ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("15")));
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("14")));
    EXPECT_FALSE(Form_->Pasting());

    clipboard->setText(QStringLiteral("7 8\n9 a\n"));
    Key(Qt::CTRL | Qt::Key_V);
    EXPECT_TRUE(Form_->Pasting());
    Hover(At(3, 2));
    EXPECT_EQ(Form_->View->MarkSquares(MapView::ToolMark), QRect(3, 2, 2, 2));
    EXPECT_EQ(Form_->PointerText->text(), QStringLiteral("X 2  Y 1  Block 01"));
    EXPECT_LE(Form_->PointerText->heightForWidth(Form_->PointerText->width()),
              Form_->PointerText->height());
    PressCell(Cells_, 16 * (8 + 2));  // stamps on (3, 2)
    // At the bottom right corner only the pattern's top left square falls
    // on the map.
    QTest::keyClick(Form_->View->HScroll, Qt::Key_End);
    QTest::keyClick(Form_->View->VScroll, Qt::Key_End);
    QTest::mousePress(Cells_, Qt::LeftButton, Qt::NoModifier, At(12, 9));
    std::vector<QPoint> stamped = Squares(QRect(3, 2, 2, 2));
    stamped.push_back({12, 9});
    EXPECT_EQ(Changed(original), stamped);
    EXPECT_EQ(Defines.MapGrid[2][3], 7);
    EXPECT_EQ(Defines.MapGrid[3][4], 10);
    EXPECT_EQ(Defines.MapGrid[9][12], 7);
    EXPECT_EQ(Defines.MapGrid[9][13], 0);
    EXPECT_EQ(Defines.MapGrid[10][12], 0);
    EXPECT_EQ(Form_->Undo.UndoCount(), 2);
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Form_->Pasting());
    EXPECT_TRUE(Form_->View->MarkSquares(MapView::ToolMark).isEmpty());
    // Outside the view the readout is empty.
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(Cells_, &leave);
    EXPECT_TRUE(Form_->PointerText->text().isEmpty());
}

// Tools that change no square make no step and leave the map unchanged;
// Escape ends a drag with nothing changed; the Pencil makes a step always;
// "Go" empties both lists.
TEST_F(MapToolsTest, NothingChangedMakesNoStepAndEscapeTakesADragBack) {
    ASSERT_NE(Start(), nullptr);
    const MapGridT original = Defines.MapGrid;
    PressCell(Form_->SideBlock, 16 * 1);  // block 1
    Key(Qt::Key_F);
    Drag({At(1, 1)});
    Key(Qt::Key_R);
    Drag({At(1, 1), At(6, 4)});
    Key(Qt::Key_B);
    QTest::mousePress(Cells_, Qt::LeftButton, Qt::NoModifier, At(7, 1));
    QTest::mouseMove(Cells_, At(8, 3));
    EXPECT_NE(Defines.MapGrid, original);
    Key(Qt::Key_Escape);
    QTest::mouseRelease(Cells_, Qt::LeftButton, Qt::NoModifier, At(8, 3));
    EXPECT_EQ(Defines.MapGrid, original);
    EXPECT_EQ(Form_->Undo.UndoCount(), 0);
    EXPECT_FALSE(Form_->MapChanged);
    EXPECT_FALSE(Form_->mnuUndo->isEnabled());

    Key(Qt::Key_P);
    PressCell(Cells_, 0);  // the Pencil on a square that holds block 1
    EXPECT_EQ(Form_->Undo.UndoCount(), 1);
    EXPECT_TRUE(Form_->MapChanged);
    Key(Qt::CTRL | Qt::Key_Z);
    EXPECT_TRUE(Form_->mnuRedo->isEnabled());
    Key(Qt::CTRL | Qt::Key_A);
    Script.AnswerYes();  // discard the changes
    GoTo(Form_, 0, 1);
    EXPECT_FALSE(Form_->mnuUndo->isEnabled());
    EXPECT_FALSE(Form_->mnuRedo->isEnabled());
    EXPECT_FALSE(Form_->mnuCopy->isEnabled());
    EXPECT_TRUE(Form_->Selection().isEmpty());
}
