#include "mapedit/toolicons.h"

#include <QPainter>
#include <QPixmap>

namespace {
constexpr int Size = 16;
const QColor Dark(40, 40, 40);
const QColor Mid(110, 110, 110);
const QColor Light(190, 190, 190);
}  // namespace

QIcon ToolIcon(ToolKind tool) {
    QPixmap picture(Size, Size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    switch (tool) {
        case ToolKind::Pencil:
            // A pencil lying from the top right to its point at the bottom left.
            painter.setPen(QPen(Dark, 3, Qt::SolidLine, Qt::FlatCap));
            painter.drawLine(13, 2, 5, 10);
            painter.setPen(QPen(Mid, 1));
            painter.drawLine(5, 10, 2, 13);
            painter.drawLine(4, 9, 6, 11);
            break;
        case ToolKind::Brush:
            // A handle and a broad round tip with a stroke of paint beneath.
            painter.setPen(QPen(Mid, 2));
            painter.drawLine(13, 1, 8, 6);
            painter.setPen(Qt::NoPen);
            painter.setBrush(Dark);
            painter.drawEllipse(4, 6, 5, 5);
            painter.fillRect(1, 13, 12, 2, Dark);
            break;
        case ToolKind::Rectangle:
            // A filled block with a dark edge.
            painter.fillRect(2, 3, 12, 10, Light);
            painter.setPen(Dark);
            painter.drawRect(2, 3, 11, 9);
            break;
        case ToolKind::Fill:
            // A tipped bucket pouring onto the ground.
            painter.setPen(QPen(Dark, 1));
            painter.setBrush(Mid);
            painter.drawPolygon(
                QPolygon({QPoint(3, 4), QPoint(9, 1), QPoint(13, 7), QPoint(7, 10)}));
            painter.fillRect(12, 9, 2, 4, Dark);
            painter.fillRect(1, 13, 14, 2, Dark);
            break;
        case ToolKind::Select: {
            // A dashed outline.
            QPen dashes(Dark, 1, Qt::CustomDashLine);
            dashes.setDashPattern({2, 2});
            painter.setPen(dashes);
            painter.drawRect(1, 2, 13, 11);
            break;
        }
    }
    return QIcon(picture);
}
