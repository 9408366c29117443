#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>
#include <limits>

#include "core/defines.h"
#include "fixture/romimage.h"
#include "warpedit/warplist.h"

// Reading a map's warp list straight from a ROM, without the window.
namespace {

class WarpListTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(Dir.isValid());
        const QString path = QDir(Dir.path()).filePath(QStringLiteral("rom.gb"));
        ASSERT_TRUE(Fixture::RomImage(64).Save(path));
        ASSERT_TRUE(Rom.Open(path));
        Defines.Reset();
        Defines.MapTable[0][MapName] = Field::Text(QStringLiteral("Top"));
    }
    void TearDown() override { Defines.Reset(); }

    QTemporaryDir Dir;
    RomFile Rom;
};

}  // namespace

// The position of the warp count was worked out in 32 bits, so object data at
// the highest positions made it overflow instead of being refused. The
// message names the highest position there is.
TEST_F(WarpListTest, ObjectDataAtTheHighestPositionsIsRefusedWithoutOverflow) {
    constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();
    for (const std::int32_t objects : {highest, highest - 1}) {
        SCOPED_TRACE(objects);
        Defines.MapTable[0][MapObjectPos] = Field::Number(objects);
        WarpTable rows{};
        WarpListPlace place;
        QString error;
        EXPECT_FALSE(ReadWarpList(Rom, 0, WarpMode::Warps, rows, place, error));
        EXPECT_TRUE(error.contains(QStringLiteral("warp count of map \"Top\"")))
            << error.toStdString();
        EXPECT_TRUE(error.contains(QStringLiteral("from position %1").arg(highest)))
            << error.toStdString();
        EXPECT_EQ(place.Count, 0);
        EXPECT_FALSE(Rom.Failed());
    }
}

// A full list of sixteen is shown whole and without a word; one more is
// shown as its first sixteen, with a notice that names the count.
TEST_F(WarpListTest, SixteenEntriesAreAFullListAndSeventeenAreTold) {
    const QString path = QDir(Dir.path()).filePath(QStringLiteral("large.gb"));
    ASSERT_TRUE(Fixture::RomImage(256).Save(path));
    RomFile rom;
    ASSERT_TRUE(rom.Open(path));
    Defines.MapTable[0][MapWarpToPos] = Field::Number(100);
    for (const int given : {16, 17}) {
        SCOPED_TRACE(given);
        Defines.MapTable[0][MapWarpToCount] = Field::Number(given);
        WarpTable rows{};
        WarpListPlace place;
        QString error;
        ASSERT_TRUE(ReadWarpList(rom, 0, WarpMode::WarpTo, rows, place, error))
            << error.toStdString();
        EXPECT_EQ(place.Count, 16);
        EXPECT_EQ(place.Notice.isEmpty(), given == 16) << place.Notice.toStdString();
    }
}
