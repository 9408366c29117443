#pragma once

#include <QString>
#include <array>
#include <cstdint>

#include "core/limits.h"
#include "rom/romarea.h"
#include "rom/romfile.h"

// One slot of a map's wild list: a level and a species code, a byte each.
struct WildSlot {
    std::int16_t Level = 0;
    std::int16_t Species = 0;
};
using WildList = std::array<WildSlot, Limits::WildSlots>;

// Bytes of a wild list in the ROM: ten pairs of level and species, no gap.
inline constexpr int WildListBytes = 2 * Limits::WildSlots;

// The bytes of the list at a 1-based position.
inline RomArea WildListArea(std::int32_t position) {
    return {position, WildListBytes};
}

// Reads the list at a 1-based position of the ROM file. False, with a
// message for the user, when the ROM cannot be read or the list does not
// lie wholly inside it; the list is then left as it was.
bool ReadWildList(const QString& romPath, std::int32_t position, WildList& list, QString& error);
// The same from a ROM file already read.
bool ReadWildList(RomFile& rom, std::int32_t position, WildList& list, QString& error);

// Records the list's 20 bytes for writing, slot 0 first, level before species.
void WriteWildList(RomFile& rom, std::int32_t position, const WildList& list);
