#include "mapview/tiles.h"

#include <QImage>
#include <QPainter>

#include "mapview/bankatlas.h"
#include "mapview/tilebankfile.h"

namespace {
constexpr int PictureSize = BankAtlas::PicturePixels;
const QColor Lightest(BankAtlas::Shades[0]);
}  // namespace

Tiles& Tiles::Bank() {
    static Tiles bank;
    return bank;
}

Tiles::Tiles() {}

bool Tiles::Load(const QString& path, QString& error) {
    QImage atlas;
    if (!ReadTileBankFile(path, atlas, error)) return false;
    const QImage rgb = atlas.convertToFormat(QImage::Format_RGB32);
    for (int i = 0; i < Limits::BankPictures; ++i)
        Tile_[i] = QPixmap::fromImage(rgb.copy(BankAtlas::PictureRect(i)));
    Blank_ = QPixmap(PictureSize, PictureSize);
    Blank_.fill(Lightest);
    // A lightest square with a red cross: clearly not a tile of the game.
    NoPicture_ = QPixmap(PictureSize, PictureSize);
    NoPicture_.fill(Lightest);
    QPainter painter(&NoPicture_);
    painter.setPen(QColor(255, 51, 0));
    painter.drawRect(0, 0, PictureSize - 1, PictureSize - 1);
    painter.drawLine(2, 2, PictureSize - 3, PictureSize - 3);
    painter.drawLine(PictureSize - 3, 2, 2, PictureSize - 3);
    Loaded_ = true;
    return true;
}

const QPixmap* Tiles::Tile(int index) const {
    if (!Loaded_ || index < 0 || index >= Limits::BankPictures) return &NoPicture_;
    return &Tile_[index];
}
