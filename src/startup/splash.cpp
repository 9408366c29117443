#include "startup/splash.h"

#include <QFont>
#include <QPainter>

#include "core/defines.h"
#include "core/dialogs.h"
#include "mapedit/mainform.h"
#include "mapview/tiles.h"
#include "startup/program.h"
#include "startup/romload.h"
#include "startup/versionselect.h"
#include "ui/splashpicture.h"
#include "ui/twips.h"

namespace {
const QColor OrangeRed(255, 51, 0);
}  // namespace

Splash::Splash() {
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    SetClientSize(5655, 3495);
    Picture = new QLabel(Client());
    Picture->setGeometry(Client()->rect());
    Picture->setPixmap(SplashPicture(Client()->size()));
    Label1 = new QLabel(QStringLiteral("Version 1.2"), Client());
    Place(Label1, 120, 2970, 5415, 375);
    Label1->setAlignment(Qt::AlignCenter);
    // The splash's own typeface, or a condensed bold face where it is absent.
    QFont font;
    font.setFamilies({QStringLiteral("Haettenschweiler"), QStringLiteral("Impact"),
                      QStringLiteral("DejaVu Sans Condensed")});
    font.setPointSizeF(14.25);
    font.setBold(true);
    Label1->setFont(font);
    QPalette palette = Label1->palette();
    palette.setColor(QPalette::WindowText, OrangeRed);
    Label1->setPalette(palette);
    Timer1 = new OneShotTimer(this, 1, [this] { Timer1_Timer(); });
}

void Splash::Form_Load() {
    QString path = Program::TakeInitialRom();
    if (path.isEmpty())
        path = Dialogs().OpenFile(QStringLiteral("Tarnwey - Open ROM File"), Defines.ProgramFolder);
    if (path.isEmpty()) {
        Program::GiveUpPass();
        return;
    }
    Defines.RomPath = path;
    if (VersionSelect* version = Program::VersionSelectForm()) version->ShowForm();
}

void Splash::Timer1_Timer() {
    Timer1->SetEnabled(false);
    Tiles& bank = Tiles::Bank();
    if (!bank.IsLoaded()) {
        QString error;
        if (!bank.Load(Defines.ProgramFolder + QStringLiteral("/") + TileBankFile, error)) {
            Dialogs().Warn(error);
            Program::EndOnError();
            return;
        }
    }
    // Everything of the new ROM is read before the window of the ROM open
    // until now goes.
    const VersionSelect* version = Program::VersionSelectForm();
    LoadedMap firstMap;
    QString error;
    if (!ReadRomAndDataFiles(version ? version->TilesetFile : QString(), firstMap, error)) {
        Dialogs().Warn(error);
        Program::PassFailed();
        return;
    }
    auto* form = new MainForm(firstMap, {Program::End, Program::OpenAnotherRom});
    Program::TakeMainWindow(form);
    form->ShowForm();
    HideForm();
}
