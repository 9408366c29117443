#pragma once

#include <QCheckBox>

// A check box whose caption wraps onto more lines when its box is too narrow
// for one, as the event editor's small options frame needs.
class WrapCheckBox : public QCheckBox {
    Q_OBJECT
public:
    WrapCheckBox(const QString& text, QWidget* parent) : QCheckBox(text, parent) {}
    // Where the caption is drawn, wrapped at its width.
    QRect CaptionRect() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& pos) const override { return rect().contains(pos); }
};
