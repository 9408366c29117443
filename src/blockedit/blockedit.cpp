#include "blockedit/blockedit.h"

#include <algorithm>

#include "core/defines.h"
#include "core/dialogs.h"
#include "core/hextext.h"
#include "mapview/compose.h"
#include "mapview/tiles.h"
#include "rom/romsave.h"
#include "ui/twips.h"

namespace {
constexpr int PaletteSlots = 4;
constexpr int PaletteTop = 120;
constexpr int BlockTwips = 960;
constexpr int ChooserLeft = 1440;
constexpr int ChooserTop = 1200;
constexpr int ChooserColumns = 16;
constexpr int ChooserRows = 10;
constexpr int ChooserCells = Limits::TilesetTiles;
static_assert(ChooserColumns * ChooserRows == ChooserCells);
constexpr int PitchTwips = 240;
constexpr int LeftButton = 1;
constexpr int RightButton = 2;
const QColor Red(255, 0, 0);
const QString DiscardQuestion = QStringLiteral("Discard the changes you have made?");
}  // namespace

BlockEdit::BlockEdit(Form* owner) : ChildForm(owner) {
    SetCaption(QStringLiteral("Tarnwey - Building Block Editor"));
    SetClientSize(5415, 4095);
    // The cells are made before the frames and lines, so those lie above them.
    BuildPalette();
    BuildBlock();
    BuildChooser();
}

void BlockEdit::BuildPalette() {
    QWidget* client = Client();
    Scroll = new QScrollBar(Qt::Vertical, client);
    Place(Scroll, 110, 120, 255, 3855);
    Scroll->setRange(0, 0);
    Scroll->setPageStep(3);
    Scroll->setSingleStep(1);
    connect(Scroll, &QScrollBar::valueChanged, this, &BlockEdit::Scroll_Change);

    SideBlock = new CellArray(client, 1, PaletteSlots, 240);
    SideBlock->PlaceAt(360, PaletteTop);
    connect(SideBlock, &CellArray::MouseDown, this, &BlockEdit::SideBlock_MouseDown);
    Shape3 = new Outline(client);
    Shape3->SetRect(360, 120, 975, 3855);
    for (size_t k = 0; k < PaletteLines.size(); ++k) {
        const int top = PaletteTop + BlockTwips * static_cast<int>(k + 1);
        PaletteLines[k] = new Line(client);
        PaletteLines[k]->SetEnds(1320, top, 360, top);
    }
    SelBorder = new Outline(client, Red);
    SelBorder->SetRect(360, PaletteTop, 975, 975);
}

void BlockEdit::BuildBlock() {
    QWidget* client = Client();
    Block = new CellArray(client, 1, 1, 240);
    Block->PlaceAt(1440, 120);
    connect(Block, &CellArray::MouseDown, this, &BlockEdit::Block_MouseDown);
    Shape1 = new Outline(client);
    Shape1->SetRect(1440, 120, 975, 975);
    for (int k = 0; k < 3; ++k) {
        const int at = 240 * (k + 1);
        BlockLines[k] = new Line(client);
        BlockLines[k]->SetEnds(1440 + at, 120, 1440 + at, 1080);
        BlockLines[k + 3] = new Line(client);
        BlockLines[k + 3]->SetEnds(1440, 120 + at, 2400, 120 + at);
    }

    // The chosen tile at twice and a bit its size: one cell, stretched.
    BigTile = CellArray::Grid(client, 1, 1, 495);
    BigTile->PlaceAt(2520, 120);
    BigTile->SetStretch(true);
    Shape2 = new Outline(client);
    Shape2->SetRect(2520, 120, 495, 495);
    BlockHex = new QLabel(client);
    Place(BlockHex, 3120, 120, 2775, 255);
    TileHex = new QLabel(client);
    Place(TileHex, 3120, 360, 2775, 255);
    SaveBlock = new QPushButton(QStringLiteral("Save"), client);
    Place(SaveBlock, 2520, 720, 975, 375);
    connect(SaveBlock, &QPushButton::clicked, this, &BlockEdit::SaveBlock_Click);
}

void BlockEdit::BuildChooser() {
    QWidget* client = Client();
    TileSel = CellArray::Grid(client, ChooserColumns, ChooserRows, 255);
    TileSel->PlaceAt(ChooserLeft, ChooserTop);
    connect(TileSel, &CellArray::MouseDown, this, &BlockEdit::TileSel_MouseDown);
    Shape4 = new Outline(client);
    Shape4->SetRect(ChooserLeft, ChooserTop, 3855, 2415);
    // The grid stays over hidden cells too; nothing changes it.
    size_t n = 0;
    for (int k = 1; k < ChooserColumns; ++k) {
        const int x = ChooserLeft + PitchTwips * k;
        ChooserLines[n] = new Line(client);
        ChooserLines[n++]->SetEnds(x, ChooserTop, x, 3600);
    }
    for (int k = 1; k < ChooserRows; ++k) {
        const int y = ChooserTop + PitchTwips * k;
        ChooserLines[n] = new Line(client);
        ChooserLines[n++]->SetEnds(ChooserLeft, y, 5280, y);
    }
    TileBorder = new Outline(client, Red);
    TileBorder->SetRect(ChooserLeft, ChooserTop, 255, 255);
}

void BlockEdit::Form_Load() {
    // The chooser shows the tileset's own tiles; a last tile past the chooser's
    // 160 cells shows as many as there are cells.
    const int lastTile =
        std::min<int>(CurTilesetRow()[TilesetLastTile].ToInt16(), ChooserCells - 1);
    TileSel->SetAllVisible(true);
    for (int i = 0; i <= lastTile; ++i)
        TileSel->SetPicture(i, TilePicture(TileIndex(i)));
    for (int i = std::max(0, lastTile + 1); i < ChooserCells; ++i)
        TileSel->SetCellVisible(i, false);
    SelTile = 0;
    RefreshBlockView();
    ShowSelTile();
    BlockChanged = false;
    // The last block can reach the lowest palette slot. A tileset of fewer
    // than four blocks keeps the bar at 0 and leaves the lower slots empty.
    Scroll->setMaximum(std::max(0, Defines.BlockCount - (PaletteSlots - 1)));
}

void BlockEdit::RefreshBlockView() {
    const int v = Scroll->value();
    EditBlock = static_cast<std::int16_t>(v + (SelBorder->TopTwips() - PaletteTop) / BlockTwips);
    for (int k = 0; k < PaletteSlots; ++k) {
        const int first = Limits::TilesPerBlock * k;
        const bool inTileset = v + k <= Defines.BlockCount;
        if (inTileset) ComposeBlock(*SideBlock, first, v + k);
        for (int t = 0; t < Limits::TilesPerBlock; ++t)
            SideBlock->SetCellVisible(first + t, inTileset);
    }
    ComposeBlock(*Block, 0, EditBlock);
    EditTiles = Defines.BlockTiles[EditBlock];
    BlockHex->setText(QStringLiteral("Building Block Hex Value: ") +
                      HexText(EditBlock + CurTilesetRow()[TilesetBlockBias].ToInt16()));
    TileHex->setText(QStringLiteral("Tile Hex Value: ") + HexText(SelTile));
}

void BlockEdit::ShowSelTile() {
    // A tile number past the chooser's last cell has no cell to frame.
    const bool inChooser = SelTile >= 0 && SelTile < ChooserCells;
    TileBorder->setVisible(inChooser);
    if (inChooser) {
        const QPoint at = TileSel->CellOffsetTwips(SelTile);
        TileBorder->SetRect(ChooserLeft + at.x(), ChooserTop + at.y(), 255, 255);
    }
    BigTile->SetPicture(0, inChooser ? TileSel->Picture(SelTile) : nullptr);
    TileHex->setText(QStringLiteral("Tile Hex Value: ") + HexText(SelTile));
}

void BlockEdit::Scroll_Change(int) {
    // The frame stays where it is, so the block under it changes; the flag
    // keeps its value, though the buffer is reloaded.
    RefreshBlockView();
}

void BlockEdit::SideBlock_MouseDown(int index, int) {
    const int slot = index / Limits::TilesPerBlock;
    SelBorder->SetTop(PaletteTop + BlockTwips * slot);
    RefreshBlockView();
    BlockChanged = false;
}

void BlockEdit::TileSel_MouseDown(int index, int) {
    SelTile = static_cast<std::int16_t>(index);
    ShowSelTile();
}

void BlockEdit::Block_MouseDown(int index, int button) {
    if (button == LeftButton) {
        Block->SetPicture(index, TilePicture(TileIndex(SelTile)));
        EditTiles[index] = SelTile;
        BlockChanged = true;
    } else if (button == RightButton) {
        SelTile = static_cast<std::int16_t>(EditTiles[index]);
        ShowSelTile();
        // The tile has no cell in the chooser: it is picked, but there is
        // nothing to frame, so the user hears it.
        if (SelTile >= ChooserCells) Dialogs().Beep();
    }
}

void BlockEdit::SaveBlock_Click() {
    auto& tiles = Defines.BlockTiles[EditBlock];
    const auto before = tiles;
    tiles = EditTiles;
    const std::int32_t first = CurTilesetRow()[TilesetBlockPos].ToInt32();
    const bool saved = SaveToRom(
        Defines.RomPath, Defines.ProgramFolder, Backup::Offer,
        [&](RomFile& rom) {
            std::int32_t p = first;
            for (int b = 0; b <= Defines.BlockCount; ++b)
                for (const std::int32_t tile : Defines.BlockTiles[b])
                    rom.RomWriteByte(p++, static_cast<std::uint8_t>(tile));
        },
        Defines.RomSize);
    if (!saved) {
        // Nothing reached the ROM: the block in memory stays as the ROM holds
        // it, and the buffer keeps the user's changes for another try.
        tiles = before;
        return;
    }
    RefreshBlockView();
    BlockChanged = false;
}

void BlockEdit::Form_Unload(bool& Cancel) {
    if (BlockChanged && !Dialogs().Ask(DiscardQuestion)) {
        Cancel = true;
        return;
    }
    ChildForm::Form_Unload(Cancel);
}
