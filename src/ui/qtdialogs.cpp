#include "ui/qtdialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>

namespace {
QWidget* Owner() {
    return QApplication::activeWindow();
}
}  // namespace

bool QtDialogs::Ask(const QString& text) {
    return QMessageBox::question(Owner(), AppTitle, text, QMessageBox::Yes | QMessageBox::No,
                                 QMessageBox::Yes) == QMessageBox::Yes;
}

void QtDialogs::Inform(const QString& text) {
    QMessageBox::information(Owner(), AppTitle, text, QMessageBox::Ok);
}

void QtDialogs::Warn(const QString& text) {
    QMessageBox::warning(Owner(), AppTitle, text, QMessageBox::Ok);
}

QString QtDialogs::OpenFile(const QString& title, const QString& folder) {
    // No file type filter: a ROM may carry any extension.
    return QFileDialog::getOpenFileName(Owner(), title, folder);
}

QString QtDialogs::SaveFile(const QString& title, const QString& folder) {
    // The program asks its own overwrite question, so the chooser must not.
    return QFileDialog::getSaveFileName(Owner(), title, folder, QString(), nullptr,
                                        QFileDialog::DontConfirmOverwrite);
}

void QtDialogs::Beep() {
    QApplication::beep();
}
