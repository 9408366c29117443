#include "warpedit/warpsymbols.h"

#include "ui/symbol.h"

namespace {
const QColor Black(0, 0, 0);
const QColor Red(255, 0, 0);
}  // namespace

QPixmap WarpSymbolPicture(WarpMode mode, bool selected) {
    return SymbolPicture(QStringLiteral("Warp"),
                         mode == WarpMode::WarpTo ? QStringLiteral("To") : QString(),
                         selected ? Red : Black);
}
