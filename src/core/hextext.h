#pragma once

#include <QString>

// A byte as the ROM holds it, in upper-case hexadecimal with at least two
// digits: 10 gives "0A", 255 gives "FF".
inline QString HexText(int value) {
    return QString::number(value, 16).toUpper().rightJustified(2, u'0');
}
