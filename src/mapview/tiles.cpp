#include "mapview/tiles.h"

#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QPainter>

#include "mapview/bankatlas.h"

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
    QImageReader reader(path);
    const QImage atlas = reader.read();
    const QString name = QFileInfo(path).fileName();
    if (atlas.isNull()) {
        error = QStringLiteral(
                    "The tile picture bank \"%1\" could not be read (%2).\n\n"
                    "Tarnwey cannot show maps without it.")
                    .arg(name, reader.errorString());
        return false;
    }
    if (atlas.width() < BankAtlas::Size().width() || atlas.height() < BankAtlas::Size().height()) {
        error = QStringLiteral(
                    "The tile picture bank \"%1\" is %2 x %3 pixels, too small to hold "
                    "%4 pictures of 16 x 16 pixels, 16 to a row.\n\n"
                    "Tarnwey cannot show maps without it.")
                    .arg(name)
                    .arg(atlas.width())
                    .arg(atlas.height())
                    .arg(Limits::BankPictures);
        return false;
    }
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
