#include "startup/program.h"

#include <QCoreApplication>
#include <QPointer>
#include <memory>
#include <utility>

#include "core/defines.h"
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
// The working state as it was when the pass began: the ROM open before, its
// map and its unsaved painting. A pass that does not end in a new main
// window puts it back.
std::unique_ptr<WorkingState> KeptState;

void Discard(QWidget* form) {
    if (!form) return;
    form->hide();
    form->deleteLater();
}

void StartPass() {
    KeptState = std::make_unique<WorkingState>(Defines);
    if (!TheVersionSelect) TheVersionSelect = new VersionSelect();
    Discard(TheSplash);
    TheSplash = new Splash();
    TheSplash->Load();
}

void ReturnToOpenRom() {
    Defines = *KeptState;
    KeptState.reset();
    Discard(TheSplash);
    TheSplash = nullptr;
    if (TheVersionSelect) TheVersionSelect->HideForm();
    TheMainForm->ShowForm();
}
}  // namespace

void Main(const QString& initialRom) {
    HasEnded = false;
    Status = 0;
    InitialRom = initialRom;
    StartPass();
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
    KeptState.reset();
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

void OpenAnotherRom() {
    if (TheMainForm) TheMainForm->HideForm();
    StartPass();
}

void GiveUpPass() {
    if (TheMainForm && KeptState)
        ReturnToOpenRom();
    else
        End();
}

void PassFailed() {
    if (TheMainForm && KeptState) {
        ReturnToOpenRom();
        return;
    }
    // Nothing was open before: the user chooses again, from a clean state.
    // Should the user give up now, start-up has ended on an error.
    if (KeptState) Defines = *KeptState;
    Status = 1;
    StartPass();
}

void TakeMainWindow(MainForm* form) {
    KeptState.reset();
    Status = 0;
    Discard(TheMainForm);
    TheMainForm = form;
}

void SetOnEnd(std::function<void()> onEnd) {
    OnEnd = std::move(onEnd);
}

void Reset() {
    delete TheMainForm.data();
    delete TheSplash.data();
    delete TheVersionSelect.data();
    KeptState.reset();
    HasEnded = false;
    Status = 0;
    InitialRom.clear();
    OnEnd = nullptr;
}

}  // namespace Program
