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
