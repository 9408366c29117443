#pragma once

#include <QtGlobal>
#include <algorithm>
#include <cstdint>
#include <limits>

// A run of bytes of the ROM that a reader reads and a saver writes: `Bytes`
// bytes from the 1-based position `Start` on.
struct RomArea {
    std::int32_t Start = 0;
    std::int32_t Bytes = 0;

    // The position just behind the area, in 64 bits so that no sum overflows.
    qint64 End() const { return static_cast<qint64>(Start) + Bytes; }
    bool IsEmpty() const { return Bytes <= 0; }
    // True when the two areas have a byte in common.
    bool Overlaps(const RomArea& other) const {
        return !IsEmpty() && !other.IsEmpty() && Start < other.End() && other.Start < End();
    }
};

// The position `bytes` bytes after `position`, held to the highest position
// there can be, so that a far-off position from a data file cannot overflow.
inline std::int32_t PositionAfter(std::int32_t position, qint64 bytes) {
    return static_cast<std::int32_t>(std::min<qint64>(static_cast<qint64>(position) + bytes,
                                                      std::numeric_limits<std::int32_t>::max()));
}
