#include "wildedit/wildedit.h"

#include "core/datafilenames.h"
#include "core/defines.h"
#include "core/dialogs.h"
#include "core/typednumber.h"
#include "rom/romsave.h"
#include "ui/twips.h"

namespace {
constexpr int LowestLevel = 0;
constexpr int HighestLevel = 255;
}  // namespace

WildEdit::WildEdit(Form* owner) : ChildForm(owner) {
    SetCaption(QStringLiteral("Wild Morlick Editor"));
    SetClientSize(6375, 3135);
    setWindowFlag(Qt::WindowMinimizeButtonHint, false);
    QWidget* client = Client();

    Frame1 = new QGroupBox(QStringLiteral("Select Morlick"), client);
    Place(Frame1, 120, 120, 3015, 2895);
    for (int i = 0; i < Limits::WildSlots; ++i) {
        const int top = 360 + 240 * i;
        MorlNum[i] = new QRadioButton(Frame1);
        Place(MorlNum[i], 120, top, 255, 255);
        // Toggled on, whether by a click, the arrow keys or the program.
        connect(MorlNum[i], &QRadioButton::toggled, this, [this, i](bool on) {
            if (on) MorlNum_Click(i);
        });
        MorlName[i] = new QLabel(Frame1);
        Place(MorlName[i], 480, top, 1695, 255);
        MorlLevel[i] = new QLabel(Frame1);
        Place(MorlLevel[i], 2040, top, 855, 255);
    }

    Frame2 = new QGroupBox(QStringLiteral("Change Morlick"), client);
    Place(Frame2, 3240, 480, 3015, 1815);
    Label1 = new QLabel(QStringLiteral("Select Morlick:"), Frame2);
    Place(Label1, 120, 360, 1815, 255);
    SelMorl = new QComboBox(Frame2);
    Place(SelMorl, 120, 600, 2775, 315);
    // A choice of the user's, with the mouse, the arrow keys or the wheel;
    // the program's own settings of the selection take no species.
    connect(SelMorl, &QComboBox::activated, this, &WildEdit::SelMorl_Click);
    MorlHex = new QLabel(Frame2);
    Place(MorlHex, 120, 960, 2775, 255);
    Label3 = new QLabel(QStringLiteral("Enter Level (0 to 255):"), Frame2);
    Place(Label3, 120, 1320, 1815, 255);
    SelLevel = new QLineEdit(Frame2);
    Place(SelLevel, 1800, 1320, 1095, 285);
    connect(SelLevel, &QLineEdit::textChanged, this, &WildEdit::SelLevel_Change);

    Command1 = new QPushButton(QStringLiteral("Save"), client);
    Place(Command1, 4920, 2520, 1335, 495);
    connect(Command1, &QPushButton::clicked, this, &WildEdit::Command1_Click);
}

void WildEdit::Form_Load() {
    // Everything is read before anything is shown: a list outside the ROM or
    // a broken species file keeps the window shut.
    QString error;
    const std::int32_t position = CurMapRow()[MapWildPos].ToInt32();
    if (!ReadWildList(Defines.RomPath, position, WildData, error) ||
        !LoadMorlickFile(Defines.ProgramFolder + u'/' + DataFileNames::Morlick, Morlick, error)) {
        Dialogs().Warn(error);
        RefuseLoad();
        return;
    }
    for (int slot = 0; slot < Limits::WildSlots; ++slot) {
        MorlName[slot]->setText(Morlick.ByCode[WildData[slot].Species].Name);
        MorlLevel[slot]->setText(QStringLiteral("Level ") + QString::number(WildData[slot].Level));
    }
    for (int place = 1; place <= Morlick.Count; ++place)
        SelMorl->addItem(Morlick.ByList[place].Name);
    MorlNum[0]->setChecked(true);  // shows slot 0
}

void WildEdit::ShowHex() {
    const int code = Morlick.ByCode[WildData[CurSlot].Species].Code;
    MorlHex->setText(QStringLiteral("Morlick's Hex Value: ") + QString::number(code, 16).toUpper());
}

void WildEdit::MorlNum_Click(int index) {
    CurSlot = static_cast<std::int16_t>(index);
    // A code with no record has no place: the list then shows no selection.
    SelMorl->setCurrentIndex(Morlick.ByCode[WildData[CurSlot].Species].Place - 1);
    SelLevel->setText(QString::number(WildData[CurSlot].Level));
    ShowHex();
}

void WildEdit::SelMorl_Click(int index) {
    if (index < 0) return;
    WildData[CurSlot].Species = Morlick.ByList[index + 1].Code;
    MorlName[CurSlot]->setText(Morlick.ByCode[WildData[CurSlot].Species].Name);
    ShowHex();
}

void WildEdit::SelLevel_Change(const QString& text) {
    // Each correction sets the box, which runs this handler again on the
    // corrected text; that run finds nothing more to correct.
    const std::optional<double> level = TypedNumber::Level(text);
    if (!level) {
        SelLevel->setText(QString::number(WildData[CurSlot].Level));
        return;
    }
    if (*level < LowestLevel) {
        SelLevel->setText(QString::number(LowestLevel));
        return;
    }
    if (*level > HighestLevel) {
        SelLevel->setText(QString::number(HighestLevel));
        return;
    }
    WildData[CurSlot].Level = static_cast<std::int16_t>(*level);
    if (text != text.trimmed()) {
        SelLevel->setText(text.trimmed());
        return;
    }
    MorlLevel[CurSlot]->setText(QStringLiteral("Level ") +
                                QString::number(WildData[CurSlot].Level));
}

void WildEdit::Command1_Click() {
    const std::int32_t position = CurMapRow()[MapWildPos].ToInt32();
    if (!SaveToRom(
            Defines.RomPath, Defines.ProgramFolder, Backup::Offer,
            [&](RomFile& rom) { WriteWildList(rom, position, WildData); }, Defines.RomSize))
        return;
    Dialogs().Inform(QStringLiteral("Your changes to the wild Morlick have been saved!"));
}

void WildEdit::Form_Unload(bool& Cancel) {
    // This window keeps no changed flag: it asks at every closing.
    if (!Dialogs().Ask(QStringLiteral("Discard the changes you have made?"))) {
        Cancel = true;
        return;
    }
    ChildForm::Form_Unload(Cancel);
}
