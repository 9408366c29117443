#include "ui/viewoverlay.h"

#include <QPainter>
#include <QRegion>

namespace {
constexpr int PenWidth = 2;

// The strip of pixels an outline of `rect` covers.
QRegion Edges(QRect rect) {
    if (rect.isEmpty()) return {};
    return QRegion(rect).subtracted(
        QRegion(rect.adjusted(PenWidth, PenWidth, -PenWidth, -PenWidth)));
}
}  // namespace

ViewOverlay::ViewOverlay(QWidget* parent, std::array<QColor, Marks> colours)
    : QWidget(parent), Colours_(colours) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ViewOverlay::SetMark(int which, QRect pixels, QRect clip) {
    const auto m = static_cast<size_t>(which);
    // Only the edges that lie inside the clip are drawn: a mark that reaches
    // beyond the view shows no edge where the view ends.
    const QRegion shown = Edges(pixels).intersected(clip);
    if (shown == Shown_[m]) return;
    update(Shown_[m] + shown);
    Marks_[m] = pixels;
    Shown_[m] = shown;
}

void ViewOverlay::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    for (size_t m = 0; m < Shown_.size(); ++m)
        for (const QRect& strip : Shown_[m])
            painter.fillRect(strip, Colours_[m]);
}
