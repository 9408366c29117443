#pragma once

#include <QApplication>
#include <QFont>

// The windows are laid out for a small dialog font of 8 points; a larger
// default font would wrap and clip their labels.
inline void ApplyProgramFont() {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSize(8);
    QApplication::setFont(font);
}
