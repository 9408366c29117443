#include "demo/maps/demolegends.h"
#include "demo/maps/demomap.h"

namespace Fixture::DemoMaps {

namespace {
using namespace DemoRows;

MapRow Info(const char* name, const char* note) {
    MapRow row;
    row.Name = name;
    row.Note = note;
    return row;
}

DemoMap FernhollowMap() {
    DemoMap map;
    map.Row = DemoRows::Fernhollow;
    map.Info = Info("Fernhollow", "Home town, quiet and green");
    map.Info.Field4 = "Theme 1";
    map.Info.Field6 = "N";
    map.Grid = DemoLegends::Overworld().Draw({
        "TTTT..TTTT",
        "Tfgg..ggfT",
        "T.HH..JJ.T",
        "T.HH..JJ.T",
        "Tm..s...mT",
        "Tgg.KKK.gT",
        "T~~.KKK.gT",
        "T~~....ffT",
        "TTTTTTTTTT",
    });
    map.Border = DemoBlocks().Set(DemoTilesets::Overworld).Number("trees");
    const Square home = TileSquare(2, 2, 3, 6);
    const Square neighbour = TileSquare(6, 2, 4, 6);
    const Square lab = TileSquare(4, 5, 5, 6);
    map.AddWarp(home, HomeDown, 0);
    map.AddWarp(neighbour, NeighbourHouse, 0);
    map.AddWideWarp(lab, ResearchLab, 0);
    map.AddWarpTo(home);
    map.AddWarpTo(neighbour);
    map.AddWarpTo(lab);
    map.AddVillager({6, 9}, 3, 0xFE, 0x01, 1);
    map.AddVillager({13, 12}, 5, 0xFF, 0x00, 2);
    map.AddSignpost({8, 8}, 3);
    map.AddSignpost({3, 8}, 4);
    map.AddTreasure({17, 15}, 0x14, 5, 0x01);
    return map;
}

DemoMap BrackwaterMap() {
    DemoMap map;
    map.Row = DemoRows::Brackwater;
    map.Info = Info("Brackwater", "Lakeside town; the market opens at dawn, closes at dusk");
    map.Info.Field4 = "Theme 2";
    map.Info.Field6 = "N S";
    map.Info.PlacementFix = -1;
    map.Grid = DemoLegends::Overworld().Draw({
        "TTTTT..TTTTT",
        "Tgg......ggT",
        "T.PP..KKK..T",
        "T.PP..KKK..T",
        "T.........sT",
        "T.HH.....~~T",
        "T.HH...~~~~T",
        "Tff..PP~~~~T",
        "Tgg..PP..ffT",
        "TTTTT..TTTTT",
    });
    map.Border = DemoBlocks().Set(DemoTilesets::Overworld).Number("trees");
    const Square market = TileSquare(2, 2, 3, 6);
    const Square hall = TileSquare(6, 2, 5, 6);
    const Square centre = TileSquare(5, 7, 3, 6);
    map.AddWideWarp(market, Market, 0);
    map.AddWideWarp(hall, TownHall, 0);
    map.AddWideWarp(centre, RestwellInn, 0);
    map.AddWarpTo(market);
    map.AddWarpTo(hall);
    map.AddWarpTo(centre);
    map.AddVillager({9, 9}, 7, 0xFE, 0x02, 1);
    map.AddVillager({16, 3}, 8, 0xFF, 0x03, 2);
    map.AddVillager({4, 16}, 2, 0xFE, 0x00, 3);
    map.AddSignpost({20, 8}, 4);
    return map;
}

DemoMap SaltmereMap() {
    DemoMap map;
    map.Row = DemoRows::Saltmere;
    map.Tileset = DemoTilesets::Harbour;
    map.Info = Info("Saltmere", "Harbour at the end of the coast road");
    map.Info.Field4 = "Theme 3";
    map.Info.Field6 = "W";
    map.Grid = DemoLegends::Harbour().Draw({
        "MMMMMMMMMMMMMM",
        "PP::uui..::PPP",
        "P:..d...A..d:P",
        "P.S.ss..t.f.LP",
        "P.A.ss......dP",
        "==c=====B=n===",
        "~~~~p~~~~p~~~~",
        "~~~~p~b~~q~o~~",
        "~r~~q~~~~~~~~~",
        "~~~~~~~~~~~~~~",
    });
    map.Border = DemoBlocks().Set(DemoTilesets::Harbour).Number("sea");
    const Square tent = TileSquare(8, 3, 1, 1);
    map.AddWarp(tent, RestwellInn, 1);
    map.AddWarpTo(tent);
    map.AddVillager({10, 10}, 9, 0xFF, 0x01, 1);
    map.AddVillager({18, 13}, 4, 0xFE, 0x03, 2);
    map.AddSignpost({5, 6}, 3);
    map.AddTreasure({24, 5}, 0x2A, 4, 0x00);
    map.AddTreasure({9, 3}, 0x31, 5, 0x01);
    return map;
}
}  // namespace

std::vector<DemoMap> Towns() {
    return {FernhollowMap(), BrackwaterMap(), SaltmereMap()};
}

}  // namespace Fixture::DemoMaps
