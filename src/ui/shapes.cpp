#include "ui/shapes.h"

#include <QPainter>

#include "ui/twips.h"

Outline::Outline(QWidget* parent, QColor colour) : QWidget(parent), Colour_(colour) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Outline::SetRect(int left, int top, int width, int height) {
    Left_ = left;
    Top_ = top;
    Width_ = width;
    Height_ = height;
    setGeometry(TwipsRect(left, top, width, height));
    update();
}

void Outline::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(Colour_);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

Line::Line(QWidget* parent, QColor colour) : QWidget(parent), Colour_(colour) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Line::SetEnds(int x1, int y1, int x2, int y2) {
    X1_ = x1;
    Y1_ = y1;
    X2_ = x2;
    Y2_ = y2;
    const int left = Px(std::min(x1, x2));
    const int top = Px(std::min(y1, y2));
    setGeometry(left, top, Px(std::max(x1, x2)) - left + 1, Px(std::max(y1, y2)) - top + 1);
    update();
}

void Line::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Colour_);
}
