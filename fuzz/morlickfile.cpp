// Morlick.twy over any text: every species lands at the row of its code and
// at the row of its list place, the count is a number of list places the
// species list can show, and a refused file is told with its name.
#include <QByteArray>
#include <memory>

#include "core/morlickfile.h"
#include "fuzz/fuzzinput.h"

namespace {
const QString Path = QStringLiteral("Morlick.twy");
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray content(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    static const auto tables = std::make_unique<MorlickTables>();
    QString error;
    if (!LoadMorlickFile(Path, content, *tables, error)) {
        FUZZ_CHECK(error.contains(Path));
        return 0;
    }
    FUZZ_CHECK(error.isEmpty());
    // The species list shows the places 1 to Count, each a row of ByList.
    FUZZ_CHECK(tables->Count >= 0 && tables->Count < static_cast<int>(tables->ByList.size()));
    int named = 0;
    for (int code = 0; code < Limits::TableRows; ++code) {
        const MorlickEntry& entry = tables->ByCode[code];
        if (entry.Name.isEmpty() && entry.Place == 0 && entry.Code == 0) continue;
        ++named;
        FUZZ_CHECK(entry.Code == code);
        FUZZ_CHECK(entry.Place >= 0 && entry.Place < Limits::TableRows);
    }
    FUZZ_CHECK(named <= tables->Count);
    for (int place = 0; place < Limits::TableRows; ++place) {
        const MorlickEntry& entry = tables->ByList[place];
        FUZZ_CHECK(entry.Code >= 0 && entry.Code < Limits::TableRows);
        FUZZ_CHECK(entry.Place == 0 || entry.Place == place);
    }
    return 0;
}
