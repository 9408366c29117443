#include "eventedit/eventlist.h"

#include <QFileInfo>

#include "core/defines.h"

int EventListCount(const EventAddressTableT& addresses, int map, int listColumn) {
    return addresses[map][listColumn + 1].ToInt32();
}

bool ReadEventList(RomFile& rom, int map, const QString& typeName, const EventLayout& layout,
                   const EventAddressTableT& addresses, EventTable& rows, EventListPlace& place,
                   QString& error) {
    const QString mapName = Defines.MapTable[map][MapName].ToText();
    EventListPlace found;
    found.Start = addresses[map][layout.ListColumn].ToInt32();
    int count = EventListCount(addresses, map, layout.ListColumn);
    if (count < 0) {
        error = QStringLiteral(
                    "Events.twy gives map \"%1\" %2 events of type \"%3\", which "
                    "cannot be.")
                    .arg(mapName)
                    .arg(count)
                    .arg(typeName);
        return false;
    }
    if (count > Limits::MaxEvents) {
        found.Notice = QStringLiteral(
                           "Map \"%1\" has %2 events of type \"%3\", but the editor holds %4. It "
                           "shows the first %4; the others stay in the ROM as they are.")
                           .arg(mapName)
                           .arg(count)
                           .arg(typeName)
                           .arg(Limits::MaxEvents);
        count = Limits::MaxEvents;
    }
    const int bytes = count * layout.RecordSize;
    if (count > 0 && !rom.Contains(found.Start, bytes)) {
        error = QStringLiteral(
                    "The events of type \"%1\" on map \"%2\" (%3 bytes from position %4) do not "
                    "lie inside the ROM file \"%5\", which has %6 bytes.\n\nThe data files do "
                    "not fit this ROM.")
                    .arg(typeName, mapName)
                    .arg(bytes)
                    .arg(found.Start)
                    .arg(QFileInfo(rom.Path()).fileName())
                    .arg(rom.Size());
        return false;
    }
    std::int32_t p = found.Start;
    for (int i = 0; i < count; ++i)
        for (int k = 0; k < layout.RecordSize; ++k)
            rows[i][k] = rom.ReadByte(p++);
    found.Count = count;
    place = found;
    return true;
}

void WriteEventList(RomFile& rom, std::int32_t start, const EventTable& rows, int count, int size) {
    std::int32_t p = start;
    for (int i = 0; i < count; ++i)
        for (int k = 0; k < size; ++k)
            rom.RomWriteByte(p++, static_cast<std::uint8_t>(rows[i][k]));
}
