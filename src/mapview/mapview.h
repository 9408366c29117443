#pragma once

#include <QObject>
#include <QScrollBar>
#include <array>
#include <cstdint>

#include "ui/cellarray.h"
#include "ui/shapes.h"

// The scrolling view of 8 x 6 blocks onto the current map, with its frame and
// gridlines. The main window and the placement views of the warp and event
// editors each own one; each has its own scroll position.
class MapView : public QObject {
    Q_OBJECT
public:
    // Creates the controls on `form`; the view's top left corner lies at
    // 120, 120 twips.
    explicit MapView(QWidget* form);

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
    // Line[1] to Line[7] are vertical, Line[8] to Line[12] horizontal; Line[0] is unused.
    std::array<Line*, 13> Lines{};

    std::int16_t ViewCol = 1;
    std::int16_t ViewRow = 1;

signals:
    void MouseDown(int index, int button);

private:
    void HScroll_Change(int value);
    void VScroll_Change(int value);
    void FitFrameAndLines();

    bool Gridlines_ = true;
};
