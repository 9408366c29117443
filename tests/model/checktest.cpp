#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTextStream>
#include <functional>
#include <set>
#include <tuple>

#include "check/checkcommand.h"
#include "check/checkfolder.h"
#include "demo/demoproject.h"
#include "fixture/datafilenames.h"
#include "fixture/eventrecord.h"
#include "fixture/project.h"
#include "fixture/smallproject.h"
#include "fixture/tilesetfile.h"

// tarnwey-check on folders made with the fixture library: a sound folder and
// the demo give no finding; each broken folder gives exactly the finding of
// the one fault planted in it, with its file, row and column.

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

    Fixture::EventType people;
    people.Name = QStringLiteral("People");
    people.ListColumn = 1;
    people.RecordSize = 4;
    people.YField = 1;
    people.XField = 2;
    people.TextField = 3;
    Fixture::EventType signs;
    signs.Name = QStringLiteral("Signs");
    signs.ListColumn = 3;
    signs.RecordSize = 3;
    signs.YField = 1;
    signs.XField = 2;
    signs.TextField = 3;
    project.EventTypes = {people, signs};
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

Fixture::EventAddresses& EventRow(SmallProject& project, int map) {
    for (auto& row : project.EventLists)
        if (row.MapRow == map) return row;
    project.EventLists.push_back({map, {}});
    return project.EventLists.back();
}

void Append(const QString& folder, const char* file, const QByteArray& text) {
    QFile f(QDir(folder).filePath(QLatin1String(file)));
    ASSERT_TRUE(f.open(QIODevice::Append));
    f.write(text);
}

// Where a finding lies: file, row and column.
using Cell = std::tuple<std::string, int, int>;

std::string Describe(const Check::CheckReport& report) {
    std::string text;
    for (const auto& u : report.Unreadables)
        text += "  unreadable " + u.File.toStdString() + ": " + u.Message.toStdString() + "\n";
    for (const auto& f : report.Findings)
        text += "  " + f.File.toStdString() + " row " + std::to_string(f.Row) + " column " +
                std::to_string(f.Column) + ": " + f.What.toStdString() + "\n";
    return text;
}

// The cells of the findings, one entry per finding.
std::multiset<Cell> Cells(const Check::CheckReport& report) {
    std::multiset<Cell> cells;
    for (const auto& f : report.Findings)
        cells.insert({f.File.toStdString(), f.Row, f.Column});
    return cells;
}

class CheckFolder : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(Dir.isValid()); }

    // Writes the project into a fresh folder and checks it as the red version.
    Check::CheckReport Run(const SmallProject& project,
                           const std::function<void(const QString&)>& afterWrite = {}) {
        const QString folder = Dir.filePath(QStringLiteral("case%1").arg(++Cases));
        RomPath = project.Write(folder);
        EXPECT_FALSE(RomPath.isEmpty());
        if (afterWrite) afterWrite(folder);
        return Check::CheckFolder(folder, {{Check::GameVersion::Red, RomPath}});
    }

    QTemporaryDir Dir;
    QString RomPath;
    int Cases = 0;
};

const std::string TilesetsR = "TilesetsR.twy";
const std::string Maps = "Maps.twy";
const std::string Morlick = "Morlick.twy";
const std::string Types = "EventTypes.twy";
const std::string Lists = "Events.twy";

}  // namespace

TEST_F(CheckFolder, ASoundFolderGivesNoFinding) {
    const Check::CheckReport report = Run(SoundProject());
    EXPECT_TRUE(report.Findings.empty()) << Describe(report);
    EXPECT_TRUE(report.Unreadables.empty()) << Describe(report);
    EXPECT_EQ(report.ExitStatus(), 0);
}

TEST_F(CheckFolder, TheDemoGivesNoFindingInEitherVersion) {
    const QString folder = Dir.filePath(QStringLiteral("demo"));
    QString error;
    ASSERT_TRUE(Fixture::WriteProject(Fixture::DemoProject(), folder, &error))
        << error.toStdString();
    const QDir dir(folder);
    const Check::CheckReport report = Check::CheckFolder(
        folder, {{Check::GameVersion::Red, dir.filePath(QLatin1String(Fixture::RomFileRed))},
                 {Check::GameVersion::Blue, dir.filePath(QLatin1String(Fixture::RomFileBlue))}});
    EXPECT_EQ(report.ExitStatus(), 0) << Describe(report);
    EXPECT_EQ(report.Versions, (QStringList{QStringLiteral("red"), QStringLiteral("blue")}));
}

TEST_F(CheckFolder, EachPlantedFaultIsReportedAtItsCellAndNothingElse) {
    // Positions of the sound folder, which every case starts from.
    SmallProject sound = SoundProject();
    const int romSize = sound.Rom.Size();
    const auto blockPos = [&sound](int tileset) { return sound.Tilesets[tileset].BlockPos; };
    const auto map = [&sound](int row) -> const Fixture::MapRow& { return sound.Map(row); };
    const struct {
        const char* fault;
        std::function<void(SmallProject&)> plant;
        std::multiset<Cell> expected;                    // empty: the folder is sound
        std::function<void(const QString&)> spoil = {};  // a change to the written folder
    } cases[] = {
        // Tileset rows.
        {"last block above 255",
         [](SmallProject& p) { p.Tileset(0).LastBlock = 256; },
         {{TilesetsR, 0, 4}}},
        {"last block below 0",
         [](SmallProject& p) { p.Tileset(1).LastBlock = -1; },
         {{TilesetsR, 1, 4}}},
        {"last tile above 159",
         [](SmallProject& p) { p.Tileset(0).LastTile = 160; },
         {{TilesetsR, 0, 2}}},
        {"tile base and last tile beyond the bank",
         [](SmallProject& p) { p.Tileset(1).TileBase = 520 - 93; },
         {{TilesetsR, 1, 3}}},
        {"tile base below the bank",
         [](SmallProject& p) { p.Tileset(1).TileBase = -1; },
         {{TilesetsR, 1, 3}}},
        {"block definitions past the end",
         [romSize](SmallProject& p) { p.Tileset(1).BlockPos = romSize - 62; },
         {{TilesetsR, 1, 5}}},
        {"block definitions before the start",
         [](SmallProject& p) { p.Tileset(1).BlockPos = 0; },
         {{TilesetsR, 1, 5}}},
        {"two tilesets' blocks overlap from different starts",
         [&](SmallProject& p) { p.Tileset(1).BlockPos = blockPos(0) + 16; },
         {{TilesetsR, 1, 5}}},
        {"two tilesets share their blocks from one start",
         [&](SmallProject& p) { p.Tileset(1).BlockPos = blockPos(0); },
         {}},
        {"the most a tileset can hold: tiles 0 to 159 and blocks 0 to 255",
         [](SmallProject& p) {
             p.Tileset(1).LastTile = 159;
             p.Tileset(1).TileBase = 520 - 160;
             p.Tileset(1).LastBlock = 255;
             p.Tileset(1).BlockPos = p.Rom.Allocate(256 * 16);
         },
         {}},
        // Map rows.
        {"a tileset the file does not have",
         [](SmallProject& p) { p.Map(Oak).Tileset = 2; },
         {{Maps, Oak, 8}}},
        {"a tileset row above 255",
         [](SmallProject& p) { p.Map(Oak).Tileset = 300; },
         {{Maps, Oak, 8}}},
        {"height 0", [](SmallProject& p) { p.Map(Oak).Rows = 0; }, {{Maps, Oak, 5}}},
        {"width above 255", [](SmallProject& p) { p.Map(Deep).Cols = 256; }, {{Maps, Deep, 7}}},
        {"grid past the end",
         [romSize](SmallProject& p) { p.Map(Oak).GridPos = romSize - 2; },
         {{Maps, Oak, 2}}},
        {"grid before the start",
         [](SmallProject& p) { p.Map(Oak).GridPos = -5; },
         {{Maps, Oak, 2}}},
        {"two maps' grids overlap",
         [&](SmallProject& p) { p.Map(Deep).GridPos = map(Elm).GridPos + 3; },
         {{Maps, Deep, 2}}},
        {"a grid over a tileset's blocks",
         [&](SmallProject& p) { p.Map(Oak).GridPos = blockPos(0) + 100; },
         {{Maps, Oak, 2}}},
        {"border byte past the end",
         [romSize](SmallProject& p) { p.Map(Oak).ObjectPos = romSize + 1; },
         {{Maps, Oak, 3}}},
        {"warp count byte past the end",
         [romSize](SmallProject& p) { p.Map(Oak).ObjectPos = romSize; },
         {{Maps, Oak, 3}}},
        {"warp count above 16",
         [](SmallProject& p) { p.AddWarps(Oak, std::vector<Fixture::Warp>(17)); },
         {{Maps, Oak, 3}}},
        {"warp list past the end",
         [romSize](SmallProject& p) {
             p.Map(Oak).ObjectPos = romSize - 5;
             p.Rom.PutByte(romSize - 4, 2);  // 8 bytes from romSize - 3
         },
         {{Maps, Oak, 3}}},
        {"object data over another map's",
         [&](SmallProject& p) { p.Map(Oak).ObjectPos = map(Elm).ObjectPos; },
         {{Maps, Oak, 3}}},
        {"no object data on two maps: both border bytes at position 1",
         [](SmallProject& p) {
             p.Map(Oak).ObjectPos = 1;
             p.Map(Deep).ObjectPos = 1;
         },
         {}},
        {"warps not editable: the count byte is not read",
         [](SmallProject& p) {
             p.Map(Oak).ObjectPos = p.Rom.Size();
             p.Map(Oak).WarpsOk = false;
         },
         {}},
        {"16 warps and 16 warp-to points, the most the editor holds",
         [](SmallProject& p) {
             p.AddWarps(Oak, std::vector<Fixture::Warp>(16));
             p.AddWarpTo(Deep, std::vector<Fixture::WarpToPoint>(16));
         },
         {}},
        {"warp-to count above 16",
         [](SmallProject& p) { p.AddWarpTo(Deep, std::vector<Fixture::WarpToPoint>(17)); },
         {{Maps, Deep, 13}}},
        {"warp-to count below 0",
         [](SmallProject& p) { p.Map(Deep).WarpToCount = -1; },
         {{Maps, Deep, 13}}},
        {"warp-to list past the end",
         [romSize](SmallProject& p) { p.Map(Elm).WarpToPos = romSize - 6; },
         {{Maps, Elm, 10}}},
        {"warp-to list over another map's warp list",
         [&](SmallProject& p) { p.Map(Deep).WarpToPos = map(Elm).ObjectPos + 2; },
         {{Maps, Deep, 10}}},
        {"wild list past the end",
         [romSize](SmallProject& p) { p.Map(Deep).WildPos = romSize - 18; },
         {{Maps, Deep, 16}}},
        {"two maps share a wild list",
         [&](SmallProject& p) { p.Map(Deep).WildPos = map(Elm).WildPos; },
         {{Maps, Deep, 16}}},
        {"a grid inside its own map's wild list",
         [&](SmallProject& p) { p.Map(Elm).GridPos = map(Elm).WildPos + 4; },
         {{Maps, Elm, 16}}},
        {"a species code that Morlick.twy does not name",
         [&](SmallProject& p) { p.Rom.PutByte(map(Deep).WildPos + 7, 0x7F); },
         {{Maps, Deep, 16}}},
        {"a category over another's rows",
         [](SmallProject& p) { p.Categories[1].FirstMap = Oak; },
         {{Maps, 1, 2}}},
        // Morlick.twy.
        {"a list place twice",
         [](SmallProject& p) { p.Species[2].ListPlace = 2; },
         {{Morlick, 2, 2}}},
        {"a list place beyond the species",
         [](SmallProject& p) { p.Species[0].ListPlace = 4; },
         {{Morlick, 0, 2}}},
        {"a list place of 0",
         [](SmallProject& p) { p.Species[1].ListPlace = 0; },
         {{Morlick, 1, 2}}},
        {"a code twice",
         [](SmallProject& p) {
             p.Species.push_back({0x04, QStringLiteral("Fern again"), 4});
         },
         {{Morlick, 3, 0}}},
        {"records after the count",
         [](SmallProject&) {},
         {{Morlick, 3, -1}},
         [](const QString& folder) { Append(folder, Fixture::MorlickFile, "04,\"Extra\",4\n"); }},
        // Tiles.png, which the editor cannot start without.
        {"a tile bank too small for 520 pictures",
         [](SmallProject&) {},
         {{"Tiles.png", -1, -1}},
         [](const QString& folder) {
             Fixture::IndexTileBank()
                 .copy(0, 0, 256, 512)
                 .save(QDir(folder).filePath(QLatin1String(Fixture::TileBankFileName)));
         }},
        // EventTypes.twy.
        {"a record size above 16",
         [](SmallProject& p) { p.EventTypes[Signs].RecordSize = 17; },
         {{Types, Signs, 3}}},
        {"a list column outside 1 to 8",
         [](SmallProject& p) { p.EventTypes[Signs].ListColumn = 9; },
         {{Types, Signs, 2}}},
        {"x not directly after y",
         [](SmallProject& p) { p.EventTypes[People].XField = 3; },
         {{Types, People, 7}}},
        {"y in the last byte",
         [](SmallProject& p) { p.EventTypes[Signs].YField = 3; },
         {{Types, Signs, 6}}},
        {"a field number above the record size",
         [](SmallProject& p) { p.EventTypes[People].ItemField = 5; },
         {{Types, People, 12}}},
        {"two types in one pair of columns",
         [](SmallProject& p) { p.EventTypes[Signs].ListColumn = 2; },
         {{Types, Signs, 2}}},
        // Events.twy.
        {"32 events, the most the editor holds",
         [](SmallProject& p) { p.AddEventList(Oak, People, Records(p, People, 32)); },
         {}},
        {"an event count above 32",
         [](SmallProject& p) { p.AddEventList(Oak, People, Records(p, People, 33)); },
         {{Lists, Oak, 2}}},
        {"an event count below 0",
         [](SmallProject& p) { EventRow(p, Deep).SetList(3, 2, -1); },
         {{Lists, Deep, 4}}},
        {"an event list past the end",
         [romSize](SmallProject& p) { EventRow(p, Elm).SetList(1, romSize - 6, 2); },
         {{Lists, Elm, 1}}},
        {"an event list over a grid",
         [&](SmallProject& p) { EventRow(p, Deep).SetList(3, map(Oak).GridPos, 1); },
         {{Lists, Deep, 3}}},
        {"an event list on a map whose events are not editable",
         [romSize](SmallProject& p) {
             EventRow(p, Oak).SetList(1, romSize + 10, 1);
             p.Map(Oak).EventsOk = false;
         },
         {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.fault);
        SmallProject project = SoundProject();
        c.plant(project);
        const Check::CheckReport report = Run(project, c.spoil);
        EXPECT_TRUE(report.Unreadables.empty()) << Describe(report);
        EXPECT_EQ(Cells(report), c.expected) << Describe(report);
        EXPECT_EQ(report.ExitStatus(), c.expected.empty() ? 0 : 1);
        for (const auto& f : report.Findings) {
            EXPECT_FALSE(f.What.isEmpty());
            EXPECT_EQ(f.ColumnName.isEmpty(), f.Column < 0);
        }
    }
}

TEST_F(CheckFolder, FilesThatCannotBeReadGiveStatus2AndTheRestIsStillChecked) {
    const struct {
        const char* fault;
        std::function<void(const QString&)> spoil;
        const char* file;
    } cases[] = {
        {"no Morlick.twy",
         [](const QString& folder) {
             QFile::remove(QDir(folder).filePath(QLatin1String(Fixture::MorlickFile)));
         },
         "Morlick.twy"},
        {"no ROM",
         [](const QString& folder) {
             QFile::remove(QDir(folder).filePath(QLatin1String(Fixture::RomFileRed)));
         },
         "MorlickRed.gb"},
        {"a category beyond row 255",
         [](const QString& folder) {
             Fixture::WriteFile(QDir(folder).filePath(QLatin1String(Fixture::MapsFile)),
                                "head\nmark\n\"All\",250,7\n");
         },
         "Maps.twy"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.fault);
        SmallProject project = SoundProject();
        project.Map(Oak).Rows = 0;  // a finding the other files still show
        const Check::CheckReport report = Run(project, c.spoil);
        ASSERT_EQ(report.Unreadables.size(), 1u) << Describe(report);
        EXPECT_EQ(report.Unreadables.front().File, QString::fromLatin1(c.file));
        EXPECT_TRUE(report.Unreadables.front().Message.contains(QString::fromLatin1(c.file)))
            << report.Unreadables.front().Message.toStdString();
        EXPECT_EQ(report.ExitStatus(), 2);
        if (QString::fromLatin1(c.file) != QStringLiteral("Maps.twy")) {
            EXPECT_EQ(Cells(report), (std::multiset<Cell>{{Maps, Oak, 5}})) << Describe(report);
        }
    }
}

TEST_F(CheckFolder, BothVersionsAreCheckedEachWithItsTilesetFileAndROM) {
    SmallProject project = SoundProject();
    project.Map(Oak).Rows = 0;  // a fault of both versions
    const Check::CheckReport report = Run(project, [&project](const QString& folder) {
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
    EXPECT_EQ(Cells(report), (std::multiset<Cell>{{Maps, Oak, 5}})) << Describe(report);
    const QString folder = QFileInfo(RomPath).path();
    const Check::CheckReport both = Check::CheckFolder(
        folder,
        {{Check::GameVersion::Red, RomPath},
         {Check::GameVersion::Blue, QDir(folder).filePath(QLatin1String(Fixture::RomFileBlue))}});
    ASSERT_EQ(Cells(both), (std::multiset<Cell>{{"TilesetsB.twy", 1, 5}, {Maps, Oak, 5}}))
        << Describe(both);
    // A fault of both versions is told once, without naming them.
    EXPECT_EQ(both.Findings[0].File, QStringLiteral("TilesetsB.twy"));
    EXPECT_EQ(both.Findings[0].Versions, QStringList{QStringLiteral("blue")});
    EXPECT_TRUE(both.Findings[1].Versions.isEmpty());
}

namespace {
struct CommandResult {
    int Status = -1;
    QString Out;
    QString Err;
};

CommandResult RunCommand(const QStringList& arguments) {
    CommandResult result;
    QTextStream out(&result.Out);
    QTextStream err(&result.Err);
    result.Status =
        Check::RunCheckCommand(QStringList{QStringLiteral("tarnwey-check")} + arguments, out, err);
    out.flush();
    err.flush();
    return result;
}
}  // namespace

TEST_F(CheckFolder, TheCommandTellsAFindingOnALineOrInJSON) {
    SmallProject project = SoundProject();
    const int romSize = project.Rom.Size();
    project.Map(Oak).GridPos = romSize - 2;
    Run(project);
    const QString folder = QFileInfo(RomPath).path();

    // The map, the column and the positions in words.
    const CommandResult text = RunCommand({folder, RomPath});
    EXPECT_EQ(text.Status, 1);
    EXPECT_EQ(text.Out, QStringLiteral("Maps.twy, row %1 \"Oak\", column 2 (grid position): The "
                                       "grid (4 bytes, positions %2 to %3) would reach past the "
                                       "end of MorlickRed.gb, which has %4 bytes.\n")
                            .arg(Oak)
                            .arg(romSize - 2)
                            .arg(romSize + 1)
                            .arg(romSize));

    const CommandResult json = RunCommand({QStringLiteral("--json"), folder, RomPath});
    EXPECT_EQ(json.Status, 1);
    const QJsonObject root = QJsonDocument::fromJson(json.Out.toUtf8()).object();
    EXPECT_EQ(root[QStringLiteral("status")].toInt(), 1);
    EXPECT_EQ(root[QStringLiteral("versions")].toArray(), QJsonArray{QStringLiteral("red")});
    EXPECT_TRUE(root[QStringLiteral("unreadable")].toArray().isEmpty());
    const QJsonArray findings = root[QStringLiteral("findings")].toArray();
    ASSERT_EQ(findings.size(), 1);
    const QJsonObject finding = findings[0].toObject();
    EXPECT_EQ(finding[QStringLiteral("file")].toString(), QStringLiteral("Maps.twy"));
    EXPECT_EQ(finding[QStringLiteral("row")].toInt(), Oak);
    EXPECT_EQ(finding[QStringLiteral("name")].toString(), QStringLiteral("Oak"));
    EXPECT_EQ(finding[QStringLiteral("column")].toInt(), 2);
    EXPECT_EQ(finding[QStringLiteral("columnName")].toString(), QStringLiteral("grid position"));
    EXPECT_TRUE(finding[QStringLiteral("message")].toString().contains(QStringLiteral("past")));

    // Without the tile bank the editor would not start: a finding of the
    // file as a whole, in the editor's words.
    QFile::remove(QDir(folder).filePath(QLatin1String(Fixture::TileBankFileName)));
    const CommandResult noBank = RunCommand({QStringLiteral("--json"), folder, RomPath});
    EXPECT_EQ(noBank.Status, 1);
    const QJsonObject bank = QJsonDocument::fromJson(noBank.Out.toUtf8())
                                 .object()[QStringLiteral("findings")]
                                 .toArray()
                                 .last()
                                 .toObject();
    EXPECT_EQ(bank[QStringLiteral("file")].toString(), QStringLiteral("Tiles.png"));
    EXPECT_TRUE(bank[QStringLiteral("row")].isNull());
    EXPECT_TRUE(bank[QStringLiteral("message")].toString().startsWith(
        QStringLiteral("The tile picture bank \"Tiles.png\" could not be read")));

    QFile::remove(RomPath);
    const CommandResult missing = RunCommand({QStringLiteral("--json"), folder, RomPath});
    EXPECT_EQ(missing.Status, 2);
    const QJsonArray unreadable = QJsonDocument::fromJson(missing.Out.toUtf8())
                                      .object()[QStringLiteral("unreadable")]
                                      .toArray();
    ASSERT_EQ(unreadable.size(), 1);
    EXPECT_EQ(unreadable[0].toObject()[QStringLiteral("file")].toString(),
              QStringLiteral("MorlickRed.gb"));

    // An overlap names its first and last shared positions, an area of one
    // byte is told as one, and a map's size names its way.
    SmallProject shared = SoundProject();
    const Fixture::MapRow& elm = shared.Map(Elm);
    shared.Map(Deep).GridPos = elm.GridPos + 3;
    const int deepEnd = elm.GridPos + 3 + shared.Map(Deep).Rows * shared.Map(Deep).Cols;
    const int lastShared = std::min(elm.GridPos + elm.Rows * elm.Cols, deepEnd) - 1;
    shared.Map(Oak).ObjectPos = romSize;  // the warp count would follow the last byte
    shared.Map(Oak).Rows = 0;
    Run(shared);
    const CommandResult told = RunCommand({QFileInfo(RomPath).path(), RomPath});
    EXPECT_EQ(told.Status, 1);
    EXPECT_TRUE(told.Out.contains(
        QStringLiteral("shares positions %1 to %2 with").arg(elm.GridPos + 3).arg(lastShared)))
        << told.Out.toStdString();
    EXPECT_TRUE(told.Out.contains(QStringLiteral("(1 byte, position %1)").arg(romSize + 1)))
        << told.Out.toStdString();
    EXPECT_TRUE(told.Out.contains(
        QStringLiteral("The map is 0 blocks high, but a map is 1 to 255 blocks high.")))
        << told.Out.toStdString();
}
