#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <cstdint>
#include <vector>

#include "mapview/placementview.h"
#include "ui/childform.h"
#include "warpedit/warplist.h"

// The warp editor: the current map's warps or its warp-to points, placed on
// half-block squares of the map, with the warps' targets typed in.
class WarpEdit : public ChildForm {
    Q_OBJECT
public:
    // `gridlines` is the main window's gridline setting, which the view starts with.
    WarpEdit(Form* owner, bool gridlines);

    // The placement view: MapTile, HScroll, VScroll, Shape2, Line1 to Line26
    // and the 16 symbols WarpSym.
    PlacementView* Placement;
    std::vector<Symbol*>& WarpSym;

    QGroupBox* Frame1;
    QRadioButton* EditWarps;
    QRadioButton* EditWarpTo;
    QCheckBox* CheckGrid;
    QGroupBox* Frame2;
    QLabel* DWarpNum;
    QLabel* Label1;
    QLineEdit* ToMap;
    QLabel* Label2;
    QLineEdit* ToPoint;
    QLabel* Label3;
    QLabel* Label4;
    QLabel* Label6;
    QPushButton* Command1;

    QPixmap WarpNon;
    QPixmap WarpSel;
    QPixmap WarpToNon;
    QPixmap WarpToSel;

    // State of this window, read anew at each opening and each change of mode.
    WarpTable Warps{};
    std::int16_t WarpCount = 0;
    std::int16_t SelWarp = 0;
    bool WarpsChanged = false;

    // Handlers.
    void EditWarps_Click();
    void EditWarpTo_Click();
    void CheckGrid_Click();
    void WarpSym_MouseDown(int index);
    void MapTile_MouseDown(int index);
    void Command1_Click();

    WarpMode Mode() const { return EditWarpTo->isChecked() ? WarpMode::WarpTo : WarpMode::Warps; }
    // The half-block square of a row, in the window's coordinates.
    QPoint EntrySquare(int row) const;

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload(bool& Cancel) override;

private:
    void BuildControls();
    // Reads the list of the selected mode into the window and draws it over
    // the map as the main window holds it. False, after a message, when the
    // list cannot be read; nothing changes then.
    bool LoadWarpMap();
    void DrawWarpMap();
    void ShowSelectedRow();
    void ChangeMode();
    // Adds (+1) or takes off (-1) the map's offsets on every row's coordinates.
    void Shift(WarpTable& rows, int sign) const;

    bool Gridlines_;
    WarpListPlace Place_;
};
