#include "demo/blocks/demotilesets.h"

namespace Fixture::DemoBlockDrawing {

namespace {
using Tiles = std::vector<std::string>;

// Places a picture drawn with AddCanvas into a block, its top left tile at
// (x, y) of the block, w x h tiles large.
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

// A room's back wall: a cornice, wallpaper, a skirting board, then the floor
// in the shadow of the wall.
Tiles Wall(const std::string& shadow) {
    Tiles tiles;
    for (const char* row : {"wall_top", "wallpaper", "wall_base"})
        for (int x = 0; x < 4; ++x)
            tiles.push_back(row);
    for (int x = 0; x < 4; ++x)
        tiles.push_back(shadow);
    return tiles;
}

Tiles WoodFloor() {
    Tiles tiles;
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            tiles.push_back((x + y) % 3 == 1 ? "floor2" : "floor");
    return tiles;
}

Tiles TiledFloor() {
    return Tiles(16, "tiled");
}
}  // namespace

void DrawCottage(BlockSet& set) {
    const Tiles floor = WoodFloor();
    const Tiles wall = Wall("floor_shade");
    set.Add("floor", floor);
    set.Add("wall", wall);
    set.Add("wall_window", Put(wall, "window", 1, 1, 2, 1));
    set.Add("wall_clock", Put1(wall, "clock", 2, 1));
    set.Add("wall_picture", Put(wall, "picture", 1, 1, 2, 1));
    set.Add("wall_shelf", Put(wall, "shelf", 0, 1, 2, 2));
    set.Add("wall_cupboard", Put1(Put(wall, "cupboard", 3, 1, 1, 2), "calendar", 1, 1));
    set.Add("wall_stairs", Put(wall, "stairs_up", 2, 2, 2, 2));
    set.Add("wall_kitchen", Put(Put(wall, "sink", 0, 1, 2, 2), "stove", 2, 1, 2, 2));
    set.Add("stairs_down", Put(floor, "stairs_down", 1, 1, 2, 2));
    set.Add("mat", Put(floor, "mat", 1, 3, 2, 1));
    set.Add("bed", Put1(Put(floor, "bed", 0, 0, 2, 3), "vase", 3, 0));
    set.Add("tv", Put(floor, "tv", 1, 0, 2, 2));
    set.Add("table", Put1(Put1(Put(floor, "table", 1, 1, 2, 2), "chair", 0, 2), "chair2", 3, 2));
    set.Add("pc", Put(floor, "pc", 1, 0, 2, 2));
    set.Add("plant", Put(floor, "plant", 0, 0, 2, 2));
    set.Add("rug", {"rug:0:0", "rug:1:0", "rug:1:0", "rug:2:0", "rug:0:1", "rug:1:1", "rug:1:1",
                    "rug:2:1", "rug:0:1", "rug:1:1", "rug:1:1", "rug:2:1", "rug:0:2", "rug:1:2",
                    "rug:1:2", "rug:2:2"});
    set.Add("void", Tiles(16, "void"));
    set.Add("floor_vase", Put1(floor, "vase", 2, 1));
    set.Add("wall_plant", Put(wall, "plant", 2, 1, 2, 2));
}

void DrawHall(BlockSet& set) {
    const Tiles floor = TiledFloor();
    const Tiles wall = Wall("tiled_dark");
    set.Add("floor", floor);
    set.Add("wall", wall);
    set.Add("wall_window", Put(wall, "window", 1, 1, 2, 1));
    set.Add("wall_glass", Put(wall, "glasswall", 1, 1, 2, 1));
    set.Add("wall_poster", Put(wall, "poster", 1, 1, 2, 1));
    set.Add("wall_healer", Put(wall, "healer", 0, 1, 3, 2));
    set.Add("wall_machine", Put(wall, "machine", 1, 0, 2, 3));
    set.Add("wall_goods", Put(Put(wall, "goods", 0, 1, 2, 2), "goods", 2, 1, 2, 2));
    set.Add("wall_vending",
            Put1(Put(Put(wall, "vending", 0, 1, 1, 2), "vending", 1, 1, 1, 2), "bin", 3, 2));
    set.Add("wall_stairs", Put(wall, "stairs_up", 2, 2, 2, 2));
    set.Add("wall_shelf", Put(Put(wall, "shelf", 0, 1, 2, 2), "shelf", 2, 1, 2, 2));
    set.Add("wall_clock", Put1(Put(wall, "picture", 0, 1, 2, 1), "clock", 3, 1));
    set.Add("counter", Put(floor, "counter", 0, 1, 3, 2));
    set.Add("counter_end", Put1(Put(floor, "counter", 1, 1, 3, 2), "stand", 0, 2));
    set.Add("mat", Put(floor, "mat", 1, 3, 2, 1));
    set.Add("carpet",
            {"tiled", "tiled", "tiled", "tiled", "carpet:0:0", "carpet:1:0", "carpet:1:0",
             "carpet:2:0", "tiled", "tiled", "tiled", "tiled", "tiled", "tiled", "tiled", "tiled"});
    set.Add("table", Put1(Put1(Put(floor, "table", 1, 1, 2, 2), "chair", 0, 2), "chair2", 3, 2));
    set.Add("pc", Put1(Put(floor, "pc", 1, 0, 2, 2), "stool", 1, 2));
    set.Add("desk", Put1(Put(floor, "desk", 1, 1, 2, 1), "stool", 2, 2));
    set.Add("showcase", Put(floor, "showcase", 1, 0, 2, 2));
    set.Add("sofa", Put(floor, "sofa", 0, 2, 3, 1));
    set.Add("pillar", Put(Put(floor, "pillar", 0, 0, 1, 2), "pillar", 3, 0, 1, 2));
    set.Add("railing",
            {"tiled", "tiled", "tiled", "tiled", "railing", "railing", "railing", "railing_end",
             "tiled", "tiled", "tiled", "tiled", "tiled", "tiled", "tiled", "tiled"});
    set.Add("plant", Put(floor, "plant", 1, 0, 2, 2));
    set.Add("mark", Put1(Put1(floor, "tiled_mark", 1, 1), "tiled_mark", 2, 2));
    set.Add("stairs_down", Put(floor, "stairs_down", 1, 1, 2, 2));
    set.Add("checker", {"tiled", "tiled_dark", "tiled", "tiled_dark", "tiled_dark", "tiled",
                        "tiled_dark", "tiled", "tiled", "tiled_dark", "tiled", "tiled_dark",
                        "tiled_dark", "tiled", "tiled_dark", "tiled"});
    set.Add("void", Tiles(16, "void"));
}

}  // namespace Fixture::DemoBlockDrawing
