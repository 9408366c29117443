#pragma once

#include <QPixmap>
#include <QWidget>

// A small picture that floats over a view, placed in twips: the marks of the
// warp and event editors. It reports a press of any button.
class Symbol : public QWidget {
    Q_OBJECT
public:
    Symbol(QWidget* parent, int widthTwips, int heightTwips);

    // Top left corner in twips.
    void MoveTo(int leftTwips, int topTwips);
    int LeftTwips() const { return Left_; }
    int TopTwips() const { return Top_; }
    // The picture is shown by reference and must outlive its use here.
    void SetPicture(const QPixmap* picture);
    const QPixmap* Picture() const { return Picture_; }

signals:
    void MouseDown();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    const QPixmap* Picture_ = nullptr;
    int Left_ = 0;
    int Top_ = 0;
};

// A symbol's picture: 33 x 33 pixels on white, one or two words in orange-red
// under each other, and a frame of one pixel in the given colour.
QPixmap SymbolPicture(const QString& word, const QString& below, QColor frame);
