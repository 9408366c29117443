#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "core/tables.h"
#include "files.h"
#include "fixture/blockdata.h"
#include "fixture/cartridge.h"
#include "fixture/datafilenames.h"
#include "fixture/eventrecord.h"
#include "fixture/mapgrid.h"
#include "fixture/mapsfile.h"
#include "fixture/project.h"
#include "fixture/romimage.h"
#include "fixture/smallproject.h"
#include "fixture/tilesetfile.h"
#include "fixture/warpdata.h"
#include "fixture/wilddata.h"

// The fixture library lays out the ROMs and data files that the demo and the
// tests stand on. A fault here would make tests pass or fail for the wrong
// reason, so its contracts are checked here, the data files through the
// program's own readers.

TEST(Fixture, RomImageKeepsEveryByteInsideAndDropsTheRest) {
    Fixture::RomImage rom(32, 0xEE);
    EXPECT_TRUE(rom.PutByte(1, 0x11));  // the first byte: file offset 0
    EXPECT_FALSE(rom.PutByte(0, 0x33));
    EXPECT_FALSE(rom.PutByte(33, 0x33));
    // An area that runs past the end keeps the bytes inside and says so; no
    // byte wraps round to the start or goes astray.
    EXPECT_FALSE(rom.Put(31, QByteArray("\x44\x55\x66", 3)));
    EXPECT_EQ(rom.Bytes(), QByteArray("\x11") + QByteArray(29, '\xEE') + "\x44\x55");
    EXPECT_EQ(rom.At(32), 0x55);
    EXPECT_EQ(rom.At(0), 0);
    EXPECT_EQ(rom.At(33), 0);
    const struct {
        int position, size;
        bool held;
    } areas[] = {{1, 32, true},  {32, 1, true}, {33, 0, true},
                 {32, 2, false}, {0, 1, false}, {1, -1, false}};
    for (const auto& a : areas)
        EXPECT_EQ(rom.Holds(a.position, a.size), a.held) << a.position << " + " << a.size;

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("rom.gb"));
    ASSERT_TRUE(rom.Save(path));
    // Resizing keeps the bytes that stay and fills the new ones.
    Fixture::RomImage cut = rom;
    cut.Resize(2);
    EXPECT_EQ(cut.Bytes(), QByteArray("\x11\xEE", 2));
    cut.Resize(4, 0x07);
    EXPECT_EQ(cut.Bytes(), QByteArray("\x11\xEE\x07\x07", 4));
    EXPECT_EQ(TestFiles::Read(path), rom.Bytes());
    QString error;
    EXPECT_FALSE(rom.Save(dir.filePath(QStringLiteral("no/such/folder/rom.gb")), &error));
    EXPECT_TRUE(error.contains(QStringLiteral("rom.gb")));
}

TEST(Fixture, AllocatorHandsOutAlignedAreasThatNeverOverlap) {
    Fixture::RomImage rom(0x10000);
    EXPECT_EQ(rom.Allocate(3), Fixture::RomImage::FirstFreePosition);
    // Alignment counts in file offsets: position p sits at offset p - 1.
    const int aligned = rom.Allocate(16, 0x100);
    EXPECT_EQ((aligned - 1) % 0x100, 0);
    EXPECT_GE(aligned, Fixture::RomImage::FirstFreePosition + 3);
    const int next = rom.Allocate(1);
    EXPECT_EQ(next, aligned + 16);
    // An area that already sits on the alignment does not move.
    rom.SetNextFree(0x201);
    EXPECT_EQ(rom.Allocate(8, 0x100), 0x201);
    EXPECT_EQ(rom.NextFree(), 0x209);
}

// Values a careless writer would spell wrongly: a comma in a name, a quote,
// a negative correction, positions past 16 bits, both truth values, an empty
// field, a category with no maps between two with maps.
TEST(Fixture, MovedGridsAndBlockAreasComeBehindEverythingElse) {
    Fixture::SmallProject project(0x8000, 0);
    const int set = project.AddTileset(1, 3, 0, [](int b, int t) { return 16 * b + t; });
    const int cat = project.AddCategory(QStringLiteral("C"), 0);
    const int map = project.AddMap(cat, QStringLiteral("M"), 3, 2, set,
                                   [](int x, int y) { return 10 * y + x; });
    const int oldGrid = project.Map(map).GridPos;
    const int oldBlocks = project.Tileset(set).BlockPos;
    const QByteArray grid = project.Rom.Bytes().mid(oldGrid - 1, 6);
    const QByteArray blocks = project.Rom.Bytes().mid(oldBlocks - 1, 32);
    project.AddWildList(map, {});
    const int free = project.Rom.NextFree();

    EXPECT_EQ(project.MoveGrid(map), free);
    EXPECT_EQ(project.Map(map).GridPos, free);
    EXPECT_EQ(project.Rom.Bytes().mid(free - 1, 6), grid);
    EXPECT_EQ(project.MoveBlocks(set), free + 6 + 1);  // behind the grid's guard byte
    EXPECT_EQ(project.Tileset(set).BlockPos, free + 7);
    EXPECT_EQ(project.Rom.Bytes().mid(free + 6, 32), blocks);
    EXPECT_EQ(project.Rom.NextFree(), free + 7 + 32 + 1);
    // The old places keep their bytes.
    EXPECT_EQ(project.Rom.Bytes().mid(oldGrid - 1, 6), grid);
    EXPECT_EQ(project.Rom.Bytes().mid(oldBlocks - 1, 32), blocks);
}

TEST(Fixture, DataFilesReadBackThroughTheProgramsReaders) {
    std::vector<Fixture::TilesetRow> tilesets(3);
    for (int i = 0; i < 3; ++i) {
        auto& t = tilesets[static_cast<size_t>(i)];
        t.Field0 = QStringLiteral("Set, %1").arg(i);
        t.Field1 = i == 1 ? QString() : QStringLiteral("kind %1").arg(i);
        t.LastTile = 93 + i;
        t.TileBase = 424 + i;
        t.LastBlock = i == 2 ? 255 : 10 * i;
        t.BlockPos = 0x7FFF01 + 16 * i;
        t.BlockBias = i;
    }
    Fixture::MapRow a;
    a.Field0 = QStringLiteral("00");
    a.Name = QStringLiteral("Fernhollow, north");
    a.Note = QStringLiteral("Says \"hello\", then leaves");
    a.GridPos = 0x123456;
    a.ObjectPos = 1;
    a.Rows = 255;
    a.Cols = 1;
    a.Tileset = 2;
    a.WarpToPos = 0xFFFFFF;
    a.PlacementFix = -1;
    a.Field4 = QStringLiteral("four, \"4\"");
    a.Field6 = QStringLiteral("six");
    a.WarpsOk = false;
    a.WarpToCount = 7;
    a.XShift = -4;
    a.YShift = 4;
    a.WildPos = 0x10000;
    a.EventsOk = true;
    Fixture::MapRow b = a;
    b.Name = QStringLiteral("Second");
    b.Note.clear();
    b.Field4.clear();
    b.Field6.clear();
    // The two flags differ within each map, so swapped columns show.
    b.WarpsOk = true;
    b.EventsOk = false;
    b.PlacementFix = 0;
    const std::vector<Fixture::Category> categories = {
        {QStringLiteral("Towns, old"), 0, {a, b}},
        {QStringLiteral("Empty"), 5, {}},
        {QStringLiteral("Last"), 255, {b}},
    };

    QTemporaryDir dir;
    const QString tilesetPath = dir.filePath(QStringLiteral("TilesetsR.twy"));
    const QString mapsPath = dir.filePath(QStringLiteral("Maps.twy"));
    ASSERT_TRUE(Fixture::WriteFile(tilesetPath, Fixture::TilesetFileText(tilesets)));
    ASSERT_TRUE(Fixture::WriteFile(mapsPath, Fixture::MapsFileText(categories)));

    static TilesetTableT tilesetTable;
    static CategoryTableT categoryTable;
    static MapTableT mapTable;
    std::int16_t categoryCount = 0;
    QString error;
    ASSERT_TRUE(LoadTilesetFile(tilesetPath, tilesetTable, error)) << error.toStdString();
    ASSERT_TRUE(LoadMapsFile(mapsPath, categoryTable, mapTable, categoryCount, error))
        << error.toStdString();

    for (int i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        const auto& want = tilesets[static_cast<size_t>(i)];
        const auto& row = tilesetTable[i];
        EXPECT_EQ(row[TilesetField0].ToText(), want.Field0);
        EXPECT_EQ(row[TilesetField1].ToText(), want.Field1);
        EXPECT_EQ(row[TilesetLastTile].ToInt16(), want.LastTile);
        EXPECT_EQ(row[TilesetTileBase].ToInt16(), want.TileBase);
        EXPECT_EQ(row[TilesetLastBlock].ToInt16(), want.LastBlock);
        EXPECT_EQ(row[TilesetBlockPos].ToInt32(), want.BlockPos);
        EXPECT_EQ(row[TilesetBlockBias].ToInt16(), want.BlockBias);
    }
    EXPECT_TRUE(tilesetTable[3][TilesetField0].IsEmpty());

    ASSERT_EQ(categoryCount, 2);
    for (int i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        const auto& want = categories[static_cast<size_t>(i)];
        EXPECT_EQ(categoryTable[i][CatName].ToText(), want.Name);
        EXPECT_EQ(categoryTable[i][CatFirstMap].ToInt16(), want.FirstMap);
        EXPECT_EQ(categoryTable[i][CatMapCount].ToInt16(), static_cast<int>(want.Maps.size()));
    }
    const auto expectRow = [](const auto& row, const Fixture::MapRow& want) {
        SCOPED_TRACE(want.Name.toStdString());
        EXPECT_EQ(row[MapField0].ToText(), want.Field0);
        EXPECT_EQ(row[MapName].ToText(), want.Name);
        EXPECT_EQ(row[MapGridPos].ToInt32(), want.GridPos);
        EXPECT_EQ(row[MapObjectPos].ToInt32(), want.ObjectPos);
        EXPECT_EQ(row[MapField6].ToText(), want.Field6);
        EXPECT_EQ(row[MapRows].ToInt16(), want.Rows);
        EXPECT_EQ(row[MapCols].ToInt16(), want.Cols);
        EXPECT_EQ(row[MapTileset].ToInt16(), want.Tileset);
        EXPECT_EQ(row[MapWarpToPos].ToInt32(), want.WarpToPos);
        EXPECT_EQ(row[MapPlacementFix].ToInt16(), want.PlacementFix);
        EXPECT_EQ(row[MapWarpsOk].IsTrue(), want.WarpsOk);
        EXPECT_EQ(row[MapWarpToCount].ToInt16(), want.WarpToCount);
        EXPECT_EQ(row[MapXShift].ToInt16(), want.XShift);
        EXPECT_EQ(row[MapYShift].ToInt16(), want.YShift);
        EXPECT_EQ(row[MapWildPos].ToInt32(), want.WildPos);
        EXPECT_EQ(row[MapEventsOk].IsTrue(), want.EventsOk);
    };
    expectRow(mapTable[0], a);
    expectRow(mapTable[1], b);
    expectRow(mapTable[255], b);
    // A double quote cannot stand inside a quoted field; the writer keeps the
    // text whole with single quotes instead of cutting the record short.
    EXPECT_EQ(mapTable[0][MapNote].ToText(), QStringLiteral("Says 'hello', then leaves"));
    EXPECT_EQ(mapTable[0][MapField4].ToText(), QStringLiteral("four, '4'"));
    EXPECT_TRUE(mapTable[1][MapField4].IsEmpty());
    EXPECT_TRUE(mapTable[2][MapName].IsEmpty());
}

TEST(Fixture, RomAreasHaveTheByteLayoutTheEditorReads) {
    // The grid: row by row from the top, block + bias kept to a byte.
    Fixture::MapGrid grid(3, 2, 1);
    grid.Set(2, 0, 250);
    grid.Set(0, 1, 7);
    grid.Set(5, 5, 9);  // outside: ignored
    EXPECT_EQ(grid.At(5, 5), -1);
    EXPECT_EQ(grid.Bytes(10), QByteArray("\x0B\x0B\x04\x11\x0B\x0B", 6));
    Fixture::RomImage rom(40, 0);
    EXPECT_TRUE(Fixture::PutGrid(rom, 11, grid, 0));
    EXPECT_EQ(rom.Bytes().mid(9, 8), QByteArray("\x00\x01\x01\xFA\x07\x01\x01\x00", 8));
    EXPECT_FALSE(Fixture::PutGrid(rom, 36, grid, 0));  // one byte past the end

    // Blocks: 16 tile numbers each in reading order, block 0 first, no gap.
    Fixture::BlockDef first{};
    for (int i = 0; i < 16; ++i)
        first[static_cast<size_t>(i)] = static_cast<quint8>(i + 1);
    const QByteArray blocks = Fixture::BlockBytes({first, Fixture::UniformBlock(0x7F)});
    EXPECT_EQ(blocks,
              QByteArray("\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0A\x0B\x0C\x0D\x0E\x0F\x10", 16) +
                  QByteArray(16, '\x7F'));
    rom = Fixture::RomImage(40, 0);
    EXPECT_TRUE(Fixture::PutBlocks(rom, 9, {first}));
    EXPECT_EQ(rom.Bytes().mid(7, 18), QByteArray(1, '\0') + blocks.left(16) + QByteArray(1, '\0'));
    EXPECT_FALSE(Fixture::PutBlocks(rom, 10, {first, first}));  // 2 bytes too long

    // Object data: border byte, warp count, then y, x, point, map per warp.
    EXPECT_EQ(Fixture::ObjectDataBytes(0x21, {{3, 4, 1, 200}, {5, 6, 0, 2}}),
              QByteArray("\x21\x02\x03\x04\x01\xC8\x05\x06\x00\x02", 10));
    EXPECT_EQ(Fixture::ObjectDataBytes(0, {}), QByteArray("\x00\x00", 2));
    // Warp-to points: placement low, placement high, y, x; no count.
    EXPECT_EQ(Fixture::WarpToBytes({{0xC7A5, 9, 8}}), QByteArray("\xA5\xC7\x09\x08", 4));
    // Wild data: ten pairs of level, then species.
    Fixture::EncounterList list{};
    list[0] = {3, 0x2A};
    list[9] = {50, 0xFF};
    EXPECT_EQ(Fixture::WildBytes(list), QByteArray("\x03\x2A") + QByteArray(16, '\0') + "\x32\xFF");

    // An event record: all 0 but y and x, each with its own bias (y takes
    // Bias1, x takes Bias2), kept to a byte; fields count from 1.
    Fixture::EventType type;
    type.RecordSize = 6;
    type.Bias1 = 4;
    type.Bias2 = 250;
    type.YField = 2;
    type.XField = 3;
    QByteArray record = Fixture::EventRecord(type, 9, 1);
    EXPECT_EQ(record, QByteArray("\x00\x05\x03\x00\x00\x00", 6));
    Fixture::SetEventField(record, 6, 0x1AB);  // the last byte of the record
    Fixture::SetEventField(record, 1, 0xC0);   // the first
    Fixture::SetEventField(record, 0, 0x55);   // the type has no such field
    Fixture::SetEventField(record, 7, 0x55);   // past the record
    EXPECT_EQ(record, QByteArray("\xC0\x05\x03\x00\x00\xAB", 6));
    // Placement values: one block to the right is one more, and the
    // correction is added as it is.
    const int base = Fixture::EventPlacement(20, 3, 2, 0);
    EXPECT_EQ(Fixture::EventPlacement(20, 4, 2, 0), base + 1);
    EXPECT_EQ(Fixture::EventPlacement(20, 3, 2, -1), base - 1);
}

TEST(Fixture, ChecksumAndProjectFolder) {
    // The file checksum sums every byte but its own two and stores the sum high
    // byte first at offsets 0x14E and 0x14F, so finishing twice changes nothing.
    Fixture::RomImage rom(0x8000, 0);
    Fixture::FillWithFiller(rom, 7);
    Fixture::PutCartridgeHeader(rom, QStringLiteral("FERNHOLLOW"));
    Fixture::FinishChecksum(rom);
    quint16 sum = 0;
    for (int p = 1; p <= rom.Size(); ++p)
        if (p != 0x14F && p != 0x150) sum = static_cast<quint16>(sum + rom.At(p));
    EXPECT_EQ(rom.At(0x14F), sum >> 8);
    EXPECT_EQ(rom.At(0x150), sum & 0xFF);
    const QByteArray finished = rom.Bytes();
    Fixture::FinishChecksum(rom);
    EXPECT_EQ(rom.Bytes(), finished);
    EXPECT_EQ(rom.Bytes().mid(0x134, 11), QByteArray("FERNHOLLOW\0", 11));

    // A project goes into a folder that does not exist yet; each text file
    // holds exactly its text, and an empty ROM or a null picture is left out.
    QTemporaryDir dir;
    const QString folder = dir.filePath(QStringLiteral("deep/program"));
    Fixture::Project project;
    project.MorlickText = "1\n\"2A\",\"Brindle\",1\n";
    project.EventTypesText = "types";
    project.EventsText = "";
    project.RomBlue = rom;
    QString error;
    ASSERT_TRUE(Fixture::WriteProject(project, folder, &error)) << error.toStdString();
    const auto read = [&folder](const char* name) {
        return TestFiles::Read(QDir(folder).filePath(QLatin1String(name)));
    };
    EXPECT_EQ(read(Fixture::MorlickFile), project.MorlickText);
    EXPECT_EQ(read(Fixture::EventTypesFile), project.EventTypesText);
    EXPECT_EQ(read(Fixture::EventsFile), QByteArray(""));
    EXPECT_EQ(read(Fixture::MapsFile), Fixture::MapsFileText({}));
    EXPECT_EQ(read(Fixture::RomFileBlue), rom.Bytes());
    EXPECT_FALSE(QFile::exists(QDir(folder).filePath(QLatin1String(Fixture::RomFileRed))));
    EXPECT_FALSE(QFile::exists(QDir(folder).filePath(QLatin1String(Fixture::TileBankFileName))));

    // WriteFile replaces a longer file whole instead of leaving its tail.
    const QString path = QDir(folder).filePath(QLatin1String(Fixture::EventTypesFile));
    ASSERT_TRUE(Fixture::WriteFile(path, "ab"));
    EXPECT_EQ(TestFiles::Read(path), QByteArray("ab"));
    EXPECT_FALSE(Fixture::WriteFile(dir.filePath(QStringLiteral("none/x.twy")), "ab", &error));
    EXPECT_TRUE(error.contains(QStringLiteral("x.twy")));
}
