#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <vector>

#include "demo/blocks/demotilesets.h"
#include "demo/demoevents.h"
#include "fixture/mapgrid.h"
#include "fixture/maprow.h"
#include "fixture/warpdata.h"
#include "fixture/wilddata.h"

namespace Fixture {

// A half-block square of a map, counted from 0 at the top left.
struct Square {
    int X = 0;
    int Y = 0;
};

// The square of a tile: tile (x, y) of the block picture whose top left block
// stands at (blockX, blockY).
inline Square TileSquare(int blockX, int blockY, int tileX, int tileY) {
    return {(4 * blockX + tileX) / 2, (4 * blockY + tileY) / 2};
}

// One map of the demo before it is laid out in the ROMs: its record (whose
// positions the layout fills in), its grid and what belongs to it. All
// coordinates here are as the editor shows them; the map's shift comes off
// when the bytes are made.
struct DemoMap {
    int Row = 0;
    DemoTilesets::Row Tileset = DemoTilesets::Overworld;
    MapRow Info;
    MapGrid Grid;

    bool HasObjects = true;
    int Border = 0;  // block number
    std::vector<Warp> Warps;

    bool HasWarpTo = true;
    std::vector<Square> WarpTo;

    bool HasWild = false;
    EncounterList WildRed{};
    EncounterList WildBlue{};

    bool HasEventRecord = false;
    std::array<std::vector<QByteArray>, DemoEventTypeCount> Events;

    void AddWarp(Square at, int targetMap, int targetPoint);
    // A door of two squares side by side, both leading to the same point.
    void AddWideWarp(Square left, int targetMap, int targetPoint);
    int AddWarpTo(Square at);

    void AddVillager(Square at, int picture, int move1, int move2, int text);
    void AddSignpost(Square at, int text);
    void AddChallenger(Square at, int picture, int move1, int text, int trainer, int team);
    void AddTreasure(Square at, int item, int text, int flag);

    // Encounters by species name: ten pairs of level and name.
    static EncounterList Encounters(const std::vector<std::pair<int, const char*>>& pairs);

private:
    QByteArray Record(DemoEventType type, Square at) const;
};

// A category of the demo with its maps, which take the rows FirstMap on.
struct DemoCategory {
    QString Name;
    int FirstMap = 0;
    std::vector<DemoMap> Maps;
};

// The whole demo world, category by category.
std::vector<DemoCategory> DemoWorld();

// The maps of each category, drawn in their own files.
namespace DemoMaps {
std::vector<DemoMap> Towns();
std::vector<DemoMap> Routes();
std::vector<DemoMap> Caves();
std::vector<DemoMap> Houses();
MapGrid Wildlands();
}  // namespace DemoMaps

// Map rows of the demo that warps lead to.
namespace DemoRows {
inline constexpr int Fernhollow = 0;
inline constexpr int Brackwater = 1;
inline constexpr int Saltmere = 2;
inline constexpr int Fernway = 8;
inline constexpr int Eastmarch = 9;
inline constexpr int MirrorLake = 10;
inline constexpr int Thornwood = 11;
inline constexpr int Wildlands = 12;
inline constexpr int GloomrockUpper = 16;
inline constexpr int GloomrockLower = 17;
inline constexpr int CaveNook = 18;
inline constexpr int HomeDown = 24;
inline constexpr int HomeUp = 25;
inline constexpr int NeighbourHouse = 26;
inline constexpr int ResearchLab = 27;
inline constexpr int RestwellInn = 28;
inline constexpr int TownHall = 29;
inline constexpr int Market = 30;
inline constexpr int UnusedFirst = 40;
}  // namespace DemoRows

}  // namespace Fixture
