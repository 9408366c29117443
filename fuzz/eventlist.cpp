// The event list reader over a fuzzed type row, a fuzzed row of Events.twy
// and a fuzzed ROM. The input is the type's row number (one byte, taken
// modulo 33) and its values in columns 2 to 14, the map's row number (one
// byte) and its values in columns 1 to 9, then the ROM image.
//
// The type's row is checked as the editor checks it, and only a layout that
// passes reaches the reader. A read that succeeds read only inside the ROM,
// holds at most 32 records from the list's position on, the type's record
// size apart, fills only the fields of a record, says so when it holds fewer
// records than the list has, and left the other rows alone. A read that
// fails left the rows and the place alone.
#include <algorithm>
#include <cstdint>
#include <memory>

#include "core/defines.h"
#include "eventedit/eventlist.h"
#include "fuzz/fuzzinput.h"

namespace {
constexpr std::int32_t Untouched = -7;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    static const auto types = std::make_unique<EventTypeTableT>();
    static const auto addresses = std::make_unique<EventAddressTableT>();
    static int lastType = 0;
    static int lastMap = 0;
    (*types)[lastType] = {};
    (*addresses)[lastMap] = {};

    const int type = input.Byte() % EventTypeRows;
    auto& typeRow = (*types)[lastType = type];
    typeRow[TypeName] = Field::Text(QStringLiteral("Fuzzed"));
    for (int c = TypeListColumn; c < EventTypeColumnCount; ++c)
        typeRow[c] = input.NextField();
    const int map = input.Byte();
    auto& addressRow = (*addresses)[lastMap = map];
    addressRow[0] = Field::Number(map);
    for (int c = 1; c < EventAddressColumns; ++c)
        addressRow[c] = input.NextField();
    const QByteArray image = input.Rest();

    EventLayout layout;
    QString error;
    if (!ReadEventLayout(*types, type, layout, error)) {
        FUZZ_CHECK(!error.isEmpty());
        return 0;
    }
    FUZZ_CHECK(layout.ListColumn >= 1 && layout.ListColumn + 1 < EventAddressColumns);
    FUZZ_CHECK(layout.RecordSize >= 1 && layout.RecordSize <= MaxRecordSize);
    FUZZ_CHECK(layout.YField >= 1 && layout.XField == layout.YField + 1);
    FUZZ_CHECK(layout.XField <= layout.RecordSize);
    // Biases are held to 16 bits, so a byte with a bias on or off fits a field.
    for (const int bias : {layout.Bias1, layout.Bias2})
        FUZZ_CHECK(bias >= INT16_MIN && bias <= INT16_MAX);

    RomFile rom;
    OpenScratchRom(image, rom);
    EventTable rows;
    for (EventRecord& record : rows)
        record.fill(Untouched);
    EventListPlace place;
    place.Start = Untouched;
    place.Count = Untouched;
    const bool read =
        ReadEventList(rom, map, QStringLiteral("Fuzzed"), layout, *addresses, rows, place, error);
    // Every position was checked before it was read.
    FUZZ_CHECK(!rom.Failed());
    if (!read) {
        FUZZ_CHECK(!error.isEmpty());
        FUZZ_CHECK(place.Start == Untouched && place.Count == Untouched);
        for (const EventRecord& record : rows)
            for (const std::int32_t field : record)
                FUZZ_CHECK(field == Untouched);
        return 0;
    }
    const std::int64_t listed = addressRow[layout.ListColumn + 1].ToInt32();
    FUZZ_CHECK(listed >= 0);
    FUZZ_CHECK(place.Start == addressRow[layout.ListColumn].ToInt32());
    FUZZ_CHECK(place.Count >= 0 && place.Count <= Limits::MaxEvents);
    FUZZ_CHECK(place.Count == std::min<std::int64_t>(listed, Limits::MaxEvents));
    FUZZ_CHECK(place.Notice.isEmpty() == (listed == place.Count));
    for (int i = 0; i <= Limits::MaxEvents; ++i) {
        for (int k = 0; k < MaxRecordSize; ++k) {
            const std::int32_t field = rows[i][k];
            const bool inList = i < place.Count && k < layout.RecordSize;
            FUZZ_CHECK(inList
                           ? field == ImageByte(image, std::int64_t{place.Start} +
                                                           std::int64_t{layout.RecordSize} * i + k)
                           : field == Untouched);
        }
    }
    return 0;
}
