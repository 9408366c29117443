#include "wildedit/wildlist.h"

#include <QFileInfo>

bool ReadWildList(const QString& romPath, std::int32_t position, WildList& list, QString& error) {
    RomFile rom;
    if (!rom.Open(romPath)) {
        error = rom.Error();
        return false;
    }
    return ReadWildList(rom, position, list, error);
}

bool ReadWildList(RomFile& rom, std::int32_t position, WildList& list, QString& error) {
    if (!rom.Contains(WildListArea(position))) {
        error = QStringLiteral(
                    "The wild Morlick list at position %1 does not lie inside the ROM file "
                    "\"%2\", which has %3 bytes.\n\nThe data files do not fit this ROM.")
                    .arg(position)
                    .arg(QFileInfo(rom.Path()).fileName())
                    .arg(rom.Size());
        return false;
    }
    std::int32_t p = position;
    for (WildSlot& slot : list) {
        slot.Level = rom.ReadByte(p++);
        slot.Species = rom.ReadByte(p++);
    }
    return true;
}

void WriteWildList(RomFile& rom, std::int32_t position, const WildList& list) {
    std::int32_t p = position;
    for (const WildSlot& slot : list) {
        rom.RomWriteByte(p++, static_cast<std::uint8_t>(slot.Level));
        rom.RomWriteByte(p++, static_cast<std::uint8_t>(slot.Species));
    }
}
