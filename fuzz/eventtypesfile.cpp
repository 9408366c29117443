// EventTypes.twy over any text: the table is filled only from whole records
// of 15 fields, one row each from row 0, at least one and at most 33; the
// last type is the last row filled; a refused file is told with its name.
// Every row read is then checked as the event editor checks a type, and a
// layout that passes must describe a record the editor can hold.
#include <QByteArray>
#include <cstdint>
#include <memory>

#include "core/eventtables.h"
#include "fuzz/fieldstream.h"
#include "fuzz/fuzzinput.h"

namespace {
const QString Path = QStringLiteral("EventTypes.twy");
constexpr int HeaderLines = 2;
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray content(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    static const auto table = std::make_unique<EventTypeTableT>();
    std::int16_t lastType = -7;
    QString error;
    const bool loaded = LoadEventTypesFile(Path, content, *table, lastType, error);

    bool quoteLeftOpen = false;
    const std::vector<Field> fields = FieldStream(content, HeaderLines, &quoteLeftOpen);
    const std::size_t records = fields.size() / EventTypeColumnCount;
    const bool whole = !quoteLeftOpen && !fields.empty() &&
                       fields.size() % EventTypeColumnCount == 0 &&
                       records <= static_cast<std::size_t>(EventTypeRows);
    FUZZ_CHECK(loaded == whole);
    if (!loaded) {
        FUZZ_CHECK(error.contains(Path));
        FUZZ_CHECK(lastType == -7);
        return 0;
    }
    FUZZ_CHECK(error.isEmpty());
    FUZZ_CHECK(lastType == static_cast<int>(records) - 1);
    for (std::size_t r = 0; r < static_cast<std::size_t>(EventTypeRows); ++r) {
        for (int c = 0; c < EventTypeColumnCount; ++c) {
            const Field& cell = (*table)[r][c];
            // Rows after the last type are empty: the table was cleared.
            FUZZ_CHECK(r < records ? cell == fields[r * EventTypeColumnCount + c] : cell.IsEmpty());
        }
    }

    for (int type = 0; type <= lastType; ++type) {
        EventLayout layout;
        layout.ListColumn = -7;
        QString wrong;
        if (!ReadEventLayout(*table, type, layout, wrong)) {
            FUZZ_CHECK(!wrong.isEmpty());
            FUZZ_CHECK(layout.ListColumn == -7);  // left as it was
            continue;
        }
        // The list's position and count are columns 1 to 9 of Events.twy.
        FUZZ_CHECK(layout.ListColumn >= 1 && layout.ListColumn + 1 < EventAddressColumns);
        FUZZ_CHECK(layout.RecordSize >= 1 && layout.RecordSize <= MaxRecordSize);
        FUZZ_CHECK(layout.YField >= 1 && layout.XField == layout.YField + 1);
        FUZZ_CHECK(layout.XField <= layout.RecordSize);
        // Biases are held to 16 bits, so a byte with a bias on or off fits a field.
        for (const int bias : {layout.Bias1, layout.Bias2})
            FUZZ_CHECK(bias >= INT16_MIN && bias <= INT16_MAX);
        for (int c = TypeTextField; c <= TypeTrainerField; ++c) {
            const int field = (*table)[type][c].ToInt32();
            FUZZ_CHECK(field >= 0 && field <= layout.RecordSize);
        }
    }
    return 0;
}
