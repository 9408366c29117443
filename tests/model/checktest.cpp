#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTextStream>
#include <functional>

#include "check/checkcommand.h"
#include "check/checkfolder.h"
#include "check/reportwriter.h"
#include "fixture/datafilenames.h"
#include "fixture/eventrecord.h"
#include "fixture/project.h"
#include "fixture/smallproject.h"
#include "fixture/tilesetfile.h"
#include "model/printers.h"

// tarnwey-check on folders made with the fixture library: a sound folder
// gives no finding; each broken folder gives exactly the findings of
// the one fault planted in it, each on its line with its file, row, column
// and words.

namespace {

using Fixture::SmallProject;

// Map rows of the sound folder.
constexpr int Elm = 0;
constexpr int Oak = 1;
constexpr int Deep = 4;

// Event types of the sound folder.
constexpr int People = 0;
constexpr int Signs = 1;

Fixture::EncounterList Encounters(int first, int second) {
    Fixture::EncounterList list{};
    for (int slot = 0; slot < 10; ++slot)
        list[static_cast<size_t>(slot)] = {3 + slot, slot % 2 ? second : first};
    return list;
}

// A sound folder: two tilesets, two categories with three maps, each map
// with its object data and warps, two with warp-to points and wild lists,
// species for every code in the lists, and two event types with lists.
SmallProject SoundProject() {
    SmallProject project;
    const int outdoor = project.AddTileset(7, 0x10);
    const int indoor = project.AddTileset(3, 0x40, 94);
    const int towns = project.AddCategory(QStringLiteral("Towns"), Elm);
    const int caves = project.AddCategory(QStringLiteral("Caves"), Deep);
    project.AddMap(towns, QStringLiteral("Elm"), 4, 3, outdoor,
                   [](int x, int y) { return (x + y) % 8; });
    project.AddMap(towns, QStringLiteral("Oak"), 2, 2, indoor,
                   [](int x, int y) { return (x * y) % 4; });
    project.AddMap(caves, QStringLiteral("Deep"), 3, 3, outdoor, [](int x, int) { return x; });
    project.AddWarps(Elm, {{1, 2, 0, Oak}, {3, 4, 1, Deep}});
    project.AddWarps(Oak, {{0, 1, 0, Elm}});
    project.AddWarps(Deep, {});
    project.AddWarpTo(Elm, {{100, 1, 1}, {101, 2, 2}});
    project.AddWarpTo(Deep, {{102, 0, 1}, {103, 4, 4}});
    project.AddWildList(Elm, Encounters(0x01, 0x04));
    project.AddWildList(Deep, Encounters(0x10, 0x01));
    project.Species = {{0x01, QStringLiteral("Pebble"), 2},
                       {0x04, QStringLiteral("Fern"), 1},
                       {0x10, QStringLiteral("Moss"), 3}};

    // Name, list column, record size, biases, y, x and text bytes.
    project.EventTypes = {{{}, QStringLiteral("People"), 1, 4, 0, 0, 1, 2, 3},
                          {{}, QStringLiteral("Signs"), 3, 3, 0, 0, 1, 2, 3}};
    project.AddEventList(Elm, People,
                         {EventRecord(project.EventTypes[People], 1, 1),
                          EventRecord(project.EventTypes[People], 2, 3)});
    project.AddEventList(Deep, Signs, {EventRecord(project.EventTypes[Signs], 0, 0)});
    return project;
}

// A list of `count` records of a type, at no particular place on the map.
std::vector<QByteArray> Records(const SmallProject& project, int type, int count) {
    return std::vector<QByteArray>(static_cast<size_t>(count),
                                   EventRecord(project.EventTypes[type], 1, 1));
}

// The report as the command prints it, a line a finding.
QStringList Lines(const Check::CheckReport& report) {
    return Check::ReportText(report).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

class CheckFolder : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(Dir.isValid()); }

    // Writes the project into a fresh folder and checks it as the red version.
    Check::CheckReport Run(const SmallProject& project,
                           const std::function<void(const QString&)>& afterWrite = {}) {
        Folder = Dir.filePath(QStringLiteral("case%1").arg(++Cases));
        RomPath = project.Write(Folder);
        EXPECT_FALSE(RomPath.isEmpty());
        if (afterWrite) afterWrite(Folder);
        return Check::CheckFolder(Folder, {{Check::GameVersion::Red, RomPath}});
    }

    QTemporaryDir Dir;
    QString Folder;
    QString RomPath;
    int Cases = 0;
};

}  // namespace

TEST_F(CheckFolder, EachPlantedFaultIsToldAtItsCellInItsOwnWords) {
    // Positions of the sound folder, which every case starts from.
    SmallProject sound = SoundProject();
    const int romSize = sound.Rom.Size();
    const QString oakHeight = QStringLiteral(
        "Maps.twy, row 1 \"Oak\", column 5 (height): The map is 0 blocks high, but a map is 1 to "
        "255 blocks high.");
    const QString emptyEntry = QStringLiteral(
        "the wild editor's list would lack a species and show an empty entry instead, which "
        "writes species code 00 when chosen.");
    const struct {
        const char* fault;
        std::function<void(SmallProject&)> plant;
        QStringList told;                                // empty: the folder is sound
        std::function<void(const QString&)> spoil = {};  // a change to the written folder
    } cases[] = {
        {"the sound folder", [](SmallProject&) {}, {}},
        {"the most the editor holds: 16 warps and 16 warp-to points, 32 events, tiles 0 to 159 "
         "and blocks 0 to 255, and another tileset's blocks from the same start",
         [](SmallProject& p) {
             p.AddWarps(Oak, std::vector<Fixture::Warp>(16));
             p.AddWarpTo(Deep, std::vector<Fixture::WarpToPoint>(16));
             p.AddEventList(Oak, People, Records(p, People, 32));
             p.Tileset(1).LastTile = 159;
             p.Tileset(1).TileBase = 520 - 160;
             p.Tileset(1).LastBlock = 255;
             p.Tileset(1).BlockPos = p.Rom.Allocate(256 * 16);
             p.Tileset(0).BlockPos = p.Tileset(1).BlockPos;
         },
         {}},
        {"what the editor does not read goes unchecked: no object data on two maps (both border "
         "bytes at position 1), a map whose warps and events are not editable",
         [romSize](SmallProject& p) {
             p.Map(Elm).ObjectPos = 1;
             p.Map(Deep).ObjectPos = 1;
             p.Map(Oak).ObjectPos = romSize;
             p.Map(Oak).WarpsOk = false;
             p.EventLists.push_back({Oak, {}});
             p.EventLists.back().SetList(1, romSize + 10, 1);
             p.Map(Oak).EventsOk = false;
         },
         {}},
        // Tileset rows.
        {"block definitions past the end",
         [romSize](SmallProject& p) { p.Tileset(1).BlockPos = romSize - 62; },
         {QStringLiteral("TilesetsR.twy, row 1, column 5 (block position): The block definitions "
                         "(64 bytes, positions %1 to %2) would reach past the end of "
                         "MorlickRed.gb, which has %3 bytes.")
              .arg(romSize - 62)
              .arg(romSize + 1)
              .arg(romSize)}},
        // Map rows.
        {"height 0", [](SmallProject& p) { p.Map(Oak).Rows = 0; }, {oakHeight}},
        {"border byte past the end",
         [romSize](SmallProject& p) { p.Map(Oak).ObjectPos = romSize + 1; },
         {QStringLiteral("Maps.twy, row 1 \"Oak\", column 3 (object data position): The border "
                         "byte (1 byte, position %1) would reach past the end of MorlickRed.gb, "
                         "which has %2 bytes.")
              .arg(romSize + 1)
              .arg(romSize)}},
        {"warp count above 16",
         [](SmallProject& p) { p.AddWarps(Oak, std::vector<Fixture::Warp>(17)); },
         {QStringLiteral("Maps.twy, row 1 \"Oak\", column 3 (object data position): The warp "
                         "count byte at position %1 of MorlickRed.gb gives 17 warps, but the warp "
                         "editor holds 16: it would show and save only the first 16.")
              .arg(sound.Rom.NextFree() + 1)}},
        {"object data over another map's",
         [](SmallProject& p) { p.Map(Oak).ObjectPos = p.Map(Elm).ObjectPos; },
         {QStringLiteral("Maps.twy, row 1 \"Oak\", column 3 (object data position): The object "
                         "data (positions %1 to %2) shares positions %1 to %2 with the object data "
                         "of map 0 \"Elm\" (Maps.twy, row 0): the editor would take these bytes "
                         "for both.")
              .arg(sound.Map(Elm).ObjectPos)
              .arg(sound.Map(Elm).ObjectPos + 9)}},
        {"a species code that Morlick.twy does not name",
         [](SmallProject& p) { p.Rom.PutByte(p.Map(Deep).WildPos + 7, 0x7F); },
         {QStringLiteral("Maps.twy, row 4 \"Deep\", column 16 (wild position): The wild list at "
                         "position %1 of MorlickRed.gb holds species code 7F (slot 3), which no "
                         "record of Morlick.twy names: the wild editor would show no name and no "
                         "choice for it.")
              .arg(sound.Map(Deep).WildPos)}},
        {"a category over one row of another's",
         [](SmallProject& p) { p.Categories[1].FirstMap = Oak; },
         {QStringLiteral("Maps.twy, row 1 \"Caves\", column 2 (first map row): Its maps take rows "
                         "1 to 1, and rows 1 to 1 of them are rows of category 0 \"Towns\" (rows 0 "
                         "to 1) as well: the later records replace the earlier ones, so that "
                         "\"Towns\" would show maps of this category.")}},
        // Morlick.twy.
        {"a list place twice",
         [](SmallProject& p) { p.Species[2].ListPlace = 2; },
         {QStringLiteral("Morlick.twy, row 2 \"Moss\", column 2 (list place): The list place 2 is "
                         "already the place of \"Pebble\" (row 0): ") +
          emptyEntry}},
        {"no Morlick.twy, and the rest is still checked",
         [](SmallProject& p) { p.Map(Oak).Rows = 0; },
         {QStringLiteral("Morlick.twy: cannot be read: The data file \"Morlick.twy\" could not be "
                         "read (No such file or directory). Tarnwey needs it beside the program "
                         "to name the wild Morlick."),
          oakHeight},
         [](const QString& folder) {
             QFile::remove(QDir(folder).filePath(QLatin1String(Fixture::MorlickFile)));
         }},
        // Tiles.png, which the editor cannot start without.
        // EventTypes.twy: the rows on their own are checked with the event
        // tables; here two types share columns.
        {"two types in one pair of columns",
         [](SmallProject& p) { p.EventTypes[Signs].ListColumn = 2; },
         {QStringLiteral("EventTypes.twy, row 1 \"Signs\", column 2 (list column): The type's "
                         "list takes columns 2 and 3 of Events.twy, and the type \"People\" (row "
                         "0) takes columns 1 and 2: the editor would read one column as a "
                         "position for one type and as a count for the other, or one list for "
                         "both.")}},
        // Events.twy.
        {"an event count above 32",
         [](SmallProject& p) { p.AddEventList(Oak, People, Records(p, People, 33)); },
         {QStringLiteral("Events.twy, row 1 \"Oak\", column 2 (number of \"People\" records): The "
                         "map has 33 \"People\" events, but the event editor holds 32: it would "
                         "show and save only the first 32.")}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.fault);
        SmallProject project = SoundProject();
        c.plant(project);
        const Check::CheckReport report = Run(project, c.spoil);
        EXPECT_EQ(Lines(report), c.told);
        EXPECT_EQ(report.ExitStatus(), !report.Unreadables.empty() ? 2 : c.told.isEmpty() ? 0 : 1);
    }
}

namespace {
struct CommandResult {
    int Status = -1;
    QString Out;
};

CommandResult RunCommand(const QStringList& arguments) {
    CommandResult result;
    QString err;
    QTextStream out(&result.Out);
    QTextStream errors(&err);
    result.Status = Check::RunCheckCommand(QStringList{QStringLiteral("tarnwey-check")} + arguments,
                                           out, errors);
    out.flush();
    return result;
}
}  // namespace

// Both versions, each with its tileset file and ROM: a fault of one version
// is told with its name, a fault of both once without naming them.
TEST_F(CheckFolder, TheCommandTellsAFindingOfBothVersionsOnce) {
    SmallProject project = SoundProject();
    project.Map(Oak).Rows = 0;
    Run(project, [&project](const QString& folder) {
        // The blue version: the same ROM, with a tileset file that puts
        // tileset 1's blocks past its end.
        std::vector<Fixture::TilesetRow> blue = project.Tilesets;
        blue[1].BlockPos = project.Rom.Size();
        const QDir dir(folder);
        Fixture::WriteFile(dir.filePath(QLatin1String(Fixture::TilesetFileBlue)),
                           Fixture::TilesetFileText(blue));
        QFile::copy(dir.filePath(QLatin1String(Fixture::RomFileRed)),
                    dir.filePath(QLatin1String(Fixture::RomFileBlue)));
    });
    const QString message =
        QStringLiteral("The map is 0 blocks high, but a map is 1 to 255 blocks high.");
    const QString blueRom = QDir(Folder).filePath(QLatin1String(Fixture::RomFileBlue));
    const CommandResult text = RunCommand(
        {QStringLiteral("--game=both"), QStringLiteral("--verbose"), Folder, RomPath, blueRom});
    EXPECT_EQ(text.Status, 1);
    EXPECT_EQ(text.Out,
              QStringLiteral("[blue] TilesetsB.twy, row 1, column 5 (block position): The block "
                             "definitions (64 bytes, positions %1 to %2) would reach past the end "
                             "of MorlickBlue.gb, which has %1 bytes.\n"
                             "Maps.twy, row 1 \"Oak\", column 5 (height): %3\n"
                             "Checked %4 against MorlickRed.gb (red) and MorlickBlue.gb (blue): 2 "
                             "findings.\n")
                  .arg(project.Rom.Size())
                  .arg(project.Rom.Size() + 63)
                  .arg(message, Folder));

    // The same report for other programs: each finding with its cell and the
    // versions it holds for.
    const CommandResult json = RunCommand(
        {QStringLiteral("--game=both"), QStringLiteral("--json"), Folder, RomPath, blueRom});
    EXPECT_EQ(json.Status, 1);
    const QJsonObject root = QJsonDocument::fromJson(json.Out.toUtf8()).object();
    const QJsonArray both{QStringLiteral("red"), QStringLiteral("blue")};
    EXPECT_EQ(root[QStringLiteral("versions")].toArray(), both);
    EXPECT_EQ(root[QStringLiteral("status")].toInt(), 1);
    EXPECT_EQ(root[QStringLiteral("unreadable")], QJsonValue(QJsonArray()));
    const QJsonArray findings = root[QStringLiteral("findings")].toArray();
    ASSERT_EQ(findings.size(), 2);
    EXPECT_EQ(findings[0][QStringLiteral("versions")].toArray(),
              QJsonArray{QStringLiteral("blue")});
    EXPECT_EQ(findings[1].toObject(),
              (QJsonObject{{QStringLiteral("file"), QStringLiteral("Maps.twy")},
                           {QStringLiteral("row"), Oak},
                           {QStringLiteral("name"), QStringLiteral("Oak")},
                           {QStringLiteral("column"), 5},
                           {QStringLiteral("columnName"), QStringLiteral("height")},
                           {QStringLiteral("message"), message},
                           {QStringLiteral("versions"), both}}))
        << json.Out.toStdString();
}
