#include <gtest/gtest.h>

#include <QByteArray>
#include <QList>

#include "core/field.h"
#include "core/fieldreader.h"
#include "model/printers.h"

namespace {

// Every field of a data file's text after its first line.
QList<Field> FieldsOf(const QByteArray& text) {
    FieldReader reader(text);
    reader.SkipLine();
    QList<Field> fields;
    Field f;
    while (!reader.AtEnd() && reader.ReadField(f))
        fields << f;
    return fields;
}

Field Num(double v) {
    return Field::Number(v);
}
Field Txt(const char* s) {
    return Field::Text(QString::fromUtf8(s));
}
Field Flag(bool v) {
    return Field::Flag(v);
}
const Field None;

}  // namespace

TEST(FieldReader, SplitsTheTextAfterTheFirstLineIntoFieldsOfTheirKind) {
    struct Case {
        const char* what;
        QByteArray text;
        QList<Field> fields;
    };
    const Case cases[] = {
        {"the first line is skipped whole",
         "Header, \"not closed, 12, 13\n7,8\n",
         {Num(7), Num(8)}},
        {"blanks before a field",
         "h\n   12,\t 34,  \"quoted\",   word\n",
         {Num(12), Num(34), Txt("quoted"), Txt("word")}},
        {"quoted text keeps commas and blanks",
         "h\n\"North Road, east\",\" two  blanks \",3\n",
         {Txt("North Road, east"), Txt(" two  blanks "), Num(3)}},
        {"quoted digits and truth values are text",
         "h\n\"12\",\"#FALSE#\"\n",
         {Txt("12"), Txt("#FALSE#")}},
        {"text after the closing quote is dropped", "h\n\"Pier\" east,7\n", {Txt("Pier"), Num(7)}},
        {"a quoted text over a line end", "h\n\"a\nb\",4\n", {Txt("a\nb"), Num(4)}},
        {"empty and blank fields", "h\n1,,3,   ,5\n", {Num(1), None, Num(3), None, Num(5)}},
        {"numbers and text",
         "h\n42,-7,+5,2.5,1e3,.5,Glade,12abc,1-2\n",
         {Num(42), Num(-7), Num(5), Num(2.5), Num(1000), Num(0.5), Txt("Glade"), Txt("12abc"),
          Txt("1-2")}},
        {"unquoted text keeps inner blanks", "h\nOld  Mill   ,x\n", {Txt("Old  Mill"), Txt("x")}},
        {"truth values in any case",
         "h\n#TRUE#,#FALSE#,#true#, #FALSE# \n",
         {Flag(true), Flag(false), Flag(true), Flag(false)}},
        {"nan and inf stay text",
         "h\nNan,Inf,-inf,Infinity\n",
         {Txt("Nan"), Txt("Inf"), Txt("-inf"), Txt("Infinity")}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(FieldsOf(c.text), c.fields);
    }
}

// What one field gives where the program wants a ROM position, a count, a
// text or a flag. Fractions go to the nearest whole number, halves to the
// even neighbour.
TEST(FieldReader, FieldsConvertToPositionsCountsTextAndFlags) {
    struct Case {
        const char* field;
        std::int32_t int32;
        std::int16_t int16;
        const char* text;
        bool flag;
    };
    const Case cases[] = {
        {"", 0, 0, "", false},
        {"#FALSE#", 0, 0, "False", false},
        {"42", 42, 42, "42", true},
        {"#TRUE#", -1, -1, "True", true},
        {"yes", 0, 0, "yes", true},
        {"\"12\"", 12, 12, "12", true},
        {"2.5", 2, 2, "2.5", true},
        {"-2.5", -2, -2, "-2.5", true},
        {"-70000", -70000, -32768, "-70000", true},
        {"99999999999", 2147483647, 32767, "99999999999", true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.field);
        const QList<Field> fields = FieldsOf(QByteArray("h\n") + c.field + ",end\n");
        ASSERT_EQ(fields.size(), 2);
        EXPECT_EQ(fields[0].ToInt32(), c.int32);
        EXPECT_EQ(fields[0].ToInt16(), c.int16);
        EXPECT_EQ(fields[0].ToText().toStdString(), c.text);
        EXPECT_EQ(fields[0].IsTrue(), c.flag);
    }
}
