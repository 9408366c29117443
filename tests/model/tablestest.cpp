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
QByteArray MapRecord(int row, const QString& name = QString(), const QString& note = QString()) {
    const QString n = name.isEmpty() ? QStringLiteral("Map %1").arg(row) : name;
    const QString c = note.isEmpty() ? QStringLiteral("Note %1").arg(row) : note;
    return QStringLiteral("%1,\"%2\",%3,%4,x,%5,y,%6,%7,\"%8\",%9,-3,#TRUE#,2,-1,4,%10,0\n")
        .arg(row)
        .arg(n)
        .arg(1000 + row)
        .arg(2000 + row)
        .arg(1 + row % 255)
        .arg(2 + row % 254)
        .arg(row % 7)
        .arg(c)
        .arg(3000 + row)
        .arg(row == 0 ? 1 : 4000 + row)
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

class Tables : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(Dir.isValid()); }

    QString Path(const QString& name) const { return QDir(Dir.path()).filePath(name); }

    bool LoadTilesets(const QByteArray& text) {
        EXPECT_TRUE(TestFiles::Write(Path(QStringLiteral("TilesetsR.twy")), text));
        return LoadTilesetFile(Path(QStringLiteral("TilesetsR.twy")), *TilesetRows, Error);
    }

    bool LoadMaps(const QByteArray& text) {
        EXPECT_TRUE(TestFiles::Write(Path(QStringLiteral("Maps.twy")), text));
        return LoadMapsFile(Path(QStringLiteral("Maps.twy")), *Categories, *Maps, CategoryCount,
                            Error);
    }

    QTemporaryDir Dir;
    std::unique_ptr<TilesetTableT> TilesetRows = std::make_unique<TilesetTableT>();
    std::unique_ptr<CategoryTableT> Categories = std::make_unique<CategoryTableT>();
    std::unique_ptr<MapTableT> Maps = std::make_unique<MapTableT>();
    std::int16_t CategoryCount = -1;
    QString Error;
};

const QByteArray MapsHeader = "Maps of Morlick: marker line, category, maps\n";
const QByteArray TilesetHeader = "Field0,Field1,LastTile,TileBase,LastBlock,BlockPos,Bias\n";

}  // namespace

TEST_F(Tables, TilesetFileFillsOneRowPerRecordInOrder) {
    QByteArray text = TilesetHeader;
    for (int r = 0; r < 3; ++r)
        text += TilesetRecord(r);
    ASSERT_TRUE(LoadTilesets(text)) << Error.toStdString();
    for (int r = 0; r < 3; ++r) {
        const auto& row = (*TilesetRows)[r];
        EXPECT_EQ(row[TilesetField0], Field::Number(r));
        EXPECT_EQ(row[TilesetField1], Field::Text(QStringLiteral("Set %1").arg(r)));
        EXPECT_EQ(row[TilesetLastTile].ToInt16(), 100 + r);
        EXPECT_EQ(row[TilesetTileBase].ToInt16(), 10 * r);
        EXPECT_EQ(row[TilesetLastBlock].ToInt16(), r);
        EXPECT_EQ(row[TilesetBlockPos].ToInt32(), 0x4000 + 16 * r);
        EXPECT_EQ(row[TilesetBlockBias].ToInt16(), r % 3);
    }
    EXPECT_TRUE((*TilesetRows)[3][TilesetField0].IsEmpty());
}

TEST_F(Tables, TilesetRecordMayRunOverSeveralLinesAndEndWithBlankLines) {
    const QByteArray text =
        TilesetHeader + "7,\"Grove, old\"\n159,0\n  255, 16385,\n" + "8,b,1,2,3,4,5\r\n\r\n\n";
    ASSERT_TRUE(LoadTilesets(text)) << Error.toStdString();
    const auto& row = (*TilesetRows)[0];
    EXPECT_EQ(row[TilesetField1], Field::Text(QStringLiteral("Grove, old")));
    EXPECT_EQ(row[TilesetLastTile].ToInt16(), 159);
    EXPECT_EQ(row[TilesetLastBlock].ToInt16(), 255);
    EXPECT_EQ(row[TilesetBlockPos].ToInt32(), 16385);
    EXPECT_TRUE(row[TilesetBlockBias].IsEmpty());
    EXPECT_EQ((*TilesetRows)[1][TilesetField0], Field::Number(8));
    EXPECT_EQ((*TilesetRows)[1][TilesetBlockBias], Field::Number(5));
    EXPECT_TRUE((*TilesetRows)[2][TilesetField0].IsEmpty());
}

TEST_F(Tables, TilesetFileHoldsAtMost256Tilesets) {
    QByteArray full = TilesetHeader;
    for (int r = 0; r < Limits::TableRows; ++r)
        full += TilesetRecord(r);
    ASSERT_TRUE(LoadTilesets(full)) << Error.toStdString();
    EXPECT_EQ((*TilesetRows)[255][TilesetBlockPos].ToInt32(), 0x4000 + 16 * 255);

    ASSERT_FALSE(LoadTilesets(full + TilesetRecord(256)));
    EXPECT_TRUE(Error.contains(QStringLiteral("TilesetsR.twy"))) << Error.toStdString();
    EXPECT_TRUE(Error.contains(QStringLiteral("256"))) << Error.toStdString();
}

TEST_F(Tables, TilesetFileEndingInsideARecordIsAnError) {
    ASSERT_FALSE(LoadTilesets(TilesetHeader + TilesetRecord(0) + "1,\"Half\",3,4\n"));
    EXPECT_TRUE(Error.contains(QStringLiteral("TilesetsR.twy"))) << Error.toStdString();

    // A file with no record at all ends inside the first one.
    Error.clear();
    ASSERT_FALSE(LoadTilesets(TilesetHeader));
    EXPECT_TRUE(Error.contains(QStringLiteral("TilesetsR.twy"))) << Error.toStdString();
}

TEST_F(Tables, MissingDataFileIsNamedInTheMessage) {
    EXPECT_FALSE(LoadTilesetFile(Path(QStringLiteral("TilesetsB.twy")), *TilesetRows, Error));
    EXPECT_TRUE(Error.contains(QStringLiteral("TilesetsB.twy"))) << Error.toStdString();

    Error.clear();
    EXPECT_FALSE(
        LoadMapsFile(Path(QStringLiteral("Maps.twy")), *Categories, *Maps, CategoryCount, Error));
    EXPECT_TRUE(Error.contains(QStringLiteral("Maps.twy"))) << Error.toStdString();
    EXPECT_EQ(CategoryCount, -1);
}

TEST_F(Tables, MapsFileFillsCategoriesAndTheirMapRows) {
    const QByteArray text =
        MapsHeader + Group(QStringLiteral("Towns"), 0, 2) + Group(QStringLiteral("Routes"), 2, 3);
    ASSERT_TRUE(LoadMaps(text)) << Error.toStdString();
    EXPECT_EQ(CategoryCount, 1);
    EXPECT_TRUE((*Categories)[0][0].IsEmpty());  // column 0 is never filled
    EXPECT_EQ((*Categories)[0][CatName], Field::Text(QStringLiteral("Towns")));
    EXPECT_EQ((*Categories)[0][CatFirstMap].ToInt16(), 0);
    EXPECT_EQ((*Categories)[0][CatMapCount].ToInt16(), 2);
    EXPECT_EQ((*Categories)[1][CatName], Field::Text(QStringLiteral("Routes")));
    EXPECT_EQ((*Categories)[1][CatFirstMap].ToInt16(), 2);
    EXPECT_EQ((*Categories)[1][CatMapCount].ToInt16(), 3);
    EXPECT_TRUE((*Categories)[2][CatName].IsEmpty());

    for (int r = 0; r < 5; ++r) {
        const auto& row = (*Maps)[r];
        EXPECT_EQ(row[MapField0], Field::Number(r)) << "row " << r;
        EXPECT_EQ(row[MapName], Field::Text(QStringLiteral("Map %1").arg(r)));
        EXPECT_EQ(row[MapGridPos].ToInt32(), 1000 + r);
        EXPECT_EQ(row[MapObjectPos].ToInt32(), 2000 + r);
        EXPECT_EQ(row[MapField4], Field::Text(QStringLiteral("x")));
        EXPECT_EQ(row[MapRows].ToInt16(), 1 + r);
        EXPECT_EQ(row[MapField6], Field::Text(QStringLiteral("y")));
        EXPECT_EQ(row[MapCols].ToInt16(), 2 + r);
        EXPECT_EQ(row[MapTileset].ToInt16(), r % 7);
        EXPECT_EQ(row[MapNote], Field::Text(QStringLiteral("Note %1").arg(r)));
        EXPECT_EQ(row[MapWarpToPos].ToInt32(), 3000 + r);
        EXPECT_EQ(row[MapPlacementFix].ToInt16(), -3);
        EXPECT_TRUE(row[MapWarpsOk].IsTrue());
        EXPECT_EQ(row[MapWarpToCount].ToInt16(), 2);
        EXPECT_EQ(row[MapXShift].ToInt16(), -1);
        EXPECT_EQ(row[MapYShift].ToInt16(), 4);
        EXPECT_EQ(row[MapWildPos].ToInt32(), r == 0 ? NoData : 4000 + r);
        EXPECT_FALSE(row[MapEventsOk].IsTrue());
    }
    EXPECT_TRUE((*Maps)[5][MapName].IsEmpty());
}

TEST_F(Tables, CategoryWithNoMapsReadsNoMapRecord) {
    // The empty category sits between two others and at the very end; the map
    // record after it belongs to the next category, not to it.
    const QByteArray text =
        MapsHeader + Group(QStringLiteral("First"), 0, 1) + Group(QStringLiteral("Empty"), 1, 0) +
        Group(QStringLiteral("Second"), 1, 1) + Group(QStringLiteral("Empty at end"), 2, 0);
    ASSERT_TRUE(LoadMaps(text)) << Error.toStdString();
    EXPECT_EQ(CategoryCount, 3);
    EXPECT_EQ((*Categories)[1][CatName], Field::Text(QStringLiteral("Empty")));
    EXPECT_EQ((*Categories)[1][CatMapCount].ToInt16(), 0);
    EXPECT_EQ((*Categories)[2][CatName], Field::Text(QStringLiteral("Second")));
    EXPECT_EQ((*Categories)[3][CatName], Field::Text(QStringLiteral("Empty at end")));
    EXPECT_EQ((*Maps)[1][MapName], Field::Text(QStringLiteral("Map 1")));
    EXPECT_TRUE((*Maps)[2][MapName].IsEmpty());
}

TEST_F(Tables, CategoryRowsMayLeaveGapsInTheMapTable) {
    const QByteArray text =
        MapsHeader + Group(QStringLiteral("Low"), 3, 2) + Group(QStringLiteral("High"), 250, 6);
    ASSERT_TRUE(LoadMaps(text)) << Error.toStdString();
    EXPECT_EQ(CategoryCount, 1);
    for (int r : {0, 1, 2, 5, 100, 249})
        EXPECT_TRUE((*Maps)[r][MapName].IsEmpty()) << "row " << r;
    for (int r : {3, 4, 250, 255}) {
        EXPECT_EQ((*Maps)[r][MapName], Field::Text(QStringLiteral("Map %1").arg(r)));
        EXPECT_EQ((*Maps)[r][MapGridPos].ToInt32(), 1000 + r);
    }
}

TEST_F(Tables, QuotedNamesAndNotesMayHoldCommas) {
    const QByteArray text = MapsHeader + "marker\n\"Coast, north, and isles\",0,2\n" +
                            MapRecord(0, QStringLiteral("Harbour, west pier"),
                                      QStringLiteral("Two exits, one hidden")) +
                            MapRecord(1);
    ASSERT_TRUE(LoadMaps(text)) << Error.toStdString();
    EXPECT_EQ(CategoryCount, 0);
    EXPECT_EQ((*Categories)[0][CatName], Field::Text(QStringLiteral("Coast, north, and isles")));
    EXPECT_EQ((*Categories)[0][CatMapCount].ToInt16(), 2);
    EXPECT_EQ((*Maps)[0][MapName], Field::Text(QStringLiteral("Harbour, west pier")));
    EXPECT_EQ((*Maps)[0][MapNote], Field::Text(QStringLiteral("Two exits, one hidden")));
    EXPECT_EQ((*Maps)[0][MapWarpToPos].ToInt32(), 3000);
    EXPECT_EQ((*Maps)[1][MapName], Field::Text(QStringLiteral("Map 1")));
}

TEST_F(Tables, MapRecordSplitOverLinesReadsAsOnOneLine) {
    QByteArray split = MapRecord(0);
    split.replace(",x,", ",x\n");
    split.replace("\"Note 0\",", "\"Note 0\"\n");
    ASSERT_NE(split, MapRecord(0));
    ASSERT_TRUE(LoadMaps(MapsHeader + "m\n\"One\",0,1\n" + split)) << Error.toStdString();
    const auto splitRow = (*Maps)[0];

    Maps = std::make_unique<MapTableT>();
    ASSERT_TRUE(LoadMaps(MapsHeader + "m\n\"One\",0,1\n" + MapRecord(0))) << Error.toStdString();
    EXPECT_EQ(splitRow, (*Maps)[0]);
    EXPECT_EQ(splitRow[MapWildPos].ToInt32(), NoData);
}

TEST_F(Tables, MapsFileEndingInsideARecordIsAnError) {
    QByteArray cut = MapsHeader + Group(QStringLiteral("Towns"), 0, 2);
    cut.chop(MapRecord(1).size() / 2);
    ASSERT_FALSE(LoadMaps(cut));
    EXPECT_TRUE(Error.contains(QStringLiteral("Maps.twy"))) << Error.toStdString();

    // A category record that names more maps than follow it.
    Error.clear();
    ASSERT_FALSE(LoadMaps(MapsHeader + "m\n\"Towns\",0,3\n" + MapRecord(0) + MapRecord(1)));
    EXPECT_TRUE(Error.contains(QStringLiteral("Maps.twy"))) << Error.toStdString();

    // A category record cut short.
    Error.clear();
    ASSERT_FALSE(LoadMaps(MapsHeader + "m\n\"Towns\",0\n"));
    EXPECT_TRUE(Error.contains(QStringLiteral("Maps.twy"))) << Error.toStdString();
}

TEST_F(Tables, TextAfterTheLastGroupThatFormsNoGroupIsAnError) {
    const QByteArray good = MapsHeader + Group(QStringLiteral("Towns"), 0, 1);
    ASSERT_TRUE(LoadMaps(good + "\n\n")) << Error.toStdString();
    EXPECT_EQ(CategoryCount, 0);

    // A stray line is taken as the marker of a new group whose record is missing.
    ASSERT_FALSE(LoadMaps(good + "stray words\n"));
    EXPECT_TRUE(Error.contains(QStringLiteral("Maps.twy"))) << Error.toStdString();
    ASSERT_FALSE(LoadMaps(good + "marker\n\"Half\",1\n"));
    EXPECT_TRUE(Error.contains(QStringLiteral("Maps.twy"))) << Error.toStdString();
}

TEST_F(Tables, MapsFileHoldsAtMost256Categories) {
    QByteArray text = MapsHeader;
    for (int c = 0; c < Limits::TableRows; ++c)
        text += Group(QStringLiteral("Cat %1").arg(c), c, c == 255 ? 1 : 0);
    ASSERT_TRUE(LoadMaps(text)) << Error.toStdString();
    EXPECT_EQ(CategoryCount, 255);
    EXPECT_EQ((*Categories)[255][CatName], Field::Text(QStringLiteral("Cat 255")));
    EXPECT_EQ((*Maps)[255][MapName], Field::Text(QStringLiteral("Map 255")));

    ASSERT_FALSE(LoadMaps(text + Group(QStringLiteral("One too many"), 0, 0)));
    EXPECT_TRUE(Error.contains(QStringLiteral("Maps.twy"))) << Error.toStdString();
    EXPECT_TRUE(Error.contains(QStringLiteral("256"))) << Error.toStdString();
}

TEST_F(Tables, CategoryNamingMapRowsBeyond255IsAnError) {
    ASSERT_TRUE(LoadMaps(MapsHeader + Group(QStringLiteral("Last"), 255, 1)))
        << Error.toStdString();
    EXPECT_EQ((*Maps)[255][MapName], Field::Text(QStringLiteral("Map 255")));

    // Rows 255 and 256: the second lies outside the table.
    ASSERT_FALSE(LoadMaps(MapsHeader + "m\n\"Past\",255,2\n" + MapRecord(255) + MapRecord(256)));
    EXPECT_TRUE(Error.contains(QStringLiteral("Maps.twy"))) << Error.toStdString();
    EXPECT_TRUE(Error.contains(QStringLiteral("Past"))) << Error.toStdString();

    Error.clear();
    ASSERT_FALSE(LoadMaps(MapsHeader + "m\n\"Beyond\",256,1\n" + MapRecord(256)));
    EXPECT_TRUE(Error.contains(QStringLiteral("Maps.twy"))) << Error.toStdString();

    Error.clear();
    ASSERT_FALSE(LoadMaps(MapsHeader + "m\n\"Below\",-1,1\n" + MapRecord(0)));
    EXPECT_TRUE(Error.contains(QStringLiteral("Maps.twy"))) << Error.toStdString();
}
