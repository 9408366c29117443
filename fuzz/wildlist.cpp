// The wild list reader over a fuzzed position and a fuzzed ROM. The input is
// the value of the map's wild position, then the ROM image.
//
// A read that succeeds read only inside the ROM and gave every slot its
// level and species byte, in that order; a read that fails left the list
// alone.
#include "wildedit/wildlist.h"
#include "fuzz/fuzzinput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const std::int32_t position = input.NextField().ToInt32();
    const QByteArray image = input.Rest();
    const QString path = WriteScratchFile(QStringLiteral("rom.gb"), image);

    WildList list;
    list.fill({-7, -7});
    QString error;
    if (!ReadWildList(path, position, list, error)) {
        FUZZ_CHECK(!error.isEmpty());
        for (const WildSlot& slot : list)
            FUZZ_CHECK(slot.Level == -7 && slot.Species == -7);
        return 0;
    }
    std::int64_t p = position;
    for (const WildSlot& slot : list) {
        FUZZ_CHECK(slot.Level == ImageByte(image, p++));
        FUZZ_CHECK(slot.Species == ImageByte(image, p++));
    }
    return 0;
}
