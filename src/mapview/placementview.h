#pragma once

#include <QObject>
#include <QPoint>
#include <cstdint>
#include <vector>

#include "mapview/mapview.h"
#include "ui/symbol.h"

// The map view of the editors that place entries on half-block squares: the
// map view's cells, scroll bars and frame, gridlines at half-block pitch, and
// a layer of symbols, one for each entry. It knows nothing of what the
// entries are: its owner gives it the entries' squares and two pictures, and
// it reports presses on cells and on symbols.
class PlacementView : public QObject {
    Q_OBJECT
public:
    PlacementView(QWidget* form, int symbolCount);

    MapView* View;
    std::vector<Symbol*> Sym;
    // Twice the view's block column and row, as the last drawing left them.
    std::int16_t HalfCol = 2;
    std::int16_t HalfRow = 2;

    // Sets the view up for the map now in the working state, back at its top
    // left corner, with the frame and gridlines for its size, and draws the
    // cells. The symbols stay as they are.
    void SetUpForMap() { View->SetUpForMap(); }
    // Puts every entry's symbol by the symbol rule, hides the symbols of no
    // entry, and brings the selected one to the front.
    void PlaceSymbols(const std::vector<QPoint>& entries, int selected);
    // The symbol rule for one entry at half-block square (x, y): shown at its
    // square when that lies among the 16 x 12 squares of the view, else hidden.
    void PlaceSymbol(int index, QPoint square);
    void HideSymbols();
    // Gives every symbol the unselected picture, and `selected` the selected one.
    void SetPictures(const QPixmap* unselected, const QPixmap* selectedPicture, int selected);
    // Moves the selection from one symbol to another and brings it to the front.
    void Select(int previous, int selected);

    // The half-block square of a cell: the top left square of the cell's block,
    // plus one across for the block's right half and one down for its lower
    // half. `block` gets the block's column and row, from 1.
    QPoint SquareOfCell(int index, QPoint& block) const;

signals:
    void CellPressed(int index);
    void SymbolPressed(int index);
    // After a scroll bar moved the view: the cells are drawn, every symbol is
    // hidden, and the owner puts its symbols back with PlaceSymbols.
    void Scrolled();

private:
    const QPixmap* Unselected_ = nullptr;
    const QPixmap* Selected_ = nullptr;
};
