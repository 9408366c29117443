// The editing half of the main window: the palette, painting and picking up,
// the border block, undo, and saving the map.
#include <QFile>

#include "core/defines.h"
#include "core/dialogs.h"
#include "core/hextext.h"
#include "mapedit/mainform.h"
#include "mapedit/mapsave.h"
#include "mapview/compose.h"
#include "rom/fileops.h"
#include "rom/rombackup.h"
#include "rom/romsave.h"

namespace {
constexpr int PaletteTop = 120;
constexpr int BlockTwips = 960;
constexpr int LeftButton = 1;
constexpr int RightButton = 2;
}  // namespace

void MainForm::DrawSideBlocks() {
    const int v = Scroll->value();
    int slot = (SelBorder->TopTwips() - PaletteTop) / BlockTwips;
    // A tileset of fewer than six blocks leaves palette slots empty; the
    // selection stays on a block the tileset has.
    if (v + slot > Defines.BlockCount) {
        slot = std::max(0, Defines.BlockCount - v);
        SelBorder->SetTop(PaletteTop + BlockTwips * slot);
    }
    CurBlock = static_cast<std::int16_t>(v + slot);
    for (int k = 0; k < Limits::PaletteSlots; ++k) {
        const int first = Limits::TilesPerBlock * k;
        const bool inTileset = v + k <= Defines.BlockCount;
        if (inTileset) ComposeBlock(*SideBlock, first, v + k);
        for (int t = 0; t < Limits::TilesPerBlock; ++t)
            SideBlock->SetCellVisible(first + t, inTileset);
    }
    ComposeBlock(*BorderBlock, 0, BorderNum);
    BlockHex->setText(QStringLiteral("Hex: ") +
                      HexText(CurBlock + CurTilesetRow()[TilesetBlockBias].ToInt16()));
}

void MainForm::Scroll_Change(int) {
    DrawSideBlocks();
}

void MainForm::SideBlock_MouseDown(int index, int) {
    const int slot = index / Limits::TilesPerBlock;
    SelBorder->SetTop(PaletteTop + BlockTwips * slot);
    DrawSideBlocks();  // CurBlock follows from the frame and the scroll value
}

void MainForm::BringOnPalette(int block) {
    // A square may hold a number the tileset has no block for; there is
    // nothing on the palette to select then.
    if (block < 0 || block > Defines.BlockCount) {
        Dialogs().Beep();
        return;
    }
    // Blocks near the end of the tileset go to the bottom slot, the others to
    // the top slot.
    int scroll = block;
    if (block >= Defines.BlockCount - Limits::PaletteSlots)
        scroll = block - (Limits::PaletteSlots - 1);
    // A small tileset cannot scroll as far as the rule asks; the frame then
    // goes to the slot where the block stands.
    scroll = std::clamp(scroll, Scroll->minimum(), Scroll->maximum());
    SelBorder->SetTop(PaletteTop + BlockTwips * (block - scroll));
    // A change of the scroll value redraws the palette by itself.
    if (Scroll->value() != scroll)
        Scroll->setValue(scroll);
    else
        DrawSideBlocks();
}

void MainForm::MapTile_MouseDown(int index, int button) {
    int x = 0;
    int y = 0;
    if (!View->SquareOfCell(index, x, y)) return;
    if (button == LeftButton) {
        // Every tool but the Pencil takes the press as the start of its drag.
        if (MapTool* tool = ToolInHand()) {
            ToolPress(tool, QPoint(x, y));
            return;
        }
        // The Pencil: one square, a step even when the block is already there.
        MapStep step;
        step.Add(y, x, Defines.MapGrid[y][x], CurBlock);
        step.Apply(Defines.MapGrid);
        Undo.Push(std::move(step));
        EnableUndoRedo();
        DrawMapTiles();
        MapChanged = true;
    } else if (button == RightButton) {
        BringOnPalette(Defines.MapGrid[y][x]);
    }
}

void MainForm::BorderBlock_MouseDown(int, int button) {
    if (button == LeftButton) {
        BorderNum = CurBlock;
        DrawSideBlocks();
        MapChanged = true;
    } else if (button == RightButton) {
        BringOnPalette(BorderNum);
    }
}

void MainForm::WriteMapTo(const QString& romPath, bool offerBackup) {
    const bool saved = SaveToRom(
        romPath, Defines.ProgramFolder, offerBackup ? Backup::Offer : Backup::Skip,
        [this](RomFile& rom) { WriteMap(rom, Loaded_, BorderNum); }, Defines.RomSize);
    if (!saved) return;
    DrawSideBlocks();
    Dialogs().Inform(QStringLiteral("Your changes to the map have been saved!"));
    MapChanged = false;
}

void MainForm::mnuSave_Click() {
    if (!MapLoaded_) {
        Dialogs().Beep();
        return;
    }
    WriteMapTo(Defines.RomPath, true);
}

void MainForm::mnuSaveAs_Click() {
    if (!MapLoaded_) {
        Dialogs().Beep();
        return;
    }
    const QString path =
        Dialogs().SaveFile(QStringLiteral("Tarnwey - Save ROM File As"), Defines.ProgramFolder);
    if (path.isEmpty()) return;
    QFile existing(path);
    if (existing.open(QIODevice::ReadOnly)) {
        existing.close();
        if (!Dialogs().Ask(QStringLiteral("This file already exists. Overwrite it?"))) return;
        // Saving over the open file itself, under whatever name, writes the
        // map into it in place.
        if (FileOps::SameFile(path, Defines.RomPath)) {
            WriteMapTo(Defines.RomPath, false);
            return;
        }
    }
    // The copy replaces a file already there only once it is complete, so
    // the target is never deleted first: were it the open ROM after all,
    // it would still hold the ROM's bytes.
    QString why;
    if (!FileOps::CopyWholeFile(Defines.RomPath, path, why)) {
        Dialogs().Warn(
            QStringLiteral("The ROM could not be copied to %1 (%2).\n\nNothing was saved.")
                .arg(ShownPath(path), why));
        return;
    }
    // From here on every save and editor works on the new file.
    Defines.RomPath = path;
    WriteMapTo(path, false);
}
