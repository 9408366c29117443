#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "core/tables.h"
#include "fixture/mapgrid.h"
#include "fixture/mapsfile.h"
#include "fixture/romimage.h"
#include "fixture/tilesetfile.h"
#include "fixture/warpdata.h"
#include "fixture/wilddata.h"

// The fixture library lays out the ROMs and data files that the demo and the
// tests stand on. A fault here would make tests pass or fail for the wrong
// reason, so its contracts are checked here, the data files through the
// program's own readers.

TEST(Fixture, RomImageKeepsEveryByteInsideAndDropsTheRest) {
    Fixture::RomImage rom(32, 0xEE);
    EXPECT_TRUE(rom.PutByte(1, 0x11));   // the first byte: file offset 0
    EXPECT_TRUE(rom.PutByte(32, 0x22));  // the last
    EXPECT_FALSE(rom.PutByte(0, 0x33));
    EXPECT_FALSE(rom.PutByte(33, 0x33));
    // An area that runs past the end keeps the bytes inside and says so.
    EXPECT_FALSE(rom.Put(31, QByteArray("\x44\x55\x66", 3)));
    EXPECT_EQ(rom.Size(), 32);
    EXPECT_EQ(static_cast<quint8>(rom.Bytes()[0]), 0x11);
    EXPECT_EQ(rom.At(31), 0x44);
    EXPECT_EQ(rom.At(32), 0x55);
    EXPECT_EQ(rom.At(2), 0xEE);
    EXPECT_EQ(rom.At(0), 0);
    EXPECT_EQ(rom.At(33), 0);
    EXPECT_TRUE(rom.Holds(1, 32));
    EXPECT_TRUE(rom.Holds(32, 1));
    EXPECT_TRUE(rom.Holds(33, 0));
    EXPECT_FALSE(rom.Holds(32, 2));
    EXPECT_FALSE(rom.Holds(0, 1));
    EXPECT_FALSE(rom.Holds(1, -1));

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("rom.gb"));
    ASSERT_TRUE(rom.Save(path));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), rom.Bytes());
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
    a.WarpsOk = false;
    a.WarpToCount = 7;
    a.XShift = -4;
    a.YShift = 4;
    a.WildPos = 0x10000;
    a.EventsOk = false;
    Fixture::MapRow b = a;
    b.Name = QStringLiteral("Second");
    b.Note.clear();
    b.WarpsOk = true;
    b.EventsOk = true;
    b.PlacementFix = 0;
    const std::vector<Fixture::Category> categories = {
        {QStringLiteral("Towns, old"), 0, {a, b}},
        {QStringLiteral("Empty"), 5, {}},
        {QStringLiteral("Last"), 255, {b}},
    };

    QTemporaryDir dir;
    const QString tilesetPath = dir.filePath(QStringLiteral("TilesetsR.twy"));
    const QString mapsPath = dir.filePath(QStringLiteral("Maps.twy"));
    for (const auto& [path, text] : {std::pair{tilesetPath, Fixture::TilesetFileText(tilesets)},
                                     std::pair{mapsPath, Fixture::MapsFileText(categories)}}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

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
    EXPECT_EQ(categoryTable[0][CatName].ToText(), QStringLiteral("Towns, old"));
    EXPECT_EQ(categoryTable[1][CatMapCount].ToInt16(), 0);
    EXPECT_EQ(categoryTable[1][CatFirstMap].ToInt16(), 5);
    EXPECT_EQ(categoryTable[2][CatFirstMap].ToInt16(), 255);
    const auto expectRow = [](const auto& row, const Fixture::MapRow& want) {
        SCOPED_TRACE(want.Name.toStdString());
        EXPECT_EQ(row[MapField0].ToText(), want.Field0);
        EXPECT_EQ(row[MapName].ToText(), want.Name);
        EXPECT_EQ(row[MapGridPos].ToInt32(), want.GridPos);
        EXPECT_EQ(row[MapObjectPos].ToInt32(), want.ObjectPos);
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
    Fixture::RomImage rom(16, 0);
    EXPECT_TRUE(Fixture::PutGrid(rom, 11, grid, 0));
    EXPECT_EQ(rom.At(10), 0);
    EXPECT_EQ(rom.At(11), 1);
    EXPECT_EQ(rom.At(13), 250);
    EXPECT_EQ(rom.At(14), 7);
    EXPECT_FALSE(Fixture::PutGrid(rom, 12, grid, 0));  // one byte past the end

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
    const QByteArray wild = Fixture::WildBytes(list);
    ASSERT_EQ(wild.size(), 20);
    EXPECT_EQ(wild.left(2), QByteArray("\x03\x2A", 2));
    EXPECT_EQ(wild.right(2), QByteArray("\x32\xFF", 2));
}
