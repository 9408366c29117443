#include "startup/program.h"

#include <QCoreApplication>
#include <QPointer>
#include <utility>

#include "mapedit/mainform.h"
#include "startup/splash.h"
#include "startup/versionselect.h"

namespace Program {
namespace {
QPointer<Splash> TheSplash;
QPointer<VersionSelect> TheVersionSelect;
QPointer<MainForm> TheMainForm;
bool HasEnded = false;
int Status = 0;
QString InitialRom;
std::function<void()> OnEnd;

void Discard(QWidget* form) {
    if (!form) return;
    form->hide();
    form->deleteLater();
}
}  // namespace

void Main(const QString& initialRom) {
    HasEnded = false;
    InitialRom = initialRom;
    if (!TheVersionSelect) TheVersionSelect = new VersionSelect();
    TheSplash = new Splash();
    TheSplash->Load();
}

QString TakeInitialRom() {
    return std::exchange(InitialRom, QString());
}

void EndOnError() {
    Status = 1;
    End();
}

int ExitStatus() {
    return Status;
}

void End() {
    HasEnded = true;
    Discard(TheMainForm);
    Discard(TheSplash);
    Discard(TheVersionSelect);
    TheMainForm = nullptr;
    TheSplash = nullptr;
    TheVersionSelect = nullptr;
    if (OnEnd) OnEnd();
}

bool Ended() {
    return HasEnded;
}

Splash* SplashForm() {
    return TheSplash;
}
VersionSelect* VersionSelectForm() {
    return TheVersionSelect;
}
MainForm* MainWindow() {
    return TheMainForm;
}
void SetMainWindow(MainForm* form) {
    TheMainForm = form;
}

void UnloadForNewPass() {
    Discard(TheMainForm);
    Discard(TheSplash);
    TheMainForm = nullptr;
    TheSplash = nullptr;
}

void SetOnEnd(std::function<void()> onEnd) {
    OnEnd = std::move(onEnd);
}

void Reset() {
    delete TheMainForm.data();
    delete TheSplash.data();
    delete TheVersionSelect.data();
    HasEnded = false;
    Status = 0;
    InitialRom.clear();
    OnEnd = nullptr;
}

}  // namespace Program
