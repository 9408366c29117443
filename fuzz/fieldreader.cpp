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
    // Each field takes at least one character, so there are never more fields
    // than characters; more would mean a reader that stands still.
    std::size_t fields = 0;
    int line = reader.Line();
    Field field;
    while (!reader.AtEnd()) {
        // Something other than blanks and line ends is left, so a field begins.
        FUZZ_CHECK(reader.ReadField(field));
        FUZZ_CHECK(++fields <= size);
        FUZZ_CHECK(reader.Line() >= line);
        line = reader.Line();
        // Every conversion the tables make of a field.
        (void)field.ToInt32();
        (void)field.ToInt16();
        (void)field.ToText();
        (void)field.IsTrue();
        FUZZ_CHECK(field.IsEmpty() == (field.kind() == Field::Kind::Empty));
    }
    FUZZ_CHECK(!reader.ReadField(field) || reader.AtEnd());

    // Skipping lines alone also reaches the end, one line at a time.
    FieldReader lines(content);
    std::size_t skipped = 0;
    while (!lines.AtEnd()) {
        lines.SkipLine();
        FUZZ_CHECK(++skipped <= size);
    }
    return 0;
}
