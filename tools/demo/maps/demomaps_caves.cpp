#include "demo/maps/demolegends.h"
#include "demo/maps/demomap.h"

namespace Fixture::DemoMaps {

namespace {
using namespace DemoRows;

DemoMap GloomrockUpperMap() {
    DemoMap map;
    map.Row = DemoRows::GloomrockUpper;
    map.Tileset = DemoTilesets::Cavern;
    map.Info.Name = "Gloomrock Cave 1F";
    map.Info.Note = "Damp halls under the eastern hills";
    map.Info.Field4 = "Theme 8";
    map.Grid = DemoLegends::Cavern().Draw({
        "####################",
        "##...m####....c..###",
        "#.....##...x.....###",
        "#..##.##.....###..##",
        "#..##....~~..###...#",
        "#......,.~~.....b..#",
        "###...........##...#",
        "###..<-->.....##..##",
        "#.........q.....D..#",
        "#.S..k..###........#",
        "#.......###..##.m..#",
        "##..........o##....#",
        "##..w....x.....c..##",
        "####..........######",
        "######..E...########",
        "####################",
    });
    map.Border = DemoBlocks().Set(DemoTilesets::Cavern).Number("rock");
    const Square exit = TileSquare(8, 14, 1, 3);
    const Square down = TileSquare(16, 8, 1, 1);
    map.AddWideWarp(exit, Eastmarch, 0);
    map.AddWarp(down, GloomrockLower, 0);
    map.AddWarpTo(exit);
    map.AddWarpTo({down.X, down.Y + 1});
    map.HasWild = true;
    map.WildRed = DemoMap::Encounters({{8, "Duskrat"},
                                       {8, "Flintwing"},
                                       {9, "Cobbleon"},
                                       {9, "Duskrat"},
                                       {10, "Gloomoth"},
                                       {10, "Flintwing"},
                                       {11, "Cobbleon"},
                                       {11, "Clinkard"},
                                       {12, "Gloomoth"},
                                       {13, "Clinkard"}});
    map.WildBlue = map.WildRed;
    map.WildBlue[9] = {13, SpeciesCode("Knobbel")};
    map.AddChallenger({10, 10}, 17, 0x02, 1, 0x06, 0x0E);
    map.AddChallenger({30, 6}, 17, 0x03, 2, 0x06, 0x0F);
    map.AddTreasure({4, 18}, 0x0A, 3, 0x01);
    map.AddTreasure({28, 2}, 0x1F, 4, 0x00);
    return map;
}

DemoMap GloomrockLowerMap() {
    DemoMap map;
    map.Row = DemoRows::GloomrockLower;
    map.Tileset = DemoTilesets::Cavern;
    map.Info.Name = "Gloomrock Cave B1F";
    map.Info.Note = "Old mine workings; coordinates counted from the mine's own corner";
    map.Info.Field4 = "Theme 8";
    // The mine's lists count their squares from two squares in and down.
    map.Info.XShift = 2;
    map.Info.YShift = 2;
    map.Grid = DemoLegends::Cavern().Draw({
        "##############",
        "#U..B....##OR#",
        "#.......~~~..#",
        "#....p..~~~..#",
        "##TT.........#",
        "##TT..tttJ...#",
        "#........v...#",
        "#...###..v...#",
        "#...###..LttF#",
        "#..c.....FFF.#",
        "#m....##.....#",
        "##############",
    });
    map.Border = DemoBlocks().Set(DemoTilesets::Cavern).Number("rock");
    const Square up = TileSquare(1, 1, 1, 1);
    map.AddWarp(up, GloomrockUpper, 1);
    map.AddWarpTo({up.X, up.Y + 1});
    map.HasWild = true;
    map.WildRed = DemoMap::Encounters({{14, "Clinkard"},
                                       {14, "Gloomoth"},
                                       {15, "Knobbel"},
                                       {15, "Cobbleon"},
                                       {16, "Clinkard"},
                                       {16, "Ashfang"},
                                       {17, "Knobbel"},
                                       {17, "Gloomoth"},
                                       {19, "Ashfang"},
                                       {22, "Orrowisp"}});
    map.WildBlue = map.WildRed;
    map.AddChallenger({12, 6}, 18, 0x01, 1, 0x07, 0x10);
    map.AddTreasure({22, 18}, 0x2F, 2, 0x01);
    map.AddTreasure({6, 14}, 0x0A, 3, 0x00);
    return map;
}

DemoMap CaveNookMap() {
    DemoMap map;
    map.Row = DemoRows::CaveNook;
    map.Tileset = DemoTilesets::Cavern;
    map.Info.Name = "Cave Nook";
    map.Info.Note = "A single square of cave under a gap in the rock";
    map.Grid = DemoLegends::Cavern().Draw({"S"});
    map.HasObjects = false;
    map.HasWarpTo = false;
    map.Info.EventsOk = false;
    return map;
}
}  // namespace

std::vector<DemoMap> Caves() {
    return {GloomrockUpperMap(), GloomrockLowerMap(), CaveNookMap()};
}

}  // namespace Fixture::DemoMaps
