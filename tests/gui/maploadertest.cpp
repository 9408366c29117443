#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <functional>

#include "core/defines.h"
#include "fixture/datafilenames.h"
#include "fixture/smallproject.h"
#include "mapview/maploader.h"
#include "model/files.h"

// Reading a map into the working state. A row of the tables that cannot fit
// the working state or the ROM must be refused before anything is changed, so
// that the map on the screen stays whole.
namespace {

class MapLoaderTest : public ::testing::Test {
protected:
    // Tileset 0: blocks 0 to 9, bias 4. Map 0 is 3 x 2 with block x + y at
    // each square and border block 2; map 1 lies at the very end of the ROM.
    void SetUp() override {
        Fixture::SmallProject project(0x4001 + 0x200);
        project.AddTileset(9, 4, 0, [](int b, int t) { return b * 16 + t; });
        const int cat = project.AddCategory(QStringLiteral("Maps"), 0);
        project.AddMap(
            cat, QStringLiteral("Small"), 3, 2, 0, [](int x, int y) { return x + y; }, 2);
        const int last = project.AddMap(cat, QStringLiteral("At the end"), 4, 4, 0,
                                        [](int x, int) { return x; });
        // Move the second grid so that its last byte is the ROM's last byte.
        const int endGrid = project.Rom.Size() - 16 + 1;
        project.Map(last).GridPos = endGrid;
        for (int i = 0; i < 16; ++i)
            project.Rom.PutByte(endGrid + i, static_cast<quint8>(4 + 9));
        RomPath = project.Write(Dir.path());
        ASSERT_FALSE(RomPath.isEmpty());
        Defines.Reset();
        Defines.RomPath = RomPath;
        QString error;
        ASSERT_TRUE(
            LoadTilesetFile(QDir(Dir.path()).filePath(QString::fromLatin1(Fixture::TilesetFileRed)),
                            Defines.TilesetTable, error))
            << error.toStdString();
        ASSERT_TRUE(LoadMapsFile(QDir(Dir.path()).filePath(QString::fromLatin1(Fixture::MapsFile)),
                                 Defines.CategoryTable, Defines.MapTable, Defines.CategoryCount,
                                 error))
            << error.toStdString();
    }

    QTemporaryDir Dir;
    QString RomPath;
};

}  // namespace

TEST_F(MapLoaderTest, ReadsBlocksBorderAndGridWithTheBiasTakenOff) {
    const QByteArray before = TestFiles::Read(RomPath);
    LoadedMap loaded;
    QString error;
    ASSERT_TRUE(ReadMap(0, loaded, error)) << error.toStdString();
    EXPECT_EQ(Defines.CurTileset, 0);
    EXPECT_EQ(Defines.BlockCount, 9);
    EXPECT_EQ(Defines.MapWidth, 3);
    EXPECT_EQ(Defines.MapHeight, 2);
    for (int y = 1; y <= 2; ++y)
        for (int x = 1; x <= 3; ++x)
            EXPECT_EQ(Defines.MapGrid[y][x], x + y) << x << "," << y;
    EXPECT_EQ(loaded.BorderNum, 2);
    EXPECT_EQ(loaded.BorderPos, Defines.MapTable[0][MapObjectPos].ToInt32());
    EXPECT_EQ(loaded.GridPos, Defines.MapTable[0][MapGridPos].ToInt32());
    // All ten blocks, the last one included, and their places in reading order.
    EXPECT_EQ(Defines.BlockTiles[0][0], 0);
    EXPECT_EQ(Defines.BlockTiles[3][5], 3 * 16 + 5);
    EXPECT_EQ(Defines.BlockTiles[9][15], 9 * 16 + 15);
    // A grid whose last byte is the ROM's last byte still loads.
    ASSERT_TRUE(ReadMap(1, loaded, error)) << error.toStdString();
    EXPECT_EQ(Defines.MapGrid[4][4], 9);
    // Loading reads; it never writes.
    EXPECT_EQ(TestFiles::Read(RomPath), before);
}

TEST_F(MapLoaderTest, ARowThatDoesNotFitIsRefusedAndTheLoadedMapStays) {
    LoadedMap loaded;
    QString error;
    ASSERT_TRUE(ReadMap(0, loaded, error));
    const auto grid = Defines.MapGrid;
    const auto blocks = Defines.BlockTiles;

    struct Case {
        const char* what;
        std::function<void(MapTableT&, TilesetTableT&)> spoil;
        const char* message;  // a part of the message the user sees
    };
    const Case cases[] = {
        {"tileset row past the table",
         [](MapTableT& m, TilesetTableT&) { m[1][MapTileset] = Field::Number(256); }, "tileset"},
        {"negative tileset row",
         [](MapTableT& m, TilesetTableT&) { m[1][MapTileset] = Field::Number(-1); }, "tileset"},
        {"last block past 255",
         [](MapTableT&, TilesetTableT& t) { t[0][TilesetLastBlock] = Field::Number(256); },
         "last block"},
        {"width 0", [](MapTableT& m, TilesetTableT&) { m[1][MapCols] = Field::Number(0); },
         "0 x 4"},
        {"height 256", [](MapTableT& m, TilesetTableT&) { m[1][MapRows] = Field::Number(256); },
         "4 x 256"},
        {"grid one byte past the end",
         [](MapTableT& m, TilesetTableT&) {
             m[1][MapGridPos] = Field::Number(m[1][MapGridPos].ToInt32() + 1);
         },
         "grid"},
        {"border outside the ROM",
         [](MapTableT& m, TilesetTableT&) { m[1][MapObjectPos] = Field::Number(0); },
         "border block"},
        {"blocks running past the end",
         [](MapTableT&, TilesetTableT& t) {
             t[0][TilesetBlockPos] = Field::Number(0x4001 + 0x200 - 16 * 10 + 2);
         },
         "block definitions"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const auto maps = Defines.MapTable;
        const auto tilesets = Defines.TilesetTable;
        c.spoil(Defines.MapTable, Defines.TilesetTable);
        error.clear();
        EXPECT_FALSE(ReadMap(1, loaded, error));
        EXPECT_TRUE(error.contains(QString::fromLatin1(c.message))) << error.toStdString();
        EXPECT_TRUE(error.contains(QStringLiteral("At the end")) ||
                    error.contains(QStringLiteral("row 1")))
            << error.toStdString();
        // Nothing of the working state moved: still the small map.
        EXPECT_EQ(Defines.MapWidth, 3);
        EXPECT_EQ(Defines.MapHeight, 2);
        EXPECT_EQ(Defines.BlockCount, 9);
        EXPECT_EQ(Defines.MapGrid, grid);
        EXPECT_EQ(Defines.BlockTiles, blocks);
        Defines.MapTable = maps;
        Defines.TilesetTable = tilesets;
    }
    // A map row outside the table and a ROM that has gone are refused too.
    EXPECT_FALSE(ReadMap(256, loaded, error));
    EXPECT_FALSE(ReadMap(-1, loaded, error));
    ASSERT_TRUE(QFile::remove(RomPath));
    error.clear();
    EXPECT_FALSE(ReadMap(1, loaded, error));
    EXPECT_TRUE(error.contains(QFileInfo(RomPath).fileName())) << error.toStdString();
    EXPECT_EQ(Defines.MapWidth, 3);
}
