#pragma once

#include <QRect>
#include <QWidget>

// Window geometry is kept in twips, as the windows were designed: 15 twips to
// the pixel.
inline constexpr int TwipsPerPixel = 15;

inline int Px(int twips) {
    return (twips + TwipsPerPixel / 2) / TwipsPerPixel;
}
inline QRect TwipsRect(int left, int top, int width, int height) {
    return QRect(Px(left), Px(top), Px(width), Px(height));
}
// Places a control inside its parent, all numbers in twips.
inline void Place(QWidget* control, int left, int top, int width, int height) {
    control->setGeometry(TwipsRect(left, top, width, height));
}
