// The tileset file over any text: a table is filled only from whole records
// of 7 fields, one row each from row 0, never more than 256, and a file the
// loader refuses is told with its name.
#include <QByteArray>
#include <memory>

#include "core/tables.h"
#include "fuzz/fieldstream.h"
#include "fuzz/fuzzinput.h"

namespace {
const QString Path = QStringLiteral("TilesetsR.twy");
// A cell no file gives, to see which rows the loader left alone.
const Field Untouched = Field::Text(QStringLiteral("\x01untouched"));
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray content(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    static const auto table = std::make_unique<TilesetTableT>();
    for (auto& row : *table)
        row.fill(Untouched);
    QString error;
    const bool loaded = LoadTilesetFile(Path, content, *table, error);

    bool quoteLeftOpen = false;
    const std::vector<Field> fields = FieldStream(content, 1, &quoteLeftOpen);
    const std::size_t records = fields.size() / TilesetColumnCount;
    const bool whole = !quoteLeftOpen && !fields.empty() &&
                       fields.size() % TilesetColumnCount == 0 &&
                       records <= static_cast<std::size_t>(Limits::TableRows);
    FUZZ_CHECK(loaded == whole);
    if (!loaded) {
        FUZZ_CHECK(error.contains(Path));
        return 0;
    }
    FUZZ_CHECK(error.isEmpty());
    for (std::size_t r = 0; r < static_cast<std::size_t>(Limits::TableRows); ++r) {
        for (int c = 0; c < TilesetColumnCount; ++c) {
            const Field& cell = (*table)[r][c];
            FUZZ_CHECK(r < records ? cell == fields[r * TilesetColumnCount + c]
                                   : cell == Untouched);
        }
    }
    return 0;
}
