#include "mapedit/mainform.h"

#include <QFileInfo>

#include "blockedit/blockedit.h"
#include "core/defines.h"
#include "core/dialogs.h"
#include "eventedit/eventedit.h"
#include "mapedit/about.h"
#include "mapview/tiles.h"
#include "ui/twips.h"
#include "warpedit/warpedit.h"
#include "wildedit/wildedit.h"

namespace {
const QString DiscardQuestion = QStringLiteral("Discard the changes you have made?");
}  // namespace

MainForm::MainForm(const LoadedMap& firstMap, ProgramHooks hooks)
    : Hooks_(std::move(hooks)), Loaded_(firstMap) {
    SetCaption(QStringLiteral("Tarnwey"));
    SetClientSize(9495, 7815);
    BuildMenus();
    FitToClient();
    View = new MapView(Client());
    connect(View, &MapView::MouseDown, this, &MainForm::MapTile_MouseDown);
    BuildPalette();
    BuildMapSelection();
    BuildTools();
}

void MainForm::BuildMenus() {
    QMenuBar* bar = CreateMenuBar();
    auto entry = [this](QMenu* menu, const QString& caption, const QKeySequence& shortcut,
                        void (MainForm::*handler)()) {
        QAction* action = menu->addAction(caption);
        action->setShortcut(shortcut);
        connect(action, &QAction::triggered, this, handler);
        return action;
    };
    mnuFile = bar->addMenu(QStringLiteral("&File"));
    mnuOpen = entry(mnuFile, QStringLiteral("&Open"), QKeySequence(Qt::CTRL | Qt::Key_O),
                    &MainForm::mnuOpen_Click);
    mnuFile->addSeparator();
    mnuSave = entry(mnuFile, QStringLiteral("&Save"), QKeySequence(Qt::CTRL | Qt::Key_S),
                    &MainForm::mnuSave_Click);
    mnuSaveAs = entry(mnuFile, QStringLiteral("Save &As"), {}, &MainForm::mnuSaveAs_Click);
    mnuFile->addSeparator();
    mnuExit = entry(mnuFile, QStringLiteral("&Exit"), {}, &MainForm::mnuExit_Click);

    mnuEdit = bar->addMenu(QStringLiteral("&Edit"));
    mnuUndo = entry(mnuEdit, QStringLiteral("&Undo"), QKeySequence(Qt::CTRL | Qt::Key_Z),
                    &MainForm::mnuUndo_Click);
    mnuUndo->setEnabled(false);
    mnuRedo = entry(mnuEdit, QStringLiteral("&Redo"), QKeySequence(Qt::CTRL | Qt::Key_Y),
                    &MainForm::mnuRedo_Click);
    mnuRedo->setShortcuts(
        {QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)});
    mnuRedo->setEnabled(false);
    mnuEdit->addSeparator();
    mnuCopy = entry(mnuEdit, QStringLiteral("&Copy"), QKeySequence(Qt::CTRL | Qt::Key_C),
                    &MainForm::mnuCopy_Click);
    mnuCopy->setEnabled(false);
    mnuPaste = entry(mnuEdit, QStringLiteral("&Paste"), QKeySequence(Qt::CTRL | Qt::Key_V),
                     &MainForm::mnuPaste_Click);
    mnuSelectAll = entry(mnuEdit, QStringLiteral("Select &All"), QKeySequence(Qt::CTRL | Qt::Key_A),
                         &MainForm::mnuSelectAll_Click);
    BuildToolMenus();

    mnuMode = bar->addMenu(QStringLiteral("&Mode"));
    mnuBlockEdit = entry(mnuMode, QStringLiteral("Building Block Editor"),
                         QKeySequence(Qt::CTRL | Qt::Key_B), &MainForm::mnuBlockEdit_Click);
    mnuMode->addSeparator();
    mnuWildEdit = entry(mnuMode, QStringLiteral("Wild &Morlick Editor"),
                        QKeySequence(Qt::CTRL | Qt::Key_P), &MainForm::mnuWildEdit_Click);
    mnuWildEdit->setEnabled(false);
    mnuWarpEdit = entry(mnuMode, QStringLiteral("&Warp Editor"), QKeySequence(Qt::CTRL | Qt::Key_W),
                        &MainForm::mnuWarpEdit_Click);
    mnuEventEdit = entry(mnuMode, QStringLiteral("E&vent Editor"),
                         QKeySequence(Qt::CTRL | Qt::Key_E), &MainForm::mnuEventEdit_Click);

    mnuOptions = bar->addMenu(QStringLiteral("&Options"));
    mnuGridlines = entry(mnuOptions, QStringLiteral("Display &Gridlines"),
                         QKeySequence(Qt::CTRL | Qt::Key_G), &MainForm::mnuGridlines_Click);
    mnuGridlines->setCheckable(true);
    mnuGridlines->setChecked(true);

    mnuHelp = bar->addMenu(QStringLiteral("&Help"));
    mnuAbout = entry(mnuHelp, QStringLiteral("&About"), QKeySequence(Qt::Key_F1),
                     &MainForm::mnuAbout_Click);
}

void MainForm::BuildPalette() {
    QWidget* client = Client();
    SideBlock = new CellArray(client, 1, Limits::PaletteSlots, 240);
    SideBlock->PlaceAt(8160, 120);
    connect(SideBlock, &CellArray::MouseDown, this, &MainForm::SideBlock_MouseDown);
    BorderBlock = new CellArray(client, 1, 1, 240);
    BorderBlock->PlaceAt(8400, 6360);
    connect(BorderBlock, &CellArray::MouseDown, this, &MainForm::BorderBlock_MouseDown);
    // Before the first drawing these cells show the lightest picture.
    for (int i = 0; i < SideBlock->Count(); ++i)
        SideBlock->SetPicture(i, Tiles::Bank().Blank());
    for (int i = 0; i < BorderBlock->Count(); ++i)
        BorderBlock->SetPicture(i, Tiles::Bank().Blank());

    Shape3 = new Outline(client);
    Shape3->SetRect(8160, 120, 975, 5775);
    const std::array<int, 5> ruleTops = {1080, 2040, 3000, 3960, 4920};
    for (size_t k = 0; k < PaletteLines.size(); ++k) {
        PaletteLines[k] = new Line(client);
        PaletteLines[k]->SetEnds(9120, ruleTops[k], 8160, ruleTops[k]);
    }
    Scroll = new QScrollBar(Qt::Vertical, client);
    Place(Scroll, 9130, 120, 255, 5775);
    Scroll->setRange(0, 0);
    Scroll->setPageStep(3);
    Scroll->setSingleStep(1);
    connect(Scroll, &QScrollBar::valueChanged, this, &MainForm::Scroll_Change);
    SelBorder = new Outline(client, QColor(255, 0, 0));
    SelBorder->SetRect(8160, 120, 975, 975);
    BlockHex = new QLabel(client);
    Place(BlockHex, 8160, 6000, 1215, 255);
    BlockHex->setAlignment(Qt::AlignCenter);

    Shape1 = new Outline(client);
    Shape1->SetRect(8400, 6360, 975, 975);
    Label1 = new QLabel(QStringLiteral("Border"), client);
    Place(Label1, 8400, 7440, 975, 255);
    Label1->setAlignment(Qt::AlignCenter);

    Frame1 = new QGroupBox(QStringLiteral("Map Tools"), client);
    Place(Frame1, 6720, 6240, 1575, 1455);
}

void MainForm::BuildMapSelection() {
    Frame2 = new QGroupBox(QStringLiteral("Select Map"), Client());
    Place(Frame2, 120, 6240, 6495, 1455);
    CatList = new QListWidget(Frame2);
    Place(CatList, 120, 240, 2055, 1035);
    MapList = new QListWidget(Frame2);
    Place(MapList, 2280, 240, 2055, 1035);
    MapComment = new QLabel(Frame2);
    Place(MapComment, 4440, 240, 1935, 735);
    MapComment->setWordWrap(true);
    MapComment->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    Command2 = new QPushButton(QStringLiteral("Go"), Frame2);
    Place(Command2, 4440, 960, 615, 375);
    CurMapName = new QLabel(Frame2);
    Place(CurMapName, 5160, 960, 1215, 495);
    CurMapName->setWordWrap(true);
    // The list handlers run on a mouse press only, after the press has made
    // its selection; moving the selection with the keys runs neither.
    connect(CatList, &QListWidget::itemPressed, this, &MainForm::CatList_MouseDown);
    connect(MapList, &QListWidget::itemPressed, this, &MainForm::MapList_MouseDown);
    connect(Command2, &QPushButton::clicked, this, &MainForm::Command2_Click);
}

void MainForm::Form_Load() {
    // Everything shown comes from the ROM and the data files just read: the
    // lists, the first map and what its row allows.
    for (int c = 0; c <= Defines.CategoryCount; ++c)
        CatList->addItem(Defines.CategoryTable[c][CatName].ToText());
    CatList->setCurrentRow(0);
    MapComment->setText(Defines.MapTable[0][MapNote].ToText());
    FillMapList();
    ShowMap(Loaded_);
    ShowMapRow();
}

void MainForm::FillMapList() {
    const auto& category = Defines.CategoryTable[Defines.CurCategory];
    const int first = category[CatFirstMap].ToInt16();
    const int count = category[CatMapCount].ToInt16();
    MapList->clear();
    for (int r = first; r < first + count; ++r)
        MapList->addItem(Defines.MapTable[r][MapName].ToText());
    if (count > 0) MapList->setCurrentRow(0);
}

bool MainForm::LoadMap() {
    QString error;
    LoadedMap loaded;
    if (!ReadMap(Defines.CurMap, loaded, error)) {
        Dialogs().Warn(error);
        return false;
    }
    ShowMap(loaded);
    return true;
}

void MainForm::ShowMap(const LoadedMap& loaded) {
    Loaded_ = loaded;
    BorderNum = loaded.BorderNum;
    MapLoaded_ = true;
    // The palette shows six blocks from the scroll value on; a tileset of
    // fewer than six blocks keeps the bar at 0.
    Scroll->setMinimum(0);
    Scroll->setMaximum(std::max(0, CurTilesetRow()[TilesetLastBlock].ToInt16() - 5));
    View->SetUpForMap();
}

void MainForm::Form_Activate() {
    DrawMapTiles();
    DrawSideBlocks();
}

void MainForm::CatList_MouseDown() {
    const int row = CatList->currentRow();
    if (row < 0 || row > Defines.CategoryCount) return;
    Defines.CurCategory = static_cast<std::int16_t>(row);
    const int first = Defines.CategoryTable[row][CatFirstMap].ToInt16();
    MapComment->setText(Defines.MapTable[first][MapNote].ToText());
    FillMapList();
}

void MainForm::MapList_MouseDown() {
    const int row = MapList->currentRow();
    if (row < 0) return;
    const int first = Defines.CategoryTable[Defines.CurCategory][CatFirstMap].ToInt16();
    MapComment->setText(Defines.MapTable[first + row][MapNote].ToText());
}

void MainForm::Command2_Click() {
    // A category without maps leaves nothing to go to.
    const int row = MapList->currentRow();
    if (row < 0) {
        Dialogs().Beep();
        return;
    }
    const bool hadChanges = MapChanged;
    if (MapChanged) {
        if (!Dialogs().Ask(DiscardQuestion)) return;
        MapChanged = false;
    }
    const std::int16_t previous = Defines.CurMap;
    Defines.CurMap = static_cast<std::int16_t>(
        Defines.CategoryTable[Defines.CurCategory][CatFirstMap].ToInt16() + row);
    if (!LoadMap()) {
        // The map on the screen stays, and so do its unsaved changes: they
        // must still be asked about before they are lost.
        Defines.CurMap = previous;
        MapChanged = hadChanges;
        return;
    }
    DrawSideBlocks();
    ShowMapRow();
    ResetTools();
}

void MainForm::ShowMapRow() {
    const auto& map = CurMapRow();
    CurMapName->setText(map[MapName].ToText());
    ShowBorderControls(HasObjectData(map));
    mnuWarpEdit->setEnabled(WarpsEditable(map));
    mnuWildEdit->setEnabled(WildEditable(map));
    mnuEventEdit->setEnabled(EventsEditable(map));
}

void MainForm::ShowBorderControls(bool show) {
    Label1->setVisible(show);
    Shape1->setVisible(show);
    BorderBlock->setVisible(show);
}

void MainForm::mnuGridlines_Click() {
    mnuGridlines->setChecked(!View->Gridlines());
    View->SetGridlines(mnuGridlines->isChecked());
}

bool MainForm::AskToExit() {
    return Dialogs().Ask(MapChanged
                             ? QStringLiteral("Exit without saving the changes you have made?")
                             : QStringLiteral("Do you want to exit Tarnwey?"));
}

void MainForm::mnuExit_Click() {
    if (AskToExit()) Hooks_.End();
}

void MainForm::Form_Unload(bool& Cancel) {
    Cancel = false;
    if (SkipExitPrompt) return;
    if (!AskToExit()) {
        Cancel = true;
        return;
    }
    Hooks_.End();
}

void MainForm::mnuOpen_Click() {
    // The changes are given up only once another ROM has been read whole; a
    // cancelled or failed open comes back to them as they are.
    if (MapChanged && !Dialogs().Ask(DiscardQuestion)) return;
    SkipExitPrompt = true;
    Hooks_.NewPass();
    SkipExitPrompt = false;
}

// Each editor is made anew at every opening and reads what it shows then;
// it deletes itself when it closes.
void MainForm::mnuBlockEdit_Click() {
    // The block editor edits the tileset of the loaded map; with no map
    // loaded there is none.
    if (!MapLoaded_) {
        Dialogs().Beep();
        return;
    }
    (new BlockEdit(this))->OpenOverOwner();
}

void MainForm::mnuWildEdit_Click() {
    (new WildEdit(this))->OpenOverOwner();
}

void MainForm::mnuWarpEdit_Click() {
    (new WarpEdit(this, mnuGridlines->isChecked()))->OpenOverOwner();
}

void MainForm::mnuEventEdit_Click() {
    (new EventEdit(this, mnuGridlines->isChecked()))->OpenOverOwner();
}

void MainForm::mnuAbout_Click() {
    (new About(this))->OpenOverOwner();
}
