#include "demo/demoevents.h"

#include <QtGlobal>
#include <algorithm>

namespace Fixture {

const std::vector<EventType>& DemoEventTypes() {
    static const std::vector<EventType> types = [] {
        std::vector<EventType> list(DemoEventTypeCount);
        // People who walk about: picture, y, x, two movement bytes, a text.
        // Their coordinates are stored four squares further on.
        EventType& villagers = list[Villagers];
        villagers.Field0 = "EV0";
        villagers.Name = "Villagers";
        villagers.ListColumn = 1;
        villagers.RecordSize = 6;
        villagers.Bias1 = 4;
        villagers.Bias2 = 4;
        villagers.PictureField = 1;
        villagers.YField = 2;
        villagers.XField = 3;
        villagers.Move1Field = 4;
        villagers.Move2Field = 5;
        villagers.TextField = 6;
        // Signposts: only a place and a text.
        EventType& signs = list[Signposts];
        signs.Field0 = "EV1";
        signs.Name = "Signposts";
        signs.ListColumn = 3;
        signs.RecordSize = 3;
        signs.YField = 1;
        signs.XField = 2;
        signs.TextField = 3;
        // Challengers: villagers who fight, with a trainer class and a team.
        EventType& challengers = list[Challengers];
        challengers.Field0 = "EV2";
        challengers.Name = "Challengers";
        challengers.ListColumn = 5;
        challengers.RecordSize = 8;
        challengers.Bias1 = 4;
        challengers.Bias2 = 4;
        challengers.PictureField = 1;
        challengers.YField = 2;
        challengers.XField = 3;
        challengers.Move1Field = 4;
        challengers.Move2Field = 5;
        challengers.TextField = 6;
        challengers.TrainerField = 7;
        challengers.MorlField = 8;
        // Hidden treasures: a place, an item and a text; the fifth byte is a
        // flag that the editor carries along without showing.
        EventType& treasures = list[Treasures];
        treasures.Field0 = "EV3";
        treasures.Name = "Hidden Treasures";
        treasures.ListColumn = 7;
        treasures.RecordSize = 5;
        treasures.YField = 1;
        treasures.XField = 2;
        treasures.ItemField = 3;
        treasures.TextField = 4;
        return list;
    }();
    return types;
}

const std::vector<MorlickSpecies>& DemoSpecies() {
    static const std::vector<MorlickSpecies> species = [] {
        const std::vector<std::pair<int, const char*>> named = {
            {0x01, "Pebblit"},  {0x04, "Fernox"},    {0x07, "Glimmow"},  {0x0A, "Sootling"},
            {0x0D, "Brindlet"}, {0x10, "Mossquill"}, {0x15, "Tarnhop"},  {0x1A, "Duskrat"},
            {0x1E, "Wiskle"},   {0x21, "Cobbleon"},  {0x24, "Reedlet"},  {0x2B, "Quillmare"},
            {0x30, "Bramblow"}, {0x33, "Flintwing"}, {0x3C, "Murkel"},   {0x42, "Thistlet"},
            {0x48, "Emberkit"}, {0x4F, "Drizzard"},  {0x55, "Gloomoth"}, {0x5A, "Sprigget"},
            {0x63, "Knobbel"},  {0x6E, "Rustlefin"}, {0x7A, "Hollowl"},  {0x85, "Clinkard"},
            {0x90, "Vesperal"}, {0x9C, "Crestide"},  {0xA5, "Lumbrin"},  {0xB3, "Ashfang"},
            {0xC8, "Zephlet"},  {0xE0, "Orrowisp"},
        };
        std::vector<const char*> sorted;
        for (const auto& [code, name] : named)
            sorted.push_back(name);
        std::sort(sorted.begin(), sorted.end(),
                  [](const char* a, const char* b) { return QString(a) < QString(b); });
        std::vector<MorlickSpecies> list;
        for (const auto& [code, name] : named) {
            const auto place = std::find(sorted.begin(), sorted.end(), name) - sorted.begin();
            list.push_back({code, QString(name), static_cast<int>(place) + 1});
        }
        return list;
    }();
    return species;
}

int SpeciesCode(const char* name) {
    for (const MorlickSpecies& one : DemoSpecies())
        if (one.Name == QLatin1String(name)) return one.Code;
    qFatal("No species named %s", name);
}

}  // namespace Fixture
