#include "mapedit/mapsave.h"

#include "core/defines.h"

void WriteMap(RomFile& rom, const LoadedMap& map, std::int16_t borderNum) {
    const int bias = CurTilesetRow()[TilesetBlockBias].ToInt16();
    // A block number is held in 16 bits; its byte is its low eight bits, so a
    // square read from a byte below the bias is written back as that same byte.
    rom.RomWriteByte(map.BorderPos, static_cast<std::uint8_t>(borderNum + bias));
    std::int32_t p = map.GridPos;
    for (int y = 1; y <= Defines.MapHeight; ++y)
        for (int x = 1; x <= Defines.MapWidth; ++x)
            rom.RomWriteByte(p++, static_cast<std::uint8_t>(Defines.MapGrid[y][x] + bias));
}
