#pragma once

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <array>
#include <cstdint>

#include "core/limits.h"
#include "ui/cellarray.h"
#include "ui/childform.h"
#include "ui/shapes.h"

// The building block editor: the 16 tile numbers of each block of the loaded
// map's tileset. One block at a time is edited in a buffer of its own;
// BlockTiles and the ROM change only when the user saves.
class BlockEdit : public ChildForm {
    Q_OBJECT
public:
    explicit BlockEdit(Form* owner);

    // The palette of four blocks and its scroll bar.
    QScrollBar* Scroll;
    CellArray* SideBlock;
    Outline* Shape3;
    std::array<Line*, 3> PaletteLines{};  // Line7 to Line9
    Outline* SelBorder;

    // The block being edited, with its tile grid.
    CellArray* Block;
    Outline* Shape1;
    std::array<Line*, 6> BlockLines{};  // Line1 to Line6

    // The chosen tile, enlarged, and the readouts.
    CellArray* BigTile;
    Outline* Shape2;
    QLabel* BlockHex;
    QLabel* TileHex;
    QPushButton* SaveBlock;

    // The tile chooser, with its grid and frame.
    CellArray* TileSel;
    Outline* Shape4;
    std::array<Line*, 24> ChooserLines{};  // Line10 to Line33
    Outline* TileBorder;

    // State of this window, set anew at each opening.
    std::int16_t SelTile = 0;
    std::int16_t EditBlock = 0;
    std::array<std::int32_t, Limits::TilesPerBlock> EditTiles{};
    bool BlockChanged = false;

    // Handlers.
    void Scroll_Change(int value);
    void SideBlock_MouseDown(int index, int button);
    void TileSel_MouseDown(int index, int button);
    void Block_MouseDown(int index, int button);
    void SaveBlock_Click();

    // Redraws the palette, the block and the readouts from BlockTiles, and
    // reloads the edit buffer for the block under the frame.
    void RefreshBlockView();

protected:
    void Form_Load() override;
    void Form_Unload(bool& Cancel) override;

private:
    void BuildPalette();
    void BuildBlock();
    void BuildChooser();
    // Puts the chooser's frame, BigTile and TileHex on a tile.
    void ShowSelTile();
};
