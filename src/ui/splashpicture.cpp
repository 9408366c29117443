#include "ui/splashpicture.h"

#include <QFont>
#include <QPainter>

namespace {
const QColor Shade0(255, 248, 255);
const QColor Shade1(192, 199, 192);
const QColor Shade2(128, 128, 128);
const QColor Shade3(0, 0, 0);
}  // namespace

QPixmap SplashPicture(QSize size) {
    // A little landscape in the four shades of the game's screen: sky, hills,
    // a path of blocks, and the program's name.
    QPixmap picture(size);
    picture.fill(Shade0);
    QPainter p(&picture);
    const int w = size.width();
    const int h = size.height();
    p.setPen(Qt::NoPen);
    p.setBrush(Shade1);
    p.drawEllipse(QRect(-w / 4, h / 2, w, h));
    p.drawEllipse(QRect(w / 2, h * 5 / 8, w, h));
    p.setBrush(Shade2);
    for (int x = 0; x < w; x += 16) {
        const int y = h * 3 / 4 + ((x / 16) % 3) * 4;
        p.drawRect(x, y, 14, 14);
    }
    p.setBrush(Shade3);
    for (int i = 0; i < 5; ++i) {
        const int x = 24 + i * 40;
        p.drawRect(x + 6, h / 2 + 30, 6, 18);
        p.drawEllipse(QRect(x - 4, h / 2 - 4, 26, 38));
    }
    QFont title(QStringLiteral("DejaVu Sans"));
    title.setPixelSize(h / 5);
    title.setBold(true);
    p.setFont(title);
    p.setPen(Shade3);
    p.drawText(QRect(0, h / 8, w, h / 3), Qt::AlignCenter, QStringLiteral("TARNWEY"));
    QFont sub(QStringLiteral("DejaVu Sans"));
    sub.setPixelSize(h / 16);
    p.setFont(sub);
    p.setPen(Shade2);
    p.drawText(QRect(0, h / 8 + h / 3 - h / 14, w, h / 10), Qt::AlignCenter,
               QStringLiteral("a map editor for Morlick"));
    p.setPen(Shade3);
    p.setBrush(Qt::NoBrush);
    p.drawRect(0, 0, w - 1, h - 1);
    return picture;
}
