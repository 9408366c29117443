// The checks of the fuzz targets of the ROM readers, each over fuzzed table
// rows and a fuzzed ROM image: Target::<name> is the check of the target
// fuzz_<name>. Each input holds the rows' values, then the ROM image.
//
// A read reads only inside the ROM, checking every position first. One that
// succeeds gave every field its ROM byte and left the rest alone; one that
// fails is told and left everything as it was.
#include <algorithm>
#include <cstdint>
#include <memory>

#include "core/defines.h"
#include "eventedit/eventlist.h"
#include "fuzz/fuzzinput.h"
#include "mapview/maploader.h"
#include "warpedit/warplist.h"
#include "wildedit/wildlist.h"

namespace {

constexpr std::int32_t Untouched = -7;
constexpr std::int16_t UntouchedSquare = -7000;

// A list read as records of `recordSize` bytes from `start` on: the first
// `count` records hold the image's bytes in their first fields, and every
// other field of the rows is untouched.
template <class Table>
void CheckRecords(const Table& rows, const QByteArray& image, std::int64_t start, int count,
                  int recordSize) {
    for (int i = 0; i < static_cast<int>(rows.size()); ++i) {
        for (int k = 0; k < static_cast<int>(rows[i].size()); ++k) {
            const bool inList = i < count && k < recordSize;
            const std::int64_t position = start + std::int64_t{recordSize} * i + k;
            FUZZ_CHECK(rows[i][k] == (inList ? ImageByte(image, position) : Untouched));
        }
    }
}

// A list reader's rows and place, untouched until it reads.
template <class Table, class ListPlace>
struct ListRead {
    ListRead() {
        for (auto& record : Rows)
            record.fill(Untouched);
        Place.Start = Place.Count = Untouched;
    }
    // Checks what the reader gave; false when it refused.
    bool Check(bool read, const RomFile& rom, const QString& error, const QByteArray& image,
               std::int64_t listed, int most, int recordSize) {
        FUZZ_CHECK(!rom.Failed());
        if (!read) {
            FUZZ_CHECK(!error.isEmpty());
            FUZZ_CHECK(Place.Start == Untouched && Place.Count == Untouched);
            CheckRecords(Rows, image, 0, 0, 0);
            return false;
        }
        // The reader takes at most `most` of the entries the list has, and
        // says so when it takes fewer.
        FUZZ_CHECK(Place.Count == std::clamp<std::int64_t>(listed, 0, most));
        FUZZ_CHECK(Place.Notice.isEmpty() == (listed == Place.Count));
        CheckRecords(Rows, image, Place.Start, Place.Count, recordSize);
        return true;
    }

    Table Rows;
    ListPlace Place;
};

// True when no block row from `first` on and no square outside the first
// `height` rows and `width` columns counted from 1 was written.
bool UntouchedOutside(int first, int height, int width) {
    const auto untouchedTile = [](std::int32_t tile) { return tile == Untouched; };
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

// Puts a fuzzed row into a table in place of the previous input's.
template <class Table, class Row>
void PutRow(Table& table, int& last, int row, const Row& values) {
    table[last] = {};
    if (row >= 0 && row < static_cast<int>(table.size())) table[last = row] = values;
}

}  // namespace

namespace Target {

// The map's row number (two bytes, low first), the map's row (name, grid
// position, object position, rows, columns, tileset) and the tileset's row
// (last block, block position, bias). A load gives every block its 16 ROM
// bytes and every square its byte with the bias taken off, such that a save
// that puts the bias back writes the same byte.
void maploader(FuzzInput& input) {
    const int map = static_cast<std::int16_t>(input.Byte() | input.Byte() << 8);
    std::array<Field, MapColumnCount> mapRow{};
    for (const int c : {MapName, MapGridPos, MapObjectPos, MapRows, MapCols, MapTileset})
        mapRow[c] = input.NextField();
    std::array<Field, TilesetColumnCount> setRow{};
    for (const int c : {TilesetLastBlock, TilesetBlockPos, TilesetBlockBias})
        setRow[c] = input.NextField();
    const QByteArray image = input.Rest();

    static int lastMap = 0;
    static int lastSet = 0;
    const int tileset = mapRow[MapTileset].ToInt16();
    PutRow(Defines.MapTable, lastMap, map, mapRow);
    PutRow(Defines.TilesetTable, lastSet, tileset, setRow);
    for (auto& block : Defines.BlockTiles)
        block.fill(Untouched);
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
    FUZZ_CHECK(!rom.Failed());
    if (!read) {
        FUZZ_CHECK(!error.isEmpty());
        FUZZ_CHECK(Defines.CurTileset == -7 && Defines.BlockCount == -7);
        FUZZ_CHECK(Defines.MapHeight == -7 && Defines.MapWidth == -7);
        FUZZ_CHECK(UntouchedOutside(0, 0, 0));
        FUZZ_CHECK(loaded.BorderNum == -7 && loaded.BorderPos == -7 && loaded.GridPos == -7);
        return;
    }
    FUZZ_CHECK(lastMap == map && lastSet == tileset);
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
}

// The map's row number (one byte), the list (even: warps, odd: warp-to
// points) and the map's row (name, object position, warp-to position,
// warp-to count). A list holds at most 16 entries of four bytes.
void warplist(FuzzInput& input) {
    const int map = input.Byte();
    const WarpMode mode = input.Byte() % 2 == 0 ? WarpMode::Warps : WarpMode::WarpTo;
    std::array<Field, MapColumnCount> row{};
    for (const int c : {MapName, MapObjectPos, MapWarpToPos, MapWarpToCount})
        row[c] = input.NextField();
    const QByteArray image = input.Rest();
    static int lastMap = 0;
    PutRow(Defines.MapTable, lastMap, map, row);

    RomFile rom;
    OpenScratchRom(image, rom);
    ListRead<WarpTable, WarpListPlace> list;
    QString error;
    const bool read = ReadWarpList(rom, map, mode, list.Rows, list.Place, error);
    // How many entries the list has, by its count byte or by the Maps file.
    const std::int64_t objects = row[MapObjectPos].ToInt32();
    const std::int64_t listed = !read                     ? 0
                                : mode == WarpMode::Warps ? ImageByte(image, objects + 1)
                                                          : row[MapWarpToCount].ToInt32();
    if (!list.Check(read, rom, error, image, listed, Limits::MaxWarps, WarpRecordBytes)) return;
    FUZZ_CHECK(list.Place.Start ==
               (mode == WarpMode::Warps ? objects + 2 : row[MapWarpToPos].ToInt32()));
}

// The map's wild position: a read gives every slot its level and species
// byte, in that order.
void wildlist(FuzzInput& input) {
    const std::int32_t position = input.NextField().ToInt32();
    const QByteArray image = input.Rest();
    const QString path = WriteScratchFile(QStringLiteral("rom.gb"), image);
    WildList list;
    list.fill({Untouched, Untouched});
    QString error;
    const bool read = ReadWildList(path, position, list, error);
    FUZZ_CHECK(read || !error.isEmpty());
    std::int64_t p = position;
    for (const WildSlot& slot : list) {
        FUZZ_CHECK(slot.Level == (read ? ImageByte(image, p++) : Untouched));
        FUZZ_CHECK(slot.Species == (read ? ImageByte(image, p++) : Untouched));
    }
}

// The type's row number (one byte, taken modulo 33) and its values in
// columns 2 to 14, the map's row number (one byte) and its values in columns
// 1 to 9 of Events.twy. The type's row is checked as the editor checks it,
// and only a layout that passes reaches the reader, which holds at most 32
// records from the list's position on, the type's record size apart.
void eventlist(FuzzInput& input) {
    static const auto types = std::make_unique<EventTypeTableT>();
    static const auto addresses = std::make_unique<EventAddressTableT>();
    static int lastType = 0;
    static int lastMap = 0;
    EventTypeTableT::value_type typeRow{};
    typeRow[TypeName] = Field::Text(QStringLiteral("Fuzzed"));
    const int type = input.Byte() % EventTypeRows;
    for (int c = TypeListColumn; c < EventTypeColumnCount; ++c)
        typeRow[c] = input.NextField();
    EventAddressTableT::value_type addressRow{};
    const int map = input.Byte();
    addressRow[0] = Field::Number(map);
    for (int c = 1; c < EventAddressColumns; ++c)
        addressRow[c] = input.NextField();
    const QByteArray image = input.Rest();
    PutRow(*types, lastType, type, typeRow);
    PutRow(*addresses, lastMap, map, addressRow);

    EventLayout layout;
    QString error;
    if (!ReadEventLayout(*types, type, layout, error)) {
        FUZZ_CHECK(!error.isEmpty());
        return;
    }
    CheckEventLayout(layout);

    RomFile rom;
    OpenScratchRom(image, rom);
    ListRead<EventTable, EventListPlace> list;
    const bool read = ReadEventList(rom, map, QStringLiteral("Fuzzed"), layout, *addresses,
                                    list.Rows, list.Place, error);
    const std::int64_t listed = addressRow[layout.ListColumn + 1].ToInt32();
    if (!list.Check(read, rom, error, image, listed, Limits::MaxEvents, layout.RecordSize)) return;
    FUZZ_CHECK(listed >= 0);
    FUZZ_CHECK(list.Place.Start == addressRow[layout.ListColumn].ToInt32());
}

}  // namespace Target
