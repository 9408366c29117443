#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <limits>

#include "model/files.h"
#include "model/printers.h"
#include "rom/fileops.h"
#include "rom/romfile.h"

namespace {

constexpr int RomSize = 64;
constexpr std::int32_t Outside[] = {0, RomSize + 1, -1, std::numeric_limits<std::int32_t>::min(),
                                    std::numeric_limits<std::int32_t>::max()};

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

    const struct {
        std::int32_t position, count;
        bool inside;
    } areas[] = {{1, 1, true},
                 {RomSize, 1, true},
                 {1, RomSize, true},
                 {RomSize + 1, 0, true},
                 {0, 1, false},
                 {-1, 1, false},
                 {RomSize + 1, 1, false},
                 {2, RomSize, false},
                 {RomSize, 2, false},
                 {1, -1, false},
                 {std::numeric_limits<std::int32_t>::max(), 2, false}};
    for (const auto& a : areas)
        EXPECT_EQ(rom.Contains(a.position, a.count), a.inside) << a.position << " + " << a.count;
    EXPECT_TRUE(rom.Close());
    EXPECT_EQ(OnDisk(), Original);
}

// A position outside the file reads as 0 and fails the file with a message
// naming the first such position; Close then writes nothing at all.
TEST_F(RomFileTest, PositionOutsideTheFileFailsItAndNothingIsWritten) {
    for (const std::int32_t position : Outside) {
        SCOPED_TRACE(position);
        RomFile reading;
        ASSERT_TRUE(reading.Open(Path));
        EXPECT_EQ(reading.ReadByte(position), 0);
        EXPECT_TRUE(reading.Failed());
        reading.ReadByte(RomSize + 7);
        EXPECT_TRUE(reading.Error().contains(QString::number(position)))
            << reading.Error().toStdString();
        EXPECT_TRUE(reading.Error().contains(QStringLiteral("Red.gb")));
        EXPECT_FALSE(reading.Close());

        RomFile writing;
        ASSERT_TRUE(writing.Open(Path));
        writing.RomWriteByte(5, 0x11);
        writing.RomWriteByte(position, 0x22);
        EXPECT_TRUE(writing.Failed());
        writing.RomWriteByte(6, 0x33);
        EXPECT_FALSE(writing.Close());
        EXPECT_TRUE(writing.Error().contains(QString::number(position)))
            << writing.Error().toStdString();
        EXPECT_EQ(OnDisk(), Original);
    }
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
    EXPECT_EQ(OnDisk().toHex(' '), expected.toHex(' '));
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

    // Bytes recorded and then abandoned by a new Open are never written, not
    // even amid the bytes of the next command: the byte changed on disk stays.
    ASSERT_TRUE(rom.Open(Path));
    rom.RomWriteByte(8, 0x55);
    ASSERT_TRUE(rom.Open(Path));
    expected[7] = 0x66;
    ASSERT_TRUE(TestFiles::Write(Path, expected));
    rom.RomWriteByte(5, 0x78);
    rom.RomWriteByte(12, 0x79);
    expected[4] = 0x78;
    expected[11] = 0x79;
    EXPECT_TRUE(rom.Close());
    EXPECT_EQ(OnDisk(), expected);
}

TEST_F(RomFileTest, MissingFileOrFolderIsAnErrorNamingItAndIsNotMade) {
    RomFile rom;
    const QString missing = QDir(Dir.path()).filePath(QStringLiteral("Blue.gb"));
    EXPECT_FALSE(rom.Open(missing));
    EXPECT_TRUE(rom.Error().contains(QStringLiteral("Blue.gb"))) << rom.Error().toStdString();
    EXPECT_EQ(rom.Size(), 0);
    rom.RomWriteByte(1, 0x42);
    EXPECT_FALSE(rom.Close());
    EXPECT_FALSE(QFile::exists(missing));

    ASSERT_TRUE(QDir(Dir.path()).mkdir(QStringLiteral("Folder.gb")));
    EXPECT_FALSE(rom.Open(QDir(Dir.path()).filePath(QStringLiteral("Folder.gb"))));
    EXPECT_TRUE(rom.Error().contains(QStringLiteral("Folder.gb"))) << rom.Error().toStdString();

    // A ROM that vanished after Open is not made again as a new file.
    ASSERT_TRUE(rom.Open(Path));
    ASSERT_TRUE(QFile::remove(Path));
    rom.RomWriteByte(3, 0x42);
    EXPECT_FALSE(rom.Close());
    EXPECT_FALSE(rom.Error().isEmpty());
    EXPECT_FALSE(QFile::exists(Path));
}

TEST_F(RomFileTest, FileWhoseLengthChangedIsNotWritten) {
    for (const QByteArray& changed :
         {Original + QByteArray("\x01\x02", 2), Original.left(RomSize - 1)}) {
        SCOPED_TRACE(changed.size());
        ASSERT_TRUE(TestFiles::Write(Path, Original));
        RomFile rom;
        ASSERT_TRUE(rom.Open(Path));
        ASSERT_TRUE(TestFiles::Write(Path, changed));
        rom.RomWriteByte(3, 0x42);
        EXPECT_FALSE(rom.Close());
        EXPECT_TRUE(rom.Error().contains(QStringLiteral("Red.gb"))) << rom.Error().toStdString();
        EXPECT_EQ(OnDisk(), changed);
    }
}

// A write that fails after some runs of bytes reached the disk puts their old
// bytes back: the ROM is never left half saved. Runs are written in file order.
TEST_F(RomFileTest, WriteFailingPartWayPutsBackWhatItReplaced) {
    const auto writeThreeRuns = [](RomFile& rom) {
        rom.RomWriteByte(2, 0x11);
        rom.RomWriteByte(3, 0x12);
        rom.RomWriteByte(30, 0x22);
        rom.RomWriteByte(RomSize, 0x33);
    };
    for (int failing = 1; failing <= 3; ++failing) {
        SCOPED_TRACE(failing);
        RomFile rom;
        ASSERT_TRUE(rom.Open(Path));
        writeThreeRuns(rom);
        FileOps::FailOn(FileOps::Op::Write, failing);
        EXPECT_FALSE(rom.Close());
        FileOps::ClearFaults();
        EXPECT_TRUE(rom.Error().contains(QStringLiteral("could not be written")))
            << rom.Error().toStdString();
        EXPECT_EQ(OnDisk().toHex(' '), Original.toHex(' '));
    }

    // The same with a real refusal: a file size limit below the last run's
    // offset lets the first runs through and stops the last one.
    RomFile rom;
    ASSERT_TRUE(rom.Open(Path));
    writeThreeRuns(rom);
    {
        const TestFiles::FileSizeLimit limit(RomSize / 2 + 1);
        EXPECT_FALSE(rom.Close());
    }
    EXPECT_FALSE(rom.Error().contains(QStringLiteral("Part of the changes")))
        << rom.Error().toStdString();
    EXPECT_EQ(OnDisk().toHex(' '), Original.toHex(' '));

    // The file is usable for the next command, which starts from the disk.
    ASSERT_TRUE(rom.Open(Path));
    writeThreeRuns(rom);
    ASSERT_TRUE(rom.Close()) << rom.Error().toStdString();
    EXPECT_EQ(static_cast<std::uint8_t>(OnDisk()[RomSize - 1]), 0x33);
}
