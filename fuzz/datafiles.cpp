// The checks of the fuzz targets of the data files' readers, each over any
// text: Target::<name> is the check of the target fuzz_<name>. A file a
// loader refuses is told with its name; a
// file it takes fills its tables as the field reader's stream of the text
// says, and leaves every other row alone.
#include <QByteArray>
#include <memory>
#include <vector>

#include "core/eventtables.h"
#include "core/fieldreader.h"
#include "core/morlickfile.h"
#include "core/tables.h"
#include "fuzz/fuzzinput.h"

namespace {

// A cell no file gives, to see which rows a loader left alone.
const Field Untouched = Field::Text(QStringLiteral("\x01untouched"));

template <class Table>
void Fill(Table& table, const Field& cell) {
    for (auto& row : table)
        row.fill(cell);
}

// A loader's word on a file: a refusal names the file, a load says nothing.
bool Told(bool loaded, const QString& error, const QString& path) {
    FUZZ_CHECK(loaded ? error.isEmpty() : error.contains(path));
    return loaded;
}

// The fields of a data file's text as one stream: `headerLines` lines
// skipped, then every field the field reader gives until it says the text
// has ended. A loader that reads records of n fields must fill its rows with
// exactly these fields, n at a time, so a target can check a table against
// it without a second reader of the file format. A quote left open at the
// end of the text makes the file damaged however many fields it gave.
std::vector<Field> FieldStream(const QByteArray& content, int headerLines, bool& quoteLeftOpen) {
    FieldReader reader(content);
    for (int i = 0; i < headerLines; ++i)
        reader.SkipLine();
    std::vector<Field> fields;
    Field field;
    while (reader.ReadField(field)) {
        fields.push_back(field);
        // Every field takes at least one character, or ends the text.
        FUZZ_CHECK(fields.size() <= static_cast<std::size_t>(content.size()) + 1);
    }
    quoteLeftOpen = reader.QuoteLeftOpenLine() != 0;
    return fields;
}

// A table filled only from whole records of its columns, one row each from
// row 0, never more than its rows: the load succeeds exactly then, and the
// rows after the records hold `after`. Returns the number of records.
template <class Table>
std::size_t CheckRecordRows(bool loaded, const Table& table, const QByteArray& content,
                            int headerLines, const Field& after) {
    bool quoteLeftOpen = false;
    const std::vector<Field> fields = FieldStream(content, headerLines, quoteLeftOpen);
    const std::size_t columns = table[0].size();
    const std::size_t records = fields.size() / columns;
    FUZZ_CHECK(loaded == (!quoteLeftOpen && !fields.empty() && fields.size() % columns == 0 &&
                          records <= table.size()));
    if (!loaded) return 0;
    for (std::size_t r = 0; r < table.size(); ++r)
        for (std::size_t c = 0; c < columns; ++c)
            FUZZ_CHECK(table[r][c] == (r < records ? fields[r * columns + c] : after));
    return records;
}

}  // namespace

namespace Target {

// The field reader must read fields up to the end of the text and stop
// there, every call moving on, whatever the bytes are.
void fieldreader(FuzzInput& input) {
    const QByteArray content = input.Rest();
    const auto size = static_cast<std::size_t>(content.size());
    // As the data files are read: the first line skipped, then fields to the end.
    FieldReader reader(content);
    reader.SkipLine();
    // Each field takes at least one character, but for the empty one after a
    // comma at the end, so there are never more fields than characters and
    // one; more would mean a reader that stands still.
    std::size_t fields = 0;
    int line = reader.Line();
    Field field;
    for (;;) {
        // Where AtEnd says the text has ended, ReadField agrees, and nowhere else.
        const bool atEnd = reader.AtEnd();
        const bool read = reader.ReadField(field);
        FUZZ_CHECK(read == !atEnd);
        if (!read) break;
        FUZZ_CHECK(++fields <= size + 1);
        FUZZ_CHECK(reader.Line() >= line);
        line = reader.Line();
        // Every conversion the tables make of a field.
        (void)field.ToInt32();
        (void)field.ToInt16();
        (void)field.ToText();
        (void)field.IsTrue();
        FUZZ_CHECK(field.IsEmpty() == (field.kind() == Field::Kind::Empty));
        FUZZ_CHECK(field.kind() != Field::Kind::Empty || field.Written().isEmpty());
    }

    // Skipping lines alone also reaches the end, one line at a time.
    FieldReader lines(content);
    std::size_t skipped = 0;
    while (!lines.AtEnd()) {
        lines.SkipLine();
        FUZZ_CHECK(++skipped <= size);
    }
}

// Records of 7 fields, at most 256.
void tilesetfile(FuzzInput& input) {
    const QByteArray content = input.Rest();
    const QString path = QStringLiteral("TilesetsR.twy");
    static const auto table = std::make_unique<TilesetTableT>();
    Fill(*table, Untouched);
    QString error;
    const bool loaded = Told(LoadTilesetFile(path, content, *table, error), error, path);
    CheckRecordRows(loaded, *table, content, 1, Untouched);
}

// The categories Maps.twy fills name map rows inside the table, the count of
// categories is a row of the category table, and rows no category names
// stay as they were.
void mapsfile(FuzzInput& input) {
    const QByteArray content = input.Rest();
    const QString path = QStringLiteral("Maps.twy");
    static const auto categories = std::make_unique<CategoryTableT>();
    static const auto maps = std::make_unique<MapTableT>();
    Fill(*categories, Untouched);
    Fill(*maps, Untouched);
    std::int16_t count = -7;
    QString error;
    if (!Told(LoadMapsFile(path, content, *categories, *maps, count, error), error, path)) {
        FUZZ_CHECK(count == -7);
        return;
    }
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
        const int mapCount = cat[CatMapCount].ToInt16();
        FUZZ_CHECK(first >= 0 && first < Limits::TableRows);
        FUZZ_CHECK(mapCount >= 0 && first + mapCount <= Limits::TableRows);
        for (int r = first; r < first + mapCount; ++r)
            named[r] = true;
    }
    for (int r = 0; r < Limits::TableRows; ++r) {
        if (named[r]) continue;
        for (const Field& cell : (*maps)[r])
            FUZZ_CHECK(cell == Untouched);
    }
}

// Every species of Morlick.twy lands at the row of its code and at the row
// of its list place, and the count is a number of list places the species
// list can show.
void morlickfile(FuzzInput& input) {
    const QByteArray content = input.Rest();
    const QString path = QStringLiteral("Morlick.twy");
    static const auto tables = std::make_unique<MorlickTables>();
    QString error;
    if (!Told(LoadMorlickFile(path, content, *tables, error), error, path)) return;
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
}

// Records of 15 fields, at least one and at most 33, the rows after them
// cleared; the last type is the last row filled. Every row read is then
// checked as the event editor checks a type.
void eventtypesfile(FuzzInput& input) {
    const QByteArray content = input.Rest();
    const QString path = QStringLiteral("EventTypes.twy");
    static const auto table = std::make_unique<EventTypeTableT>();
    Fill(*table, Untouched);
    std::int16_t lastType = -7;
    QString error;
    const bool loaded =
        Told(LoadEventTypesFile(path, content, *table, lastType, error), error, path);
    const auto records = static_cast<int>(CheckRecordRows(loaded, *table, content, 2, Field()));
    FUZZ_CHECK(lastType == (loaded ? records - 1 : -7));
    for (int type = 0; type <= lastType; ++type) {
        EventLayout layout;
        layout.ListColumn = -7;
        QString wrong;
        if (!ReadEventLayout(*table, type, layout, wrong)) {
            FUZZ_CHECK(!wrong.isEmpty());
            FUZZ_CHECK(layout.ListColumn == -7);  // left as it was
            continue;
        }
        CheckEventLayout(layout);
        for (int c = TypeTextField; c <= TypeTrainerField; ++c) {
            const int field = (*table)[type][c].ToInt32();
            FUZZ_CHECK(field >= 0 && field <= layout.RecordSize);
        }
    }
}

// Records of 10 fields, each at the row its first field names, which must be
// a number from 0 to 255; a later record for a row replaces an earlier one,
// and rows no record names are empty.
void eventsfile(FuzzInput& input) {
    const QByteArray content = input.Rest();
    const QString path = QStringLiteral("Events.twy");
    static const auto table = std::make_unique<EventAddressTableT>();
    Fill(*table, Untouched);
    QString error;
    const bool loaded = Told(LoadEventsFile(path, content, *table, error), error, path);

    // What the records of the stream make of the table.
    bool quoteLeftOpen = false;
    const std::vector<Field> fields = FieldStream(content, 2, quoteLeftOpen);
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
    if (!loaded) return;
    for (int r = 0; r < Limits::TableRows; ++r)
        for (int c = 0; c < EventAddressColumns; ++c)
            FUZZ_CHECK((*table)[r][c] ==
                       (lastRecordOf[r] < 0 ? Field() : fields[lastRecordOf[r] + c]));
}

}  // namespace Target
