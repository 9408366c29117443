#pragma once

#include <QObject>
#include <QScrollBar>
#include <cstdint>
#include <vector>

#include "ui/cellarray.h"
#include "ui/shapes.h"

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

signals:
    void MouseDown(int index, int button);
    // After a scroll bar moved the view and the cells were drawn again.
    void Scrolled();

private:
    void HScroll_Change(int value);
    void VScroll_Change(int value);
    void FitFrameAndLines();

    int LinesPerBlock_;
    bool Gridlines_ = true;
};
