#include "eventedit/eventedit.h"
#include "fixture/datafilenames.h"
#include "fixture/project.h"
#include "support/placementtest.h"

namespace {

// Map rows and event types of the project.
enum { Meadow, Town };
enum { Plain, Sixteen, Bare, TwoBias };
const QString Discard = QStringLiteral("Discard the changes you have made?");

const QString Saved = QStringLiteral("Your changes to the Events have been saved!");

QByteArray Bytes(std::initializer_list<int> values) {
    QByteArray bytes;
    for (const int v : values)
        bytes.append(static_cast<char>(v));
    return bytes;
}

Fixture::SmallProject EventProject() {
    Fixture::SmallProject project;
    project.AddTileset(3, 0);
    const int cat = project.AddCategory(QStringLiteral("Events"), 0);
    project.AddMap(cat, QStringLiteral("Meadow"), 40, 30, 0,
                   [](int x, int y) { return (x + y) % 4; });
    project.AddMap(cat, QStringLiteral("Town"), 10, 8, 0, [](int x, int y) { return (x * y) % 4; });
    project.Map(Town).XShift = 2;
    project.Map(Town).YShift = 3;
    // Plain: 5 bytes, y then x, a text string, a picture and an item.
    project.EventTypes.push_back(
        {QStringLiteral("P"), QStringLiteral("Plain"), 1, 5, 0, 0, 1, 2, 3, 4, 0, 0, 5, 0, 0});
    // Sixteen: 16 bytes, a bias of 4 on both axes, every field named, the
    // trainer type in the record's last byte.
    project.EventTypes.push_back({QStringLiteral("S"), QStringLiteral("Sixteen"), 3, 16, 4, 4, 5, 6,
                                  7, 8, 9, 10, 11, 12, 16});
    // Bare: no field but the coordinates.
    project.EventTypes.push_back(
        {QStringLiteral("B"), QStringLiteral("Bare"), 5, 5, 0, 0, 2, 3, 0, 0, 0, 0, 0, 0, 0});
    // Two biases: 1 on y, 3 on x.
    project.EventTypes.push_back(
        {QStringLiteral("T"), QStringLiteral("Two biases"), 7, 3, 1, 3, 1, 2, 0, 0, 0, 0, 0, 0, 0});

    // The field: one plain event, 32 of sixteen bytes (x stored 4, 19, 20 and
    // 3 first), three of two biases.
    project.AddEventList(Meadow, Plain, {Bytes({1, 2, 3, 4, 5})});
    std::vector<QByteArray> sixteen;
    const int xs[] = {4, 19, 20, 3};
    for (int i = 0; i < 32; ++i) {
        QByteArray record(16, '\0');
        for (int k = 0; k < 16; ++k)
            record[k] = static_cast<char>(i + k);
        record[4] = static_cast<char>(4 + i % 10);                  // y
        record[5] = static_cast<char>(i < 4 ? xs[i] : 4 + i % 14);  // x
        sixteen.push_back(record);
    }
    project.AddEventList(Meadow, Sixteen, sixteen);
    project.AddEventList(Meadow, TwoBias,
                         {Bytes({1, 3, 50}), Bytes({2, 4, 51}), Bytes({3, 5, 52})});
    // The town: three plain events stored less its offsets, and a bare one.
    project.AddEventList(
        Town, Plain, {Bytes({1, 5, 0, 7, 0}), Bytes({2, 6, 11, 12, 13}), Bytes({3, 0, 21, 22, 0})});
    project.AddEventList(Town, Bare, {Bytes({1, 1, 1, 1, 1})});
    // One more than a full list: 33 of two biases.
    project.AddEventList(Town, TwoBias, std::vector<QByteArray>(33, Bytes({1, 3, 0})));
    return project;
}

}  // namespace

class EventEditTest : public PlacementTest<EventEdit, &MainForm::mnuEventEdit> {
protected:
    void SetUp() override {
        AppTest::SetUp();
        StartUpOn(Project);
    }
    static void Go(EventEdit* e, int type) {
        PressRow(e->SelType, type);
        QTest::mouseClick(e->Command2, Qt::LeftButton);
    }
    static void Type(QLineEdit* box, const QString& text) {
        box->selectAll();
        QTest::keyClicks(box, text);
    }
    int ListPos(int map, int type) const {
        for (const auto& a : Project.EventLists)
            if (a.MapRow == map) return a.Columns[Project.EventTypes[type].ListColumn - 1];
        return 0;
    }
    int VisibleSymbols(EventEdit* e) const {
        int n = 0;
        for (Symbol* s : e->EventSym)
            n += s->isVisibleTo(e) ? 1 : 0;
        return n;
    }

    Fixture::SmallProject Project = EventProject();
};

TEST_F(EventEditTest, OpensOnTypeZeroWithTheFieldsItsRowNames) {
    EventEdit* e = Open(Town);
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->windowTitle(), QStringLiteral("Event Editor"));
    ASSERT_EQ(e->SelType->count(), 4);
    EXPECT_EQ(e->SelType->item(3)->text(), QStringLiteral("Two biases"));
    EXPECT_EQ(e->CurEventType, Plain);
    EXPECT_EQ(e->EventCount, 3);
    // Every byte of a record, with the map's offsets on y and x.
    EXPECT_EQ(e->Events[1][0], 2 + 3);
    EXPECT_EQ(e->Events[1][1], 6 + 2);
    EXPECT_EQ(e->Events[1][4], 13);
    EXPECT_TRUE(e->Item->isVisibleTo(e));
    EXPECT_FALSE(e->Label3->isVisibleTo(e));
    EXPECT_FALSE(e->TrainerType->isVisibleTo(e));
    EXPECT_EQ(e->TextString->text(), QStringLiteral("0"));  // a zero byte shows as 0
    EXPECT_EQ(e->PictureNum->text(), QStringLiteral("7"));
    // Selecting shows the row, a 0 included.
    PressSymbol(e, 1);
    EXPECT_EQ(e->DEventNum->text(), QStringLiteral("Event Number: 1"));
    EXPECT_EQ(e->Item->text(), QStringLiteral("13"));
    PressSymbol(e, 2);
    EXPECT_EQ(e->Item->text(), QStringLiteral("0"));
    EXPECT_FALSE(e->EventsChanged);

    // A type with none of the seven fields shows no box.
    Go(e, Bare);
    EXPECT_FALSE(e->TextString->isVisibleTo(e));
    EXPECT_FALSE(e->Item->isVisibleTo(e));
    EXPECT_EQ(e->Item->text(), QStringLiteral("0"));  // hidden, it keeps its text
    // 33 events: the first 32, and a word about it.
    Go(e, TwoBias);
    EXPECT_EQ(e->EventCount, 32);
    ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Information), 1);
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("has 33 events")));
}

TEST_F(EventEditTest, TheSaveRewritesExactlyTheListOfTheType) {
    EventEdit* e = Open(Town);
    ASSERT_NE(e, nullptr);
    const int first = ListPos(Town, Plain);
    const int last = first + 3 * 5 - 1;
    // Behind the window's back: both ends of the list, the bytes around it,
    // and the other type's list. The save puts back the list alone.
    const int bare = ListPos(Town, Bare);
    for (const int at : {first - 1, first, last, last + 1, bare})
        PutRomByte(at, 0xEE);
    const QByteArray before = ReadFile(Defines.RomPath);

    // Event 1 to block (3, 2)'s lower right square; event 2's item typed.
    PressSymbol(e, 1);
    PressCell(e, 2, 1, 15);
    EXPECT_TRUE(e->EventsChanged);
    PressSymbol(e, 2);
    Type(e->Item, QStringLiteral("77"));
    e->Placement->View->HScroll->setValue(2);
    Save(e);
    EXPECT_EQ(Script.Count(Saved), 1);
    EXPECT_FALSE(e->EventsChanged);
    const QByteArray after = ReadFile(Defines.RomPath);
    EXPECT_EQ(Differences(before, after),
              (std::vector<int>{first, first + 5, first + 6, first + 14}));
    // Event 1 at y = 2 * 2 - 2 + 1 and x = 2 * 3 - 2 + 1, less the offsets of
    // 3 and 2; event 2's item 77; the rest as read.
    EXPECT_EQ(after.mid(first - 1, 15), QByteArray::fromHex("0105000700 00030B0C0D 030015164D"));
    // Read back, with the view at the map's top left corner.
    EXPECT_EQ(e->Placement->View->ViewCol, 1);
    EXPECT_EQ(e->Events[1][1], 5);
    EXPECT_EQ(e->Item->text(), QStringLiteral("77"));
}

TEST_F(EventEditTest, ABiasComesOffForTheViewAndGoesBackOnAPlacement) {
    EventEdit* e = Open(Meadow);
    ASSERT_NE(e, nullptr);
    Go(e, Sixteen);
    ASSERT_EQ(e->CurEventType, Sixteen);
    ASSERT_EQ(e->EventCount, 32);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Information), 0);  // a full list is no notice
    EXPECT_EQ(e->Events[31][15], 31 + 15);         // the largest list, fields 1 to 16
    EXPECT_EQ(e->EventSym[0]->LeftTwips(), 120);   // stored x 4
    EXPECT_EQ(e->EventSym[1]->LeftTwips(), 7320);  // stored x 19
    EXPECT_FALSE(e->EventSym[2]->isVisibleTo(e));  // stored x 20
    EXPECT_FALSE(e->EventSym[3]->isVisibleTo(e));  // stored 3, below the bias

    // The last box names the record's last byte: a typed value goes through
    // the rule for event fields, 256 is refused and 255, the highest, saved.
    EXPECT_TRUE(e->TrainerType->isVisibleTo(e));
    EXPECT_EQ(e->TrainerType->text(), QStringLiteral("15"));
    const int sixteen = ListPos(Meadow, Sixteen);
    const QByteArray unsaved = ReadFile(Defines.RomPath);
    Type(e->TrainerType, QStringLiteral("256"));
    Save(e);
    ExpectRefused(QStringLiteral("Event 0"), QStringLiteral("Trainer Type"), unsaved);
    Type(e->TrainerType, QStringLiteral("255.4"));
    Save(e);
    EXPECT_EQ(Differences(unsaved, ReadFile(Defines.RomPath)), (std::vector<int>{sixteen + 15}));
    EXPECT_EQ(RomByte(ReadFile(Defines.RomPath), sixteen + 15), 255);
    EXPECT_EQ(e->TrainerType->text(), QStringLiteral("255"));  // read back after the save
    // A click on block (1, 1): the fields hold the square plus the bias.
    PressSymbol(e, 5);
    PressCell(e, 0, 0, 0);
    EXPECT_EQ(e->Events[5][5], 4);
    EXPECT_EQ(e->Events[5][4], 4);

    // From a list of 32 to a list of 3: the selection stays, on no record.
    Script.AnswerYes();  // give the placements up
    Go(e, TwoBias);
    EXPECT_EQ(Script.Count(Discard), 1);
    ASSERT_EQ(e->CurEventType, TwoBias);
    EXPECT_EQ(VisibleSymbols(e), 3);
    EXPECT_EQ(e->DEventNum->text(), QStringLiteral("Event Number: 5"));
    // Two different biases: the symbol lands on the square that was clicked,
    // and the bytes carry y's bias and x's bias.
    EXPECT_EQ(e->EntrySquare(0), QPoint(3 - 3, 1 - 1));
    PressSymbol(e, 0);
    PressCell(e, 1, 2, 0);  // block (2, 3): square (2, 4)
    EXPECT_EQ(e->EventSym[0]->LeftTwips(), 120 + 480 * 2);
    EXPECT_EQ(e->EventSym[0]->TopTwips(), 120 + 480 * 4);
    EXPECT_EQ(e->EntrySquare(0), QPoint(2, 4));
    const QByteArray before = ReadFile(Defines.RomPath);
    Save(e);
    const int list = ListPos(Meadow, TwoBias);
    EXPECT_EQ(Differences(before, ReadFile(Defines.RomPath)), (std::vector<int>{list, list + 1}));
    EXPECT_EQ(RomByte(ReadFile(Defines.RomPath), list), 4 + 1);      // y
    EXPECT_EQ(RomByte(ReadFile(Defines.RomPath), list + 1), 2 + 3);  // x
    EXPECT_EQ(e->EventSym[0]->LeftTwips(), 120 + 480 * 2);           // read back to the same square
}

// A row of EventTypes.twy that cannot be used is told, and the other types
// stay usable.
TEST_F(EventEditTest, ABrokenTypeIsToldAndTheOthersStayUsable) {
    // Type 0 with its list in column 9: the window opens on the map alone.
    std::vector<Fixture::EventType> types = Project.EventTypes;
    types[Plain].ListColumn = 9;
    const QString typesPath = PathOf(QString::fromLatin1(Fixture::EventTypesFile));
    ASSERT_TRUE(Fixture::WriteFile(typesPath, Fixture::EventTypesFileText(types)));
    EventEdit* e = Open(Meadow);
    ASSERT_NE(e, nullptr);
    ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("\"Plain\"")));
    EXPECT_EQ(VisibleSymbols(e), 0);
    Go(e, Sixteen);
    EXPECT_EQ(e->EventCount, 32);
}
