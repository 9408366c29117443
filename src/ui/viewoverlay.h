#pragma once

#include <QColor>
#include <QRect>
#include <QRegion>
#include <QWidget>
#include <array>

// A layer over a view's cells that draws rectangle outlines in pixels, such
// as a selection, and lets the mouse through. Moving an outline repaints its
// old and new edges only, never the cells' pictures.
class ViewOverlay : public QWidget {
    Q_OBJECT
public:
    static constexpr int Marks = 2;
    ViewOverlay(QWidget* parent, std::array<QColor, Marks> colours);

    // Outlines mark `which` along the inside of `pixels`, drawn only within
    // `clip`; an empty rectangle hides it.
    void SetMark(int which, QRect pixels, QRect clip);
    QRect Mark(int which) const { return Marks_[static_cast<size_t>(which)]; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::array<QColor, Marks> Colours_;
    std::array<QRect, Marks> Marks_{};
    std::array<QRegion, Marks> Shown_{};
};
