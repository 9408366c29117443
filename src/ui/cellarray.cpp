#include "ui/cellarray.h"

#include <QMouseEvent>
#include <QPainter>

#include "core/limits.h"
#include "ui/twips.h"

namespace {
constexpr int PitchTwips = 240;
constexpr int Pitch = PitchTwips / TwipsPerPixel;  // 16 pixels
constexpr int CellsAcrossSlot = 4;
}  // namespace

CellArray::CellArray(QWidget* parent, int slotsAcross, int slotsDown, int cellTwips)
    : CellArray(parent, Order::BlockSlots, slotsAcross * CellsAcrossSlot,
                slotsDown * CellsAcrossSlot, cellTwips) {}

CellArray* CellArray::Grid(QWidget* parent, int columns, int rows, int cellTwips) {
    return new CellArray(parent, Order::Flat, columns, rows, cellTwips);
}

CellArray::CellArray(QWidget* parent, Order order, int columns, int rows, int cellTwips)
    : QWidget(parent),
      Order_(order),
      Columns_(columns),
      Rows_(rows),
      CellPixels_(Px(cellTwips)),
      Cells_(static_cast<size_t>(columns * rows)) {
    setAttribute(Qt::WA_OpaquePaintEvent, false);
    setFixedSize((Columns_ - 1) * Pitch + CellPixels_, (Rows_ - 1) * Pitch + CellPixels_);
}

void CellArray::SetStretch(bool stretch) {
    Stretch_ = stretch;
    update();
}

void CellArray::PlaceAt(int leftTwips, int topTwips) {
    move(Px(leftTwips), Px(topTwips));
}

void CellArray::SetPicture(int index, const QPixmap* picture) {
    if (Cells_[index].Picture == picture) return;
    Cells_[index].Picture = picture;
    update();
}

void CellArray::SetCellVisible(int index, bool visible) {
    if (Cells_[index].Visible == visible) return;
    Cells_[index].Visible = visible;
    update();
}

void CellArray::SetAllVisible(bool visible) {
    for (auto& cell : Cells_)
        cell.Visible = visible;
    update();
}

QPoint CellArray::CellOffsetTwips(int index) const {
    if (Order_ == Order::Flat)
        return QPoint((index % Columns_) * PitchTwips, (index / Columns_) * PitchTwips);
    const int slotsAcross = Columns_ / CellsAcrossSlot;
    const int slot = index / Limits::TilesPerBlock;
    const int place = index % Limits::TilesPerBlock;
    const int column = CellsAcrossSlot * (slot % slotsAcross) + place % CellsAcrossSlot;
    const int row = CellsAcrossSlot * (slot / slotsAcross) + place / CellsAcrossSlot;
    return QPoint(column * PitchTwips, row * PitchTwips);
}

QRect CellArray::CellRect(int index) const {
    const QPoint offset = CellOffsetTwips(index);
    return QRect(offset.x() / TwipsPerPixel, offset.y() / TwipsPerPixel, CellPixels_, CellPixels_);
}

QPoint CellArray::CellCentre(int index) const {
    return CellRect(index).center();
}

int CellArray::IndexAt(int column, int row) const {
    if (Order_ == Order::Flat) return row * Columns_ + column;
    const int slot =
        (row / CellsAcrossSlot) * (Columns_ / CellsAcrossSlot) + column / CellsAcrossSlot;
    return slot * Limits::TilesPerBlock + (row % CellsAcrossSlot) * CellsAcrossSlot +
           column % CellsAcrossSlot;
}

int CellArray::CellAt(QPoint point) const {
    if (point.x() < 0 || point.y() < 0) return -1;
    // Where cells overlap, the later cell lies on top; it is the one whose
    // own square holds the point, except past the last column or row.
    const int column = std::min(point.x() / Pitch, Columns_ - 1);
    const int row = std::min(point.y() / Pitch, Rows_ - 1);
    const int index = IndexAt(column, row);
    if (!CellRect(index).contains(point) || !Cells_[index].Visible) return -1;
    return index;
}

void CellArray::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    // Tile pictures are pixel art: drawn unscaled, never smoothed.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    const QRect dirty = event->rect();
    for (int i = 0; i < Count(); ++i) {
        const Cell& cell = Cells_[i];
        if (!cell.Visible || !cell.Picture) continue;
        const QRect rect = CellRect(i);
        if (!rect.intersects(dirty)) continue;
        if (Stretch_)
            painter.drawPixmap(rect, *cell.Picture);
        else
            painter.drawPixmap(rect.topLeft(), *cell.Picture);
    }
}

void CellArray::mousePressEvent(QMouseEvent* event) {
    const int index = CellAt(event->position().toPoint());
    if (index < 0) {
        event->ignore();
        return;
    }
    int button = 0;
    switch (event->button()) {
        case Qt::LeftButton:
            button = 1;
            break;
        case Qt::RightButton:
            button = 2;
            break;
        case Qt::MiddleButton:
            button = 4;
            break;
        default:
            break;
    }
    emit MouseDown(index, button);
}
