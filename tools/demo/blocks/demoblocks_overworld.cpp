#include "demo/blocks/demotilesets.h"
#include "demo/blocks/edgeblocks.h"

namespace Fixture::DemoBlockDrawing {

namespace {
using Rows = std::vector<std::vector<std::string>>;

// Ground of the overworld by the letter of a quarter block: G grass, P path,
// T tree, W tall grass, F flowers. Grass and path scatter their tufts and
// pebbles over the whole block, so a quarter takes the tiles of its place.
std::string GroundTile(char kind, int x, int y) {
    static const char* grass[4][4] = {{"grass", "blank", "grass2", "blank"},
                                      {"blank", "grass2", "blank", "grass"},
                                      {"grass2", "blank", "grass", "blank"},
                                      {"blank", "grass", "blank", "grass2"}};
    static const char* path[4][4] = {{"blank", "path", "blank", "blank"},
                                     {"blank", "blank", "blank", "path"},
                                     {"path", "blank", "blank", "blank"},
                                     {"blank", "blank", "path", "blank"}};
    static const char* flowers[4][4] = {{"flower", "blank", "flower2", "blank"},
                                        {"blank", "grass2", "blank", "flower"},
                                        {"flower2", "blank", "flower", "blank"},
                                        {"blank", "flower", "blank", "grass2"}};
    switch (kind) {
        case 'P':
            return path[y][x];
        case 'T':
            return Part("tree", x % 2, y % 2);
        case 'W':
            return "tallgrass";
        case 'F':
            return flowers[y][x];
        default:
            return grass[y][x];
    }
}

// A block of four quarters given as four letters, top left first.
std::vector<std::string> Quarters(const std::string& kinds) {
    std::vector<std::string> tiles;
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            tiles.push_back(GroundTile(kinds[static_cast<size_t>((y / 2) * 2 + x / 2)], x, y));
    return tiles;
}

std::vector<std::string> WithRow(std::vector<std::string> tiles, int row,
                                 const std::vector<std::string>& rowTiles) {
    for (int x = 0; x < 4; ++x)
        tiles[static_cast<size_t>(row * 4 + x)] = rowTiles[static_cast<size_t>(x)];
    return tiles;
}

void AddGround(BlockSet& set) {
    set.Add("grass", Quarters("GGGG"));
    set.Add("path", Quarters("PPPP"));
    set.Add("tallgrass", Quarters("WWWW"));
    set.Add("flowers", Quarters("FFFF"));
    set.Add("trees", Quarters("TTTT"));
    set.AddQuarters("bushes", "bush", "bush", "=blank", "=blank");
    set.AddQuarters("boulder", "boulder", "=blank", "=blank", "=path");
    set.AddQuarters("sign", "sign", "=blank", "=blank", "=blank");
    const std::vector<std::string> path = Quarters("PPPP");
    std::vector<std::string> mailbox = path;
    mailbox[1] = "mailbox:0:0";
    mailbox[5] = "mailbox:0:1";
    set.Add("mailbox", mailbox);
    std::vector<std::string> cave = Quarters("GGPP");
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 2; ++x)
            cave[static_cast<size_t>(y * 4 + x + 1)] = Part("cavemouth", x, y);
    set.Add("cave", cave);
    set.Add("sand", std::vector<std::string>(16, "sand"));

    const std::vector<std::string> grass = Quarters("GGGG");
    set.Add("ledge", WithRow(grass, 2, {"ledge", "ledge", "ledge", "ledge"}));
    set.Add("ledge_w", WithRow(grass, 2, {"ledge_l", "ledge", "ledge", "ledge"}));
    set.Add("ledge_e", WithRow(grass, 2, {"ledge", "ledge", "ledge", "ledge_r"}));
    set.Add("fence", WithRow(grass, 1, {"fence", "fence", "fence", "fence"}));
    set.Add("fence_e", WithRow(grass, 1, {"fence", "fence", "fence", "post"}));
    set.Add("hedge", WithRow(grass, 2, {"hedge", "hedge", "hedge", "hedge"}));
    set.Add("hedge_w", WithRow(grass, 2, {"hedge_l", "hedge", "hedge", "hedge"}));
    set.Add("hedge_e", WithRow(grass, 2, {"hedge", "hedge", "hedge", "hedge_r"}));
    set.Add("steps", {"grass", "steps", "steps", "blank", "blank", "steps", "steps", "grass2",
                      "grass2", "steps", "steps", "blank", "blank", "steps", "steps", "grass"});
    set.Add("flowerbed", {"hedge_l", "hedge", "hedge", "hedge_r", "flower", "grass_bed", "flower2",
                          "grass_bed", "grass_bed", "flower", "grass_bed", "flower2", "hedge_l",
                          "hedge", "hedge", "hedge_r"});
}

void AddWater(BlockSet& set) {
    AddEdgeBlocks(set, "water", "shore",
                  [](int x, int y) { return (x + 2 * y) % 3 == 0 ? "water2" : "water"; });
    set.Add("lilies", {"water", "lily", "water", "water2", "water2", "water", "water", "lily",
                       "lily", "water", "water2", "water", "water", "water", "lily", "water"});
    set.Add("bridge", {"bridge_top", "bridge_top", "bridge_top", "bridge_top", "bridge", "bridge",
                       "bridge", "bridge", "bridge", "bridge", "bridge", "bridge", "bridge_bottom",
                       "bridge_bottom", "bridge_bottom", "bridge_bottom"});
}

// Houses are two blocks square; the door stands in the bottom wall row.
Rows Home(int doorColumn) {
    Rows rows;
    const auto span = [](const std::string& left, const std::string& middle,
                         const std::string& right) {
        std::vector<std::string> row{left};
        for (int i = 0; i < 6; ++i)
            row.push_back(middle);
        row.push_back(right);
        return row;
    };
    rows.push_back(span("ridge_l", "ridge", "ridge_r"));
    rows.push_back(span("roof_l", "roof", "roof_r"));
    rows.push_back(span("roof_l", "roof", "roof_r"));
    rows.push_back(span("eave_l", "eave", "eave_r"));
    std::vector<std::string> windows = span("wall_l", "wall", "wall_r");
    windows[doorColumn < 4 ? 5 : 2] = "window";
    windows[doorColumn < 4 ? 6 : 1] = "window";
    rows.push_back(windows);
    std::vector<std::string> door = span("wall_l", "wall", "wall_r");
    door[static_cast<size_t>(doorColumn)] = "door_top";
    rows.push_back(door);
    std::vector<std::string> base = span("base_l", "base", "base_r");
    base[static_cast<size_t>(doorColumn)] = "door";
    rows.push_back(base);
    std::vector<std::string> ground;
    for (int x = 0; x < 8; ++x)
        ground.push_back(GroundTile('P', x % 4, 3));
    rows.push_back(ground);
    return rows;
}

// A large building with a flat roof, three blocks wide or two.
Rows Hall(int blocksAcross) {
    const int width = blocksAcross * 4;
    const int door = width / 2 - 1;
    Rows rows;
    const auto span = [width](const std::string& left, const std::string& middle,
                              const std::string& right) {
        std::vector<std::string> row(static_cast<size_t>(width), middle);
        row.front() = left;
        row.back() = right;
        return row;
    };
    rows.push_back(span("flat_tl", "flat_t", "flat_tr"));
    rows.push_back(span("flat_l", "flat", "flat_r"));
    rows.push_back(span("flat_l", "flat", "flat_r"));
    rows.push_back(span("flat_bl", "flat_b", "flat_br"));
    std::vector<std::string> sign = span("wall_l", "wall", "wall_r");
    for (int x = 1; x < width - 1; x += 2)
        if (x < door - 1 || x > door + 2) sign[static_cast<size_t>(x)] = "window";
    sign[static_cast<size_t>(door)] = "board:0:0";
    sign[static_cast<size_t>(door + 1)] = "board:1:0";
    rows.push_back(sign);
    std::vector<std::string> upper = span("wall_l", "wall", "wall_r");
    upper[static_cast<size_t>(door)] = "glassdoor:0:0";
    upper[static_cast<size_t>(door + 1)] = "glassdoor:1:0";
    rows.push_back(upper);
    std::vector<std::string> lower = span("base_l", "base", "base_r");
    lower[static_cast<size_t>(door)] = "glassdoor:0:1";
    lower[static_cast<size_t>(door + 1)] = "glassdoor:1:1";
    rows.push_back(lower);
    std::vector<std::string> ground;
    for (int x = 0; x < width; ++x)
        ground.push_back(GroundTile('P', x % 4, 3));
    rows.push_back(ground);
    return rows;
}

// Blocks that mix two grounds by quarters, for edges of woods and paths that
// don't follow block lines.
void AddMixes(BlockSet& set) {
    for (const char* pair : {"TG", "PG"}) {
        for (int mask = 1; mask < 15; ++mask) {
            std::string kinds;
            for (int q = 0; q < 4; ++q)
                kinds += (mask >> q) & 1 ? pair[0] : pair[1];
            set.Add("mix:" + kinds, Quarters(kinds));
        }
    }
}
}  // namespace

void DrawOverworld(BlockSet& set) {
    AddGround(set);
    AddWater(set);
    set.AddPicture("home", Home(3));
    set.AddPicture("home2", Home(4));
    set.AddPicture("hall", Hall(3));
    set.AddPicture("shop", Hall(2));
    AddMixes(set);
}

}  // namespace Fixture::DemoBlockDrawing
