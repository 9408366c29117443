#include "fuzz/fieldstream.h"

#include "core/fieldreader.h"
#include "fuzz/fuzzinput.h"

std::vector<Field> FieldStream(const QByteArray& content, int headerLines, bool* quoteLeftOpen) {
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
    if (quoteLeftOpen) *quoteLeftOpen = reader.QuoteLeftOpenLine() != 0;
    return fields;
}
