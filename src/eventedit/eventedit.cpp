#include "eventedit/eventedit.h"

#include "core/datafilenames.h"
#include "core/defines.h"
#include "core/dialogs.h"
#include "core/typednumber.h"
#include "eventedit/eventsymbols.h"
#include "rom/romsave.h"
#include "ui/twips.h"
#include "ui/wrapcheckbox.h"

namespace {
const QString Discard = QStringLiteral("Discard the changes you have made?");
constexpr int LowestByte = 0;
constexpr int HighestByte = 255;
}  // namespace

EventEdit::EventEdit(Form* owner, bool gridlines)
    : ChildForm(owner),
      Placement(new PlacementView(Client(), Limits::MaxEvents)),
      EventSym(Placement->Sym),
      EventNon(EventSymbolPicture(false)),
      EventSel(EventSymbolPicture(true)),
      Gridlines_(gridlines) {
    SetCaption(QStringLiteral("Event Editor"));
    SetClientSize(8175, 7935);
    BuildControls();
    connect(Placement, &PlacementView::CellPressed, this, &EventEdit::MapTile_MouseDown);
    connect(Placement, &PlacementView::SymbolPressed, this, &EventEdit::EventSym_MouseDown);
    // A scroll has drawn the cells and hidden the symbols; they come back where
    // the view now shows their squares.
    connect(Placement, &PlacementView::Scrolled, this, &EventEdit::DrawEventMap);
}

void EventEdit::BuildControls() {
    QWidget* client = Client();
    Frame1 = new QGroupBox(QStringLiteral("Select Event Type"), client);
    Place(Frame1, 120, 6240, 2295, 1575);
    SelType = new QListWidget(Frame1);
    Place(SelType, 120, 360, 2055, 840);
    Command2 = new QPushButton(QStringLiteral("Go"), Frame1);
    Place(Command2, 1560, 1200, 615, 255);
    connect(Command2, &QPushButton::clicked, this, &EventEdit::Command2_Click);

    Frame2 = new QGroupBox(QStringLiteral("Edit Event"), client);
    Place(Frame2, 2520, 6240, 4095, 1575);
    DEventNum = new QLabel(QStringLiteral("Event Number: 0"), Frame2);
    Place(DEventNum, 120, 360, 1815, 255);
    const auto field = [this](QLabel*& label, QLineEdit*& box, const QString& caption,
                              int labelLeft, int top, int labelWidth, int boxLeft) {
        label = new QLabel(caption, Frame2);
        Place(label, labelLeft, top, labelWidth, 255);
        box = new QLineEdit(Frame2);
        Place(box, boxLeft, top, 495, 285);
    };
    field(Label1, TextString, QStringLiteral("Text String Number:"), 120, 720, 1455, 1680);
    field(Label2, PictureNum, QStringLiteral("Picture Number:"), 120, 960, 1335, 1680);
    field(Label7, TrainerType, QStringLiteral("Trainer Type:"), 120, 1200, 1095, 1680);
    field(Label5, Item, QStringLiteral("Item:"), 2400, 480, 975, 3480);
    field(Label3, Move1, QStringLiteral("Movement 1:"), 2400, 720, 975, 3480);
    field(Label4, Move2, QStringLiteral("Movement 2:"), 2400, 960, 975, 3480);
    field(Label6, MorlData, QStringLiteral("Morlick Set:"), 2400, 1200, 1095, 3480);
    Boxes_ = {{{Label1, TextString, TypeTextField},
               {Label2, PictureNum, TypePictureField},
               {Label3, Move1, TypeMove1Field},
               {Label4, Move2, TypeMove2Field},
               {Label5, Item, TypeItemField},
               {Label6, MorlData, TypeMorlField},
               {Label7, TrainerType, TypeTrainerField}}};
    for (int b = 0; b < static_cast<int>(Boxes_.size()); ++b)
        connect(Boxes_[b].Box, &QLineEdit::textChanged, this,
                [this, b](const QString& text) { FieldBox_Change(b, text); });

    Frame3 = new QGroupBox(QStringLiteral("Options"), client);
    Place(Frame3, 6720, 6240, 1335, 975);
    // The frame is narrow: the caption goes on two lines.
    CheckGrid = new WrapCheckBox(QStringLiteral("Display Gridlines"), Frame3);
    Place(CheckGrid, 120, 360, 1095, 375);
    CheckGrid->setChecked(true);
    connect(CheckGrid, &QCheckBox::toggled, this, &EventEdit::CheckGrid_Click);
    Command1 = new QPushButton(QStringLiteral("Save"), client);
    Place(Command1, 6720, 7320, 1335, 495);
    connect(Command1, &QPushButton::clicked, this, &EventEdit::Command1_Click);
}

void EventEdit::Form_Load() {
    CheckGrid->setChecked(Gridlines_);  // unchecked runs the handler, which hides the lines
    SelEvent = 0;
    CurEventType = 0;
    EventsChanged = false;
    QString error;
    if (!LoadEventTypesFile(Defines.ProgramFolder + u'/' + DataFileNames::EventTypes,
                            EventTypeTable, LastEventType, error) ||
        !LoadEventsFile(Defines.ProgramFolder + u'/' + DataFileNames::Events, EventAddressTable,
                        error)) {
        Dialogs().Warn(error);
        RefuseLoad();
        return;
    }
    for (int t = 0; t <= LastEventType; ++t)
        SelType->addItem(EventTypeTable[t][TypeName].ToText());
    SelType->setCurrentRow(0);
    Placement->SetPictures(&EventNon, &EventSel, SelEvent);
    // The window opens on type 0, whether or not it has events on this map.
    // A row of type 0 that cannot be used is told, and the window shows the
    // map without events; "Go" still reaches the other types.
    EventLayout layout;
    if (!ReadEventLayout(EventTypeTable, 0, layout, error)) {
        Dialogs().Warn(error);
        TypeUsable_ = false;
        EventCount = 0;
        Placement->SetUpForMap();
        DrawEventMap();
        ShowFields();
        return;
    }
    if (!LoadEventMap(0)) RefuseLoad();
}

void EventEdit::Form_Activate() {
    DrawEventMap();
}

bool EventEdit::LoadEventMap(int type) {
    // The type and the list are read before anything changes, so a type or
    // a list that cannot be read leaves the window as it was. The map is the
    // one the main window holds, unsaved painting included: it is drawn,
    // never read again.
    EventLayout layout;
    EventTable rows = Events;
    EventListPlace place;
    QString error;
    RomFile rom;
    if (!rom.Open(Defines.RomPath)) {
        Dialogs().Warn(rom.Error());
        return false;
    }
    if (!ReadEventLayout(EventTypeTable, type, layout, error) ||
        !ReadEventList(rom, Defines.CurMap, EventTypeTable[type][TypeName].ToText(), layout,
                       EventAddressTable, rows, place, error)) {
        Dialogs().Warn(error);
        return false;
    }
    CurEventType = static_cast<std::int16_t>(type);
    TypeUsable_ = true;
    Layout_ = layout;
    Place_ = place;
    EventCount = static_cast<std::int16_t>(place.Count);
    Events = rows;
    ShiftEventList(Events, EventCount, Layout_, Defines.CurMap, +1);
    Placement->SetUpForMap();
    DrawEventMap();
    ShowFields();
    if (!place.Notice.isEmpty()) Dialogs().Inform(place.Notice);
    return true;
}

void EventEdit::ShowFields() {
    // A box the type has no field for is hidden and keeps its text.
    for (const FieldBox& f : Boxes_) {
        const int field = TypeUsable_ ? EventTypeTable[CurEventType][f.Column].ToInt32() : 0;
        f.Label->setVisible(field != 0);
        f.Box->setVisible(field != 0);
        if (field != 0) f.Box->setText(QString::number(Events[SelEvent][field - 1]));
    }
}

QPoint EventEdit::EntrySquare(int row) const {
    return EventSquare(Events[row], Layout_);
}

void EventEdit::DrawEventMap() {
    std::vector<QPoint> entries;
    for (int i = 0; i < EventCount; ++i)
        entries.push_back(EntrySquare(i));
    Placement->PlaceSymbols(entries, SelEvent);
}

void EventEdit::CheckGrid_Click() {
    Placement->View->SetGridlines(CheckGrid->isChecked());
}

void EventEdit::EventSym_MouseDown(int index) {
    Placement->Select(SelEvent, index);
    SelEvent = static_cast<std::int16_t>(index);
    DEventNum->setText(QStringLiteral("Event Number: ") + QString::number(SelEvent));
    ShowFields();
}

void EventEdit::MapTile_MouseDown(int index) {
    if (!TypeUsable_) return;
    QPoint block;
    const QPoint square = Placement->SquareOfCell(index, block);
    Events[SelEvent][Layout_.XField - 1] = square.x() + Layout_.Bias2;
    Events[SelEvent][Layout_.YField - 1] = square.y() + Layout_.Bias1;
    Placement->PlaceSymbol(SelEvent, square);
    EventsChanged = true;
}

void EventEdit::FieldBox_Change(int box, const QString& text) {
    const int field = EventTypeTable[CurEventType][Boxes_[box].Column].ToInt32();
    if (field < 1 || field > MaxRecordSize) return;
    // Only a whole number that fits 32 bits is stored; other text, an empty
    // box included, leaves the field as it is.
    // A typed value that changes the field is a change to be saved or asked
    // about; the text the window itself shows stores the same value again.
    const std::optional<std::int32_t> value = TypedNumber::EventField(text);
    if (!value || Events[SelEvent][field - 1] == *value) return;
    Events[SelEvent][field - 1] = *value;
    EventsChanged = true;
}

void EventEdit::Command2_Click() {
    const int type = SelType->currentRow();
    if (type < 0 || type > LastEventType) return;
    // A row the window cannot use is told first, whatever its list holds.
    EventLayout layout;
    QString error;
    if (!ReadEventLayout(EventTypeTable, type, layout, error)) {
        Dialogs().Warn(error);
        SelType->setCurrentRow(CurEventType);
        return;
    }
    if (EventListCount(EventAddressTable, Defines.CurMap, layout.ListColumn) == 0) {
        Dialogs().Beep();
        Dialogs().Inform(
            QStringLiteral("There are no events of that type on this map (or the addresses for "
                           "them have not been found)."));
        SelType->setCurrentRow(CurEventType);
        return;
    }
    // Unsaved changes give way to the ROM's list only when the user says so;
    // when the type does not change, the list shows the type in the window.
    if ((EventsChanged && !Dialogs().Ask(Discard)) || !LoadEventMap(type)) {
        SelType->setCurrentRow(CurEventType);
        return;
    }
    EventsChanged = false;
}

QString EventEdit::FieldName(int field) const {
    if (field == Layout_.YField) return QStringLiteral("y");
    if (field == Layout_.XField) return QStringLiteral("x");
    for (const FieldBox& f : Boxes_)
        if (EventTypeTable[CurEventType][f.Column].ToInt32() == field)
            return f.Label->text().chopped(1);  // the caption without its colon
    return QStringLiteral("byte %1").arg(field);
}

void EventEdit::Command1_Click() {
    if (!TypeUsable_) {
        // No list is in the window: the row's fault is told again.
        EventLayout layout;
        QString error;
        ReadEventLayout(EventTypeTable, CurEventType, layout, error);
        Dialogs().Warn(error);
        return;
    }
    // The bytes are worked out on a copy: a save that is given up leaves the
    // table in the window's coordinates.
    EventTable rows = Events;
    ShiftEventList(rows, EventCount, Layout_, Defines.CurMap, -1);
    for (int i = 0; i < EventCount; ++i) {
        for (int k = 0; k < Layout_.RecordSize; ++k) {
            const std::int32_t value = rows[i][k];
            if (value >= LowestByte && value <= HighestByte) continue;
            Dialogs().Warn(QStringLiteral("Event %1 cannot be saved: its %2 would be %3, and a "
                                          "byte holds 0 to 255.\n\nNothing was saved.")
                               .arg(i)
                               .arg(FieldName(k + 1))
                               .arg(value));
            return;
        }
    }
    const std::int32_t start = Place_.Start;
    const int count = EventCount;
    const int size = Layout_.RecordSize;
    if (!SaveToRom(
            Defines.RomPath, Defines.ProgramFolder, Backup::Offer,
            [&](RomFile& rom) { WriteEventList(rom, start, rows, count, size); }, Defines.RomSize))
        return;
    Dialogs().Inform(QStringLiteral("Your changes to the Events have been saved!"));
    EventsChanged = false;
    // The list comes back from the ROM, and the view to the map's top left corner.
    LoadEventMap(CurEventType);
}

void EventEdit::Form_Unload(bool& Cancel) {
    if (EventsChanged && !Dialogs().Ask(Discard)) {
        Cancel = true;
        return;
    }
    ChildForm::Form_Unload(Cancel);
}
