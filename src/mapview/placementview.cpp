#include "mapview/placementview.h"

#include "core/limits.h"

namespace {
constexpr int ViewLeft = 120;
constexpr int ViewTop = 120;
constexpr int SquareTwips = 480;  // a half-block square
constexpr int SymbolTwips = 495;
constexpr int SquaresAcross = 2 * Limits::ViewSlotsAcross;  // 16
constexpr int SquaresDown = 2 * Limits::ViewSlotsDown;      // 12
}  // namespace

PlacementView::PlacementView(QWidget* form, int symbolCount)
    : QObject(form), View(new MapView(form, 2)) {
    // Made after the cells, frame and lines, so the symbols lie above them.
    for (int i = 0; i < symbolCount; ++i) {
        Sym.push_back(new Symbol(form, SymbolTwips, SymbolTwips));
        connect(Sym.back(), &Symbol::MouseDown, this, [this, i] { emit SymbolPressed(i); });
    }
    connect(View, &MapView::MouseDown, this, [this](int index, int) { emit CellPressed(index); });
    connect(View, &MapView::Scrolled, this, [this] {
        HideSymbols();
        emit Scrolled();
    });
}

void PlacementView::PlaceSymbol(int index, QPoint square) {
    const int dx = square.x() - (HalfCol - 2);
    const int dy = square.y() - (HalfRow - 2);
    Symbol* symbol = Sym[index];
    if (dx < 0 || dx >= SquaresAcross || dy < 0 || dy >= SquaresDown) {
        symbol->hide();
        return;
    }
    symbol->MoveTo(ViewLeft + SquareTwips * dx, ViewTop + SquareTwips * dy);
    symbol->show();
}

void PlacementView::PlaceSymbols(const std::vector<QPoint>& entries, int selected) {
    HalfCol = static_cast<std::int16_t>(2 * View->ViewCol);
    HalfRow = static_cast<std::int16_t>(2 * View->ViewRow);
    for (size_t i = 0; i < Sym.size(); ++i) {
        if (i < entries.size())
            PlaceSymbol(static_cast<int>(i), entries[i]);
        else
            Sym[i]->hide();
    }
    if (selected >= 0 && selected < static_cast<int>(Sym.size())) Sym[selected]->raise();
}

void PlacementView::HideSymbols() {
    for (Symbol* symbol : Sym)
        symbol->hide();
}

void PlacementView::SetPictures(const QPixmap* unselected, const QPixmap* selectedPicture,
                                int selected) {
    Unselected_ = unselected;
    Selected_ = selectedPicture;
    for (Symbol* symbol : Sym)
        symbol->SetPicture(unselected);
    if (selected >= 0 && selected < static_cast<int>(Sym.size()))
        Sym[selected]->SetPicture(selectedPicture);
}

void PlacementView::Select(int previous, int selected) {
    if (previous >= 0 && previous < static_cast<int>(Sym.size()))
        Sym[previous]->SetPicture(Unselected_);
    if (selected < 0 || selected >= static_cast<int>(Sym.size())) return;
    Sym[selected]->SetPicture(Selected_);
    Sym[selected]->raise();
}

QPoint PlacementView::SquareOfCell(int index, QPoint& block) const {
    const int place = index % Limits::TilesPerBlock;
    const int slot = index / Limits::TilesPerBlock;
    block = QPoint(View->ViewCol + slot % Limits::ViewSlotsAcross,
                   View->ViewRow + slot / Limits::ViewSlotsAcross);
    // Places 2, 3, 6 and 7 are the right half of the top row of squares,
    // places 8 to 15 the lower row.
    const int right = (place % 4) / 2;
    const int lower = (place / 4) / 2;
    return QPoint(2 * block.x() - 2 + right, 2 * block.y() - 2 + lower);
}
