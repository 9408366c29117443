#include "core/typednumber.h"

#include <QRegularExpression>
#include <cmath>
#include <limits>

namespace TypedNumber {
namespace {
const QString Decimal = QStringLiteral(R"([+-]?(?:\d+\.?\d*|\.\d+)(?:[eE][+-]?\d+)?)");

// The decimal number that the whole of `text` is, or that it begins with.
std::optional<double> Read(const QString& text, bool whole) {
    static const QRegularExpression wholeNumber(QRegularExpression::anchoredPattern(Decimal));
    static const QRegularExpression leadingNumber(QStringLiteral("^") + Decimal);
    const QRegularExpressionMatch match =
        (whole ? wholeNumber : leadingNumber).match(text.trimmed());
    if (!match.hasMatch()) return std::nullopt;
    // The text is a number by its form. One beyond what a double holds still
    // is one: "1e999" reads as infinity, larger than any limit the rules below
    // hold it to, and "1e-999" as 0.
    bool ok = false;
    const double value = match.captured(0).toDouble(&ok);
    if (!ok && !std::isinf(value)) return 0.0;
    return value;
}

bool FitsInt32(double v) {
    return v >= std::numeric_limits<std::int32_t>::min() &&
           v <= std::numeric_limits<std::int32_t>::max();
}
}  // namespace

std::optional<double> Level(const QString& text) {
    const std::optional<double> value = Read(text, true);
    if (!value) return std::nullopt;
    return std::floor(*value);
}

std::int32_t WarpTarget(const QString& text) {
    const std::optional<double> value = Read(text, false);
    if (!value) return 0;
    // nearbyint rounds a half to the even neighbour in the default rounding mode.
    const double rounded = std::nearbyint(*value);
    if (!FitsInt32(rounded))
        return rounded < 0 ? std::numeric_limits<std::int32_t>::min()
                           : std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(rounded);
}

std::optional<std::int32_t> EventField(const QString& text) {
    const std::optional<double> value = Read(text, true);
    if (!value) return std::nullopt;
    const double rounded = std::nearbyint(*value);
    if (!FitsInt32(rounded)) return std::nullopt;
    return static_cast<std::int32_t>(rounded);
}

}  // namespace TypedNumber
