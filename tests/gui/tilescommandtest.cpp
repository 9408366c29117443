#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <map>

#include "fixture/romimage.h"
#include "fixture/smallproject.h"
#include "fixture/tiledata.h"
#include "support/commands.h"

namespace {

// The four shades of the console's screen, lightest first.
const std::array<QRgb, 4> GameShades{qRgb(255, 248, 255), qRgb(192, 199, 192), qRgb(128, 128, 128),
                                     qRgb(0, 0, 0)};

// A tile of values that tells it from the others: all four values on every
// row, in an order that changes with the seed.
Fixture::TileValues Pattern(int seed) {
    Fixture::TileValues values{};
    for (int row = 0; row < 8; ++row)
        for (int column = 0; column < 8; ++column)
            values[row][column] = (column + row * seed + (row * column + seed) / 3) % 4;
    return values;
}

// Picture i of a tile bank, 16 x 16 pixels.
QImage BankPicture(const QImage& bank, int index) {
    return bank.copy((index % 16) * 16, (index / 16) * 16, 16, 16)
        .convertToFormat(QImage::Format_RGB32);
}

QImage Filled(QRgb colour) {
    QImage picture(16, 16, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
}

class TilesCommandTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(Dir.isValid()); }
    // Writes the ROM and runs the command on it.
    CommandResult Run(const QStringList& options, const QStringList& runs) {
        EXPECT_TRUE(Rom.Save(RomPath()));
        return RunCommand(TilesCommand(), options + QStringList{RomPath(), BankPath()} + runs);
    }
    QString RomPath() const { return Dir.filePath(QStringLiteral("Game.gb")); }
    QString BankPath() const { return Dir.filePath(QStringLiteral("Tiles.png")); }
    // Puts tiles one after another into the ROM from a position on.
    void PutTiles(int position, const std::vector<Fixture::TileValues>& tiles) {
        for (size_t i = 0; i < tiles.size(); ++i)
            ASSERT_TRUE(Rom.Put(position + 16 * static_cast<int>(i), Fixture::TileBytes(tiles[i])));
    }

    QTemporaryDir Dir;
    Fixture::RomImage Rom{32 * 1024, 0x5A};
};

}  // namespace

// Runs of tiles drawn in four shades come back as exactly those pictures at
// the chosen indices, the last picture of the bank included; every other
// picture of the new bank is lightest. One tile is written out by hand, its
// rows all different: the first byte of a row holds the low bits and the
// second the high bits of its eight pixels, the leftmost in bit 7. A second
// run into that bank keeps what it held, and its size; --shades gives the
// colours of the values.
TEST_F(TilesCommandTest, TilesComeBackAsThePicturesTheyWereMadeFrom) {
    std::vector<Fixture::TileValues> tiles;
    for (int seed = 1; seed <= 8; ++seed)
        tiles.push_back(Pattern(seed));
    const char* byHand[8] = {"10000000", "02000000", "00300000", "00001111",
                             "00002222", "11000022", "20000001", "12121212"};
    Fixture::TileValues values{};
    for (int row = 0; row < 8; ++row)
        for (int column = 0; column < 8; ++column)
            values[row][column] = byHand[row][column] - '0';
    tiles.push_back(values);
    ASSERT_TRUE(Rom.Put(301, QByteArray::fromHex("8000"
                                                 "0040"
                                                 "2020"
                                                 "0F00"
                                                 "000F"
                                                 "C003"
                                                 "0180"
                                                 "AA55")));
    PutTiles(0x1001, {tiles[0], tiles[1], tiles[2]});
    PutTiles(0x2345, {tiles[3], tiles[4]});
    PutTiles(20000, {tiles[5]});
    PutTiles(0x3001, {tiles[6], tiles[7]});
    CommandResult result = Run({}, {QStringLiteral("4097:3@0"), QStringLiteral("0x2345:2@200"),
                                    QStringLiteral("20000:1@519"), QStringLiteral("301:1@77")});
    ASSERT_EQ(result.Status, 0) << result.Err.toStdString();
    const std::array<QRgb, 4> shades{qRgb(0xE0, 0xF8, 0xD0), qRgb(0x88, 0xC0, 0x70),
                                     qRgb(0x34, 0x68, 0x56), qRgb(0x08, 0x18, 0x20)};
    result = Run({QStringLiteral("--shades"), QStringLiteral("#E0F8D0,88c070,#346856,#081820")},
                 {QStringLiteral("12289:2@94")});
    ASSERT_EQ(result.Status, 0) << result.Err.toStdString();

    const QImage bank(BankPath());
    ASSERT_EQ(bank.size(), QSize(256, 528));
    const std::map<int, int> placed{{0, 0},   {1, 1},  {2, 2},  {200, 3}, {201, 4},
                                    {519, 5}, {94, 6}, {95, 7}, {77, 8}};
    for (int index = 0; index < 520; ++index) {
        const auto at = placed.find(index);
        const bool ownShades = index == 94 || index == 95;
        const QImage expected =
            at == placed.end()
                ? Filled(GameShades[0])
                : Fixture::TilePicture(tiles[at->second], ownShades ? shades : GameShades);
        ASSERT_TRUE(SamePixels(BankPicture(bank, index), expected)) << "picture " << index;
    }
}

// A run that ends on the ROM's last byte or on picture 519 is drawn; one that
// reaches a byte or a picture further is refused with a message that names
// it, and nothing is written, not even the runs before it.
TEST_F(TilesCommandTest, RunsPastTheRomOrTheBankAreRefusedByName) {
    Rom = Fixture::RomImage(4096, 0);
    EXPECT_EQ(Run({}, {QStringLiteral("4065:2@0"), QStringLiteral("1:3@517")}).Status, 0);

    ASSERT_TRUE(Fixture::IndexTileBank().save(BankPath()));
    const auto bankBytes = [this] {
        QFile bank(BankPath());
        return bank.open(QIODevice::ReadOnly) ? bank.readAll() : QByteArray();
    };
    const QByteArray before = bankBytes();
    ASSERT_FALSE(before.isEmpty());
    struct Case {
        QString Run;
        int Status;
        QString Message;
    };
    const Case cases[] = {
        {QStringLiteral("4066:2@0"), 1,
         QStringLiteral("The run \"4066:2@0\" reaches past the end of the ROM: its 2 tiles take "
                        "positions 4066 to 4097, and \"Game.gb\" has 4096 bytes.")},
        {QStringLiteral("1:4@517"), 1,
         QStringLiteral("The run \"1:4@517\" reaches past picture 519, the bank's last: its 4 "
                        "tiles would fill pictures 517 to 520.")},
        {QStringLiteral("0:1@0"), 2, QStringLiteral("The run \"0:1@0\" cannot be")},
        {QStringLiteral("1:1@520"), 2, QStringLiteral("The run \"1:1@520\" cannot be")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Run.toStdString());
        const CommandResult result = Run({}, {QStringLiteral("1:1@0"), c.Run});
        EXPECT_EQ(result.Status, c.Status);
        EXPECT_TRUE(result.Err.contains(c.Message)) << result.Err.toStdString();
        EXPECT_EQ(result.Err.contains(QStringLiteral("Nothing was written.")), c.Status == 1);
        EXPECT_TRUE(result.Out.isEmpty());
        EXPECT_EQ(bankBytes(), before);
    }
}
