#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <limits>

#include "model/files.h"
#include "model/printers.h"
#include "rom/romfile.h"

namespace {

constexpr int RomSize = 64;

class RomFileTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(Dir.isValid());
        Path = QDir(Dir.path()).filePath(QStringLiteral("Red.gb"));
        Original = TestFiles::Pattern(RomSize);
        ASSERT_TRUE(TestFiles::Write(Path, Original));
    }

    QByteArray OnDisk() const { return TestFiles::Read(Path); }

    QTemporaryDir Dir;
    QString Path;
    QByteArray Original;
};

}  // namespace

TEST_F(RomFileTest, PositionOneIsTheFirstByteOfTheFile) {
    RomFile rom;
    ASSERT_TRUE(rom.Open(Path)) << rom.Error().toStdString();
    EXPECT_EQ(rom.Size(), RomSize);
    EXPECT_EQ(rom.ReadByte(1), static_cast<std::uint8_t>(Original[0]));
    EXPECT_EQ(rom.ReadByte(2), static_cast<std::uint8_t>(Original[1]));
    EXPECT_EQ(rom.ReadByte(RomSize), static_cast<std::uint8_t>(Original[RomSize - 1]));
    EXPECT_FALSE(rom.Failed()) << rom.Error().toStdString();

    EXPECT_TRUE(rom.Contains(1));
    EXPECT_TRUE(rom.Contains(RomSize));
    EXPECT_TRUE(rom.Contains(1, RomSize));
    EXPECT_TRUE(rom.Contains(RomSize, 1));
    EXPECT_TRUE(rom.Contains(RomSize + 1, 0));
    EXPECT_FALSE(rom.Contains(0));
    EXPECT_FALSE(rom.Contains(-1));
    EXPECT_FALSE(rom.Contains(RomSize + 1));
    EXPECT_FALSE(rom.Contains(2, RomSize));
    EXPECT_FALSE(rom.Contains(RomSize, 2));
    EXPECT_FALSE(rom.Contains(1, -1));
    EXPECT_FALSE(rom.Contains(std::numeric_limits<std::int32_t>::max(), 2));
    EXPECT_TRUE(rom.Close());
    EXPECT_EQ(OnDisk(), Original);
}

TEST_F(RomFileTest, ReadingOutsideTheFileIsAnErrorNamingThePosition) {
    for (const std::int32_t position :
         {0, RomSize + 1, -1, std::numeric_limits<std::int32_t>::min(),
          std::numeric_limits<std::int32_t>::max()}) {
        RomFile rom;
        ASSERT_TRUE(rom.Open(Path));
        EXPECT_EQ(rom.ReadByte(position), 0) << "position " << position;
        EXPECT_TRUE(rom.Failed()) << "position " << position;
        EXPECT_TRUE(rom.Error().contains(QString::number(position))) << rom.Error().toStdString();
        EXPECT_TRUE(rom.Error().contains(QStringLiteral("Red.gb"))) << rom.Error().toStdString();
        // The first fault is the one reported.
        rom.ReadByte(RomSize + 7);
        EXPECT_TRUE(rom.Error().contains(QString::number(position))) << rom.Error().toStdString();
        EXPECT_FALSE(rom.Close());
        EXPECT_EQ(OnDisk(), Original);
    }
}

TEST_F(RomFileTest, WritingZeroChangesOnlyThatByte) {
    RomFile rom;
    ASSERT_TRUE(rom.Open(Path));
    rom.RomWriteByte(10, 0);
    ASSERT_TRUE(rom.Close()) << rom.Error().toStdString();
    QByteArray expected = Original;
    expected[9] = 0;
    ASSERT_NE(Original[9], 0);
    ASSERT_NE(Original[10], 0);
    EXPECT_EQ(OnDisk(), expected);
    EXPECT_EQ(OnDisk()[10], Original[10]);
}

TEST_F(RomFileTest, CloseWritesOnlyTheWrittenBytesAndKeepsTheLength) {
    RomFile rom;
    ASSERT_TRUE(rom.Open(Path));
    // Bytes that change on disk while the ROM is open, at places the command
    // does not write, must survive: Close writes back nothing but its own bytes.
    QByteArray disk = Original;
    for (int offset : {1, 5, 30, 62})
        disk[offset] = static_cast<char>(0xEE);
    ASSERT_TRUE(TestFiles::Write(Path, disk));

    QByteArray expected = disk;
    const std::pair<std::int32_t, std::uint8_t> writes[] = {
        {1, 0xA1}, {RomSize, 0xA2}, {20, 0xA3}, {21, 0xA4}, {22, 0x00}, {40, 0xFF}, {20, 0xA5}};
    for (const auto& [position, value] : writes) {
        rom.RomWriteByte(position, value);
        expected[position - 1] = static_cast<char>(value);
    }
    ASSERT_TRUE(rom.Close()) << rom.Error().toStdString();
    const QByteArray after = OnDisk();
    ASSERT_EQ(after.size(), RomSize);
    for (int i = 0; i < RomSize; ++i)
        EXPECT_EQ(static_cast<int>(static_cast<std::uint8_t>(after[i])),
                  static_cast<int>(static_cast<std::uint8_t>(expected[i])))
            << "offset " << i;
}

TEST_F(RomFileTest, CloseWithoutWritesTouchesNothing) {
    RomFile rom;
    ASSERT_TRUE(rom.Open(Path));
    rom.ReadByte(3);
    const QByteArray changed = TestFiles::Pattern(RomSize).replace(3, 1, "X");
    ASSERT_TRUE(TestFiles::Write(Path, changed));
    EXPECT_TRUE(rom.Close());
    EXPECT_EQ(OnDisk(), changed);
}

TEST_F(RomFileTest, WriteOutsideTheFileMakesCloseWriteNothing) {
    for (const std::int32_t position :
         {0, RomSize + 1, -1, std::numeric_limits<std::int32_t>::min(),
          std::numeric_limits<std::int32_t>::max()}) {
        RomFile rom;
        ASSERT_TRUE(rom.Open(Path));
        rom.RomWriteByte(5, 0x11);
        rom.RomWriteByte(position, 0x22);
        EXPECT_TRUE(rom.Failed()) << "position " << position;
        rom.RomWriteByte(6, 0x33);
        EXPECT_FALSE(rom.Close()) << "position " << position;
        EXPECT_TRUE(rom.Error().contains(QString::number(position))) << rom.Error().toStdString();
        EXPECT_EQ(OnDisk(), Original) << "position " << position;
    }
}

TEST_F(RomFileTest, OpeningAMissingFileIsAnErrorNamingIt) {
    RomFile rom;
    const QString missing = QDir(Dir.path()).filePath(QStringLiteral("Blue.gb"));
    EXPECT_FALSE(rom.Open(missing));
    EXPECT_TRUE(rom.Failed());
    EXPECT_TRUE(rom.Error().contains(QStringLiteral("Blue.gb"))) << rom.Error().toStdString();
    EXPECT_EQ(rom.Size(), 0);
    rom.RomWriteByte(1, 0x42);
    EXPECT_FALSE(rom.Close());
    EXPECT_FALSE(QFile::exists(missing));

    // A folder in place of the file is no ROM either.
    ASSERT_TRUE(QDir(Dir.path()).mkdir(QStringLiteral("Folder.gb")));
    RomFile folder;
    EXPECT_FALSE(folder.Open(QDir(Dir.path()).filePath(QStringLiteral("Folder.gb"))));
    EXPECT_TRUE(folder.Error().contains(QStringLiteral("Folder.gb")))
        << folder.Error().toStdString();
}

TEST_F(RomFileTest, FileThatVanishedBeforeCloseIsNotMadeAgain) {
    RomFile rom;
    ASSERT_TRUE(rom.Open(Path));
    ASSERT_TRUE(QFile::remove(Path));
    rom.RomWriteByte(3, 0x42);
    EXPECT_FALSE(rom.Close());
    EXPECT_FALSE(rom.Error().isEmpty());
    EXPECT_FALSE(QFile::exists(Path)) << "Close created a file in place of the vanished ROM";
}

TEST_F(RomFileTest, FileWhoseLengthChangedIsNotWritten) {
    {
        RomFile rom;
        ASSERT_TRUE(rom.Open(Path));
        const QByteArray longer = Original + QByteArray("\x01\x02", 2);
        ASSERT_TRUE(TestFiles::Write(Path, longer));
        rom.RomWriteByte(3, 0x42);
        EXPECT_FALSE(rom.Close());
        EXPECT_TRUE(rom.Error().contains(QStringLiteral("Red.gb"))) << rom.Error().toStdString();
        EXPECT_EQ(OnDisk(), longer);
    }
    {
        ASSERT_TRUE(TestFiles::Write(Path, Original));
        RomFile rom;
        ASSERT_TRUE(rom.Open(Path));
        const QByteArray shorter = Original.left(RomSize - 1);
        ASSERT_TRUE(TestFiles::Write(Path, shorter));
        rom.RomWriteByte(2, 0x42);
        EXPECT_FALSE(rom.Close());
        EXPECT_EQ(OnDisk(), shorter);
    }
}

TEST_F(RomFileTest, OpenStartsAFreshCommand) {
    RomFile rom;
    ASSERT_TRUE(rom.Open(Path));
    rom.RomWriteByte(0, 1);
    ASSERT_TRUE(rom.Failed());
    // Opening again forgets the fault and the bytes recorded before.
    ASSERT_TRUE(rom.Open(Path));
    EXPECT_FALSE(rom.Failed());
    rom.RomWriteByte(4, 0x77);
    ASSERT_TRUE(rom.Close()) << rom.Error().toStdString();
    QByteArray expected = Original;
    expected[3] = 0x77;
    EXPECT_EQ(OnDisk(), expected);

    // Bytes recorded and then abandoned by a new Open are never written.
    ASSERT_TRUE(rom.Open(Path));
    rom.RomWriteByte(8, 0x55);
    ASSERT_TRUE(rom.Open(Path));
    EXPECT_TRUE(rom.Close());
    EXPECT_EQ(OnDisk(), expected);
}

TEST_F(RomFileTest, WholeFileCanBeRewrittenByteByByte) {
    RomFile rom;
    ASSERT_TRUE(rom.Open(Path));
    QByteArray expected(RomSize, '\0');
    for (int p = 1; p <= RomSize; ++p) {
        const auto value = static_cast<std::uint8_t>(255 - p);
        rom.RomWriteByte(p, value);
        expected[p - 1] = static_cast<char>(value);
    }
    ASSERT_TRUE(rom.Close()) << rom.Error().toStdString();
    EXPECT_EQ(OnDisk(), expected);
}
