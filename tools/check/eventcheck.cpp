#include "check/cells.h"
#include "check/checks.h"
#include "eventedit/eventlist.h"

namespace Check {

namespace {
// The two columns of Events.twy that a type's list takes: its position and
// its count.
bool SharesColumns(const EventTypeTableT& types, int a, int b) {
    const int first = types[a][TypeListColumn].ToInt32();
    const int other = types[b][TypeListColumn].ToInt32();
    return first <= other + 1 && other <= first + 1;
}

bool Layout(const SharedFiles& files, int type, EventLayout& layout) {
    QString error;
    return ReadEventLayout(files.EventTypes, type, layout, error);
}
}  // namespace

std::vector<int> ListedTypes(const SharedFiles& files) {
    std::vector<int> listed;
    if (!files.EventTypesRead) return listed;
    for (int t = 0; t <= files.LastEventType; ++t) {
        EventLayout layout;
        if (!Layout(files, t, layout)) continue;
        bool shared = false;
        for (const int earlier : listed)
            shared = shared || SharesColumns(files.EventTypes, earlier, t);
        if (!shared) listed.push_back(t);
    }
    return listed;
}

void CheckEventTypes(const SharedFiles& files, std::vector<Finding>& out) {
    std::vector<int> sound;
    for (int t = 0; t <= files.LastEventType; ++t) {
        const std::vector<EventLayoutFault> faults = EventLayoutFaults(files.EventTypes, t);
        for (const EventLayoutFault& fault : faults)
            out.push_back(Found(TypeCell(files, t, fault.Column),
                                QStringLiteral("The type ") + fault.What + QStringLiteral(".")));
        if (!faults.empty()) continue;
        for (const int earlier : sound) {
            if (!SharesColumns(files.EventTypes, earlier, t)) continue;
            const int column = files.EventTypes[t][TypeListColumn].ToInt32();
            const int other = files.EventTypes[earlier][TypeListColumn].ToInt32();
            out.push_back(Found(
                TypeCell(files, t, TypeListColumn),
                QStringLiteral("The type's list takes columns %1 and %2 of Events.twy, and the "
                               "type \"%3\" (row %4) takes columns %5 and %6: the editor would "
                               "read one column as a position for one type and as a count for "
                               "the other, or one list for both.")
                    .arg(column)
                    .arg(column + 1)
                    .arg(files.EventTypes[earlier][TypeName].ToText())
                    .arg(earlier)
                    .arg(other)
                    .arg(other + 1)));
            break;
        }
        sound.push_back(t);
    }
}

// Calls `visit` for each map whose events the editor reaches and each listed
// type, with the type's layout and name and whether its list was found.
template <typename Visit>
void ForEachEventList(const SharedFiles& files, Visit visit) {
    const std::vector<int> types = ListedTypes(files);
    for (const int map : MapRowsInUse(files)) {
        if (!EventsEditable(files.Maps[map])) continue;
        for (const int type : types) {
            EventLayout layout;
            Layout(files, type, layout);
            const QString typeName = files.EventTypes[type][TypeName].ToText();
            EventListPlace place;
            QString error;
            const bool found =
                FindEventList(files.EventLists, map, files.Maps[map][MapName].ToText(), typeName,
                              layout, place, error);
            visit(map, layout, typeName, found, place);
        }
    }
}

void CheckEventCounts(const SharedFiles& files, std::vector<Finding>& out) {
    ForEachEventList(files, [&](int map, const EventLayout& layout, const QString& typeName,
                                bool found, const EventListPlace& place) {
        const Finding cell = ListCell(files, map, layout.ListColumn + 1);
        if (!found)
            out.push_back(
                Found(cell, QStringLiteral("The map has %1 \"%2\" events, which "
                                           "cannot be: the event editor would not "
                                           "open on them.")
                                .arg(EventListCount(files.EventLists, map, layout.ListColumn))
                                .arg(typeName)));
        else if (place.Given > Limits::MaxEvents)
            out.push_back(Found(cell, QStringLiteral("The map has %1 \"%2\" events, but the "
                                                     "event editor holds %3: it would show "
                                                     "and save only the first %3.")
                                          .arg(place.Given)
                                          .arg(typeName)
                                          .arg(Limits::MaxEvents)));
    });
}

void CheckEventAreas(const SharedFiles& files, AreaMap& areas, std::vector<Finding>& out) {
    ForEachEventList(files, [&](int map, const EventLayout& layout, const QString& typeName,
                                bool found, const EventListPlace& place) {
        if (!found) return;
        PlacedArea list;
        list.Area = place.List;
        list.Cell = ListCell(files, map, layout.ListColumn);
        list.What = QStringLiteral("the \"%1\" list").arg(typeName);
        list.Whose = list.What + QStringLiteral(" of ") + MapLabel(files, map);
        areas.Place(list, out);
    });
}

}  // namespace Check
