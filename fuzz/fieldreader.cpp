// The field reader over any text: it must read fields up to the end of the
// text and stop there, every call moving on, whatever the bytes are.
#include <QByteArray>

#include "core/field.h"
#include "core/fieldreader.h"
#include "fuzz/fuzzinput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray content(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));

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
    return 0;
}
