#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "core/eventtables.h"
#include "model/files.h"

namespace {
class EventTables : public ::testing::Test {
protected:
    QString Write(const QByteArray& text) {
        const QString path = Dir.filePath(QStringLiteral("data.twy"));
        EXPECT_TRUE(TestFiles::Write(path, text));
        return path;
    }
    QTemporaryDir Dir;
    EventTypeTableT Types;
    std::int16_t Last = -1;
    EventAddressTableT Addresses;
    QString Error;
};

const QByteArray TypeLine = "\"T\",\"Name\",1,5,0,0,1,2,3,0,0,0,0,0,0\n";
}  // namespace

TEST_F(EventTables, TwoLinesAreSkippedAndRecordsMayRunOverLines) {
    // The two header lines look like records; they are skipped all the same.
    ASSERT_TRUE(LoadEventTypesFile(Write("\"A\",\"Looks\",1,5,0,0,1,2,0,0,0,0,0,0,0\n"
                                         "\"B\",\"Like\",1,5,0,0,1,2,0,0,0,0,0,0,0\n"
                                         "\"T0\",\"First\",1,5\n4,4,2,3\n0,0,0,0,0,0,0\n" +
                                         TypeLine),
                                   Types, Last, Error))
        << Error.toStdString();
    EXPECT_EQ(Last, 1);
    EXPECT_EQ(Types[0][TypeName].ToText(), QStringLiteral("First"));
    EXPECT_EQ(Types[0][TypeBias2].ToInt32(), 4);
    EXPECT_EQ(Types[0][TypeTrainerField].ToInt32(), 0);
    EXPECT_EQ(Types[1][TypeName].ToText(), QStringLiteral("Name"));

    ASSERT_TRUE(LoadEventsFile(Write("1,2,3,4,5,6,7,8,9,10\n"
                                     "0,0,0,0,0,0,0,0,0,0\n"
                                     "7,100,2,0,0,0,0,0,0,0\n"
                                     "3,300\n4,0,0,0,0,0,0,0\n"
                                     "7,200,5,0,0,0,0,0,0,0\n"),
                               Addresses, Error))
        << Error.toStdString();
    EXPECT_EQ(Addresses[7][1].ToInt32(), 200);  // the later record for a row wins
    EXPECT_EQ(Addresses[7][2].ToInt32(), 5);
    EXPECT_EQ(Addresses[3][2].ToInt32(), 4);
    EXPECT_EQ(Addresses[1][1].ToInt32(), 0);  // the header's numbers are no record
    EXPECT_EQ(Addresses[0][1].ToInt32(), 0);
}

TEST_F(EventTables, BrokenFilesAreToldWithTheFileAndTheLine) {
    QByteArray many = "h\nh\n";
    for (int i = 0; i < 34; ++i)
        many += TypeLine;
    const struct {
        QByteArray text;
        bool types;
        const char* says;
    } cases[] = {
        {"h\nh\n", true, "holds no event type"},
        {"h\nh\n" + TypeLine + "\"T\",\"Cut\",1,5\n", true,
         "ends inside the record of event type 1"},
        {many, true, "more than 33 event types (line 36)"},
        {"h\nh\n256,0,0,0,0,0,0,0,0,0\n", false, "map row \"256\""},
        {"h\nh\n-1,0,0,0,0,0,0,0,0,0\n", false, "map row \"-1\""},
        {"h\nh\n\"x\",0,0,0,0,0,0,0,0,0\n", false, "map row \"x\""},
        {"h\nh\n1,0,0\n", false, "ends inside the record of the map on line 3"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.says);
        const QString path = Write(c.text);
        const bool read = c.types ? LoadEventTypesFile(path, Types, Last, Error)
                                  : LoadEventsFile(path, Addresses, Error);
        EXPECT_FALSE(read);
        EXPECT_TRUE(Error.contains(QStringLiteral("data.twy"))) << Error.toStdString();
        EXPECT_TRUE(Error.contains(QString::fromLatin1(c.says))) << Error.toStdString();
    }
    EXPECT_FALSE(LoadEventsFile(Dir.filePath(QStringLiteral("none.twy")), Addresses, Error));
    EXPECT_TRUE(Error.contains(QStringLiteral("none.twy")));
}

TEST_F(EventTables, ATypesRowIsCheckedAgainstWhatARecordCanHold) {
    // Columns: list column, record size, y field, x field, one of the seven;
    // then what the message says and the column at fault.
    const struct {
        int list, size, y, x, item;
        const char* says;  // nullptr: a sound row
        int column;
    } cases[] = {
        {1, 5, 1, 2, 5, nullptr, -1},
        {8, 16, 15, 16, 0, nullptr, -1},
        {0, 5, 1, 2, 0, "column 0", TypeListColumn},
        {9, 5, 1, 2, 0, "column 9", TypeListColumn},
        {1, 0, 1, 2, 0, "records of 0 bytes", TypeRecordSize},
        {1, 17, 1, 2, 0, "records of 17 bytes", TypeRecordSize},
        {1, 1, 1, 2, 0, "y in byte 1 of records of 1 bytes", TypeYField},
        {1, 5, 0, 1, 0, "y in byte 0", TypeYField},
        {1, 5, 1, 3, 0, "x in byte 3", TypeXField},
        {1, 5, 2, 1, 0, "x in byte 1", TypeXField},
        {1, 5, 1, 2, 6, "names byte 6", TypeItemField},
        {1, 5, 1, 2, -1, "names byte -1", TypeItemField},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.says ? c.says : "sound");
        Types = {};
        auto& row = Types[4];
        row[TypeName] = Field::Text(QStringLiteral("Checked"));
        row[TypeListColumn] = Field::Number(c.list);
        row[TypeRecordSize] = Field::Number(c.size);
        row[TypeYField] = Field::Number(c.y);
        row[TypeXField] = Field::Number(c.x);
        row[TypeItemField] = Field::Number(c.item);
        EventLayout layout;
        Error.clear();
        EXPECT_EQ(ReadEventLayout(Types, 4, layout, Error), c.says == nullptr);
        const std::vector<EventLayoutFault> faults = EventLayoutFaults(Types, 4);
        ASSERT_EQ(faults.size(), c.says ? 1u : 0u);
        if (c.says) {
            EXPECT_EQ(faults[0].Column, c.column);
            EXPECT_TRUE(Error.contains(faults[0].What)) << Error.toStdString();
            EXPECT_TRUE(Error.contains(QStringLiteral("\"Checked\" (row 4")))
                << Error.toStdString();
            EXPECT_TRUE(Error.contains(QString::fromLatin1(c.says))) << Error.toStdString();
        } else {
            EXPECT_EQ(layout.YField, c.y);
            EXPECT_EQ(layout.RecordSize, c.size);
        }
    }
}

TEST_F(EventTables, EveryFaultOfATypesRowIsToldWithItsColumnAndTheMessageTellsTheFirst) {
    auto& row = Types[2];
    row[TypeName] = Field::Text(QStringLiteral("Broken"));
    row[TypeListColumn] = Field::Number(9);
    row[TypeRecordSize] = Field::Number(4);
    row[TypeYField] = Field::Number(4);
    row[TypeXField] = Field::Number(5);
    row[TypeTextField] = Field::Number(7);
    row[TypeTrainerField] = Field::Number(5);
    const std::vector<EventLayoutFault> faults = EventLayoutFaults(Types, 2);
    ASSERT_EQ(faults.size(), 4u);
    EXPECT_EQ(faults[0].Column, TypeListColumn);
    EXPECT_EQ(faults[1].Column, TypeYField);
    EXPECT_EQ(faults[2].Column, TypeTextField);
    EXPECT_EQ(faults[3].Column, TypeTrainerField);
    EventLayout layout;
    EXPECT_FALSE(ReadEventLayout(Types, 2, layout, Error));
    EXPECT_EQ(Error, QStringLiteral("The event type \"Broken\" (row 2 of EventTypes.twy) has its "
                                    "list in column 9 of Events.twy, but lists lie in columns 1 "
                                    "to 8."));
}
