#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "core/morlickfile.h"
#include "model/files.h"

namespace {
class MorlickFile : public ::testing::Test {
protected:
    bool Load(const QByteArray& text) {
        Path = Dir.filePath(QStringLiteral("Morlick.twy"));
        EXPECT_TRUE(TestFiles::Write(Path, text));
        Error.clear();
        return LoadMorlickFile(Path, Tables, Error);
    }
    QTemporaryDir Dir;
    QString Path;
    MorlickTables Tables;
    QString Error;
};
}  // namespace

TEST_F(MorlickFile, CodesAreHexadecimalHoweverTheyAreWrittenAndPlacesOrderTheList) {
    // No line is skipped; records in any order, split over lines, quoted or not.
    ASSERT_TRUE(
        Load("4\n10,\"Sixteen\",3\r\n\"0A\",Ten,1\n\"10\",\"Sixteen again\"\n4\nff,\"Last\",2\n\n"))
        << Error.toStdString();
    EXPECT_EQ(Tables.Count, 4);
    EXPECT_EQ(Tables.ByCode[16].Name, QStringLiteral("Sixteen again"));
    EXPECT_EQ(Tables.ByCode[16].Place, 4);
    EXPECT_EQ(Tables.ByCode[10].Name, QStringLiteral("Ten"));
    EXPECT_EQ(Tables.ByCode[255].Place, 2);
    // The list by place; place 3 keeps the record that named it.
    EXPECT_EQ(Tables.ByList[1].Code, 10);
    EXPECT_EQ(Tables.ByList[2].Code, 255);
    EXPECT_EQ(Tables.ByList[3].Name, QStringLiteral("Sixteen"));
    EXPECT_EQ(Tables.ByList[3].Code, 16);
    EXPECT_EQ(Tables.ByList[4].Name, QStringLiteral("Sixteen again"));
    // A code no record gives is an empty row.
    EXPECT_EQ(Tables.ByCode[0x11].Name, QString());
    EXPECT_EQ(Tables.ByCode[0x11].Place, 0);
    EXPECT_EQ(Tables.ByCode[0x11].Code, 0);
    EXPECT_FALSE(Tables.ByCode[0x11].Named);
    EXPECT_TRUE(Tables.ByCode[10].Named);
    // The records stay as the file gives them, the repeated code included.
    ASSERT_EQ(Tables.Records.size(), 4u);
    EXPECT_EQ(Tables.Records[0].Name, QStringLiteral("Sixteen"));
    EXPECT_EQ(Tables.Records[2].Code, 16);
    EXPECT_EQ(Tables.Records[2].Place, 4);
    EXPECT_EQ(Tables.Records[3].Code, 255);

    EXPECT_EQ(Tables.ExtraLine, 0);
    QByteArray most = "255\n";
    for (int code = 0; code < 255; ++code)
        most += QByteArray::number(code, 16) + ",\"Kind\"," + QByteArray::number(code + 1) + "\n";
    ASSERT_TRUE(Load(most)) << Error.toStdString();
    EXPECT_EQ(Tables.ByList[255].Code, 254);

    // Records beyond the count are not read, whatever they hold.
    ASSERT_TRUE(Load("0\n")) << Error.toStdString();
    EXPECT_TRUE(Tables.Records.empty());
    EXPECT_EQ(Tables.Count, 0);
    ASSERT_TRUE(Load("1\n01,\"One\",1\n02,\"Two\",2\n\"never closed\n")) << Error.toStdString();
    EXPECT_EQ(Tables.Count, 1);
    EXPECT_EQ(Tables.Records.size(), 1u);
    EXPECT_FALSE(Tables.ByCode[2].Named);
    EXPECT_EQ(Tables.ExtraLine, 3);
}

TEST_F(MorlickFile, ABrokenFileIsToldWithItsNameAndLine) {
    struct Case {
        const char* text;
        const char* says;
        int line;
    };
    const Case cases[] = {
        {"", "does not begin with the number", 1},
        {"\"two\"\n", "does not begin with the number", 1},
        {"2\n01,\"One\",1\n02,\"Two\"\n", "ends inside species 2 of the 2", 3},
        {"1\n100,\"Too big\",1\n", "code \"100\" of species 1", 2},
        {"2\n01,\"One\",1\nG1,\"Not hex\",1\n", "code \"G1\" of species 2", 3},
        {"1\n-1,\"Signed\",1\n", "code \"-1\"", 2},
        {"1\n01,\"Far\",256\n", "list place \"256\"", 2},
        {"1\n01,\"Named\",first\n", "list place \"first\"", 2},
        // The list shows places 1 to the count, and places are rows 0 to 255.
        {"256\n", "gives 256 species, but there can be 0 to 255", 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_FALSE(Load(c.text));
        EXPECT_TRUE(Error.contains(QStringLiteral("Morlick.twy"))) << Error.toStdString();
        EXPECT_TRUE(Error.contains(QString::fromLatin1(c.says))) << Error.toStdString();
        EXPECT_TRUE(Error.contains(QStringLiteral("(line %1)").arg(c.line))) << Error.toStdString();
    }
    EXPECT_FALSE(LoadMorlickFile(Dir.filePath(QStringLiteral("none.twy")), Tables, Error));
    EXPECT_TRUE(Error.contains(QStringLiteral("none.twy"))) << Error.toStdString();
}
