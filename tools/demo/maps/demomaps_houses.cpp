#include "demo/maps/demomap.h"
#include "demo/maps/textmap.h"

namespace Fixture::DemoMaps {

namespace {
using namespace DemoRows;

// Rooms of the home set: W wall, w window, k clock, p picture, h shelf, c
// cupboard, u stairs up, K kitchen, l wall plant, . floor, d stairs down,
// m exit mat, b bed, t television, T table, C computer, P plant, r rug,
// v vase.
TextMap CottageText() {
    TextMap map(DemoBlocks().Set(DemoTilesets::Cottage));
    const std::pair<char, const char*> blocks[] = {
        {'W', "wall"},         {'w', "wall_window"},  {'k', "wall_clock"},
        {'p', "wall_picture"}, {'h', "wall_shelf"},   {'c', "wall_cupboard"},
        {'u', "wall_stairs"},  {'K', "wall_kitchen"}, {'l', "wall_plant"},
        {'.', "floor"},        {'d', "stairs_down"},  {'m', "mat"},
        {'b', "bed"},          {'t', "tv"},           {'T', "table"},
        {'C', "pc"},           {'P', "plant"},        {'r', "rug"},
        {'v', "floor_vase"},   {'X', "void"},
    };
    for (const auto& [letter, name] : blocks)
        map.Block(letter, name);
    return map;
}

// Rooms of the hall set: W wall, w window, g glass wall, o poster, H healer,
// M machine, G goods, V vending, u stairs up, h shelves, k clock, . floor,
// = counter, [ counter end, m mat, - carpet, T table, C computer, D desk,
// s showcase, S sofa, | pillars, r railing, P plant, x floor mark,
// d stairs down, # checker, X void.
TextMap HallText() {
    TextMap map(DemoBlocks().Set(DemoTilesets::Hall));
    const std::pair<char, const char*> blocks[] = {
        {'W', "wall"},        {'w', "wall_window"},  {'g', "wall_glass"}, {'o', "wall_poster"},
        {'H', "wall_healer"}, {'M', "wall_machine"}, {'G', "wall_goods"}, {'V', "wall_vending"},
        {'u', "wall_stairs"}, {'h', "wall_shelf"},   {'k', "wall_clock"}, {'.', "floor"},
        {'=', "counter"},     {'[', "counter_end"},  {'m', "mat"},        {'-', "carpet"},
        {'T', "table"},       {'C', "pc"},           {'D', "desk"},       {'s', "showcase"},
        {'S', "sofa"},        {'|', "pillar"},       {'r', "railing"},    {'P', "plant"},
        {'x', "mark"},        {'d', "stairs_down"},  {'#', "checker"},    {'X', "void"},
    };
    for (const auto& [letter, name] : blocks)
        map.Block(letter, name);
    return map;
}

// Every room is left through its exit mat, two squares wide in the bottom
// row of its block.
Square MatSquare(int blockX, int blockY) {
    return TileSquare(blockX, blockY, 1, 3);
}

DemoMap Room(int row, DemoTilesets::Row tileset, const char* name, const char* note,
             const std::vector<std::string>& rows) {
    DemoMap map;
    map.Row = row;
    map.Tileset = tileset;
    map.Info.Name = name;
    map.Info.Note = note;
    map.Info.Field4 = "Theme 9";
    const bool home = tileset == DemoTilesets::Cottage;
    map.Grid = (home ? CottageText() : HallText()).Draw(rows);
    map.Border = DemoBlocks().Set(tileset).Number("void");
    return map;
}

DemoMap HomeDownMap() {
    DemoMap map = Room(DemoRows::HomeDown, DemoTilesets::Cottage, "Ivy Cottage 1F",
                       "Kitchen, television and the door out", {"hwKu", ".t..", ".T.P", "vm.."});
    const Square mat = MatSquare(1, 3);
    const Square stairs = TileSquare(3, 0, 2, 2);
    map.AddWideWarp(mat, Fernhollow, 0);
    map.AddWarp(stairs, HomeUp, 0);
    map.AddWarpTo(mat);
    map.AddWarpTo({stairs.X - 1, stairs.Y + 1});
    map.AddVillager({2, 4}, 1, 0xFF, 0x02, 1);
    return map;
}

DemoMap HomeUpMap() {
    DemoMap map = Room(DemoRows::HomeUp, DemoTilesets::Cottage, "Ivy Cottage 2F",
                       "The upstairs room, with the computer by the window",
                       {"hwpu", "b.C.", ".r..", "..P."});
    const Square stairs = TileSquare(3, 0, 2, 2);
    map.AddWarp(stairs, HomeDown, 1);
    map.AddWarpTo({stairs.X - 1, stairs.Y + 1});
    map.AddTreasure({5, 1}, 0x14, 1, 0x00);
    return map;
}

DemoMap NeighbourMap() {
    DemoMap map = Room(DemoRows::NeighbourHouse, DemoTilesets::Cottage, "Neighbour's House",
                       "The house next door", {"cwwl", ".T..", "P.r.", ".m.v"});
    const Square mat = MatSquare(1, 3);
    map.AddWideWarp(mat, Fernhollow, 1);
    map.AddWarpTo(mat);
    map.AddVillager({5, 3}, 2, 0xFE, 0x00, 1);
    map.AddVillager({2, 5}, 9, 0xFF, 0x03, 2);
    return map;
}

DemoMap LabMap() {
    DemoMap map = Room(DemoRows::ResearchLab, DemoTilesets::Hall, "Research Lab",
                       "The lab at the edge of town, eight blocks wide and six deep",
                       {"MhwoowhM", ".C....D.", "........", "r.rr.rr.", "..T.s.T.", "P..m...P"});
    const Square mat = MatSquare(3, 5);
    map.AddWideWarp(mat, Fernhollow, 2);
    map.AddWarpTo(mat);
    map.AddVillager({8, 3}, 20, 0xFF, 0x00, 1);
    map.AddVillager({3, 6}, 21, 0xFE, 0x01, 2);
    map.AddVillager({13, 8}, 21, 0xFE, 0x02, 3);
    map.AddTreasure({12, 8}, 0x05, 4, 0x01);
    return map;
}

DemoMap InnMap() {
    DemoMap map =
        Room(DemoRows::RestwellInn, DemoTilesets::Hall, "Restwell Inn",
             "Rest and healing for tired Morlick", {"wHWoVGu", ".=[..S.", "P.--.x.", "...m..."});
    const Square mat = MatSquare(3, 3);
    map.AddWideWarp(mat, Brackwater, 2);
    map.AddWarpTo(mat);
    map.AddWarpTo({mat.X, mat.Y - 1});
    map.AddVillager({2, 2}, 22, 0xFF, 0x00, 1);
    map.AddVillager({10, 3}, 4, 0xFE, 0x01, 2);
    return map;
}

DemoMap HallMap() {
    DemoMap map =
        Room(DemoRows::TownHall, DemoTilesets::Hall, "Town Hall",
             "Nine blocks wide, six deep; the mayor, the records, the view",
             {"ggkgWgogg", "|...-...|", ".D.....D.", "|.S.#.S.|", "....#....", "P...m...P"});
    const Square mat = MatSquare(4, 5);
    map.AddWideWarp(mat, Brackwater, 1);
    map.AddWarpTo(mat);
    map.AddVillager({8, 2}, 23, 0xFF, 0x00, 1);
    map.AddVillager({3, 5}, 7, 0xFE, 0x01, 2);
    map.AddVillager({14, 5}, 8, 0xFE, 0x02, 3);
    map.AddSignpost({9, 0}, 4);
    return map;
}

DemoMap ShopMap() {
    DemoMap map =
        Room(DemoRows::Market, DemoTilesets::Hall, "Market",
             "Brackwater Market: ropes, lamps, snacks", {"GGhGGV", "[=..s.", "....-.", "P.m..P"});
    const Square mat = MatSquare(2, 3);
    map.AddWideWarp(mat, Brackwater, 0);
    map.AddWarpTo(mat);
    // The market has events but no list in the event file yet.
    map.HasEventRecord = false;
    return map;
}
}  // namespace

std::vector<DemoMap> Houses() {
    return {HomeDownMap(), HomeUpMap(), NeighbourMap(), LabMap(), InnMap(), HallMap(), ShopMap()};
}

}  // namespace Fixture::DemoMaps
