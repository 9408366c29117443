#include "render/mapmarks.h"

#include "core/datafilenames.h"
#include "core/defines.h"
#include "eventedit/eventlist.h"
#include "eventedit/eventsymbols.h"
#include "warpedit/warplist.h"
#include "warpedit/warpsymbols.h"

bool MarkSources::Load(const QString& folder, QString& error, QStringList& problems) {
    if (!LoadEventTypesFile(folder + u'/' + DataFileNames::EventTypes, EventTypes, LastEventType,
                            error) ||
        !LoadEventsFile(folder + u'/' + DataFileNames::Events, EventLists, error))
        return false;
    Layouts.clear();
    for (int type = 0; type <= LastEventType; ++type) {
        EventLayout layout;
        QString problem;
        if (ReadEventLayout(EventTypes, type, layout, problem)) {
            Layouts.push_back(layout);
        } else {
            Layouts.push_back(std::nullopt);
            problems << problem;
        }
    }
    Warp = WarpSymbolPicture(WarpMode::Warps, false);
    WarpTo = WarpSymbolPicture(WarpMode::WarpTo, false);
    Event = EventSymbolPicture(false);
    return true;
}

namespace {
void AddWarpList(RomFile& rom, int map, WarpMode mode, const QPixmap* picture,
                 std::vector<MapMark>& marks, QStringList& problems, QStringList& notes) {
    WarpTable rows{};
    WarpListPlace place;
    QString error;
    if (!ReadWarpList(rom, map, mode, rows, place, error)) {
        problems << error;
        return;
    }
    if (!place.Notice.isEmpty()) notes << place.Notice;
    ShiftWarpList(rows, place.Count, mode, map, +1);
    for (int i = 0; i < place.Count; ++i)
        marks.push_back({WarpSquare(rows[i], mode), picture});
}

void AddEventLists(RomFile& rom, int map, const MarkSources& sources, std::vector<MapMark>& marks,
                   QStringList& problems, QStringList& notes) {
    for (int type = 0; type < static_cast<int>(sources.Layouts.size()); ++type) {
        if (!sources.Layouts[type]) continue;
        const EventLayout& layout = *sources.Layouts[type];
        QString error;
        // A map that lists no events of a type has nothing of it to read.
        if (EventListCount(sources.EventLists, map, layout.ListColumn) == 0) continue;
        EventTable rows{};
        EventListPlace place;
        if (!ReadEventList(rom, map, sources.EventTypes[type][TypeName].ToText(), layout,
                           sources.EventLists, rows, place, error)) {
            problems << error;
            continue;
        }
        if (!place.Notice.isEmpty()) notes << place.Notice;
        ShiftEventList(rows, place.Count, layout, map, +1);
        for (int i = 0; i < place.Count; ++i)
            marks.push_back({EventSquare(rows[i], layout), &sources.Event});
    }
}
}  // namespace

std::vector<MapMark> ReadMapMarks(RomFile& rom, int map, const MarkSources& sources,
                                  QStringList& problems, QStringList& notes) {
    std::vector<MapMark> marks;
    const auto& row = Defines.MapTable[map];
    // The lists that the editors reach for the map, by the same tests.
    if (WarpToEditable(row))
        AddWarpList(rom, map, WarpMode::WarpTo, &sources.WarpTo, marks, problems, notes);
    if (WarpsEditable(row))
        AddWarpList(rom, map, WarpMode::Warps, &sources.Warp, marks, problems, notes);
    if (EventsEditable(row)) AddEventLists(rom, map, sources, marks, problems, notes);
    return marks;
}
