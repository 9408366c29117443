#include "ui/wrapcheckbox.h"

#include <QStyleOptionButton>
#include <QStylePainter>

QRect WrapCheckBox::CaptionRect() const {
    QStyleOptionButton option;
    initStyleOption(&option);
    const QRect box = style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this);
    return rect().adjusted(box.right() + 4, 0, 0, 0);
}

void WrapCheckBox::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    // The box is drawn by the style without its caption, the caption beside it.
    option.text.clear();
    painter.drawControl(QStyle::CE_CheckBox, option);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(CaptionRect(), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextWordWrap,
                     this->text());
}
