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
        {"quoted digits and truth values are text, after blanks",
         "h\n  \"12\",\t\"#FALSE#\"\n",
         {Txt("12"), Txt("#FALSE#")}},
        {"quoted blanks are kept, text after the closing quote is dropped",
         "h\n\" Pier  \" east,7\n",
         {Txt(" Pier  "), Num(7)}},
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
