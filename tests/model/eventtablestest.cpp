#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "core/eventtables.h"

// A row of EventTypes.twy is checked against what a record can hold: every
// fault is told with its column, and the editor's message tells the first.
TEST(EventTables, ATypesRowIsCheckedAgainstWhatARecordCanHold) {
    // List column, record size, y, x, text and trainer type byte.
    using Row = std::array<int, 6>;
    const struct {
        Row row;
        std::vector<int> columns;  // the columns at fault; none for a sound row
        const char* says;          // what the first fault says
    } cases[] = {
        {{1, 5, 1, 2, 5, 0}, {}, ""},
        {{8, 16, 15, 16, 0, 16}, {}, ""},
        {{9, 5, 1, 2, 0, 0},
         {TypeListColumn},
         "has its list in column 9 of Events.twy, but lists lie in columns 1 to 8"},
        {{1, 17, 1, 2, 0, 0},
         {TypeRecordSize},
         "has records of 17 bytes, but a record has 1 to 16"},
        {{1, 1, 1, 2, 0, 0},
         {TypeYField},
         "has its y in byte 1 of records of 1 bytes, which leaves no byte for x after it"},
        {{1, 5, 1, 3, 0, 0},
         {TypeXField},
         "has its x in byte 3, but x must follow y (byte 1) directly"},
        {{1, 5, 1, 2, 6, 0}, {TypeTextField}, "names byte 6 of records of 5 bytes"},
        {{9, 4, 4, 5, 7, 5},
         {TypeListColumn, TypeYField, TypeTextField, TypeTrainerField},
         "has its list in column 9 of Events.twy, but lists lie in columns 1 to 8"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.says);
        EventTypeTableT types;
        auto& row = types[4];
        row[TypeName] = Field::Text(QStringLiteral("Checked"));
        const EventTypeColumn given[] = {TypeListColumn, TypeRecordSize, TypeYField,
                                         TypeXField,     TypeTextField,  TypeTrainerField};
        for (size_t i = 0; i < c.row.size(); ++i)
            row[given[i]] = Field::Number(c.row[i]);
        std::vector<int> columns;
        for (const EventLayoutFault& fault : EventLayoutFaults(types, 4))
            columns.push_back(fault.Column);
        EXPECT_EQ(columns, c.columns);
        EventLayout layout;
        QString error;
        ASSERT_EQ(ReadEventLayout(types, 4, layout, error), c.columns.empty());
        if (c.columns.empty()) {
            EXPECT_EQ((Row{layout.ListColumn, layout.RecordSize, layout.YField, layout.XField,
                           c.row[4], c.row[5]}),
                      c.row);
        } else {
            EXPECT_EQ(error, QStringLiteral("The event type \"Checked\" (row 4 of EventTypes.twy) "
                                            "%1.")
                                 .arg(QLatin1String(c.says)));
        }
    }
}
