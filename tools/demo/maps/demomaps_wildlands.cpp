#include "demo/maps/demomap.h"

#include <QtGlobal>
#include <algorithm>

namespace Fixture::DemoMaps {

namespace {
// The wilderness is worked out square by square (two squares to a block) from
// fixed-seed noise in whole numbers only, so that every build gives the same
// bytes on every platform.
constexpr int Blocks = 255;
constexpr int Squares = 2 * Blocks;

enum Ground { Dirt = 0, Meadow = 1, Pine = 2, Sea = 3 };

quint32 Hash(int x, int y, quint32 seed) {
    quint32 h =
        seed ^ (static_cast<quint32>(x) * 0x27D4EB2Du) ^ (static_cast<quint32>(y) * 0x165667B1u);
    h ^= h >> 15;
    h *= 0x85EBCA77u;
    h ^= h >> 13;
    h *= 0xC2B2AE3Du;
    h ^= h >> 16;
    return h;
}

// Smooth noise of one scale, 0 to 1023: lattice values every cell squares,
// blended with a smoothstep.
int Noise(int x, int y, int cell, quint32 seed) {
    const int cx = x / cell;
    const int cy = y / cell;
    const int fx = (x % cell) * 1024 / cell;
    const int fy = (y % cell) * 1024 / cell;
    const auto smooth = [](int t) { return t * t * (3 * 1024 - 2 * t) / (1024 * 1024); };
    const int sx = smooth(fx);
    const int sy = smooth(fy);
    const auto value = [&](int dx, int dy) {
        return static_cast<int>(Hash(cx + dx, cy + dy, seed) & 1023);
    };
    const int top = value(0, 0) + (value(1, 0) - value(0, 0)) * sx / 1024;
    const int bottom = value(0, 1) + (value(1, 1) - value(0, 1)) * sx / 1024;
    return top + (bottom - top) * sy / 1024;
}

int Octaves(int x, int y, quint32 seed) {
    return (4 * Noise(x, y, 96, seed) + 2 * Noise(x, y, 40, seed + 1) + Noise(x, y, 14, seed + 2)) /
           7;
}

Ground GroundAt(int x, int y) {
    // Land rises towards the middle, so the country is an island in the sea.
    const int edge = std::min(std::min(x, y), std::min(Squares - 1 - x, Squares - 1 - y));
    const int falloff = edge < 64 ? (64 - edge) * 8 : 0;
    const int height = Octaves(x, y, 0x5EED1u) - falloff;
    if (height < 400) return Sea;
    if (height < 430) return Dirt;  // beaches
    // Roads cross the country on a grid, two squares wide.
    // A crossroads lies at the very middle of the map.
    if ((x % 80 == 14 || x % 80 == 15) || (y % 80 == 14 || y % 80 == 15)) return Dirt;
    const int wet = Octaves(x, y, 0xF0E57u);
    if (height > 690 && wet < 470) return Dirt;  // bare hilltops
    return wet > 540 ? Pine : Meadow;
}
}  // namespace

MapGrid Wildlands() {
    MapGrid grid(Blocks, Blocks);
    for (int by = 0; by < Blocks; ++by)
        for (int bx = 0; bx < Blocks; ++bx) {
            // Block number = quarter kinds, top left in the lowest two bits.
            int block = 0;
            for (int q = 0; q < 4; ++q)
                block |= GroundAt(2 * bx + q % 2, 2 * by + q / 2) << (2 * q);
            grid.Set(bx, by, block);
        }
    return grid;
}

}  // namespace Fixture::DemoMaps
