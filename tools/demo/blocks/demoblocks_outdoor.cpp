#include "demo/blocks/demotilesets.h"
#include "demo/blocks/edgeblocks.h"

namespace Fixture::DemoBlockDrawing {

namespace {
using Tiles = std::vector<std::string>;

Tiles Put(Tiles tiles, const std::string& picture, int x, int y, int w, int h) {
    for (int dy = 0; dy < h; ++dy)
        for (int dx = 0; dx < w; ++dx)
            tiles[static_cast<size_t>((y + dy) * 4 + x + dx)] = Part(picture, dx, dy);
    return tiles;
}

Tiles Put1(Tiles tiles, const std::string& tile, int x, int y) {
    tiles[static_cast<size_t>(y * 4 + x)] = tile;
    return tiles;
}

Tiles Scatter(const char* a, const char* b, const char* c) {
    static const int pattern[4][4] = {{1, 0, 2, 0}, {0, 2, 0, 1}, {2, 0, 1, 0}, {0, 1, 0, 2}};
    const char* kinds[3] = {a, b, c};
    Tiles tiles;
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            tiles.push_back(kinds[pattern[y][x]]);
    return tiles;
}

Tiles Repeat(const std::string& picture) {
    Tiles tiles;
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            tiles.push_back(Part(picture, x % 2, y % 2));
    return tiles;
}
}  // namespace

void DrawCavern(BlockSet& set) {
    const Tiles floor = Scatter("floor", "floor2", "floor3");
    set.Add("floor", floor);
    AddEdgeBlocks(set, "rock", "rock",
                  [](int x, int y) { return (x * 3 + y) % 4 == 0 ? "rock2" : "rock"; });
    AddEdgeBlocks(set, "pool", "pool", [](int, int) { return "pool"; });
    set.Add("ladder_up", Put(floor, "ladder", 1, 1, 2, 2));
    set.Add("ladder_down", Put(floor, "hole", 1, 1, 2, 2));
    set.Add("boulder", Put(floor, "boulder", 1, 1, 2, 2));
    set.Add("smashrock", Put(floor, "smashrock", 1, 1, 2, 2));
    set.Add("stalagmites", Put(Put(floor, "stalagmite", 0, 0, 1, 2), "stalagmite", 2, 1, 1, 2));
    set.Add("crystals", Put(Put(floor, "crystal", 1, 0, 1, 2), "crystal", 3, 2, 1, 2));
    Tiles cliff = floor;
    for (int x = 0; x < 4; ++x)
        cliff[static_cast<size_t>(8 + x)] = "cliff";
    set.Add("cliff", cliff);
    set.Add("cliff_w", Put1(cliff, "cliff_l", 0, 2));
    set.Add("cliff_e", Put1(cliff, "cliff_r", 3, 2));
    set.Add("exit", Put(floor, "exit", 1, 3, 2, 1));
    set.Add("bridge", {"bridge_top", "bridge_top", "bridge_top", "bridge_top", "bridge", "bridge",
                       "bridge", "bridge", "bridge", "bridge", "bridge", "bridge", "bridge_bottom",
                       "bridge_bottom", "bridge_bottom", "bridge_bottom"});
    set.Add("steps", Put1(Put1(Put1(Put1(floor, "steps", 1, 1), "steps", 2, 1), "steps", 1, 2),
                          "steps", 2, 2));
    set.Add("dark", Tiles(16, "dark"));
    set.Add("gravel", Scatter("gravel", "floor", "gravel"));
    set.Add("litter", Put1(Put1(Put1(floor, "mushroom", 0, 0), "bones", 2, 1), "rubble", 1, 3));
    Tiles trackH = floor;
    for (int x = 0; x < 4; ++x)
        trackH[static_cast<size_t>(4 + x)] = "rail_h";
    set.Add("track_h", trackH);
    Tiles trackV = floor;
    for (int y = 0; y < 4; ++y)
        trackV[static_cast<size_t>(y * 4 + 1)] = "rail_v";
    set.Add("track_v", trackV);
    // Bends: from the west turning south, and from the north turning east.
    set.Add("track_ws",
            Put1(Put1(Put1(Put1(floor, "rail_h", 0, 1), "rail_sw", 1, 1), "rail_v", 1, 2), "rail_v",
                 1, 3));
    set.Add("track_ne",
            Put1(Put1(Put1(Put1(floor, "rail_v", 1, 0), "rail_ne", 1, 1), "rail_h", 2, 1), "rail_h",
                 3, 1));
    set.Add("torch", Put1(Tiles(16, "rock"), "torch", 1, 2));
    set.Add("beam",
            {"beam:0:0", "beam:1:0", "beam:1:0", "beam:2:0", "prop_l", "floor", "floor2", "prop_r",
             "floor3", "floor", "floor", "floor2", "floor", "floor3", "floor", "floor"});
    set.Add("ore", Put1(Put1(Tiles(16, "rock"), "ore", 1, 1), "ore2", 2, 3));
    set.Add("puddle", Put1(Put1(floor, "puddle", 1, 1), "puddle", 2, 2));
    set.Add("fossil", Put(Tiles(16, "rock"), "fossil", 1, 1, 2, 2));
    set.Add("skylight", Put(floor, "skylight", 1, 1, 2, 2));
    set.Add("web", Put1(Put1(floor, "web", 0, 0), "moss", 3, 3));
    set.Add("moss", Scatter("moss", "floor", "floor2"));
    set.Add("pit", Put(floor, "pit", 1, 1, 2, 2));
    set.Add("column", Put(floor, "column", 1, 1, 1, 2));
    set.Add("floor_mine", Scatter("floor_mine", "floor2", "floor3"));
}

void DrawForest(BlockSet& set) {
    const Tiles grass = Scatter("blank", "grass", "grass2");
    set.Add("grass", grass);
    set.Add("path", Scatter("clearing_path", "path", "blank"));
    set.Add("tallgrass", Tiles(16, "tallgrass"));
    set.Add("trees", Repeat("tree"));
    set.Add("canopy", Repeat("canopy"));
    // The forest's south rim: the canopy ends in trunks standing on grass.
    Tiles south = Repeat("canopy");
    for (int x = 0; x < 4; ++x) {
        south[static_cast<size_t>(8 + x)] = Part("canopy_bottom", x % 2, 0);
        south[static_cast<size_t>(12 + x)] = x % 2 ? "grass" : "clearing_grass";
    }
    set.Add("canopy_s", south);
    Tiles north = Repeat("canopy");
    for (int x = 0; x < 4; ++x) {
        north[static_cast<size_t>(x)] = x % 2 ? "grass2" : "blank";
        north[static_cast<size_t>(4 + x)] = Part("canopy_top", x % 2, 0);
    }
    set.Add("canopy_n", north);
    set.Add("clearing",
            Put1(Put1(Put1(Put(grass, "stump", 0, 0, 2, 2), "toadstools", 3, 0), "bloom", 2, 3),
                 "fern", 0, 3));
}

// Every block of the wilderness is four quarters of ground, each bare earth,
// meadow, pine wood or sea: block b has the kind (b >> 2q) & 3 in quarter q,
// top left first. So all 256 blocks exist and any pattern at half-block
// resolution can be drawn.
void DrawWilds(BlockSet& set) {
    static const char* kinds[4] = {"dirt", "meadow", "pine", "sea"};
    for (int block = 0; block < 256; ++block) {
        const auto kind = [block](int q) { return kinds[(block >> (2 * q)) & 3]; };
        std::string name = "wild";
        for (int q = 0; q < 4; ++q) {
            name += ':';
            name += kind(q);
        }
        set.AddQuarters(name, kind(0), kind(1), kind(2), kind(3));
    }
}

void DrawHarbour(BlockSet& set) {
    const Tiles sand = Repeat("dirt");
    set.Add("sand", sand);
    set.Add("meadow", Repeat("meadow"));
    set.Add("pines", Repeat("pine"));
    AddEdgeBlocks(set, "sea", "beach", [](int x, int y) { return Part("sea", x % 2, y % 2); });
    const Tiles sea = Repeat("sea");
    Tiles pier = sea;
    for (int y = 0; y < 4; ++y) {
        pier[static_cast<size_t>(y * 4 + 1)] = "dock";
        pier[static_cast<size_t>(y * 4 + 2)] = "dock";
    }
    set.Add("pier", pier);
    set.Add("pier_end",
            Put1(Put1(Put1(pier, "dock_end", 1, 3), "dock_end", 2, 3), "dock_post", 0, 3));
    Tiles boardwalk = Tiles(16, "dock");
    set.Add("boardwalk", Put1(Put1(boardwalk, "bollard", 0, 0), "bollard", 3, 0));
    set.Add("boat", Put(sea, "boat", 1, 1, 2, 2));
    set.Add("searock", Put(sea, "searock", 0, 0, 2, 2));
    set.Add("buoy", Put1(Put1(sea, "buoy", 2, 1), "seaweed", 0, 3));
    set.Add("palm", Put(Put1(sand, "shell", 3, 3), "palm", 1, 0, 2, 3));
    set.Add("lighthouse", Put(sand, "lighthouse", 1, 0, 2, 4));
    set.Add("crates", Put1(Put(Tiles(16, "dock"), "crates", 0, 0, 2, 2), "dock_post", 3, 3));
    set.Add("barrels", Put(Put(Tiles(16, "dock"), "barrel", 1, 0, 1, 2), "barrel", 2, 1, 1, 2));
    set.Add("nets", Put(Tiles(16, "dock"), "net", 1, 1, 2, 1));
    set.Add("ruins", {"ruinwall:0:0", "ruinwall:1:0", "ruinwall:1:0", "ruinwall:2:0", "dirt:0:0",
                      "dirt:1:0", "stones", "dirt:1:0", "dirt:0:1", "stones2", "dirt:0:1",
                      "dirt:1:1", "dirt:0:0", "dirt:1:0", "dirt:0:0", "dirt:1:0"});
    set.Add("pillar", Put(sand, "pillar", 1, 0, 2, 2));
    set.Add("peaks", Repeat("peak"));
    set.Add("cliff", {"cliff:0:0", "cliff:1:0", "cliff:1:0", "cliff:2:0", "dirt:0:1", "dirt:1:1",
                      "dirt:0:1", "dirt:1:1", "dirt:0:0", "dirt:1:0", "dirt:0:0", "dirt:1:0",
                      "dirt:0:1", "dirt:1:1", "dirt:0:1", "dirt:1:1"});
    set.Add("dunes", Put1(Put1(Put1(sand, "dunegrass", 0, 1), "dunegrass2", 2, 2), "shell", 3, 0));
    set.Add("stones",
            {"stones", "stones2", "stones", "stones2", "stones2", "stones", "stones2", "stones",
             "stones", "stones2", "stones", "stones2", "stones2", "stones", "stones2", "stones"});
    set.Add("signpost", Put(sand, "signpost", 1, 1, 2, 2));
    set.Add("tent", Put(sand, "tent", 0, 0, 2, 2));
    set.Add("campfire", Put(sand, "campfire", 1, 1, 2, 2));
}

}  // namespace Fixture::DemoBlockDrawing
