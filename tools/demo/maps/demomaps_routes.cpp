#include "demo/maps/demolegends.h"
#include "demo/maps/demomap.h"

namespace Fixture::DemoMaps {

namespace {
using namespace DemoRows;

DemoMap FernwayMap() {
    DemoMap map;
    map.Row = DemoRows::Fernway;
    map.Info.Name = "Fernway Path";
    map.Info.Note = "Between Fernhollow and Brackwater, mind the ledges";
    map.Info.Field4 = "Theme 4";
    map.Info.Field6 = "N S";
    map.Grid = DemoLegends::Overworld().Draw({
        "TTTTT..TTT",
        "T1WW...WgT",
        "TWWW...WWT",
        "Tggg...ggT",
        "Tg.....ggT",
        "TlLLr..s.T",
        "Tggg...ggT",
        "TWWWg..TTT",
        "TWWWg..TTT",
        "Tggg...ggT",
        "TTT....WWT",
        "TTTg...WWT",
        "Tggg..lLrT",
        "TbWW...ggT",
        "TbWW....gT",
        "Tgggg..ggT",
        "TTTTg.2TTT",
        "TTTT..TTTT",
    });
    map.Border = DemoBlocks().Set(DemoTilesets::Overworld).Number("trees");
    map.HasWarpTo = false;
    map.HasWild = true;
    map.WildRed = DemoMap::Encounters({{3, "Pebblit"},
                                       {3, "Fernox"},
                                       {4, "Pebblit"},
                                       {4, "Tarnhop"},
                                       {2, "Wiskle"},
                                       {5, "Fernox"},
                                       {3, "Duskrat"},
                                       {5, "Tarnhop"},
                                       {6, "Glimmow"},
                                       {7, "Glimmow"}});
    map.WildBlue = DemoMap::Encounters({{3, "Pebblit"},
                                        {3, "Reedlet"},
                                        {4, "Pebblit"},
                                        {4, "Tarnhop"},
                                        {2, "Wiskle"},
                                        {5, "Reedlet"},
                                        {3, "Duskrat"},
                                        {5, "Tarnhop"},
                                        {6, "Sootling"},
                                        {7, "Sootling"}});
    map.AddSignpost({14, 10}, 1);
    map.AddChallenger({11, 13}, 12, 0x03, 2, 0x01, 0x01);
    map.AddChallenger({5, 18}, 13, 0x02, 3, 0x02, 0x04);
    map.AddTreasure({2, 27}, 0x0B, 4, 0x00);
    return map;
}

DemoMap EastmarchMap() {
    DemoMap map;
    map.Row = DemoRows::Eastmarch;
    map.Info.Name = "Eastmarch Road";
    map.Info.Note = "East of Brackwater, to the mouth of Gloomrock Cave";
    map.Info.Field4 = "Theme 4";
    map.Info.Field6 = "W";
    map.Grid = DemoLegends::Overworld().Draw({
        "TTTTTTTTTTTTTTTTTTTTTTTT",
        "TTgWWWWgTTTTTggWWWWTTTCT",
        "..gWWWWg.....sggWWWW...T",
        "..........ooo.........gT",
        "lLLLLLr...............WT",
        "gggWWWg...TTTT..WWWWggWT",
        "gWWWWWg...TTTT..WWWWgggT",
        "ggggggg.............gggT",
        "TTTTTTTTTTTTTTTTTTTTTTTT",
    });
    map.Border = DemoBlocks().Set(DemoTilesets::Overworld).Number("trees");
    const Square cave = TileSquare(22, 1, 1, 1);
    map.AddWideWarp(cave, GloomrockUpper, 0);
    map.AddWarpTo({cave.X, cave.Y + 1});
    map.HasWild = true;
    map.WildRed = DemoMap::Encounters({{6, "Tarnhop"},
                                       {6, "Brindlet"},
                                       {7, "Wiskle"},
                                       {7, "Brindlet"},
                                       {8, "Mossquill"},
                                       {6, "Duskrat"},
                                       {8, "Tarnhop"},
                                       {9, "Mossquill"},
                                       {9, "Cobbleon"},
                                       {10, "Thistlet"}});
    map.WildBlue = DemoMap::Encounters({{6, "Tarnhop"},
                                        {6, "Brindlet"},
                                        {7, "Wiskle"},
                                        {7, "Brindlet"},
                                        {8, "Sprigget"},
                                        {6, "Duskrat"},
                                        {8, "Tarnhop"},
                                        {9, "Sprigget"},
                                        {9, "Cobbleon"},
                                        {10, "Emberkit"}});
    map.AddSignpost({26, 4}, 1);
    map.AddChallenger({18, 6}, 14, 0x02, 2, 0x03, 0x07);
    map.AddChallenger({30, 14}, 12, 0x03, 3, 0x01, 0x02);
    map.AddChallenger({40, 9}, 15, 0x01, 4, 0x04, 0x09);
    map.AddTreasure({24, 7}, 0x21, 5, 0x01);
    return map;
}

DemoMap MirrorLakeMap() {
    DemoMap map;
    map.Row = DemoRows::MirrorLake;
    map.Info.Name = "Mirror Lake";
    map.Info.Note = "A still lake north of Brackwater, crossed by the long bridge";
    map.Info.Field4 = "Theme 5";
    map.Info.Field6 = "N S";
    map.Info.PlacementFix = 2;
    map.Grid = DemoLegends::Overworld().Draw({
        "TTTTTTTT..TTTTTTTTTT",
        "TggWWWg....gWWWggggT",
        "TgWWWWg....gWWWWgTTT",
        "Tg~~~~~~~~~~~~~~~gTT",
        "Tg~~~*~~~~~~~~*~~ggT",
        "Tg~~~~~~~~~~~~~~~~gT",
        "T.================.T",
        "Tg~~~~~~~~~~~~~~~~gT",
        "Tg~~~~~~~~*~~~~~~ggT",
        "Tgg~~~~~~~~~~~~~ggTT",
        "TTgg~~~~~~~~~~~gggTT",
        "TTTgggg....ggggWWWTT",
        "TTWWWgg....gWWWWWWTT",
        "TTWWWgg....ggWWWWgTT",
        "TTTggbb....bbgggTTTT",
        "TTTTTTTT..TTTTTTTTTT",
    });
    map.Border = DemoBlocks().Set(DemoTilesets::Overworld).Number("trees");
    map.AddWarpTo({2, 12});
    map.AddWarpTo({36, 12});
    map.HasWild = true;
    map.WildRed = DemoMap::Encounters({{12, "Reedlet"},
                                       {12, "Drizzard"},
                                       {13, "Rustlefin"},
                                       {14, "Reedlet"},
                                       {13, "Murkel"},
                                       {15, "Drizzard"},
                                       {14, "Rustlefin"},
                                       {16, "Murkel"},
                                       {18, "Crestide"},
                                       {20, "Crestide"}});
    map.WildBlue = map.WildRed;
    map.WildBlue[8] = {18, SpeciesCode("Vesperal")};
    map.AddVillager({18, 12}, 6, 0xFE, 0x01, 1);
    map.AddChallenger({10, 12}, 16, 0x03, 2, 0x05, 0x0B);
    map.AddChallenger({26, 12}, 16, 0x02, 3, 0x05, 0x0C);
    map.AddSignpost({3, 2}, 4);
    return map;
}

DemoMap ThornwoodMap() {
    DemoMap map;
    map.Row = DemoRows::Thornwood;
    map.Tileset = DemoTilesets::Forest;
    map.Info.Name = "Thornwood";
    map.Info.Note = "Old forest; its warps are not to be moved";
    map.Info.Field4 = "Theme 6";
    map.Info.WarpsOk = false;
    map.Grid = DemoLegends::Forest().Draw({
        "CCCCCCC..CCCCCCC",
        "CCCCCCs..sCCCCCC",
        "CCCCCs....sssCCC",
        "Csss........gsCC",
        "s..gWWW..TT..WsC",
        "g..WWWW..TT..WWs",
        "gc..WW.....c..gg",
        "nnn.......gnnnnn",
        "CCCn..WW..nCCCCC",
        "CCCCn.WW.nCCCCCC",
        "CCCCC....CCCCCCC",
        "CCCCC....CCCCCCC",
    });
    map.Border = DemoBlocks().Set(DemoTilesets::Forest).Number("canopy");
    map.AddWarp({14, 0}, MirrorLake, 0);
    map.AddWarp({15, 0}, MirrorLake, 0);
    map.HasWarpTo = false;
    map.HasWild = true;
    map.WildRed = DemoMap::Encounters({{14, "Mossquill"},
                                       {14, "Bramblow"},
                                       {15, "Sprigget"},
                                       {15, "Gloomoth"},
                                       {16, "Bramblow"},
                                       {16, "Hollowl"},
                                       {17, "Gloomoth"},
                                       {17, "Knobbel"},
                                       {19, "Hollowl"},
                                       {21, "Lumbrin"}});
    map.WildBlue = map.WildRed;
    map.AddSignpost({16, 6}, 1);
    map.AddTreasure({3, 12}, 0x3C, 2, 0x00);
    return map;
}

DemoMap WildlandsMap() {
    DemoMap map;
    map.Row = DemoRows::Wildlands;
    map.Tileset = DemoTilesets::Wilds;
    map.Info.Name = "The Wildlands";
    map.Info.Note = "Untamed country, 255 by 255 blocks";
    map.Info.Field4 = "Theme 7";
    map.Info.EventsOk = false;
    map.Grid = DemoMaps::Wildlands();
    map.Border = 255;  // all sea
    map.AddWarp({2, 2}, Saltmere, 0);
    map.HasWarpTo = false;
    map.HasWild = true;
    map.WildRed = DemoMap::Encounters({{30, "Ashfang"},
                                       {31, "Flintwing"},
                                       {32, "Vesperal"},
                                       {33, "Clinkard"},
                                       {34, "Ashfang"},
                                       {35, "Zephlet"},
                                       {36, "Orrowisp"},
                                       {38, "Flintwing"},
                                       {40, "Zephlet"},
                                       {45, "Orrowisp"}});
    map.WildBlue = map.WildRed;
    return map;
}
}  // namespace

std::vector<DemoMap> Routes() {
    return {FernwayMap(), EastmarchMap(), MirrorLakeMap(), ThornwoodMap(), WildlandsMap()};
}

}  // namespace Fixture::DemoMaps
