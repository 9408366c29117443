#pragma once

#include <QPixmap>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <vector>

#include "core/eventtables.h"
#include "render/mappicture.h"
#include "rom/romfile.h"

// What marking a map's lists needs beyond the ROM: the two event files and
// the pictures of the editors' symbols, unselected.
struct MarkSources {
    EventTypeTableT EventTypes{};
    std::int16_t LastEventType = -1;
    EventAddressTableT EventLists{};
    // The layout of each type from row 0 on; none for a type whose row breaks
    // the limits of the event editor.
    std::vector<std::optional<EventLayout>> Layouts;
    QPixmap Warp;
    QPixmap WarpTo;
    QPixmap Event;

    // Reads EventTypes.twy and Events.twy from the program's folder and makes
    // the pictures. False, with a message, when a file cannot be read. A type
    // whose row cannot be used gets a message in `problems`, and its events
    // are not marked.
    bool Load(const QString& folder, QString& error, QStringList& problems);
};

// The marks of map row `map` that the editors show for it: its warp-to points
// and its warps when the map offers the warp editor, and the events of every
// type when it offers the event editor, each at its square with the map's
// offsets on, as the editors place them. A list that cannot be read is left
// out with a message in `problems`; a list longer than the editor holds is
// marked as far as the editor shows it, with a word in `notes`.
std::vector<MapMark> ReadMapMarks(RomFile& rom, int map, const MarkSources& sources,
                                  QStringList& problems, QStringList& notes);
