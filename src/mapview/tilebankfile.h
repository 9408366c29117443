#pragma once

#include <QImage>
#include <QString>

inline constexpr const char* TileBankFile = "Tiles.png";

// Reads the atlas of the tile bank, Tiles.png, and checks that it is large
// enough for all 520 pictures of 16 x 16 pixels, 16 to a row. On failure
// returns false with the message the editor shows, naming the file. Needs no
// window, so tarnwey-check reads the bank as the editor does.
bool ReadTileBankFile(const QString& path, QImage& atlas, QString& error);
