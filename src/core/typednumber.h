#pragma once

#include <QString>
#include <cstdint>
#include <optional>

// The three ways the editors turn typed text into a number, side by side.
// All read plain decimal notation: an optional sign, digits with an optional
// fraction, and an optional exponent ("12", "-0.5", "1e2", ".5"). A number too
// large for a double ("1e999") is larger than every limit: a level is
// infinite, a warp target the largest 32-bit number, and an event field has
// no value.
namespace TypedNumber {

// A wild level: the whole trimmed text as a number, rounded down (12.9 gives
// 12, -0.5 gives -1). No value for anything else, the empty text included.
std::optional<double> Level(const QString& text);

// A warp target: the number the trimmed text begins with, rounded to the
// nearest whole number with a half going to the even neighbour ("2.5" gives
// 2, "3.5" gives 4, "12abc" gives 12); 0 when it begins with no number.
std::int32_t WarpTarget(const QString& text);

// An event field: the whole trimmed text as a number, rounded half to even,
// when that fits 32 signed bits. No value otherwise: the field keeps its value.
std::optional<std::int32_t> EventField(const QString& text);

}  // namespace TypedNumber
