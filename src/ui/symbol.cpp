#include "ui/symbol.h"

#include <QMouseEvent>
#include <QPainter>

#include "ui/twips.h"

namespace {
constexpr int SymbolPixels = 33;
const QColor Lettering(255, 48, 0);
}  // namespace

Symbol::Symbol(QWidget* parent, int widthTwips, int heightTwips) : QWidget(parent) {
    resize(Px(widthTwips), Px(heightTwips));
    hide();
}

void Symbol::MoveTo(int leftTwips, int topTwips) {
    Left_ = leftTwips;
    Top_ = topTwips;
    move(Px(leftTwips), Px(topTwips));
}

void Symbol::SetPicture(const QPixmap* picture) {
    if (Picture_ == picture) return;
    Picture_ = picture;
    update();
}

void Symbol::paintEvent(QPaintEvent*) {
    if (!Picture_) return;
    QPainter painter(this);
    painter.drawPixmap(0, 0, *Picture_);
}

void Symbol::mousePressEvent(QMouseEvent* event) {
    event->accept();
    emit MouseDown();
}

QPixmap SymbolPicture(const QString& word, const QString& below, QColor frame) {
    QPixmap picture(SymbolPixels, SymbolPixels);
    picture.fill(Qt::white);
    QPainter p(&picture);
    QFont font(QStringLiteral("DejaVu Sans Condensed"));
    font.setStretch(QFont::Condensed);
    font.setBold(true);
    // The longest word fills the inside of the frame with a pixel to spare.
    font.setPixelSize(11);
    while (font.pixelSize() > 6 && QFontMetrics(font).horizontalAdvance(word) > SymbolPixels - 4)
        font.setPixelSize(font.pixelSize() - 1);
    p.setFont(font);
    p.setPen(Lettering);
    const int lineHeight = QFontMetrics(font).height();
    if (below.isEmpty()) {
        p.drawText(QRect(0, 0, SymbolPixels, SymbolPixels), Qt::AlignCenter, word);
    } else {
        const int top = (SymbolPixels - 2 * lineHeight) / 2;
        p.drawText(QRect(0, top, SymbolPixels, lineHeight), Qt::AlignCenter, word);
        p.drawText(QRect(0, top + lineHeight, SymbolPixels, lineHeight), Qt::AlignCenter, below);
    }
    p.setPen(frame);
    p.setBrush(Qt::NoBrush);
    p.drawRect(0, 0, SymbolPixels - 1, SymbolPixels - 1);
    return picture;
}
