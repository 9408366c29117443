// The map loader over fuzzed table rows and a fuzzed ROM. The input is the
// map's row number (two bytes, low first), then the values of the map's row
// (name, grid position, object position, rows, columns, tileset) and of the
// tileset's row (last block, block position, bias), then the ROM image.
//
// A load that succeeds read only inside the ROM, gave every block its 16 ROM
// bytes and every square its byte with the bias taken off, such that a save
// that puts the bias back writes the same byte, and left the blocks and
// squares outside the map alone. A load that fails changed nothing.
#include <algorithm>

#include "core/defines.h"
#include "fuzz/fuzzinput.h"
#include "mapview/maploader.h"

namespace {
constexpr std::int32_t UntouchedTile = -7;
constexpr std::int16_t UntouchedSquare = -7000;

// True when no block row from `first` on and no square outside the first
// `height` rows and `width` columns counted from 1 was written.
bool UntouchedOutside(int first, int height, int width) {
    const auto untouchedTile = [](std::int32_t tile) { return tile == UntouchedTile; };
    const auto untouchedSquare = [](std::int16_t square) { return square == UntouchedSquare; };
    for (int b = std::max(first, 0); b < Limits::TableRows; ++b)
        if (!std::all_of(Defines.BlockTiles[b].begin(), Defines.BlockTiles[b].end(), untouchedTile))
            return false;
    for (int y = 0; y < Limits::TableRows; ++y) {
        const auto& row = Defines.MapGrid[y];
        const bool inMap = y >= 1 && y <= height;
        const auto from = row.begin() + (inMap ? width + 1 : 0);
        if (inMap && !untouchedSquare(row[0])) return false;
        if (!std::all_of(from, row.end(), untouchedSquare)) return false;
    }
    return true;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const int map = static_cast<std::int16_t>(input.Byte() | input.Byte() << 8);
    std::array<Field, MapColumnCount> mapRow{};
    for (const int c : {MapName, MapGridPos, MapObjectPos, MapRows, MapCols, MapTileset})
        mapRow[c] = input.NextField();
    std::array<Field, TilesetColumnCount> setRow{};
    for (const int c : {TilesetLastBlock, TilesetBlockPos, TilesetBlockBias})
        setRow[c] = input.NextField();
    const QByteArray image = input.Rest();

    // The rows of the previous input go; a working state whose every block
    // and square shows whether the load touched it.
    static int lastMap = 0;
    static int lastSet = 0;
    Defines.MapTable[lastMap] = {};
    Defines.TilesetTable[lastSet] = {};
    const bool mapInTable = map >= 0 && map < Limits::TableRows;
    const int tileset = mapRow[MapTileset].ToInt16();
    const bool setInTable = tileset >= 0 && tileset < Limits::TableRows;
    if (mapInTable) Defines.MapTable[lastMap = map] = mapRow;
    if (setInTable) Defines.TilesetTable[lastSet = tileset] = setRow;
    for (auto& block : Defines.BlockTiles)
        block.fill(UntouchedTile);
    for (auto& row : Defines.MapGrid)
        row.fill(UntouchedSquare);
    Defines.CurTileset = Defines.BlockCount = Defines.MapHeight = Defines.MapWidth = -7;

    RomFile rom;
    OpenScratchRom(image, rom);
    LoadedMap loaded;
    loaded.BorderNum = -7;
    loaded.BorderPos = loaded.GridPos = -7;
    QString error;
    const bool read = ReadMap(rom, map, loaded, error);
    // Every position was checked before it was read.
    FUZZ_CHECK(!rom.Failed());
    if (!read) {
        FUZZ_CHECK(!error.isEmpty());
        FUZZ_CHECK(Defines.CurTileset == -7 && Defines.BlockCount == -7);
        FUZZ_CHECK(Defines.MapHeight == -7 && Defines.MapWidth == -7);
        FUZZ_CHECK(UntouchedOutside(0, 0, 0));
        FUZZ_CHECK(loaded.BorderNum == -7 && loaded.BorderPos == -7 && loaded.GridPos == -7);
        return 0;
    }
    FUZZ_CHECK(mapInTable && setInTable);
    FUZZ_CHECK(Defines.CurTileset == tileset);
    const int lastBlock = Defines.BlockCount;
    FUZZ_CHECK(lastBlock == setRow[TilesetLastBlock].ToInt16());
    FUZZ_CHECK(lastBlock >= 0 && lastBlock <= Limits::LastBlock);
    const int height = Defines.MapHeight;
    const int width = Defines.MapWidth;
    FUZZ_CHECK(height == mapRow[MapRows].ToInt16() && width == mapRow[MapCols].ToInt16());
    FUZZ_CHECK(height >= 1 && height <= Limits::MapSizeMax);
    FUZZ_CHECK(width >= 1 && width <= Limits::MapSizeMax);

    const std::int64_t blockPos = setRow[TilesetBlockPos].ToInt32();
    for (int b = 0; b <= lastBlock; ++b)
        for (int t = 0; t < Limits::TilesPerBlock; ++t)
            FUZZ_CHECK(Defines.BlockTiles[b][t] == ImageByte(image, blockPos + 16 * b + t));
    // Putting the bias back gives the ROM's byte again, as a save writes it.
    const int bias = setRow[TilesetBlockBias].ToInt16();
    const auto backToByte = [bias](int number) { return static_cast<std::uint8_t>(number + bias); };
    FUZZ_CHECK(loaded.BorderPos == mapRow[MapObjectPos].ToInt32());
    FUZZ_CHECK(backToByte(loaded.BorderNum) == ImageByte(image, loaded.BorderPos));
    FUZZ_CHECK(loaded.GridPos == mapRow[MapGridPos].ToInt32());
    std::int64_t p = loaded.GridPos;
    for (int y = 1; y <= height; ++y)
        for (int x = 1; x <= width; ++x)
            FUZZ_CHECK(backToByte(Defines.MapGrid[y][x]) == ImageByte(image, p++));
    FUZZ_CHECK(UntouchedOutside(lastBlock + 1, height, width));
    return 0;
}
