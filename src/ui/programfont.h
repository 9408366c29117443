#pragma once

#include <QApplication>
#include <QFont>

// The windows are laid out for a small dialog font of 8 points. The program
// uses one face for all their text, the narrow cut of DejaVu Sans: in it
// every caption fits its control as the windows were designed, and labels
// side by side look alike.
inline void ApplyProgramFont() {
    QFont font(QStringLiteral("DejaVu Sans Condensed"));
    font.setPointSizeF(7.5);
    font.setStretch(QFont::Condensed);
    QApplication::setFont(font);
}
