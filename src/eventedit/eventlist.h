#pragma once

#include <QPoint>
#include <QString>
#include <array>
#include <cstdint>

#include "core/eventtables.h"
#include "core/limits.h"
#include "rom/romarea.h"
#include "rom/romfile.h"

// One record of an event list, byte k of the record at [k - 1].
using EventRecord = std::array<std::int32_t, MaxRecordSize>;
// Rows 0 to 32: the editor holds at most 32 records, and one row more.
using EventTable = std::array<EventRecord, Limits::MaxEvents + 1>;

// Where a map's list of a type lies and how long it is.
struct EventListPlace {
    std::int32_t Start = 0;
    // The records the editor takes: the list's count, up to 32.
    int Count = 0;
    // The count as Events.twy gives it.
    int Given = 0;
    // The bytes the editor reads and its save writes: Count records.
    RomArea List;
    // Set when the list holds more records than the editor can: it then holds
    // the first ones, and this says so for the user.
    QString Notice;
};

// Finds the list of a type on a map from its position and count in
// Events.twy. False, with a message naming the type and the map, when the
// count is below 0.
bool FindEventList(const EventAddressTableT& addresses, int map, const QString& mapName,
                   const QString& typeName, const EventLayout& layout, EventListPlace& place,
                   QString& error);

// The list of a type on a map: its position and count from Events.twy,
// records of the type's size from the ROM into `rows`, fields 1 to the size
// (other fields and rows from the count on stay as they were). False, with a
// message naming the type and the map, when the list does not lie wholly
// inside the ROM; `rows` is then untouched.
bool ReadEventList(RomFile& rom, int map, const QString& typeName, const EventLayout& layout,
                   const EventAddressTableT& addresses, EventTable& rows, EventListPlace& place,
                   QString& error);

// Adds (sign +1) or takes off (sign -1) the offsets of map row `map` on the x
// and y fields of the first `count` records. The editor and the map pictures
// work on the sums; the ROM holds the coordinates without them.
void ShiftEventList(EventTable& rows, int count, const EventLayout& layout, int map, int sign);

// The half-block square of a record whose coordinates carry the map's
// offsets: its x and y fields with the type's biases taken off. The biases
// pair with the axes in the order of their columns: the first with y, the
// second with x.
QPoint EventSquare(const EventRecord& record, const EventLayout& layout);

// The number of records Events.twy gives a type's list on a map.
int EventListCount(const EventAddressTableT& addresses, int map, int listColumn);

// Records `count` records of `size` bytes for writing from `start` on.
void WriteEventList(RomFile& rom, std::int32_t start, const EventTable& rows, int count, int size);
