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

// The program's font, narrower: for labels whose text runs up to the edge of
// their window, where the wider face would cut off the last digits.
inline QFont NarrowFont() {
    QFont font(QStringLiteral("DejaVu Sans Condensed"));
    font.setPointSize(8);
    font.setStretch(QFont::Condensed);
    return font;
}
