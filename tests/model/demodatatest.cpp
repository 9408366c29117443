#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <set>
#include <utility>

#include "core/tables.h"
#include "demo/art/tilebank.h"
#include "demo/demoproject.h"
#include "fixture/datafilenames.h"
#include "fixture/project.h"

// The bundled demo is made by the build and doubles as the base of the test
// fixtures, so it has to come out the same every time and has to be readable
// by the program's own table readers.
namespace {

QByteArray ReadAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

const char* const AllFiles[] = {
    Fixture::TilesetFileRed,   Fixture::TilesetFileBlue, Fixture::MapsFile,
    Fixture::MorlickFile,      Fixture::EventTypesFile,  Fixture::EventsFile,
    Fixture::TileBankFileName, Fixture::RomFileRed,      Fixture::RomFileBlue};

}  // namespace

TEST(DemoData, TwoRunsWriteTheSameBytes) {
    QTemporaryDir first, second;
    QString error;
    ASSERT_TRUE(Fixture::WriteProject(Fixture::DemoProject(), first.path(), &error))
        << error.toStdString();
    ASSERT_TRUE(Fixture::WriteProject(Fixture::DemoProject(), second.path(), &error))
        << error.toStdString();
    for (const char* name : AllFiles) {
        SCOPED_TRACE(name);
        const QByteArray a = ReadAll(QDir(first.path()).filePath(QString::fromLatin1(name)));
        ASSERT_FALSE(a.isEmpty());
        EXPECT_EQ(a, ReadAll(QDir(second.path()).filePath(QString::fromLatin1(name))));
    }
    EXPECT_EQ(ReadAll(QDir(first.path()).filePath(QString::fromLatin1(Fixture::RomFileRed))).size(),
              Fixture::DemoRomSize);
}

// Each version's ROM keeps the blocks of a tileset at its own position, so a
// ROM opened as the other version shows other blocks.
TEST(DemoData, EachVersionFindsTheSameBlocksAtItsOwnPositions) {
    const Fixture::Project demo = Fixture::DemoProject();
    ASSERT_EQ(demo.TilesetsRed.size(), demo.TilesetsBlue.size());
    ASSERT_GE(demo.TilesetsRed.size(), 4u);
    int wrongVersionDiffers = 0;
    for (size_t t = 0; t < demo.TilesetsRed.size(); ++t) {
        SCOPED_TRACE(t);
        const auto& red = demo.TilesetsRed[t];
        const auto& blue = demo.TilesetsBlue[t];
        EXPECT_NE(red.BlockPos, blue.BlockPos);
        EXPECT_EQ(red.LastBlock, blue.LastBlock);
        EXPECT_EQ(red.BlockBias, blue.BlockBias);
        const int size = 16 * (red.LastBlock + 1);
        ASSERT_TRUE(demo.RomRed.Holds(red.BlockPos, size));
        ASSERT_TRUE(demo.RomBlue.Holds(blue.BlockPos, size));
        const QByteArray redBlocks = demo.RomRed.Bytes().mid(red.BlockPos - 1, size);
        EXPECT_EQ(redBlocks, demo.RomBlue.Bytes().mid(blue.BlockPos - 1, size));
        if (demo.RomBlue.Bytes().mid(red.BlockPos - 1, size) != redBlocks) ++wrongVersionDiffers;
        // A tile number of a block never leaves the tileset's tiles.
        for (const char tile : redBlocks)
            EXPECT_LE(static_cast<quint8>(tile), red.LastTile);
        EXPECT_GE(red.TileBase, 0);
        EXPECT_LE(red.TileBase + red.LastTile, 519);
    }
    EXPECT_EQ(wrongVersionDiffers, static_cast<int>(demo.TilesetsRed.size()));
}

// The maps of the demo read back through the program's readers, and every area
// a map names lies inside both ROMs with block bytes its tileset holds.
TEST(DemoData, MapsReadBackAndTheirAreasLieInsideBothRoms) {
    QTemporaryDir dir;
    QString error;
    const Fixture::Project demo = Fixture::DemoProject();
    ASSERT_TRUE(Fixture::WriteProject(demo, dir.path(), &error)) << error.toStdString();

    static TilesetTableT tilesets;
    static CategoryTableT categories;
    static MapTableT maps;
    std::int16_t categoryCount = 0;
    ASSERT_TRUE(LoadTilesetFile(
        QDir(dir.path()).filePath(QString::fromLatin1(Fixture::TilesetFileRed)), tilesets, error))
        << error.toStdString();
    ASSERT_TRUE(LoadMapsFile(QDir(dir.path()).filePath(QString::fromLatin1(Fixture::MapsFile)),
                             categories, maps, categoryCount, error))
        << error.toStdString();
    EXPECT_GE(categoryCount + 1, 4);

    int emptyCategories = 0;
    std::set<std::pair<int, int>> sizes;
    bool noObjects = false, noWarpTo = false, noWild = false, noEvents = false;
    QSet<QString> names;
    for (const auto& category : demo.Categories) {
        if (category.Maps.empty()) ++emptyCategories;
        for (size_t r = 0; r < category.Maps.size(); ++r) {
            const auto& map = category.Maps[r];
            SCOPED_TRACE(map.Name.toStdString());
            const auto& row = maps[category.FirstMap + static_cast<int>(r)];
            EXPECT_EQ(row[MapName].ToText(), map.Name);
            EXPECT_EQ(row[MapRows].ToInt16(), map.Rows);
            EXPECT_EQ(row[MapCols].ToInt16(), map.Cols);
            names.insert(map.Name);
            sizes.insert({map.Cols, map.Rows});
            noObjects |= map.ObjectPos == 1;
            noWarpTo |= map.ObjectPos != 1 && map.WarpToPos == 1;
            noWild |= map.WildPos == 1;
            noEvents |= !map.EventsOk;

            const auto& tileset = demo.TilesetsRed[map.Tileset];
            const int cells = map.Rows * map.Cols;
            for (const Fixture::RomImage* rom : {&demo.RomRed, &demo.RomBlue}) {
                ASSERT_TRUE(rom->Holds(map.GridPos, cells));
                ASSERT_TRUE(map.ObjectPos == 1 || rom->Holds(map.ObjectPos, 2));
                ASSERT_TRUE(map.WildPos == 1 || rom->Holds(map.WildPos, 20));
            }
            for (int i = 0; i < cells; ++i) {
                const int byte = demo.RomRed.At(map.GridPos + i);
                ASSERT_GE(byte, tileset.BlockBias) << "square " << i;
                ASSERT_LE(byte - tileset.BlockBias, tileset.LastBlock) << "square " << i;
                ASSERT_EQ(byte, demo.RomBlue.At(map.GridPos + i));
            }
        }
    }
    EXPECT_GE(emptyCategories, 1);
    for (const auto& size :
         {std::pair{1, 1}, std::pair{8, 6}, std::pair{9, 6}, std::pair{255, 255}})
        EXPECT_TRUE(sizes.count(size)) << size.first << " x " << size.second;
    EXPECT_TRUE(noObjects && noWarpTo && noWild && noEvents);
}

TEST(DemoData, TileBankHoldsFiveHundredTwentyPicturesInFourShades) {
    const QImage bank = Fixture::TileBankImage();
    EXPECT_EQ(bank.width(), 16 * 16);
    EXPECT_EQ(bank.height(), 33 * 16);
    std::set<QRgb> colours;
    for (int y = 0; y < bank.height(); ++y)
        for (int x = 0; x < bank.width(); ++x)
            colours.insert(bank.pixel(x, y) | 0xFF000000u);
    EXPECT_LE(colours.size(), 4u);
    for (const QRgb shade : Fixture::Shades)
        EXPECT_TRUE(colours.count(shade | 0xFF000000u));
    // Each picture is an 8 x 8 tile at double size: pixels come in 2 x 2 squares.
    for (int y = 0; y < bank.height(); y += 2)
        for (int x = 0; x < bank.width(); x += 2) {
            const QRgb p = bank.pixel(x, y);
            ASSERT_TRUE(bank.pixel(x + 1, y) == p && bank.pixel(x, y + 1) == p &&
                        bank.pixel(x + 1, y + 1) == p)
                << x << "," << y;
        }
    // Pictures are drawn, not blank: most of them use more than one shade.
    int drawn = 0;
    for (int i = 0; i < 520; ++i) {
        const QImage picture = Fixture::BankPicture(i);
        std::set<QRgb> used;
        for (int y = 0; y < 16; y += 2)
            for (int x = 0; x < 16; x += 2)
                used.insert(picture.pixel(x, y));
        if (used.size() > 1) ++drawn;
    }
    EXPECT_GT(drawn, 400);
}
