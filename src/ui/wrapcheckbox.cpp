#include "ui/wrapcheckbox.h"

#include <QStyleOptionButton>
#include <QStylePainter>

void WrapCheckBox::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    // The box is drawn by the style without its caption, the caption beside it.
    option.text.clear();
    painter.drawControl(QStyle::CE_CheckBox, option);
    const QRect box = style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this);
    const QRect text = rect().adjusted(box.right() + 4, 0, 0, 0);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextWordWrap, this->text());
}
