#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

// Runs the program's windows without a display, on Qt's offscreen platform.
// That platform cannot raise or activate a window and says so each time a
// window is shown; those notes are dropped, everything else is printed.
inline void UseOffscreenPlatform() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QtMessageHandler previous = nullptr;
    previous = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& context, const QString& message) {
            if (message.contains(QStringLiteral("This plugin does not support"))) return;
            if (previous) previous(type, context, message);
        });
}
