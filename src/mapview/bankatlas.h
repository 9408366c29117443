#pragma once

#include <QRect>
#include <QRgb>
#include <QSize>
#include <array>

#include "core/limits.h"

// The layout of the tile bank file Tiles.png: pictures of 16 x 16 pixels, 16
// to a row, picture i at column i mod 16 and row i div 16, so that the 520
// pictures fill 33 rows. The editor reads the bank by it and tarnwey-tiles
// writes by it.
namespace BankAtlas {
inline constexpr int PicturePixels = 16;
inline constexpr int Columns = 16;
inline constexpr int Rows = (Limits::BankPictures + Columns - 1) / Columns;

inline QRect PictureRect(int index) {
    return QRect((index % Columns) * PicturePixels, (index / Columns) * PicturePixels,
                 PicturePixels, PicturePixels);
}
inline QSize Size() {
    return QSize(Columns * PicturePixels, Rows * PicturePixels);
}

// The four shades of the console's screen, lightest first: a picture made
// from 2-bit tile data takes shade n for the value n.
inline constexpr std::array<QRgb, 4> Shades{qRgb(255, 248, 255), qRgb(192, 199, 192),
                                            qRgb(128, 128, 128), qRgb(0, 0, 0)};
}  // namespace BankAtlas
