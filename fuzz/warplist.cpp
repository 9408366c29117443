// The warp list reader over a fuzzed map row and a fuzzed ROM. The input is
// the map's row number (one byte), the list (even: warps, odd: warp-to
// points), the values of the row (name, object position, warp-to position,
// warp-to count), then the ROM image.
//
// A read that succeeds read only inside the ROM, holds at most 16 entries
// from its start on, four ROM bytes each, says so when it holds fewer than
// the list has, and left the rows after its count alone. A read that fails
// left the rows and the place alone.
#include <algorithm>

#include "core/defines.h"
#include "fuzz/fuzzinput.h"
#include "warpedit/warplist.h"

namespace {
constexpr std::int32_t Untouched = -7;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const int map = input.Byte();
    const WarpMode mode = input.Byte() % 2 == 0 ? WarpMode::Warps : WarpMode::WarpTo;
    std::array<Field, MapColumnCount> row{};
    for (const int c : {MapName, MapObjectPos, MapWarpToPos, MapWarpToCount})
        row[c] = input.NextField();
    const QByteArray image = input.Rest();

    static int lastMap = 0;
    Defines.MapTable[lastMap] = {};
    Defines.MapTable[lastMap = map] = row;

    RomFile rom;
    OpenScratchRom(image, rom);
    WarpTable rows;
    for (WarpRecord& record : rows)
        record.fill(Untouched);
    WarpListPlace place;
    place.Start = Untouched;
    place.Count = Untouched;
    QString error;
    const bool read = ReadWarpList(rom, map, mode, rows, place, error);
    // Every position was checked before it was read.
    FUZZ_CHECK(!rom.Failed());
    if (!read) {
        FUZZ_CHECK(!error.isEmpty());
        FUZZ_CHECK(place.Start == Untouched && place.Count == Untouched);
        for (const WarpRecord& record : rows)
            for (const std::int32_t field : record)
                FUZZ_CHECK(field == Untouched);
        return 0;
    }

    // How many entries the list has, by its count byte or by the Maps file.
    std::int64_t listed = 0;
    if (mode == WarpMode::Warps) {
        const std::int64_t objects = row[MapObjectPos].ToInt32();
        listed = ImageByte(image, objects + 1);
        FUZZ_CHECK(place.Start == objects + 2);
    } else {
        listed = row[MapWarpToCount].ToInt32();
        FUZZ_CHECK(place.Start == row[MapWarpToPos].ToInt32());
    }
    FUZZ_CHECK(place.Count >= 0 && place.Count <= Limits::MaxWarps);
    FUZZ_CHECK(place.Count == std::clamp<std::int64_t>(listed, 0, Limits::MaxWarps));
    FUZZ_CHECK(place.Notice.isEmpty() == (listed == place.Count));
    for (int i = 0; i <= Limits::MaxWarps; ++i) {
        for (int k = 0; k < 4; ++k) {
            const std::int32_t field = rows[i][k];
            FUZZ_CHECK(i >= place.Count
                           ? field == Untouched
                           : field == ImageByte(image, std::int64_t{place.Start} + 4 * i + k));
        }
    }
    return 0;
}
