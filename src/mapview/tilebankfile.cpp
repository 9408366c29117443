#include "mapview/tilebankfile.h"

#include <QFileInfo>
#include <QImageReader>

#include "mapview/bankatlas.h"

bool ReadTileBankFile(const QString& path, QImage& atlas, QString& error) {
    QImageReader reader(path);
    const QImage read = reader.read();
    const QString name = QFileInfo(path).fileName();
    if (read.isNull()) {
        error = QStringLiteral(
                    "The tile picture bank \"%1\" could not be read (%2).\n\n"
                    "Tarnwey cannot show maps without it.")
                    .arg(name, reader.errorString());
        return false;
    }
    if (read.width() < BankAtlas::Size().width() || read.height() < BankAtlas::Size().height()) {
        error = QStringLiteral(
                    "The tile picture bank \"%1\" is %2 x %3 pixels, too small to hold "
                    "%4 pictures of 16 x 16 pixels, 16 to a row.\n\n"
                    "Tarnwey cannot show maps without it.")
                    .arg(name)
                    .arg(read.width())
                    .arg(read.height())
                    .arg(Limits::BankPictures);
        return false;
    }
    atlas = read;
    return true;
}
