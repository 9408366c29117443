#include "ui/form.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>

#include "ui/twips.h"

Form::Form(QWidget* parent) : QWidget(parent, Qt::Window), Client_(new QWidget(this)) {
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
}

bool Form::Load() {
    if (!Loaded_) {
        Loaded_ = true;
        Form_Load();
    }
    return !LoadRefused_;
}

void Form::SetClientSize(int widthTwips, int heightTwips) {
    Client_->resize(Px(widthTwips), Px(heightTwips));
    FitToClient();
}

QMenuBar* Form::CreateMenuBar() {
    MenuBar_ = new QMenuBar(this);
    FitToClient();
    return MenuBar_;
}

void Form::FitToClient() {
    const int menuHeight = MenuBar_ ? MenuBar_->sizeHint().height() : 0;
    if (MenuBar_) MenuBar_->setGeometry(0, 0, Client_->width(), menuHeight);
    Client_->move(0, menuHeight);
    setFixedSize(Client_->width(), Client_->height() + menuHeight);
}

void Form::RemoveCloseBox() {
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
}

void Form::Centre() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen) return;
    QRect frame = frameGeometry();
    frame.moveCenter(screen->availableGeometry().center());
    move(frame.topLeft());
}

bool Form::ShowForm() {
    if (!Load()) return false;
    if (!Centred_) {
        Centre();
        Centred_ = true;
    }
    show();
    raise();
    activateWindow();
    Form_Activate();
    return true;
}

void Form::HideForm() {
    hide();
}

bool Form::Unload() {
    // The same path as the window's own close button: closeEvent asks Form_Unload.
    return close();
}

void Form::closeEvent(QCloseEvent* event) {
    bool cancel = false;
    Form_Unload(cancel);
    if (cancel)
        event->ignore();
    else
        event->accept();
}
