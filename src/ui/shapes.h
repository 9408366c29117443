#pragma once

#include <QColor>
#include <QWidget>

// A rectangle outline placed in twips, painted above the cells beneath it and
// transparent to the mouse.
class Outline : public QWidget {
    Q_OBJECT
public:
    explicit Outline(QWidget* parent, QColor colour = Qt::black);
    void SetRect(int left, int top, int width, int height);
    int LeftTwips() const { return Left_; }
    int TopTwips() const { return Top_; }
    int WidthTwips() const { return Width_; }
    int HeightTwips() const { return Height_; }
    void SetTop(int top) { SetRect(Left_, top, Width_, Height_); }
    void SetSize(int width, int height) { SetRect(Left_, Top_, width, height); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor Colour_;
    int Left_ = 0, Top_ = 0, Width_ = 0, Height_ = 0;
};

// A straight horizontal or vertical line placed in twips by its two ends.
class Line : public QWidget {
    Q_OBJECT
public:
    explicit Line(QWidget* parent, QColor colour = Qt::black);
    void SetEnds(int x1, int y1, int x2, int y2);
    int X1() const { return X1_; }
    int Y1() const { return Y1_; }
    int X2() const { return X2_; }
    int Y2() const { return Y2_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor Colour_;
    int X1_ = 0, Y1_ = 0, X2_ = 0, Y2_ = 0;
};
