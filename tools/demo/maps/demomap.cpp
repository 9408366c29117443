#include "demo/maps/demomap.h"

#include "fixture/eventrecord.h"

namespace Fixture {

void DemoMap::AddWarp(Square at, int targetMap, int targetPoint) {
    Warps.push_back({at.Y, at.X, targetPoint, targetMap});
}

void DemoMap::AddWideWarp(Square left, int targetMap, int targetPoint) {
    AddWarp(left, targetMap, targetPoint);
    AddWarp({left.X + 1, left.Y}, targetMap, targetPoint);
}

int DemoMap::AddWarpTo(Square at) {
    WarpTo.push_back(at);
    return static_cast<int>(WarpTo.size()) - 1;
}

QByteArray DemoMap::Record(DemoEventType type, Square at) const {
    return EventRecord(DemoEventTypes()[static_cast<size_t>(type)], at.X - Info.XShift,
                       at.Y - Info.YShift);
}

void DemoMap::AddVillager(Square at, int picture, int move1, int move2, int text) {
    const EventType& type = DemoEventTypes()[Villagers];
    QByteArray record = Record(Villagers, at);
    SetEventField(record, type.PictureField, picture);
    SetEventField(record, type.Move1Field, move1);
    SetEventField(record, type.Move2Field, move2);
    SetEventField(record, type.TextField, text);
    Events[Villagers].push_back(record);
    HasEventRecord = true;
}

void DemoMap::AddSignpost(Square at, int text) {
    QByteArray record = Record(Signposts, at);
    SetEventField(record, DemoEventTypes()[Signposts].TextField, text);
    Events[Signposts].push_back(record);
    HasEventRecord = true;
}

void DemoMap::AddChallenger(Square at, int picture, int move1, int text, int trainer, int team) {
    const EventType& type = DemoEventTypes()[Challengers];
    QByteArray record = Record(Challengers, at);
    SetEventField(record, type.PictureField, picture);
    SetEventField(record, type.Move1Field, move1);
    SetEventField(record, type.Move2Field, 0xFF);
    SetEventField(record, type.TextField, text);
    SetEventField(record, type.TrainerField, trainer);
    SetEventField(record, type.MorlField, team);
    Events[Challengers].push_back(record);
    HasEventRecord = true;
}

void DemoMap::AddTreasure(Square at, int item, int text, int flag) {
    const EventType& type = DemoEventTypes()[Treasures];
    QByteArray record = Record(Treasures, at);
    SetEventField(record, type.ItemField, item);
    SetEventField(record, type.TextField, text);
    SetEventField(record, 5, flag);
    Events[Treasures].push_back(record);
    HasEventRecord = true;
}

EncounterList DemoMap::Encounters(const std::vector<std::pair<int, const char*>>& pairs) {
    EncounterList list{};
    for (size_t i = 0; i < list.size() && i < pairs.size(); ++i)
        list[i] = {pairs[i].first, SpeciesCode(pairs[i].second)};
    return list;
}

}  // namespace Fixture
