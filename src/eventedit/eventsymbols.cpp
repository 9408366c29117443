#include "eventedit/eventsymbols.h"

#include "ui/symbol.h"

namespace {
const QColor Black(0, 0, 0);
const QColor OrangeRed(255, 48, 0);
}  // namespace

QPixmap EventSymbolPicture(bool selected) {
    return SymbolPicture(QStringLiteral("Event"), QString(), selected ? OrangeRed : Black);
}
