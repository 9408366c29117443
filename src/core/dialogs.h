#pragma once

#include <QString>

// Every question, message, file chooser and beep of the program goes through
// one replaceable service, so tests can answer from a script and read back
// every text that was shown. This header needs only Qt Core.
class DialogService {
public:
    virtual ~DialogService() = default;

    // A question: title "Tarnwey", a question mark, Yes and No. True for Yes.
    virtual bool Ask(const QString& text) = 0;
    // A confirmation: title "Tarnwey", an information mark, OK.
    virtual void Inform(const QString& text) = 0;
    // A fault the user must know about: title "Tarnwey", a warning mark, OK.
    virtual void Warn(const QString& text) = 0;
    // File choosers: the full path, or an empty text when the user cancels.
    virtual QString OpenFile(const QString& title, const QString& folder) = 0;
    virtual QString SaveFile(const QString& title, const QString& folder) = 0;
    virtual void Beep() = 0;
};

// The service in use. The program installs the real one at start; tests
// install a scripted one. The service is not owned here.
DialogService& Dialogs();
void SetDialogs(DialogService* service);

inline const QString AppTitle = QStringLiteral("Tarnwey");
