// Events.twy over any text: the table is filled only from whole records of
// 10 fields, each record at the row its first field names, which must be a
// number from 0 to 255; a later record for a row replaces an earlier one,
// rows no record names stay empty, and a refused file is told with its name.
#include <QByteArray>
#include <memory>
#include <vector>

#include "core/eventtables.h"
#include "fuzz/fieldstream.h"
#include "fuzz/fuzzinput.h"

namespace {
const QString Path = QStringLiteral("Events.twy");
constexpr int HeaderLines = 2;
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray content(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    static const auto table = std::make_unique<EventAddressTableT>();
    QString error;
    const bool loaded = LoadEventsFile(Path, content, *table, error);

    // What the records of the stream make of the table.
    bool quoteLeftOpen = false;
    const std::vector<Field> fields = FieldStream(content, HeaderLines, &quoteLeftOpen);
    bool whole = !quoteLeftOpen && fields.size() % EventAddressColumns == 0;
    std::vector<int> lastRecordOf(Limits::TableRows, -1);
    for (std::size_t start = 0; whole && start < fields.size(); start += EventAddressColumns) {
        const Field& row = fields[start];
        const int map = row.ToInt32();
        if (row.kind() != Field::Kind::Number || map < 0 || map >= Limits::TableRows)
            whole = false;
        else
            lastRecordOf[map] = static_cast<int>(start);
    }
    FUZZ_CHECK(loaded == whole);
    if (!loaded) {
        FUZZ_CHECK(error.contains(Path));
        return 0;
    }
    FUZZ_CHECK(error.isEmpty());
    for (int r = 0; r < Limits::TableRows; ++r) {
        for (int c = 0; c < EventAddressColumns; ++c) {
            const Field& cell = (*table)[r][c];
            FUZZ_CHECK(lastRecordOf[r] < 0 ? cell.IsEmpty() : cell == fields[lastRecordOf[r] + c]);
        }
    }
    return 0;
}
