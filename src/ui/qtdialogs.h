#pragma once

#include "core/dialogs.h"

// The dialog service of the running program: message boxes, the file
// choosers and the system beep.
class QtDialogs : public DialogService {
public:
    bool Ask(const QString& text) override;
    void Inform(const QString& text) override;
    void Warn(const QString& text) override;
    QString OpenFile(const QString& title, const QString& folder) override;
    QString SaveFile(const QString& title, const QString& folder) override;
    void Beep() override;
};
