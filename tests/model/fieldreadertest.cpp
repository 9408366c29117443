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

}  // namespace

TEST(FieldReader, FirstLineIsSkippedWholeWhateverItHolds) {
    // The first line holds commas, a quote that never closes and numbers: none
    // of it is a field.
    const auto fields = FieldsOf("Header, \"not closed, 12, 13\n7,8\n");
    ASSERT_EQ(fields.size(), 2);
    EXPECT_EQ(fields[0], Num(7));
    EXPECT_EQ(fields[1], Num(8));

    // A file whose first line is empty starts its fields on line 2.
    const auto second = FieldsOf("\n5\n");
    ASSERT_EQ(second.size(), 1);
    EXPECT_EQ(second[0], Num(5));
}

TEST(FieldReader, CommaAndLineEndBothSeparateFields) {
    const auto fields = FieldsOf("h\n1,2\n3\n4,5\n");
    ASSERT_EQ(fields.size(), 5);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(fields[i], Num(i + 1)) << "field " << i;
}

TEST(FieldReader, BlanksBeforeAFieldAreSkipped) {
    const auto fields = FieldsOf("h\n   12,\t 34,  \"quoted\",   word\n");
    ASSERT_EQ(fields.size(), 4);
    EXPECT_EQ(fields[0], Num(12));
    EXPECT_EQ(fields[1], Num(34));
    EXPECT_EQ(fields[2], Txt("quoted"));
    EXPECT_EQ(fields[3], Txt("word"));
}

TEST(FieldReader, QuotedTextHoldsCommasAndBlanks) {
    const auto fields = FieldsOf("h\n\"North Road, east\",\" two  blanks \",3\n");
    ASSERT_EQ(fields.size(), 3);
    EXPECT_EQ(fields[0], Txt("North Road, east"));
    EXPECT_EQ(fields[1], Txt(" two  blanks "));
    EXPECT_EQ(fields[2], Num(3));
    // Quoted digits are text, not a number.
    const auto digits = FieldsOf("h\n\"12\"\n");
    ASSERT_EQ(digits.size(), 1);
    EXPECT_EQ(digits[0].kind(), Field::Kind::Text);
    EXPECT_EQ(digits[0].ToText(), QStringLiteral("12"));
}

TEST(FieldReader, RecordSplitOverTwoLinesReadsAsOnOneLine) {
    const auto oneLine = FieldsOf("h\n1,\"Mossy Den\",300,#TRUE#,,-2\n");
    const auto twoLines = FieldsOf("h\n1,\"Mossy Den\"\n300,#TRUE#,\n-2\n");
    ASSERT_EQ(oneLine.size(), 6);
    EXPECT_EQ(oneLine, twoLines);
}

TEST(FieldReader, EmptyFieldIsEmptyZeroAndFalse) {
    const auto fields = FieldsOf("h\n1,,3\n");
    ASSERT_EQ(fields.size(), 3);
    const Field& empty = fields[1];
    EXPECT_TRUE(empty.IsEmpty());
    EXPECT_EQ(empty.ToInt32(), 0);
    EXPECT_EQ(empty.ToInt16(), 0);
    EXPECT_EQ(empty.ToText(), QString());
    EXPECT_FALSE(empty.IsTrue());
    // Blanks alone make an empty field too.
    const auto blank = FieldsOf("h\n1,   ,3\n");
    ASSERT_EQ(blank.size(), 3);
    EXPECT_TRUE(blank[1].IsEmpty());
}

TEST(FieldReader, NumbersAndTextKeepTheirKind) {
    const auto fields = FieldsOf("h\n42,-7,+5,2.5,1e3,Glade,12abc,1-2,.5\n");
    ASSERT_EQ(fields.size(), 9);
    EXPECT_EQ(fields[0], Num(42));
    EXPECT_EQ(fields[1], Num(-7));
    EXPECT_EQ(fields[2], Num(5));
    EXPECT_EQ(fields[3], Num(2.5));
    EXPECT_EQ(fields[4], Num(1000));
    EXPECT_EQ(fields[5], Txt("Glade"));
    EXPECT_EQ(fields[6], Txt("12abc"));
    EXPECT_EQ(fields[7], Txt("1-2"));
    EXPECT_EQ(fields[8], Num(0.5));
    // Text converts to 0 where a number is wanted, numbers round to the nearest.
    EXPECT_EQ(fields[5].ToInt32(), 0);
    EXPECT_EQ(Num(2.6).ToInt32(), 3);
    EXPECT_EQ(Num(-2.6).ToInt32(), -3);
    EXPECT_EQ(fields[0].ToText(), QStringLiteral("42"));
    // An unquoted text keeps its inner blanks and loses the trailing ones.
    const auto words = FieldsOf("h\nOld  Mill   ,x\n");
    ASSERT_EQ(words.size(), 2);
    EXPECT_EQ(words[0], Txt("Old  Mill"));
}

TEST(FieldReader, LargePositionsAndCountsAreHeldToTheirWidth) {
    const auto fields = FieldsOf("h\n2147483647,70000,-70000,99999999999\n");
    ASSERT_EQ(fields.size(), 4);
    EXPECT_EQ(fields[0].ToInt32(), 2147483647);
    EXPECT_EQ(fields[1].ToInt32(), 70000);
    EXPECT_EQ(fields[1].ToInt16(), 32767);
    EXPECT_EQ(fields[2].ToInt16(), -32768);
    EXPECT_EQ(fields[3].ToInt32(), 2147483647);
}

TEST(FieldReader, TruthValuesAreFlags) {
    const auto fields = FieldsOf("h\n#TRUE#,#FALSE#,#true#, #FALSE# \n");
    ASSERT_EQ(fields.size(), 4);
    EXPECT_EQ(fields[0], Field::Flag(true));
    EXPECT_EQ(fields[1], Field::Flag(false));
    EXPECT_EQ(fields[2], Field::Flag(true));
    EXPECT_EQ(fields[3], Field::Flag(false));
    EXPECT_TRUE(fields[0].IsTrue());
    EXPECT_FALSE(fields[1].IsTrue());
    // A quoted truth value is text, which tests true.
    const auto quoted = FieldsOf("h\n\"#FALSE#\"\n");
    ASSERT_EQ(quoted.size(), 1);
    EXPECT_EQ(quoted[0].kind(), Field::Kind::Text);
}

TEST(FieldReader, FlagColumnIsFalseOnlyForFalseZeroOrNothing) {
    const auto fields = FieldsOf("h\n0,0.0,-0,,#FALSE#,\"\",1,-1,2,#TRUE#,yes\n");
    ASSERT_EQ(fields.size(), 11);
    for (int i = 0; i < 6; ++i)
        EXPECT_FALSE(fields[i].IsTrue()) << "field " << i;
    for (int i = 6; i < 11; ++i)
        EXPECT_TRUE(fields[i].IsTrue()) << "field " << i;
}

TEST(FieldReader, NanAndInfStayText) {
    const auto fields = FieldsOf("h\nNan,Inf,-inf,Infinity,nan\n");
    ASSERT_EQ(fields.size(), 5);
    for (const Field& f : fields)
        EXPECT_EQ(f.kind(), Field::Kind::Text) << f.ToText().toStdString();
    EXPECT_EQ(fields[0].ToText(), QStringLiteral("Nan"));
    EXPECT_EQ(fields[1].ToText(), QStringLiteral("Inf"));
    EXPECT_EQ(fields[0].ToInt32(), 0);
}

TEST(FieldReader, TextThatIsNoPlainNumberCountsAsZero) {
    const auto fields = FieldsOf("h\nNan,Inf,-inf,Infinity,\"inf\"\n");
    ASSERT_EQ(fields.size(), 5);
    for (const Field& f : fields) {
        EXPECT_EQ(f.ToInt32(), 0) << f.ToText().toStdString();
        EXPECT_EQ(f.ToInt16(), 0) << f.ToText().toStdString();
    }
}

TEST(FieldReader, CrLfLineEndsReadAsLfLineEnds) {
    const auto lf = FieldsOf("head,er\n1,\"a, b\"\n2\n,3\n");
    const auto crlf = FieldsOf("head,er\r\n1,\"a, b\"\r\n2\r\n,3\r\n");
    ASSERT_EQ(lf.size(), 5);
    EXPECT_EQ(lf, crlf);
    EXPECT_TRUE(crlf[3].IsEmpty());
    // A line end never leaks into a field.
    EXPECT_EQ(crlf[2], Num(2));
}

TEST(FieldReader, TrailingEmptyLinesCountAsTheEnd) {
    FieldReader reader("h\n1,2\n\n\r\n  \n");
    reader.SkipLine();
    Field f;
    ASSERT_TRUE(reader.ReadField(f));
    EXPECT_FALSE(reader.AtEnd());
    ASSERT_TRUE(reader.ReadField(f));
    EXPECT_EQ(f, Num(2));
    EXPECT_TRUE(reader.AtEnd());

    // No line end after the last field is the end as well.
    FieldReader bare("h\n1,2");
    bare.SkipLine();
    ASSERT_TRUE(bare.ReadField(f));
    ASSERT_TRUE(bare.ReadField(f));
    EXPECT_EQ(f, Num(2));
    EXPECT_TRUE(bare.AtEnd());
    EXPECT_FALSE(bare.ReadField(f));

    // Text after the blank lines is not the end.
    FieldReader more("h\n1\n\n5\n");
    more.SkipLine();
    ASSERT_TRUE(more.ReadField(f));
    EXPECT_FALSE(more.AtEnd());
}

TEST(FieldReader, TrailingCommaBeforeLineEndGivesAnEmptyField) {
    FieldReader reader("h\n1,\n2\n");
    reader.SkipLine();
    Field f;
    ASSERT_TRUE(reader.ReadField(f));
    EXPECT_EQ(f, Num(1));
    ASSERT_TRUE(reader.ReadField(f));
    EXPECT_TRUE(f.IsEmpty());
    ASSERT_TRUE(reader.ReadField(f));
    EXPECT_EQ(f, Num(2));
    EXPECT_TRUE(reader.AtEnd());
}

TEST(FieldReader, ReadingPastTheEndFails) {
    FieldReader reader("only a header\n");
    reader.SkipLine();
    EXPECT_TRUE(reader.AtEnd());
    Field f = Num(9);
    EXPECT_FALSE(reader.ReadField(f));

    FieldReader empty("");
    empty.SkipLine();
    EXPECT_TRUE(empty.AtEnd());
    EXPECT_FALSE(empty.ReadField(f));
}

TEST(FieldReader, LineCountFollowsTheFieldsForMessages) {
    FieldReader reader("h\n1,2\n3\r\n\"a\nb\",4\n");
    EXPECT_EQ(reader.Line(), 1);
    reader.SkipLine();
    EXPECT_EQ(reader.Line(), 2);
    Field f;
    reader.ReadField(f);
    EXPECT_EQ(reader.Line(), 2);
    reader.ReadField(f);
    EXPECT_EQ(reader.Line(), 3);
    reader.ReadField(f);
    EXPECT_EQ(reader.Line(), 4);
    reader.ReadField(f);  // a quoted text over a line end
    EXPECT_EQ(f, Txt("a\nb"));
    EXPECT_EQ(reader.Line(), 5);
}

TEST(FieldReader, TextAfterTheClosingQuoteIsDropped) {
    const auto fields = FieldsOf("h\n\"Pier\" east,7\n");
    ASSERT_EQ(fields.size(), 2);
    EXPECT_EQ(fields[0], Txt("Pier"));
    EXPECT_EQ(fields[1], Num(7));
}

TEST(FieldReader, Latin1TextStillReads) {
    // A name written by an older editor in Latin-1 is not valid UTF-8.
    const auto fields = FieldsOf(QByteArray("h\n\"Caf\xE9\",1\n"));
    ASSERT_EQ(fields.size(), 2);
    EXPECT_EQ(fields[0].ToText(), QString::fromUtf8("Caf\xC3\xA9"));
    const auto utf8 = FieldsOf(QByteArray("h\n\"Caf\xC3\xA9\",1\n"));
    ASSERT_EQ(utf8.size(), 2);
    EXPECT_EQ(utf8[0].ToText(), QString::fromUtf8("Caf\xC3\xA9"));
}
