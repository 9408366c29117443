#include "eventedit/eventlist.h"

#include <QFileInfo>

#include "core/defines.h"

int EventListCount(const EventAddressTableT& addresses, int map, int listColumn) {
    return addresses[map][listColumn + 1].ToInt32();
}

bool FindEventList(const EventAddressTableT& addresses, int map, const QString& mapName,
                   const QString& typeName, const EventLayout& layout, EventListPlace& place,
                   QString& error) {
    EventListPlace found;
    found.Start = addresses[map][layout.ListColumn].ToInt32();
    found.Given = EventListCount(addresses, map, layout.ListColumn);
    if (found.Given < 0) {
        error = QStringLiteral(
                    "Events.twy gives map \"%1\" %2 events of type \"%3\", which "
                    "cannot be.")
                    .arg(mapName)
                    .arg(found.Given)
                    .arg(typeName);
        return false;
    }
    found.Count = found.Given;
    if (found.Count > Limits::MaxEvents) {
        found.Notice = QStringLiteral(
                           "Map \"%1\" has %2 events of type \"%3\", but the editor holds %4. It "
                           "shows the first %4; the others stay in the ROM as they are.")
                           .arg(mapName)
                           .arg(found.Given)
                           .arg(typeName)
                           .arg(Limits::MaxEvents);
        found.Count = Limits::MaxEvents;
    }
    found.List = {found.Start, found.Count * layout.RecordSize};
    place = found;
    return true;
}

void ShiftEventList(EventTable& rows, int count, const EventLayout& layout, int map, int sign) {
    // An offset counts squares and is held to 16 bits like the program's other
    // counts, so that a byte with an offset and a bias on or off always fits a field.
    const int dx = sign * Defines.MapTable[map][MapXShift].ToInt16();
    const int dy = sign * Defines.MapTable[map][MapYShift].ToInt16();
    for (int i = 0; i < count; ++i) {
        rows[i][layout.XField - 1] += dx;
        rows[i][layout.YField - 1] += dy;
    }
}

QPoint EventSquare(const EventRecord& record, const EventLayout& layout) {
    return QPoint(record[layout.XField - 1] - layout.Bias2,
                  record[layout.YField - 1] - layout.Bias1);
}

bool ReadEventList(RomFile& rom, int map, const QString& typeName, const EventLayout& layout,
                   const EventAddressTableT& addresses, EventTable& rows, EventListPlace& place,
                   QString& error) {
    const QString mapName = Defines.MapTable[map][MapName].ToText();
    EventListPlace found;
    if (!FindEventList(addresses, map, mapName, typeName, layout, found, error)) return false;
    if (!found.List.IsEmpty() && !rom.Contains(found.List)) {
        error = QStringLiteral(
                    "The events of type \"%1\" on map \"%2\" (%3 bytes from position %4) do not "
                    "lie inside the ROM file \"%5\", which has %6 bytes.\n\nThe data files do "
                    "not fit this ROM.")
                    .arg(typeName, mapName)
                    .arg(found.List.Bytes)
                    .arg(found.Start)
                    .arg(QFileInfo(rom.Path()).fileName())
                    .arg(rom.Size());
        return false;
    }
    std::int32_t p = found.Start;
    for (int i = 0; i < found.Count; ++i)
        for (int k = 0; k < layout.RecordSize; ++k)
            rows[i][k] = rom.ReadByte(p++);
    place = found;
    return true;
}

void WriteEventList(RomFile& rom, std::int32_t start, const EventTable& rows, int count, int size) {
    std::int32_t p = start;
    for (int i = 0; i < count; ++i)
        for (int k = 0; k < size; ++k)
            rom.RomWriteByte(p++, static_cast<std::uint8_t>(rows[i][k]));
}
