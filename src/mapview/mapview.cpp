#include "mapview/mapview.h"

#include <QMouseEvent>
#include <QSignalBlocker>
#include <algorithm>

#include "core/defines.h"
#include "mapview/compose.h"
#include "ui/twips.h"

namespace {
constexpr int ViewLeft = 120;
constexpr int ViewTop = 120;
constexpr int BlockTwips = 960;
constexpr int MapCellTwips = 255;
constexpr int BlockPixels = BlockTwips / TwipsPerPixel;
}  // namespace

MapView::MapView(QWidget* form, int linesPerBlock) : QObject(form), LinesPerBlock_(linesPerBlock) {
    MapTile = new CellArray(form, Limits::ViewSlotsAcross, Limits::ViewSlotsDown, MapCellTwips);
    MapTile->PlaceAt(ViewLeft, ViewTop);
    MapTile->SetAllVisible(false);
    connect(MapTile, &CellArray::MouseDown, this, &MapView::MouseDown);

    HScroll = new QScrollBar(Qt::Horizontal, form);
    Place(HScroll, 120, 5890, 7695, 255);
    HScroll->setRange(1, 1);
    HScroll->setPageStep(7);
    HScroll->setSingleStep(1);
    VScroll = new QScrollBar(Qt::Vertical, form);
    Place(VScroll, 7810, 120, 255, 5775);
    VScroll->setRange(1, 1);
    VScroll->setPageStep(6);
    VScroll->setSingleStep(1);
    connect(HScroll, &QScrollBar::valueChanged, this, &MapView::HScroll_Change);
    connect(VScroll, &QScrollBar::valueChanged, this, &MapView::VScroll_Change);

    // The frame and the lines are made after the cells, so they lie above them.
    Shape2 = new Outline(form);
    Shape2->SetRect(ViewLeft, ViewTop, 7695, 5775);
    const int pitch = BlockTwips / linesPerBlock;
    const int vertical = Limits::ViewSlotsAcross * linesPerBlock - 1;
    const int horizontal = Limits::ViewSlotsDown * linesPerBlock - 1;
    for (int k = 1; k <= vertical; ++k) {
        const int x = ViewLeft + pitch * k;
        Vertical.push_back(new Line(form));
        Vertical.back()->SetEnds(x, ViewTop, x, ViewTop + Shape2->HeightTwips());
    }
    for (int k = 1; k <= horizontal; ++k) {
        const int y = ViewTop + pitch * k;
        Horizontal.push_back(new Line(form));
        Horizontal.back()->SetEnds(ViewLeft, y, ViewLeft + Shape2->WidthTwips(), y);
    }
    // The names: the lines of the first 7 and 5 come first, the rest after.
    Lines.push_back(nullptr);
    for (int k = 0; k < std::min(vertical, 7); ++k)
        Lines.push_back(Vertical[k]);
    for (int k = 0; k < std::min(horizontal, 5); ++k)
        Lines.push_back(Horizontal[k]);
    for (int k = 7; k < vertical; ++k)
        Lines.push_back(Vertical[k]);
    for (int k = 5; k < horizontal; ++k)
        Lines.push_back(Horizontal[k]);
    for (Line* line : Vertical)
        line->hide();
    for (Line* line : Horizontal)
        line->hide();
}

void MapView::HScroll_Change(int value) {
    ViewCol = static_cast<std::int16_t>(value);
    DrawMapTiles();
    PlaceMarks();
    emit Scrolled();
}

void MapView::VScroll_Change(int value) {
    ViewRow = static_cast<std::int16_t>(value);
    DrawMapTiles();
    PlaceMarks();
    emit Scrolled();
}

void MapView::EnableTools() {
    // Made last, so it lies above the cells, the frame and the gridlines.
    Overlay = new ViewOverlay(MapTile->parentWidget(), {QColor(0, 0, 255), QColor(255, 0, 255)});
    Overlay->setGeometry(MapTile->geometry());
    Overlay->show();
    MapTile->setMouseTracking(true);
    MapTile->installEventFilter(this);
}

QRect MapView::ShownPixels() const {
    const int across = std::clamp(Defines.MapWidth - ViewCol + 1, 0, Limits::ViewSlotsAcross);
    const int down = std::clamp(Defines.MapHeight - ViewRow + 1, 0, Limits::ViewSlotsDown);
    return QRect(0, 0, across * BlockPixels + 1, down * BlockPixels + 1);
}

void MapView::SetMark(Mark which, QRect squares) {
    Marks_[which] = squares;
    if (!Overlay) return;
    QRect pixels;
    if (!squares.isEmpty())
        pixels =
            QRect((squares.left() - ViewCol) * BlockPixels, (squares.top() - ViewRow) * BlockPixels,
                  squares.width() * BlockPixels + 1, squares.height() * BlockPixels + 1);
    Overlay->SetMark(which, pixels, ShownPixels());
}

void MapView::PlaceMarks() {
    for (const Mark mark : {SelectionMark, ToolMark})
        SetMark(mark, Marks_[mark]);
}

bool MapView::SquareAt(QPoint pixel, QPoint& square) const {
    const QRect shown = ShownPixels();
    const auto nearest = [](int pixel, int count) {
        return std::clamp(pixel < 0 ? -1 : pixel / BlockPixels, 0, std::max(0, count - 1));
    };
    const int across = shown.width() / BlockPixels;
    const int down = shown.height() / BlockPixels;
    square = QPoint(ViewCol + nearest(pixel.x(), across), ViewRow + nearest(pixel.y(), down));
    return across > 0 && down > 0 && pixel.x() >= 0 && pixel.y() >= 0 &&
           pixel.x() < across * BlockPixels && pixel.y() < down * BlockPixels;
}

bool MapView::eventFilter(QObject* watched, QEvent* event) {
    if (watched != MapTile) return false;
    switch (event->type()) {
        case QEvent::MouseMove: {
            const auto* mouse = static_cast<QMouseEvent*>(event);
            QPoint square;
            const bool on = SquareAt(mouse->position().toPoint(), square);
            emit PointerMoved(square, on, mouse->buttons());
            break;
        }
        case QEvent::MouseButtonRelease: {
            const auto* mouse = static_cast<QMouseEvent*>(event);
            QPoint square;
            SquareAt(mouse->position().toPoint(), square);
            const int button = mouse->button() == Qt::LeftButton    ? 1
                               : mouse->button() == Qt::RightButton ? 2
                                                                    : 0;
            emit MouseUp(square, button);
            break;
        }
        case QEvent::Leave:
            emit PointerLeft();
            break;
        default:
            break;
    }
    return false;
}

void MapView::SetUpForMap() {
    const int width = Defines.MapWidth;
    const int height = Defines.MapHeight;
    HScroll->setVisible(width > Limits::ViewSlotsAcross);
    VScroll->setVisible(height > Limits::ViewSlotsDown);
    {
        // The position is reset here and drawn once below, not on every change.
        const QSignalBlocker blockH(HScroll);
        const QSignalBlocker blockV(VScroll);
        // A map that fits would give a maximum below the minimum; its bar is
        // hidden and stays at 1.
        HScroll->setMaximum(std::max(1, width - (Limits::ViewSlotsAcross - 1)));
        VScroll->setMaximum(std::max(1, height - (Limits::ViewSlotsDown - 1)));
        HScroll->setValue(1);
        VScroll->setValue(1);
    }
    ViewCol = 1;
    ViewRow = 1;
    MapTile->SetAllVisible(false);
    FitFrameAndLines();
    DrawMapTiles();
    PlaceMarks();
}

void MapView::FitFrameAndLines() {
    const int shownWidth = std::clamp<int>(Defines.MapWidth, 0, Limits::ViewSlotsAcross);
    const int shownHeight = std::clamp<int>(Defines.MapHeight, 0, Limits::ViewSlotsDown);
    Shape2->SetSize(BlockTwips * shownWidth + 15, BlockTwips * shownHeight + 15);
    if (!Gridlines_) return;
    // Line k is shown when it lies inside the map: k < lines per block x size.
    for (size_t k = 1; k <= Vertical.size(); ++k) {
        Line* line = Vertical[k - 1];
        line->SetEnds(line->X1(), line->Y1(), line->X2(), line->Y1() + Shape2->HeightTwips());
        line->setVisible(static_cast<int>(k) < LinesPerBlock_ * Defines.MapWidth);
    }
    for (size_t k = 1; k <= Horizontal.size(); ++k) {
        Line* line = Horizontal[k - 1];
        line->SetEnds(line->X1(), line->Y1(), line->X1() + Shape2->WidthTwips(), line->Y2());
        line->setVisible(static_cast<int>(k) < LinesPerBlock_ * Defines.MapHeight);
    }
}

void MapView::SetGridlines(bool on) {
    Gridlines_ = on;
    if (on) {
        FitFrameAndLines();
    } else {
        for (size_t n = 1; n < Lines.size(); ++n)
            Lines[n]->hide();
    }
}

bool MapView::SquareOfCell(int index, int& x, int& y) const {
    const int slot = index / Limits::TilesPerBlock;
    x = ViewCol + slot % Limits::ViewSlotsAcross;
    y = ViewRow + slot / Limits::ViewSlotsAcross;
    return x >= 1 && y >= 1 && x <= Defines.MapWidth && y <= Defines.MapHeight;
}

void MapView::DrawMapTiles() {
    const int slotCount = Limits::ViewSlotsAcross * Limits::ViewSlotsDown;
    for (int s = 0; s < slotCount; ++s) {
        const int x = ViewCol + s % Limits::ViewSlotsAcross;
        const int y = ViewRow + s / Limits::ViewSlotsAcross;
        // Slots beyond the map keep what they hold; SetUpForMap hid them.
        if (y > Defines.MapHeight || x > Defines.MapWidth || x < 1 || y < 1) continue;
        const int first = s * Limits::TilesPerBlock;
        ComposeBlock(*MapTile, first, Defines.MapGrid[y][x]);
        for (int t = 0; t < Limits::TilesPerBlock; ++t)
            MapTile->SetCellVisible(first + t, true);
    }
}
