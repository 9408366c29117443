#include <gtest/gtest.h>

#include <QByteArray>
#include <QDir>
#include <QTemporaryDir>
#include <memory>

#include "core/tables.h"
#include "model/files.h"
#include "model/printers.h"

namespace {

// One tileset record of 7 fields on one line.
QByteArray TilesetRecord(int row) {
    return QStringLiteral("%1,\"Set %1\",%2,%3,%4,%5,%6\n")
        .arg(row)
        .arg(100 + row)
        .arg(10 * row)
        .arg(row % 256)
        .arg(0x4000 + 16 * row)
        .arg(row % 3)
        .toUtf8();
}

// One map record of 18 fields on one line; the numbers are drawn from the row
// so that a record that lands in the wrong row shows.
QByteArray MapRecord(int row) {
    return QStringLiteral("%1,\"Map %1\",%2,%3,x,%4,y,%5,%6,\"Note %1\",%7,-3,#TRUE#,2,-1,4,%8,0\n")
        .arg(row)
        .arg(1000 + row)
        .arg(2000 + row)
        .arg(1 + row % 255)
        .arg(2 + row % 254)
        .arg(row % 7)
        .arg(3000 + row)
        .arg(row == 3 ? 1 : 4000 + row)
        .toUtf8();
}

// A category group: its marker line, its record, and a map record per row.
QByteArray Group(const QString& name, int first, int count) {
    QByteArray text =
        QStringLiteral("=== %1 ===\n\"%1\",%2,%3\n").arg(name).arg(first).arg(count).toUtf8();
    for (int r = first; r < first + count; ++r)
        text += MapRecord(r);
    return text;
}

const QByteArray MapsHeader = "Maps of Morlick: marker line, category, maps\n";
const QByteArray TilesetHeader = "Field0,Field1,LastTile,TileBase,LastBlock,BlockPos,Bias\n";
const QString TilesetName = QStringLiteral("TilesetsR.twy");
const QString MapsName = QStringLiteral("Maps.twy");

class Tables : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(Dir.isValid()); }

    QString Path(const QString& name) const { return QDir(Dir.path()).filePath(name); }

    // Writes the file, or leaves it missing for a null text, and reads it.
    bool Load(const QString& name, const QByteArray& text) {
        if (!text.isNull()) {
            EXPECT_TRUE(TestFiles::Write(Path(name), text));
        }
        if (name == TilesetName)
            return LoadTilesetFile(Path(name), *TilesetRows, Error, &LastTileset);
        return LoadMapsFile(Path(name), *Categories, *Maps, CategoryCount, Error);
    }

    QTemporaryDir Dir;
    std::unique_ptr<TilesetTableT> TilesetRows = std::make_unique<TilesetTableT>();
    std::unique_ptr<CategoryTableT> Categories = std::make_unique<CategoryTableT>();
    std::unique_ptr<MapTableT> Maps = std::make_unique<MapTableT>();
    std::int16_t CategoryCount = -1;
    std::int16_t LastTileset = -1;
    QString Error;
};

}  // namespace

TEST_F(Tables, TilesetFileFillsOneRowPerRecordUpTo256) {
    QByteArray text = TilesetHeader;
    for (int r = 0; r < Limits::TableRows; ++r)
        text += TilesetRecord(r);
    ASSERT_TRUE(Load(TilesetName, text)) << Error.toStdString();
    for (int r = 0; r < Limits::TableRows; ++r) {
        SCOPED_TRACE(r);
        const auto& row = (*TilesetRows)[r];
        EXPECT_EQ(row[TilesetField0], Field::Number(r));
        EXPECT_EQ(row[TilesetField1], Field::Text(QStringLiteral("Set %1").arg(r)));
        EXPECT_EQ(row[TilesetLastTile].ToInt16(), 100 + r);
        EXPECT_EQ(row[TilesetTileBase].ToInt16(), 10 * r);
        EXPECT_EQ(row[TilesetLastBlock].ToInt16(), r);
        EXPECT_EQ(row[TilesetBlockPos].ToInt32(), 0x4000 + 16 * r);
        EXPECT_EQ(row[TilesetBlockBias].ToInt16(), r % 3);
    }
    EXPECT_EQ(LastTileset, Limits::TableRows - 1);
}

TEST_F(Tables, TilesetRecordMayRunOverSeveralLinesAndEndWithBlankLines) {
    const QByteArray text =
        TilesetHeader + "7,\"Grove, old\"\n159,0\n  255, 16385,\n" + "8,b,1,2,3,4,5\r\n\r\n\n";
    ASSERT_TRUE(Load(TilesetName, text)) << Error.toStdString();
    const auto& row = (*TilesetRows)[0];
    EXPECT_EQ(row[TilesetField1], Field::Text(QStringLiteral("Grove, old")));
    EXPECT_EQ(row[TilesetLastTile].ToInt16(), 159);
    EXPECT_EQ(row[TilesetLastBlock].ToInt16(), 255);
    EXPECT_EQ(row[TilesetBlockPos].ToInt32(), 16385);
    EXPECT_TRUE(row[TilesetBlockBias].IsEmpty());
    EXPECT_EQ((*TilesetRows)[1][TilesetField0], Field::Number(8));
    EXPECT_EQ((*TilesetRows)[1][TilesetBlockBias], Field::Number(5));
    EXPECT_TRUE((*TilesetRows)[2][TilesetField0].IsEmpty());
    EXPECT_EQ(LastTileset, 1);
}

// Categories fill their own map rows, leaving gaps between them; a category
// without maps reads no map record, also as the last one.
TEST_F(Tables, MapsFileFillsCategoriesAndTheirMapRows) {
    const QByteArray text = MapsHeader + Group(QStringLiteral("Towns"), 3, 2) +
                            Group(QStringLiteral("Empty"), 5, 0) +
                            Group(QStringLiteral("Routes, north"), 250, 6) +
                            Group(QStringLiteral("Empty at end"), 0, 0) + "\n\n";
    ASSERT_TRUE(Load(MapsName, text)) << Error.toStdString();
    EXPECT_EQ(CategoryCount, 3);
    const struct {
        const char* name;
        int first, count;
    } categories[] = {
        {"Towns", 3, 2}, {"Empty", 5, 0}, {"Routes, north", 250, 6}, {"Empty at end", 0, 0}};
    for (int c = 0; c < 4; ++c) {
        SCOPED_TRACE(c);
        EXPECT_TRUE((*Categories)[c][0].IsEmpty());  // column 0 is never filled
        EXPECT_EQ((*Categories)[c][CatName], Field::Text(QString::fromUtf8(categories[c].name)));
        EXPECT_EQ((*Categories)[c][CatFirstMap].ToInt16(), categories[c].first);
        EXPECT_EQ((*Categories)[c][CatMapCount].ToInt16(), categories[c].count);
    }
    EXPECT_TRUE((*Categories)[4][CatName].IsEmpty());

    for (int r : {0, 1, 2, 5, 100, 249})
        EXPECT_TRUE((*Maps)[r][MapName].IsEmpty()) << "row " << r;
    for (int r : {3, 4, 250, 251, 255}) {
        SCOPED_TRACE(r);
        const auto& row = (*Maps)[r];
        EXPECT_EQ(row[MapField0], Field::Number(r));
        EXPECT_EQ(row[MapName], Field::Text(QStringLiteral("Map %1").arg(r)));
        EXPECT_EQ(row[MapGridPos].ToInt32(), 1000 + r);
        EXPECT_EQ(row[MapObjectPos].ToInt32(), 2000 + r);
        EXPECT_EQ(row[MapField4], Field::Text(QStringLiteral("x")));
        EXPECT_EQ(row[MapRows].ToInt16(), 1 + r % 255);
        EXPECT_EQ(row[MapField6], Field::Text(QStringLiteral("y")));
        EXPECT_EQ(row[MapCols].ToInt16(), 2 + r % 254);
        EXPECT_EQ(row[MapTileset].ToInt16(), r % 7);
        EXPECT_EQ(row[MapNote], Field::Text(QStringLiteral("Note %1").arg(r)));
        EXPECT_EQ(row[MapWarpToPos].ToInt32(), 3000 + r);
        EXPECT_EQ(row[MapPlacementFix].ToInt16(), -3);
        EXPECT_TRUE(row[MapWarpsOk].IsTrue());
        EXPECT_EQ(row[MapWarpToCount].ToInt16(), 2);
        EXPECT_EQ(row[MapXShift].ToInt16(), -1);
        EXPECT_EQ(row[MapYShift].ToInt16(), 4);
        EXPECT_EQ(row[MapWildPos].ToInt32(), r == 3 ? NoData : 4000 + r);
        EXPECT_FALSE(row[MapEventsOk].IsTrue());
    }
}

TEST_F(Tables, MapsFileHoldsUpTo256Categories) {
    QByteArray text = MapsHeader;
    for (int c = 0; c < Limits::TableRows; ++c)
        text += Group(QStringLiteral("Cat %1").arg(c), c, c == 255 ? 1 : 0);
    ASSERT_TRUE(Load(MapsName, text)) << Error.toStdString();
    EXPECT_EQ(CategoryCount, 255);
    EXPECT_EQ((*Categories)[255][CatName], Field::Text(QStringLiteral("Cat 255")));
    EXPECT_EQ((*Maps)[255][MapName], Field::Text(QStringLiteral("Map 255")));
}

// A data file that is missing, ends inside a record, or holds more than the
// tables can take is refused with a message that names the file and the place.
TEST_F(Tables, DamagedOrMissingDataFileIsRefusedWithAMessage) {
    QByteArray tilesets = TilesetHeader;
    for (int r = 0; r < Limits::TableRows; ++r)
        tilesets += TilesetRecord(r);
    QByteArray categories = MapsHeader;
    for (int c = 0; c < Limits::TableRows; ++c)
        categories += Group(QStringLiteral("Cat %1").arg(c), c, 0);
    const QByteArray towns = MapsHeader + Group(QStringLiteral("Towns"), 0, 2);
    struct Case {
        const char* what;
        QString file;
        QByteArray text;
        const char* names;
    };
    const Case cases[] = {
        {"a tileset file that is missing", TilesetName, QByteArray(), "could not be read"},
        // Blank lines at the end fill no record up, and a comma announces a field.
        {"a tileset record cut short", TilesetName,
         TilesetHeader + TilesetRecord(0) + "1,\"Half\",3,4\n\n\n\n", "tileset 1"},
        {"a comma after the last record", TilesetName,
         TilesetHeader + TilesetRecord(0).chopped(1) + ",\n", "tileset 1"},
        {"a tileset file without records", TilesetName, TilesetHeader, "tileset 0"},
        {"257 tilesets", TilesetName, tilesets + TilesetRecord(256), "256"},
        {"a maps file that is missing", MapsName, QByteArray(), "could not be read"},
        {"a map record cut short", MapsName, towns.left(towns.size() - MapRecord(1).size() / 4),
         "map 1"},
        {"a map record cut inside a quote", MapsName,
         towns.left(towns.size() - MapRecord(1).size() / 2),
         "the quote that opens on line 5 is never closed"},
        // Every later quote pairs wrongly; the reading fails lines further on.
        {"a closing quote left out", MapsName,
         MapsHeader + Group(QStringLiteral("Towns"), 0, 2).replace("Map 1\"", "Map 1") +
             Group(QStringLiteral("Routes"), 2, 2) + Group(QStringLiteral("Caves"), 4, 2),
         "the quote that opens on line 5 is not closed on that line"},
        {"fewer maps than the category names", MapsName,
         MapsHeader + "m\n\"Towns\",0,3\n" + MapRecord(0) + MapRecord(1), "map 2"},
        {"a category record cut short", MapsName, MapsHeader + "m\n\"Towns\",0\n", "category 0"},
        {"a stray line after the last group", MapsName, towns + "stray words\n", "category 1"},
        {"half a group after the last one", MapsName, towns + "marker\n\"Half\",1\n", "category 1"},
        {"257 categories", MapsName, categories + Group(QStringLiteral("One more"), 0, 0), "256"},
        {"map rows 255 and 256", MapsName,
         MapsHeader + "m\n\"Past\",255,2\n" + MapRecord(255) + MapRecord(256), "Past"},
        {"map row 256", MapsName, MapsHeader + "m\n\"Beyond\",256,1\n" + MapRecord(256), "Beyond"},
        {"map row -1", MapsName, MapsHeader + "m\n\"Below\",-1,1\n" + MapRecord(0), "Below"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        QFile::remove(Path(c.file));
        Error.clear();
        EXPECT_FALSE(Load(c.file, c.text));
        EXPECT_TRUE(Error.contains(c.file)) << Error.toStdString();
        EXPECT_TRUE(Error.contains(QString::fromUtf8(c.names))) << Error.toStdString();
        EXPECT_EQ(CategoryCount, -1);
    }
}
