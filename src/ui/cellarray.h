#pragma once

#include <QPixmap>
#include <QWidget>
#include <vector>

// An array of picture cells that one widget paints itself. In the block
// layout sixteen consecutive cells make a block slot, four across and four
// down in reading order, and slots lie `slotsAcross` to a row; in the flat
// layout the cells lie in plain reading order. Cells stand 240 twips apart and
// are `cellTwips` square, so larger cells overlap their right and lower
// neighbours. A press reports the cell's index and the button.
class CellArray : public QWidget {
    Q_OBJECT
public:
    // Block slots of 16 cells, `slotsAcross` by `slotsDown` of them.
    CellArray(QWidget* parent, int slotsAcross, int slotsDown, int cellTwips);
    // A flat grid of `columns` by `rows` cells, cell i at column i mod
    // columns and row i div columns.
    static CellArray* Grid(QWidget* parent, int columns, int rows, int cellTwips);

    // Stretches each picture to the cell's size instead of drawing it at its
    // own size; pixel art stays unsmoothed either way.
    void SetStretch(bool stretch);

    // Puts the top left corner of slot 0 at a place of the parent, in twips.
    void PlaceAt(int leftTwips, int topTwips);

    int Count() const { return static_cast<int>(Cells_.size()); }
    // The picture is shown by reference and must outlive its use here;
    // nullptr shows nothing.
    void SetPicture(int index, const QPixmap* picture);
    const QPixmap* Picture(int index) const { return Cells_[index].Picture; }
    void SetCellVisible(int index, bool visible);
    bool CellVisible(int index) const { return Cells_[index].Visible; }
    void SetAllVisible(bool visible);

    // Left and top of a cell relative to slot 0, in twips.
    QPoint CellOffsetTwips(int index) const;
    // The square a cell covers in this widget's pixels.
    QRect CellRect(int index) const;
    // The centre of a cell in this widget's pixels, for presses in tests.
    QPoint CellCentre(int index) const;
    // The visible cell under a point of this widget, or -1.
    int CellAt(QPoint point) const;

signals:
    // Button 1 is the left button, 2 the right one, 4 the middle one.
    void MouseDown(int index, int button);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    enum class Order { BlockSlots, Flat };
    CellArray(QWidget* parent, Order order, int columns, int rows, int cellTwips);

    struct Cell {
        const QPixmap* Picture = nullptr;
        bool Visible = true;
    };
    int IndexAt(int column, int row) const;

    Order Order_;
    int Columns_;  // cell columns and rows of the whole array
    int Rows_;
    int CellPixels_;
    bool Stretch_ = false;
    std::vector<Cell> Cells_;
};
