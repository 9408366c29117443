#include <QFile>
#include <QTest>
#include <limits>
#include <memory>

#include "core/defines.h"
#include "eventedit/eventedit.h"
#include "fixture/datafilenames.h"
#include "fixture/project.h"
#include "support/apptest.h"

namespace {

// Map rows and event types of the project.
enum { Meadow, Town, Quiet, Edge, Beyond };
enum { Plain, Sixteen, Bare, TwoBias };
const QString Discard = QStringLiteral("Discard the changes you have made?");

const QString Saved = QStringLiteral("Your changes to the Events have been saved!");
const QString NoEvents = QStringLiteral(
    "There are no events of that type on this map (or the addresses for them have not been "
    "found).");

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
    project.AddMap(cat, QStringLiteral("Quiet"), 4, 4, 0, [](int, int) { return 1; });
    project.AddMap(cat, QStringLiteral("Edge"), 4, 4, 0, [](int, int) { return 1; });
    project.AddMap(cat, QStringLiteral("Beyond"), 4, 4, 0, [](int, int) { return 1; });
    project.Map(Town).XShift = 2;
    project.Map(Town).YShift = 3;
    // Plain: 5 bytes, y then x, a text string, a picture and an item.
    project.EventTypes.push_back(
        {QStringLiteral("P"), QStringLiteral("Plain"), 1, 5, 0, 0, 1, 2, 3, 4, 0, 0, 5, 0, 0});
    // Sixteen: 16 bytes, a bias of 4 on both axes, every field named.
    project.EventTypes.push_back({QStringLiteral("S"), QStringLiteral("Sixteen"), 3, 16, 4, 4, 5, 6,
                                  7, 8, 9, 10, 11, 12, 13});
    // Bare: no field but the coordinates.
    project.EventTypes.push_back(
        {QStringLiteral("B"), QStringLiteral("Bare"), 5, 5, 0, 0, 2, 3, 0, 0, 0, 0, 0, 0, 0});
    // Two biases: 1 on y, 3 on x.
    project.EventTypes.push_back(
        {QStringLiteral("T"), QStringLiteral("Two biases"), 7, 3, 1, 3, 1, 2, 0, 0, 0, 0, 0, 0, 0});

    // The field: 20 plain events, 32 of sixteen bytes (x stored 4, 19, 20 and
    // 3 first), one bare, three of two biases.
    std::vector<QByteArray> plain;
    for (int i = 0; i < 20; ++i)
        plain.push_back(Bytes({i % 12, i % 16, i, 100 + i, 200 + i % 50}));
    project.AddEventList(Meadow, Plain, plain);
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
    project.AddEventList(Meadow, Bare, {Bytes({9, 2, 3, 8, 7})});
    project.AddEventList(Meadow, TwoBias,
                         {Bytes({1, 3, 50}), Bytes({2, 4, 51}), Bytes({3, 5, 52})});
    // The town: three plain events stored less its offsets, and a bare one.
    project.AddEventList(
        Town, Plain, {Bytes({1, 5, 0, 7, 0}), Bytes({2, 6, 11, 12, 13}), Bytes({3, 0, 21, 22, 0})});
    project.AddEventList(Town, Bare, {Bytes({1, 1, 1, 1, 1})});
    // Three plain events ending with the ROM's last byte, and three that
    // would run one byte past it.
    const int size = project.Rom.Size();
    project.EventLists.push_back({Edge, {}});
    project.EventLists.back().SetList(1, size - 14, 3);
    project.EventLists.push_back({Beyond, {}});
    project.EventLists.back().SetList(1, size - 13, 3);
    return project;
}

}  // namespace

class EventEditTest : public AppTest {
protected:
    void SetUp() override {
        AppTest::SetUp();
        Form = StartUp(Project);
        ASSERT_NE(Form, nullptr);
    }
    EventEdit* Open(int map) {
        GoTo(Form, 0, map);
        Form->mnuEventEdit->trigger();
        for (EventEdit* e : Form->findChildren<EventEdit*>())
            if (e->isVisible()) return e;
        return nullptr;
    }
    bool Close(EventEdit* e) {
        const bool closed = e->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return closed;
    }
    static void Go(EventEdit* e, int type) {
        PressRow(e->SelType, type);
        QTest::mouseClick(e->Command2, Qt::LeftButton);
    }
    static void PressCell(EventEdit* e, int bx, int by, int place) {
        ::PressCell(e->Placement->View->MapTile, 16 * (bx + 8 * by) + place);
    }
    static void PressSymbol(EventEdit* e, int index) {
        QTest::mousePress(e->EventSym[index], Qt::LeftButton);
    }
    static void Type(QLineEdit* box, const QString& text) {
        box->selectAll();
        QTest::keyClicks(box, text);
    }
    void Save(EventEdit* e) {
        Script.AnswerNo();  // no backup
        QTest::mouseClick(e->Command1, Qt::LeftButton);
    }
    int ListPos(int map, int type) const {
        for (const auto& a : Project.EventLists)
            if (a.MapRow == map) return a.Columns[Project.EventTypes[type].ListColumn - 1];
        return 0;
    }
    void PutRomByte(int position, quint8 value) {
        QFile file(Defines.RomPath);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.seek(position - 1);
        file.write(reinterpret_cast<const char*>(&value), 1);
    }
    static quint8 At(const QByteArray& rom, int position) {
        return static_cast<quint8>(rom[position - 1]);
    }
    int VisibleSymbols(EventEdit* e) const {
        int n = 0;
        for (Symbol* s : e->EventSym)
            n += s->isVisibleTo(e) ? 1 : 0;
        return n;
    }

    Fixture::SmallProject Project = EventProject();
    MainForm* Form = nullptr;
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
    EXPECT_TRUE(e->TextString->isVisibleTo(e));
    EXPECT_TRUE(e->PictureNum->isVisibleTo(e));
    EXPECT_TRUE(e->Item->isVisibleTo(e));
    for (QWidget* hidden :
         {static_cast<QWidget*>(e->Move1), static_cast<QWidget*>(e->Label3),
          static_cast<QWidget*>(e->MorlData), static_cast<QWidget*>(e->TrainerType)})
        EXPECT_FALSE(hidden->isVisibleTo(e));
    EXPECT_EQ(e->TextString->text(), QStringLiteral("0"));  // a zero byte shows as 0
    EXPECT_EQ(e->PictureNum->text(), QStringLiteral("7"));
    EXPECT_EQ(e->EventSym[0]->Picture(), &e->EventSel);
    EXPECT_EQ(e->EventSym[1]->Picture(), &e->EventNon);
    // Selecting shows the row, a 0 included.
    PressSymbol(e, 1);
    EXPECT_EQ(e->DEventNum->text(), QStringLiteral("Event Number: 1"));
    EXPECT_EQ(e->Item->text(), QStringLiteral("13"));
    PressSymbol(e, 2);
    EXPECT_EQ(e->Item->text(), QStringLiteral("0"));
    EXPECT_FALSE(e->EventsChanged);

    // A type with none of the seven fields shows no box.
    Go(e, Bare);
    for (QLineEdit* box :
         {e->TextString, e->PictureNum, e->Move1, e->Move2, e->Item, e->MorlData, e->TrainerType})
        EXPECT_FALSE(box->isVisibleTo(e));
    EXPECT_EQ(e->Item->text(), QStringLiteral("0"));  // hidden, it keeps its text
    ASSERT_TRUE(Close(e));

    // A map without a record in Events.twy opens on type 0 with no symbol.
    e = Open(Quiet);
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->EventCount, 0);
    EXPECT_EQ(VisibleSymbols(e), 0);
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
    ASSERT_EQ(after.size(), before.size());
    EXPECT_EQ(Differences(before, after),
              (std::vector<int>{first, first + 5, first + 6, first + 14}));
    EXPECT_EQ(At(after, first), 1);
    EXPECT_EQ(At(after, first + 5), 3 - 3);  // y = 2 * 2 - 2 + 1, less the offset
    EXPECT_EQ(At(after, first + 6), 5 - 2);  // x = 2 * 3 - 2 + 1
    EXPECT_EQ(At(after, first + 14), 77);
    EXPECT_EQ(At(after, first - 1), 0xEE);
    EXPECT_EQ(At(after, last + 1), 0xEE);
    EXPECT_EQ(At(after, bare), 0xEE);
    // Read back, with the view at the map's top left corner.
    EXPECT_EQ(e->Placement->View->ViewCol, 1);
    EXPECT_EQ(e->Events[1][1], 5);
    EXPECT_EQ(e->Item->text(), QStringLiteral("77"));

    // A save without a change writes the same bytes.
    Save(e);
    EXPECT_EQ(ReadFile(Defines.RomPath), after);
}

TEST_F(EventEditTest, ABiasComesOffForTheViewAndGoesBackOnAPlacement) {
    EventEdit* e = Open(Meadow);
    ASSERT_NE(e, nullptr);
    Go(e, Sixteen);
    ASSERT_EQ(e->CurEventType, Sixteen);
    ASSERT_EQ(e->EventCount, 32);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Information), 0);  // a full list is no notice
    EXPECT_EQ(e->Events[31][15], 31 + 15);  // the largest list, fields 1 to 16
    EXPECT_TRUE(e->EventSym[0]->isVisibleTo(e));
    EXPECT_EQ(e->EventSym[0]->LeftTwips(), 120);   // stored x 4
    EXPECT_EQ(e->EventSym[1]->LeftTwips(), 7320);  // stored x 19
    EXPECT_FALSE(e->EventSym[2]->isVisibleTo(e));  // stored x 20
    EXPECT_FALSE(e->EventSym[3]->isVisibleTo(e));  // stored 3, below the bias
    for (const int col : {2, 5, 1}) {
        e->Placement->View->HScroll->setValue(col);
        EXPECT_FALSE(e->EventSym[3]->isVisibleTo(e)) << col;
    }
    // All seven boxes are shown for this type.
    EXPECT_TRUE(e->TrainerType->isVisibleTo(e));
    EXPECT_EQ(e->TrainerType->text(), QString::number(12));
    // A click on block (1, 1): the fields hold the square plus the bias.
    PressSymbol(e, 5);
    PressCell(e, 0, 0, 0);
    EXPECT_EQ(e->Events[5][5], 4);
    EXPECT_EQ(e->Events[5][4], 4);
    PressCell(e, 0, 0, 15);
    EXPECT_EQ(e->Events[5][5], 5);
    EXPECT_EQ(e->Events[5][4], 5);

    // Two different biases: the symbol lands on the square that was clicked,
    // and the bytes carry y's bias and x's bias.
    Script.AnswerYes();  // give the placements up
    Go(e, TwoBias);
    ASSERT_EQ(e->CurEventType, TwoBias);
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
    EXPECT_EQ(At(ReadFile(Defines.RomPath), list), 4 + 1);      // y
    EXPECT_EQ(At(ReadFile(Defines.RomPath), list + 1), 2 + 3);  // x
    EXPECT_EQ(e->EventSym[0]->LeftTwips(), 120 + 480 * 2);      // read back to the same square
}

// Offsets from Maps.twy and biases from EventTypes.twy were taken as 32-bit
// numbers, so that the highest and the lowest overflowed a field when they
// went on or off a byte. They are held to 16 bits now, and an unmoved event
// is written back as it was.
TEST_F(EventEditTest, OffsetsAndBiasesAtTheEndsOfTheRangeNoLongerOverflowAField) {
    constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
    auto& town = Defines.MapTable[Town];
    town[MapXShift] = Field::Number(highest);
    town[MapYShift] = Field::Number(lowest);
    std::vector<Fixture::EventType> types = Project.EventTypes;
    types[TwoBias].Bias1 = lowest;
    types[TwoBias].Bias2 = highest;
    ASSERT_TRUE(Fixture::WriteFile(PathOf(QString::fromLatin1(Fixture::EventTypesFile)),
                                   Fixture::EventTypesFileText(types)));

    EventEdit* e = Open(Town);
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->Events[0][1], 5 + 32767);  // x
    EXPECT_EQ(e->Events[0][0], 1 - 32768);  // y
    const QByteArray before = ReadFile(Defines.RomPath);
    Save(e);
    EXPECT_EQ(Script.Count(Saved), 1);
    EXPECT_EQ(ReadFile(Defines.RomPath), before);
    ASSERT_TRUE(Close(e));

    e = Open(Meadow);
    ASSERT_NE(e, nullptr);
    Go(e, TwoBias);
    ASSERT_EQ(e->CurEventType, TwoBias);
    EXPECT_EQ(e->EntrySquare(0), QPoint(3 - 32767, 1 + 32768));
    Script.Clear();
    Save(e);
    EXPECT_EQ(Script.Count(Saved), 1);
    EXPECT_EQ(ReadFile(Defines.RomPath), before);
}

TEST_F(EventEditTest, TypedValuesReachTheTableOnlyAsWholeNumbers) {
    EventEdit* e = Open(Town);
    ASSERT_NE(e, nullptr);
    const struct {
        const char* text;
        int field;
    } steps[] = {{"12", 12}, {"abc", 12},  {"", 12},   {"2.5", 2},  {"3.5", 4},
                 {"-1", -1}, {"300", 300}, {" 9 ", 9}, {"1e1", 10}, {"1e999", 10}};
    for (const auto& s : steps) {
        SCOPED_TRACE(s.text);
        e->PictureNum->setText(QString::fromLatin1(s.text));
        EXPECT_EQ(e->Events[0][3], s.field);
        EXPECT_EQ(e->PictureNum->text(), QString::fromLatin1(s.text));  // the box keeps its text
    }
    // Deleting digit by digit leaves the first digit: the empty box changes nothing.
    Type(e->PictureNum, QStringLiteral("45"));
    e->PictureNum->end(false);
    QTest::keyClick(e->PictureNum, Qt::Key_Backspace);
    QTest::keyClick(e->PictureNum, Qt::Key_Backspace);
    EXPECT_EQ(e->Events[0][3], 4);

    // A byte outside 0 to 255 refuses the save and leaves everything as it was.
    e->PictureNum->setText(QStringLiteral("300"));
    const QByteArray before = ReadFile(Defines.RomPath);
    Save(e);
    ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    const QString warning = Script.Transcript().back().text;
    EXPECT_TRUE(warning.contains(QStringLiteral("Event 0"))) << warning.toStdString();
    EXPECT_TRUE(warning.contains(QStringLiteral("Picture Number"))) << warning.toStdString();
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Question), 0);
    EXPECT_EQ(ReadFile(Defines.RomPath), before);
    EXPECT_EQ(e->Events[0][0], 1 + 3);  // still in the window's coordinates
    // An x below the map's offset of 2.
    e->PictureNum->setText(QStringLiteral("3"));
    PressSymbol(e, 1);
    PressCell(e, 0, 2, 2);  // x = 1, y = 4
    Script.Clear();
    Save(e);
    ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("Event 1")));
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("its x")));
    EXPECT_EQ(ReadFile(Defines.RomPath), before);
    EXPECT_TRUE(e->EventsChanged);
}

TEST_F(EventEditTest, GoRefusesATypeWithoutEventsAndOtherwiseReadsTheList) {
    EventEdit* e = Open(Town);
    ASSERT_NE(e, nullptr);
    PressCell(e, 0, 0, 0);  // an unsaved placement
    Go(e, Sixteen);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Beep), 1);
    EXPECT_EQ(Script.Count(NoEvents), 1);
    EXPECT_EQ(e->SelType->currentRow(), Plain);
    EXPECT_EQ(e->CurEventType, Plain);
    EXPECT_EQ(e->Events[0][0], 0);  // the placement stays
    EXPECT_TRUE(e->EventsChanged);

    // From a list of 20 to a list of 3: only symbols 0 to 2 can show.
    Script.AnswerYes();  // closing asks: the placement is still there
    ASSERT_TRUE(Close(e));
    e = Open(Meadow);
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->EventCount, 20);
    PressSymbol(e, 7);
    Go(e, TwoBias);
    EXPECT_EQ(e->EventCount, 3);
    EXPECT_EQ(e->SelEvent, 7);  // the selection stays, on no record
    EXPECT_EQ(e->DEventNum->text(), QStringLiteral("Event Number: 7"));
    for (int i = 3; i < 32; ++i)
        EXPECT_FALSE(e->EventSym[i]->isVisibleTo(e)) << i;
    EXPECT_EQ(e->EventSym[7]->Picture(), &e->EventSel);
    EXPECT_EQ(e->Placement->View->ViewCol, 1);
}

// The editor shows the main window's unsaved painting and leaves it as it
// was. A placement or a typed value that changes a field is a change that
// closing and "Go" ask about; selecting, or typing the value a field holds, is none.
TEST_F(EventEditTest, PaintingSurvivesTheEditorAndChangesAreAskedAbout) {
    GoTo(Form, 0, Town);
    ::PressCell(Form->SideBlock, 16 * 2);
    ::PressCell(Form->View->MapTile, 0);
    const auto grid = std::make_unique<decltype(Defines.MapGrid)>(Defines.MapGrid);
    for (const int change : {0, 1, 2}) {  // none, a typed value, a placement
        SCOPED_TRACE(change);
        Form->mnuEventEdit->trigger();
        EventEdit* e = Form->findChildren<EventEdit*>().value(0);
        ASSERT_NE(e, nullptr);
        EXPECT_EQ(e->Placement->View->MapTile->Picture(0), Form->View->MapTile->Picture(0));
        PressSymbol(e, 1);
        if (change == 0) e->Item->setText(e->Item->text() + QStringLiteral(".0"));
        if (change == 1) Type(e->Item, QStringLiteral("77"));
        if (change == 2) PressCell(e, 0, 0, 0);
        EXPECT_EQ(e->EventsChanged, change != 0);
        if (change != 0) {
            const EventRecord changed = e->Events[1];
            Script.AnswerNo();
            EXPECT_FALSE(Close(e));
            // "Go" asks too: No leaves the list, the selection and the change.
            Script.AnswerNo();
            Go(e, Bare);
            EXPECT_EQ(e->SelType->currentRow(), Plain);
            EXPECT_EQ(e->SelEvent, 1);
            EXPECT_EQ(e->Events[1], changed);
            // Yes gives the change up for the ROM's list of the type.
            Script.AnswerYes();
            Go(e, Bare);
            EXPECT_EQ(e->CurEventType, Bare);
            EXPECT_FALSE(e->EventsChanged);
        }
        EXPECT_TRUE(Close(e));
        EXPECT_TRUE(*grid == Defines.MapGrid);
    }
    EXPECT_EQ(Script.Count(Discard), 6);
    EXPECT_TRUE(Script.ScriptUsedUp());
}

TEST_F(EventEditTest, AListMustLieWhollyInsideTheRom) {
    EventEdit* e = Open(Edge);
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->EventCount, 3);
    ASSERT_TRUE(Close(e));
    EXPECT_EQ(Open(Beyond), nullptr);
    ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    const QString warning = Script.Transcript().back().text;
    EXPECT_TRUE(warning.contains(QStringLiteral("\"Plain\""))) << warning.toStdString();
    EXPECT_TRUE(warning.contains(QStringLiteral("\"Beyond\""))) << warning.toStdString();
}

TEST_F(EventEditTest, ABrokenTypeIsUnusableAloneAndBrokenFilesKeepTheWindowShut) {
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
    EXPECT_FALSE(e->PictureNum->isVisibleTo(e));
    PressCell(e, 0, 0, 0);
    EXPECT_FALSE(e->EventsChanged);
    Go(e, Sixteen);  // the other types stay usable
    EXPECT_EQ(e->EventCount, 32);
    Go(e, Plain);  // its row is told, not its empty list
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 2);
    EXPECT_EQ(Script.Count(NoEvents), 0);
    EXPECT_EQ(e->CurEventType, Sixteen);
    ASSERT_TRUE(Close(e));
    Script.Clear();

    const QString events = PathOf(QString::fromLatin1(Fixture::EventsFile));
    ASSERT_TRUE(Fixture::WriteFile(events, "h\nh\n300,0,0,0,0,0,0,0,0,0\n"));
    EXPECT_EQ(Open(Town), nullptr);
    ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("Events.twy")));
    EXPECT_TRUE(Form->isVisible());
}
