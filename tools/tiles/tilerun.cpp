#include "tiles/tilerun.h"

#include <QColor>
#include <QFileInfo>
#include <QImage>
#include <QRegularExpression>
#include <QStringList>

#include "cli/commandline.h"
#include "core/limits.h"
#include "mapview/bankatlas.h"
#include "rom/romfile.h"

namespace {
constexpr int TilePixels = 8;
constexpr int PixelSquare = BankAtlas::PicturePixels / TilePixels;  // 2 x 2

bool ParseNumber(const QString& text, qint64& value) {
    bool ok = false;
    if (text.startsWith(u"0x", Qt::CaseInsensitive))
        value = text.mid(2).toLongLong(&ok, 16);
    else
        value = text.toLongLong(&ok, 10);
    return ok;
}
}  // namespace

bool ParseTileRun(const QString& text, TileRun& run, QString& error) {
    static const QRegularExpression form(QStringLiteral("^([^:@]+):([^:@]+)@([^:@]+)$"));
    const QRegularExpressionMatch match = form.match(text.trimmed());
    qint64 position = 0;
    qint64 count = 0;
    qint64 index = 0;
    if (!match.hasMatch() || !ParseNumber(match.captured(1), position) ||
        !ParseNumber(match.captured(2), count) || !ParseNumber(match.captured(3), index)) {
        error = QStringLiteral(
                    "The run \"%1\" is not written POSITION:COUNT@INDEX, for instance "
                    "16385:94@0 for 94 tiles from ROM position 16385 into pictures 0 to 93.")
                    .arg(text);
        return false;
    }
    if (position < 1 || position > INT32_MAX || count < 1 || count > Limits::BankPictures ||
        index < 0 || index >= Limits::BankPictures) {
        error = QStringLiteral(
                    "The run \"%1\" cannot be: a position counts from 1, a run has 1 to %2 "
                    "tiles, and the bank's pictures are 0 to %3.")
                    .arg(text)
                    .arg(Limits::BankPictures)
                    .arg(Limits::BankPictures - 1);
        return false;
    }
    run.Text = text;
    run.Position = static_cast<std::int32_t>(position);
    run.Count = static_cast<int>(count);
    run.Index = static_cast<int>(index);
    return true;
}

bool CheckTileRun(const TileRun& run, const RomFile& rom, QString& error) {
    const int last = run.Index + run.Count - 1;
    if (last >= Limits::BankPictures) {
        error = QStringLiteral(
                    "The run \"%1\" reaches past picture %2, the bank's last: its %3 tiles "
                    "would fill pictures %4 to %5.")
                    .arg(run.Text)
                    .arg(Limits::BankPictures - 1)
                    .arg(run.Count)
                    .arg(run.Index)
                    .arg(last);
        return false;
    }
    const qint64 end = static_cast<qint64>(run.Position) + qint64{TileBytes} * run.Count - 1;
    if (end > rom.Size()) {
        error = QStringLiteral(
                    "The run \"%1\" reaches past the end of the ROM: its %2 "
                    "positions %3 to %4, and \"%5\" has %6.")
                    .arg(run.Text)
                    .arg(run.Count == 1 ? QStringLiteral("1 tile takes")
                                        : QStringLiteral("%1 tiles take").arg(run.Count))
                    .arg(run.Position)
                    .arg(end)
                    .arg(QFileInfo(rom.Path()).fileName())
                    .arg(Cli::Count(rom.Size(), QStringLiteral("byte"), QStringLiteral("bytes")));
        return false;
    }
    return true;
}

bool ParseShades(const QString& text, std::array<QRgb, 4>& shades, QString& error) {
    const QStringList parts = text.split(u',');
    if (parts.size() != 4) {
        error = QStringLiteral(
                    "--shades takes four colours, lightest first, such as "
                    "#FFF8FF,#C0C7C0,#808080,#000000; \"%1\" has %2.")
                    .arg(text)
                    .arg(parts.size());
        return false;
    }
    static const QRegularExpression bareHex(QStringLiteral("^[0-9A-Fa-f]{6}$"));
    for (int n = 0; n < 4; ++n) {
        QString name = parts[n].trimmed();
        if (bareHex.match(name).hasMatch()) name.prepend(u'#');
        const QColor colour = QColor::fromString(name);
        if (!colour.isValid()) {
            error = QStringLiteral("Shade %1 of --shades, \"%2\", is not a colour.")
                        .arg(n)
                        .arg(parts[n]);
            return false;
        }
        shades[n] = colour.rgb();
    }
    return true;
}

void DrawTile(RomFile& rom, std::int32_t position, QImage& bank, int index,
              const std::array<QRgb, 4>& shades) {
    const QPoint corner = BankAtlas::PictureRect(index).topLeft();
    for (int row = 0; row < TilePixels; ++row) {
        const int low = rom.ReadByte(position + 2 * row);
        const int high = rom.ReadByte(position + 2 * row + 1);
        for (int column = 0; column < TilePixels; ++column) {
            const int bit = 7 - column;
            const int value = ((low >> bit) & 1) | (((high >> bit) & 1) << 1);
            for (int dy = 0; dy < PixelSquare; ++dy)
                for (int dx = 0; dx < PixelSquare; ++dx)
                    bank.setPixel(corner.x() + PixelSquare * column + dx,
                                  corner.y() + PixelSquare * row + dy, shades[value]);
        }
    }
}
