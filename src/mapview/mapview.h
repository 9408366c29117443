#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>
#include <QScrollBar>
#include <array>
#include <cstdint>
#include <vector>

#include "ui/cellarray.h"
#include "ui/shapes.h"
#include "ui/viewoverlay.h"

// The scrolling view of 8 x 6 blocks onto the current map, with its frame and
// gridlines. The main window and the placement views of the warp and event
// editors each own one; each has its own scroll position.
class MapView : public QObject {
    Q_OBJECT
public:
    // Creates the controls on `form`; the view's top left corner lies at
    // 120, 120 twips. The gridlines stand `linesPerBlock` to a block: one in
    // the main window (Line1 to Line12), two in the placement views (Line1 to
    // Line26).
    explicit MapView(QWidget* form, int linesPerBlock = 1);

    // Sets the view up for a map just read: scroll bars, position back to the
    // top left corner, frame and gridlines, then draws it.
    void SetUpForMap();
    // Redraws every slot that lies on the map from ViewCol, ViewRow and MapGrid.
    void DrawMapTiles();
    // Shows or hides the gridlines by the rule for the current map's size.
    void SetGridlines(bool on);
    bool Gridlines() const { return Gridlines_; }

    // The map column and row, counted from 1, of a cell's slot. False for a
    // slot that lies outside the map.
    bool SquareOfCell(int index, int& x, int& y) const;

    CellArray* MapTile;
    QScrollBar* HScroll;
    QScrollBar* VScroll;
    Outline* Shape2;
    // The gridlines by their names: Lines[n] is Line<n>, Lines[0] is unused.
    // Line1 to Line7 are vertical lines 1 to 7 and Line8 to Line12 horizontal
    // lines 1 to 5; at half-block pitch Line13 to Line20 are vertical lines 8
    // to 15 and Line21 to Line26 horizontal lines 6 to 11.
    std::vector<Line*> Lines;
    // The same lines by direction: Vertical[k - 1] is vertical line k.
    std::vector<Line*> Vertical;
    std::vector<Line*> Horizontal;

    std::int16_t ViewCol = 1;
    std::int16_t ViewRow = 1;

    // The map tools' layer, which only the main window's view has: the
    // pointer's moves and releases over the cells, and outlines of squares
    // above the frame and gridlines.
    void EnableTools();
    enum Mark { SelectionMark, ToolMark };
    // Outlines a rectangle of map squares; an empty rectangle hides the
    // mark. The outline stays on its squares when the view scrolls.
    void SetMark(Mark which, QRect squares);
    QRect MarkSquares(Mark which) const { return Marks_[which]; }
    // The square of the shown part of the map nearest to a point of the
    // cells; false when the point lies on no square of the map.
    bool SquareAt(QPoint pixel, QPoint& square) const;
    ViewOverlay* Overlay = nullptr;

signals:
    void MouseDown(int index, int button);
    // After a scroll bar moved the view and the cells were drawn again.
    void Scrolled();
    // The pointer moved over the cells, or with a button held anywhere;
    // `square` is the nearest square of the shown map.
    void PointerMoved(QPoint square, bool onSquare, Qt::MouseButtons buttons);
    void PointerLeft();
    // A button came up; button 1 is the left one, 2 the right one.
    void MouseUp(QPoint square, int button);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void PlaceMarks();
    QRect ShownPixels() const;
    std::array<QRect, ViewOverlay::Marks> Marks_{};

    void HScroll_Change(int value);
    void VScroll_Change(int value);
    void FitFrameAndLines();

    int LinesPerBlock_;
    bool Gridlines_ = true;
};
