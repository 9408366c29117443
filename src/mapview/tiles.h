#pragma once

#include <QPixmap>
#include <QString>
#include <array>

#include "core/limits.h"
#include "mapview/tilebankfile.h"

// The bank of tile pictures: 520 pictures of 16 x 16 pixels, decoded once
// from the atlas Tiles.png (16 pictures across, picture i at column i mod 16,
// row i div 16) and never changed afterwards.
class Tiles {
public:
    static Tiles& Bank();

    // Decodes the atlas. On failure returns false with a message naming the
    // file; the bank then stays as it was.
    bool Load(const QString& path, QString& error);
    bool IsLoaded() const { return Loaded_; }

    // The picture at a bank index. An index outside the bank gives the
    // "no picture" cell, a crossed square, so bad ROM data shows but never fails.
    const QPixmap* Tile(int index) const;
    // The all-lightest picture that palette and block cells show before the
    // first drawing.
    const QPixmap* Blank() const { return &Blank_; }
    const QPixmap* NoPicture() const { return &NoPicture_; }

private:
    Tiles();
    std::array<QPixmap, Limits::BankPictures> Tile_;
    QPixmap Blank_;
    QPixmap NoPicture_;
    bool Loaded_ = false;
};

// The bank's picture at an index, or the "no picture" cell outside 0 to 519.
inline const QPixmap* TilePicture(int index) {
    return Tiles::Bank().Tile(index);
}
