#include "warpedit/warpedit.h"

#include <QSignalBlocker>

#include "core/defines.h"
#include "core/dialogs.h"
#include "core/typednumber.h"
#include "rom/romsave.h"
#include "ui/twips.h"
#include "warpedit/warpsymbols.h"

namespace {
const QString Discard = QStringLiteral("Discard the changes you have made?");
constexpr int LowestByte = 0;
constexpr int HighestByte = 255;
}  // namespace

WarpEdit::WarpEdit(Form* owner, bool gridlines)
    : ChildForm(owner),
      Placement(new PlacementView(Client(), Limits::MaxWarps)),
      WarpSym(Placement->Sym),
      WarpNon(WarpSymbolPicture(WarpMode::Warps, false)),
      WarpSel(WarpSymbolPicture(WarpMode::Warps, true)),
      WarpToNon(WarpSymbolPicture(WarpMode::WarpTo, false)),
      WarpToSel(WarpSymbolPicture(WarpMode::WarpTo, true)),
      Gridlines_(gridlines) {
    SetCaption(QStringLiteral("Warp Editor"));
    SetClientSize(8175, 7815);
    BuildControls();
    connect(Placement, &PlacementView::CellPressed, this, &WarpEdit::MapTile_MouseDown);
    connect(Placement, &PlacementView::SymbolPressed, this, &WarpEdit::WarpSym_MouseDown);
    // A scroll has drawn the cells and hidden the symbols; they come back where
    // the view now shows their squares.
    connect(Placement, &PlacementView::Scrolled, this, &WarpEdit::DrawWarpMap);
}

void WarpEdit::BuildControls() {
    QWidget* client = Client();
    Frame1 = new QGroupBox(QStringLiteral("Options"), client);
    Place(Frame1, 120, 6240, 2295, 1455);
    EditWarps = new QRadioButton(QStringLiteral("Edit Warps"), Frame1);
    Place(EditWarps, 120, 360, 2055, 255);
    EditWarps->setChecked(true);
    EditWarpTo = new QRadioButton(QStringLiteral("Edit Warp-To Points"), Frame1);
    Place(EditWarpTo, 120, 600, 2055, 255);
    CheckGrid = new QCheckBox(QStringLiteral("Display Gridlines"), Frame1);
    Place(CheckGrid, 120, 1080, 2055, 255);
    CheckGrid->setChecked(true);
    // A change of mode, by a click or the arrow keys; a click on the option
    // already selected changes nothing.
    connect(EditWarps, &QRadioButton::toggled, this, [this](bool on) {
        if (on) EditWarps_Click();
    });
    connect(EditWarpTo, &QRadioButton::toggled, this, [this](bool on) {
        if (on) EditWarpTo_Click();
    });
    connect(CheckGrid, &QCheckBox::toggled, this, &WarpEdit::CheckGrid_Click);

    Frame2 = new QGroupBox(QStringLiteral("Edit Warp"), client);
    Place(Frame2, 2520, 6240, 4095, 1455);
    DWarpNum = new QLabel(QStringLiteral("Warp Number: 0"), Frame2);
    Place(DWarpNum, 120, 360, 1815, 255);
    Label1 = new QLabel(QStringLiteral("Warp-To Map:"), Frame2);
    Place(Label1, 120, 720, 1095, 255);
    ToMap = new QLineEdit(Frame2);
    Place(ToMap, 1320, 720, 495, 285);
    Label2 = new QLabel(QStringLiteral("Warp-To Point:"), Frame2);
    Place(Label2, 120, 1080, 1335, 255);
    ToPoint = new QLineEdit(Frame2);
    Place(ToPoint, 1320, 1080, 495, 285);
    Label3 = new QLabel(QStringLiteral("Better support for changing these is coming very soon!"),
                        Frame2);
    Place(Label3, 1920, 840, 2055, 495);
    Label3->setWordWrap(true);
    Label4 = new QLabel(QStringLiteral("Event Placement: 0"), Frame2);
    Place(Label4, 1920, 360, 1575, 255);
    Label4->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Label4->hide();
    Label6 = new QLabel(QStringLiteral("0"), Frame2);
    Place(Label6, 3600, 360, 375, 255);
    Label6->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Label6->hide();

    Command1 = new QPushButton(QStringLiteral("Save"), client);
    Place(Command1, 6720, 7200, 1335, 495);
    connect(Command1, &QPushButton::clicked, this, &WarpEdit::Command1_Click);
}

QPoint WarpEdit::EntrySquare(int row) const {
    return WarpSquare(Warps[row], Mode());
}

void WarpEdit::Shift(WarpTable& rows, int sign) const {
    ShiftWarpList(rows, WarpCount, Mode(), Defines.CurMap, sign);
}

void WarpEdit::Form_Load() {
    CheckGrid->setChecked(Gridlines_);  // unchecked runs the handler, which hides the lines
    SelWarp = 0;
    WarpsChanged = false;
    if (!HasWarpToList(CurMapRow())) EditWarpTo->setEnabled(false);
    Placement->SetPictures(&WarpNon, &WarpSel, SelWarp);
    if (!LoadWarpMap()) {
        RefuseLoad();
        return;
    }
    ShowSelectedRow();
}

void WarpEdit::Form_Activate() {
    DrawWarpMap();
}

bool WarpEdit::LoadWarpMap() {
    // The list is read before anything changes, so that the table stays as
    // it was when it cannot be read. The map is the one the main window
    // holds, unsaved painting included: it is drawn, never read again.
    WarpTable rows = Warps;
    WarpListPlace place;
    QString error;
    RomFile rom;
    if (!rom.Open(Defines.RomPath)) {
        Dialogs().Warn(rom.Error());
        return false;
    }
    if (!ReadWarpList(rom, Defines.CurMap, Mode(), rows, place, error)) {
        Dialogs().Warn(error);
        return false;
    }
    Placement->SetUpForMap();
    Placement->HideSymbols();
    Warps = rows;
    Place_ = place;
    WarpCount = static_cast<std::int16_t>(place.Count);
    Shift(Warps, +1);
    DrawWarpMap();
    if (!place.Notice.isEmpty()) Dialogs().Inform(place.Notice);
    return true;
}

void WarpEdit::DrawWarpMap() {
    std::vector<QPoint> entries;
    for (int i = 0; i < WarpCount; ++i)
        entries.push_back(EntrySquare(i));
    Placement->PlaceSymbols(entries, SelWarp);
}

void WarpEdit::ShowSelectedRow() {
    const WarpRecord& row = Warps[SelWarp];
    if (Mode() == WarpMode::WarpTo) {
        Label4->setText(QStringLiteral("Event Placement: ") + QString::number(row[0]));
        Label6->setText(QString::number(row[1]));
        DWarpNum->setText(QStringLiteral("Warp-To Number: ") + QString::number(SelWarp));
    } else {
        ToMap->setText(QString::number(row[3]));
        ToPoint->setText(QString::number(row[2]));
        DWarpNum->setText(QStringLiteral("Warp Number: ") + QString::number(SelWarp));
    }
}

void WarpEdit::ChangeMode() {
    const bool warpTo = Mode() == WarpMode::WarpTo;
    const int previousSel = SelWarp;
    SelWarp = 0;
    if (!LoadWarpMap()) {
        // The other list cannot be read: the window stays on the list it has.
        SelWarp = static_cast<std::int16_t>(previousSel);
        const QSignalBlocker blockWarps(EditWarps);
        const QSignalBlocker blockWarpTo(EditWarpTo);
        (warpTo ? EditWarps : EditWarpTo)->setChecked(true);
        return;
    }
    Placement->SetPictures(warpTo ? &WarpToNon : &WarpNon, warpTo ? &WarpToSel : &WarpSel, 0);
    for (QWidget* w : std::initializer_list<QWidget*>{Label1, ToMap, Label2, ToPoint, Label3})
        w->setVisible(!warpTo);
    Label4->setVisible(warpTo);
    Label6->setVisible(warpTo);
    ShowSelectedRow();
}

void WarpEdit::EditWarps_Click() {
    ChangeMode();
}

void WarpEdit::EditWarpTo_Click() {
    ChangeMode();
}

void WarpEdit::CheckGrid_Click() {
    Placement->View->SetGridlines(CheckGrid->isChecked());
}

void WarpEdit::WarpSym_MouseDown(int index) {
    Placement->Select(SelWarp, index);
    SelWarp = static_cast<std::int16_t>(index);
    ShowSelectedRow();
}

void WarpEdit::MapTile_MouseDown(int index) {
    QPoint block;
    const QPoint square = Placement->SquareOfCell(index, block);
    const WarpMode mode = Mode();
    WarpRecord& row = Warps[SelWarp];
    if (mode == WarpMode::WarpTo) {
        EventPlacement(CurMapRow()[MapCols].ToInt32(), block.x() - 1, block.y() - 1,
                       CurMapRow()[MapPlacementFix].ToInt32(), row[0], row[1]);
        Label4->setText(QStringLiteral("Event Placement: ") + QString::number(row[0]));
        Label6->setText(QString::number(row[1]));
    }
    row[XField(mode)] = square.x();
    row[YField(mode)] = square.y();
    Placement->PlaceSymbol(SelWarp, square);
    WarpsChanged = true;
}

void WarpEdit::Command1_Click() {
    // The bytes are worked out on a copy: a save that is given up leaves the
    // table in the window's coordinates and the typed text in its boxes.
    const WarpMode mode = Mode();
    WarpTable rows = Warps;
    Shift(rows, -1);
    if (mode == WarpMode::Warps) {
        rows[SelWarp][2] = TypedNumber::WarpTarget(ToPoint->text());
        rows[SelWarp][3] = TypedNumber::WarpTarget(ToMap->text());
    }
    for (int i = 0; i < WarpCount; ++i) {
        for (int f = 0; f < 4; ++f) {
            const std::int32_t value = rows[i][f];
            if (value >= LowestByte && value <= HighestByte) continue;
            Dialogs().Warn(
                QStringLiteral("%1 %2 cannot be saved: its %3 would be %4, and a byte holds "
                               "0 to 255.\n\nNothing was saved.")
                    .arg(mode == WarpMode::Warps ? QStringLiteral("Warp")
                                                 : QStringLiteral("Warp-to point"))
                    .arg(i)
                    .arg(WarpFieldName(mode, f))
                    .arg(value));
            return;
        }
    }
    const std::int32_t start = Place_.Start;
    const int count = WarpCount;
    if (!SaveToRom(
            Defines.RomPath, Defines.ProgramFolder, Backup::Offer,
            [&](RomFile& rom) { WriteWarpList(rom, start, rows, count); }, Defines.RomSize))
        return;
    Dialogs().Inform(QStringLiteral("Your changes to the warps have been saved!"));
    WarpsChanged = false;
    // The typed targets now stand in the table; the coordinates go back on.
    Shift(rows, +1);
    Warps = rows;
}

void WarpEdit::Form_Unload(bool& Cancel) {
    if (WarpsChanged && !Dialogs().Ask(Discard)) {
        Cancel = true;
        return;
    }
    ChildForm::Form_Unload(Cancel);
}
