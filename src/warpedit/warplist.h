#pragma once

#include <QPoint>
#include <QString>
#include <array>
#include <cstdint>

#include "core/limits.h"
#include "core/tables.h"
#include "rom/romarea.h"
#include "rom/romfile.h"

// The two lists the warp editor edits. A warp is y, x, target point, target
// map; a warp-to point is the two bytes of its Event Placement, low first,
// then y and x. One byte a field, four a record, no gap.
enum class WarpMode { Warps, WarpTo };

// One record, fields 1 to 4 at [0] to [3], as the ROM holds them.
using WarpRecord = std::array<std::int32_t, 4>;
// Rows 0 to 16: the editor holds at most 16 entries, and one row more.
using WarpTable = std::array<WarpRecord, Limits::MaxWarps + 1>;

// Bytes of an entry of either list.
inline constexpr int WarpRecordBytes = 4;

// Where a map's list lies and how long it is.
struct WarpListPlace {
    std::int32_t Start = 0;
    // The entries the editor takes: the list's count, held to 0 to 16.
    int Count = 0;
    // The count as the ROM's count byte or the Maps file gives it.
    int Given = 0;
    // Set when the list holds more entries than the editor can: it then holds
    // the first ones, and this says so for the user.
    QString Notice;

    // The bytes the editor reads and its save writes.
    RomArea List() const { return {Start, WarpRecordBytes * Count}; }
};

// The fields of the coordinates in a record of each list.
inline int XField(WarpMode mode) {
    return mode == WarpMode::Warps ? 1 : 3;
}
inline int YField(WarpMode mode) {
    return mode == WarpMode::Warps ? 0 : 2;
}
// The half-block square of a record, from its x and y fields.
inline QPoint WarpSquare(const WarpRecord& record, WarpMode mode) {
    return QPoint(record[XField(mode)], record[YField(mode)]);
}
// Adds (sign +1) or takes off (sign -1) the offsets of map row `map` on the
// coordinates of the first `count` records. The editor and the map pictures
// work on the sums; the ROM holds the coordinates without them.
void ShiftWarpList(WarpTable& rows, int count, WarpMode mode, int map, int sign);
// A field's name for messages, from 0.
QString WarpFieldName(WarpMode mode, int field);

// The warp list's count byte: the byte after the border byte.
RomArea WarpCountArea(const MapRowT& map);

// Finds the list of a map's row: where it starts, the count that the ROM or
// the row gives, and how many entries the editor takes of it. False when the
// warp list's count byte lies outside the ROM, so that there is no count.
bool FindWarpList(RomFile& rom, const MapRowT& map, WarpMode mode, WarpListPlace& place);

// Finds the list of a map row in the ROM file, read into memory, and reads its records into `rows`
// (rows from the count on stay as they were). The warp list's count is the
// byte after the border byte; the warp-to list's count lives only in the
// Maps file. False, with a message, when the list does not lie wholly
// inside the ROM; `rows` is then untouched.
bool ReadWarpList(RomFile& rom, int map, WarpMode mode, WarpTable& rows, WarpListPlace& place,
                  QString& error);

// Records `count` records for writing from `start` on, four bytes each.
void WriteWarpList(RomFile& rom, std::int32_t start, const WarpTable& rows, int count);

// The Event Placement of a block, from its 0-based column and row, the map's
// width in blocks and its placement fix: 50927 + W + c + r x (W + 6) + E,
// as a low and a high byte that may run past 255 when the sum is large.
void EventPlacement(int mapCols, int column, int row, int fix, std::int32_t& low,
                    std::int32_t& high);
