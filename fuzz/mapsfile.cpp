// Maps.twy over any text: the categories it fills name map rows inside the
// table, the count of categories is a row of the category table, rows no
// category names stay as they were, and a refused file is told with its name.
#include <QByteArray>
#include <memory>
#include <vector>

#include "core/tables.h"
#include "fuzz/fuzzinput.h"

namespace {
const QString Path = QStringLiteral("Maps.twy");
const Field Untouched = Field::Text(QStringLiteral("\x01untouched"));
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray content(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    static const auto categories = std::make_unique<CategoryTableT>();
    static const auto maps = std::make_unique<MapTableT>();
    for (auto& row : *categories)
        row.fill(Untouched);
    for (auto& row : *maps)
        row.fill(Untouched);
    std::int16_t count = -7;
    QString error;
    if (!LoadMapsFile(Path, content, *categories, *maps, count, error)) {
        FUZZ_CHECK(error.contains(Path));
        FUZZ_CHECK(count == -7);
        return 0;
    }
    FUZZ_CHECK(error.isEmpty());
    FUZZ_CHECK(count >= 0 && count < Limits::TableRows);
    std::vector<bool> named(Limits::TableRows, false);
    for (int c = 0; c < Limits::TableRows; ++c) {
        const auto& cat = (*categories)[c];
        if (c > count) {
            for (const Field& cell : cat)
                FUZZ_CHECK(cell == Untouched);
            continue;
        }
        // Column 0 is never filled.
        FUZZ_CHECK(cat[0].IsEmpty());
        const int first = cat[CatFirstMap].ToInt16();
        const int maps = cat[CatMapCount].ToInt16();
        FUZZ_CHECK(first >= 0 && first < Limits::TableRows);
        FUZZ_CHECK(maps >= 0 && first + maps <= Limits::TableRows);
        for (int r = first; r < first + maps; ++r)
            named[r] = true;
    }
    for (int r = 0; r < Limits::TableRows; ++r) {
        if (named[r]) continue;
        for (const Field& cell : (*maps)[r])
            FUZZ_CHECK(cell == Untouched);
    }
    return 0;
}
