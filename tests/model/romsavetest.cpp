#include <gtest/gtest.h>

#include <sys/stat.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <functional>
#include <limits>

#include "core/scripteddialogs.h"
#include "model/files.h"
#include "model/printers.h"
#include "rom/fileops.h"
#include "rom/romfile.h"
#include "rom/romsave.h"

// The ROM's bytes by 1-based position, and the save transaction around them:
// the backup's five steps, and a ROM that never ends up half written.

namespace {

constexpr int RomSize = 300;
using Op = FileOps::Op;

// The file system's number for a file, which a rename keeps and a copy does not.
ino_t FileNumber(const QString& path) {
    struct stat info {};
    if (::stat(QFile::encodeName(path).constData(), &info) != 0) return 0;
    return info.st_ino;
}

// A ROM in its own folder, an empty program folder, and scripted dialogs.
class RomSave : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(Dir.isValid());
        QDir root(Dir.path());
        ASSERT_TRUE(root.mkdir(QStringLiteral("roms")));
        ASSERT_TRUE(root.mkdir(QStringLiteral("program")));
        RomFolder = root.filePath(QStringLiteral("roms"));
        ProgramFolder = root.filePath(QStringLiteral("program"));
        RomPath = QDir(RomFolder).filePath(QStringLiteral("Morlick Red.gb"));
        Original = TestFiles::Pattern(RomSize);
        ASSERT_TRUE(TestFiles::Write(RomPath, Original));
        SetDialogs(&Script);
    }

    void TearDown() override {
        SetDialogs(nullptr);
        FileOps::ClearFaults();
    }

    // Saves with one byte written at each given position, the value drawn
    // from the save's number so that every save leaves its own trace.
    bool Save(Backup backup, const std::vector<std::int32_t>& positions, std::uint8_t value,
              qint64 expectedSize = -1) {
        Wrote = false;
        return SaveToRom(
            RomPath, ProgramFolder, backup,
            [&](RomFile& rom) {
                Wrote = true;
                for (const std::int32_t p : positions)
                    rom.RomWriteByte(p, value);
            },
            expectedSize);
    }

    static QByteArray With(QByteArray bytes, std::initializer_list<std::int32_t> positions,
                           std::uint8_t value) {
        for (const std::int32_t p : positions)
            bytes[p - 1] = static_cast<char>(value);
        return bytes;
    }

    QString Bak() const { return RomPath + QStringLiteral(".BAK"); }
    QString Temp() const { return QDir(ProgramFolder).filePath(QStringLiteral("temp.twy")); }
    QStringList Files(const QString& folder) const {
        return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    }
    QString Transcript() const { return Script.Texts().join(QStringLiteral(" | ")); }

    QTemporaryDir Dir;
    QString RomFolder;
    QString ProgramFolder;
    QString RomPath;
    QByteArray Original;
    ScriptedDialogs Script;
    bool Wrote = false;
};

}  // namespace

TEST_F(RomSave, RomFileReadsByOneBasedPositionAndWritesBackOnlyTheRecordedBytes) {
    RomFile rom;
    ASSERT_TRUE(rom.Open(RomPath)) << rom.Error().toStdString();
    EXPECT_EQ(rom.Size(), RomSize);
    EXPECT_EQ(rom.ReadByte(1), static_cast<std::uint8_t>(Original[0]));
    EXPECT_EQ(rom.ReadByte(RomSize), static_cast<std::uint8_t>(Original[RomSize - 1]));
    const struct {
        std::int32_t position, count;
        bool inside;
    } areas[] = {{1, RomSize, true}, {RomSize + 1, 0, true},
                 {0, 1, false},      {2, RomSize, false},
                 {1, -1, false},     {std::numeric_limits<std::int32_t>::max(), 2, false}};
    for (const auto& a : areas)
        EXPECT_EQ(rom.Contains(a.position, a.count), a.inside) << a.position << " + " << a.count;

    // Bytes that change on disk while the ROM is open, at places the command
    // does not write, survive: Close writes back nothing but its own bytes.
    QByteArray disk = Original;
    for (const int offset : {1, 5, 30, 62})
        disk[offset] = static_cast<char>(0xEE);
    ASSERT_TRUE(TestFiles::Write(RomPath, disk));
    QByteArray expected = disk;
    const std::pair<std::int32_t, std::uint8_t> writes[] = {
        {1, 0xA1}, {RomSize, 0xA2}, {20, 0xA3}, {21, 0xA4}, {22, 0x00}, {40, 0xFF}, {20, 0xA5}};
    for (const auto& [position, value] : writes) {
        rom.RomWriteByte(position, value);
        expected[position - 1] = static_cast<char>(value);
    }
    ASSERT_TRUE(rom.Close()) << rom.Error().toStdString();
    EXPECT_EQ(TestFiles::Read(RomPath).toHex(' '), expected.toHex(' '));
}

// A command that cannot write all its bytes writes none of them: a position
// outside the file, a file that changed its length or vanished since Open,
// and a write that fails part of the way, which puts back what it replaced.
TEST_F(RomSave, RomFileThatCannotBeWrittenWholeIsLeftAsItWas) {
    struct Case {
        QString name;
        std::function<void(RomFile&)> between;  // runs between Open and Close
        QString error;                          // a part of the error
        std::function<QByteArray()> disk;       // what must be on disk after
    };
    const auto original = [this] { return Original; };
    std::vector<Case> cases;
    for (const std::int32_t outside : {0, RomSize + 1, std::numeric_limits<std::int32_t>::min()})
        cases.push_back({QStringLiteral("position %1").arg(outside),
                         [outside](RomFile& rom) {
                             EXPECT_EQ(rom.ReadByte(outside), 0);
                             rom.RomWriteByte(outside, 0x22);
                             rom.ReadByte(RomSize + 7);
                         },
                         QString::number(outside), original});
    for (const int size : {RomSize + 2, RomSize - 1}) {
        const QByteArray changed = TestFiles::Pattern(size);
        cases.push_back({QStringLiteral("length now %1").arg(size),
                         [this, changed](RomFile&) { TestFiles::Write(RomPath, changed); },
                         QStringLiteral("Red.gb"), [changed] { return changed; }});
    }
    cases.push_back({QStringLiteral("deleted"), [this](RomFile&) { QFile::remove(RomPath); },
                     QStringLiteral("Red.gb"), [] { return QByteArray(); }});
    for (int failing = 1; failing <= 3; ++failing)
        cases.push_back({QStringLiteral("write %1 fails").arg(failing),
                         [failing](RomFile&) { FileOps::FailOn(Op::Write, failing); },
                         QStringLiteral("could not be written"), original});
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name.toStdString());
        ASSERT_TRUE(TestFiles::Write(RomPath, Original));
        RomFile rom;
        ASSERT_TRUE(rom.Open(RomPath));
        rom.RomWriteByte(2, 0x11);
        rom.RomWriteByte(3, 0x12);
        rom.RomWriteByte(30, 0x22);
        c.between(rom);
        rom.RomWriteByte(RomSize, 0x33);
        EXPECT_FALSE(rom.Close());
        FileOps::ClearFaults();
        EXPECT_TRUE(rom.Error().contains(c.error)) << rom.Error().toStdString();
        EXPECT_FALSE(rom.Error().contains(QStringLiteral("Part of the changes")))
            << rom.Error().toStdString();
        EXPECT_EQ(TestFiles::Read(RomPath).toHex(' '), c.disk().toHex(' '));
    }

    // A missing file or a folder is refused with a message that names it, and
    // no file is made in its place.
    RomFile rom;
    const QString missing = QDir(RomFolder).filePath(QStringLiteral("Blue.gb"));
    EXPECT_FALSE(rom.Open(missing));
    EXPECT_EQ(rom.Error(), QStringLiteral("The ROM file \"Blue.gb\" could not be opened (No such "
                                          "file or directory)."));
    rom.RomWriteByte(1, 0x42);
    EXPECT_FALSE(rom.Close());
    EXPECT_FALSE(QFile::exists(missing));
    EXPECT_FALSE(rom.Open(RomFolder));
    EXPECT_EQ(rom.Error(), QStringLiteral("The ROM file \"roms\" could not be opened (file to "
                                          "open is a directory)."));
}

// Saves with and without a backup, one after the other: the backup holds the
// ROM as it was before the latest save the user answered Yes for.
TEST_F(RomSave, BackupHoldsTheRomAsItWasBeforeTheLatestSaveWithAYes) {
    Script.AnswerNo();
    ASSERT_TRUE(Save(Backup::Offer, {1, 2, RomSize}, 0x00));
    ASSERT_EQ(Script.Texts(),
              QStringList{QStringLiteral("Make a backup of the ROM (") +
                          QDir::toNativeSeparators(RomPath) + QStringLiteral(".BAK)?")});
    EXPECT_EQ(Script.Transcript()[0].title, QStringLiteral("Tarnwey"));
    QByteArray rom = With(Original, {1, 2, RomSize}, 0x00);
    EXPECT_EQ(TestFiles::Read(RomPath), rom);
    EXPECT_FALSE(QFile::exists(Bak()));

    // Copies left by an earlier run, of the ROM's length and of another, are
    // replaced. The file that was the ROM becomes the backup under its new
    // name; the ROM written into is a fresh copy.
    std::uint8_t value = 0xC3;
    for (const QByteArray& stale : {QByteArray(RomSize, '\x99'), QByteArray(17, '\x42')}) {
        ASSERT_TRUE(TestFiles::Write(Temp(), stale));
        const ino_t romFile = FileNumber(RomPath);
        Script.AnswerYes();
        ASSERT_TRUE(Save(Backup::Offer, {7, 200}, value)) << Transcript().toStdString();
        EXPECT_EQ(FileNumber(Bak()), romFile);
        EXPECT_NE(FileNumber(RomPath), romFile);
        EXPECT_EQ(TestFiles::Read(Bak()), rom);
        rom = With(rom, {7, 200}, value++);
        EXPECT_EQ(TestFiles::Read(RomPath), rom);
        EXPECT_TRUE(Files(ProgramFolder).isEmpty())
            << Files(ProgramFolder).join(u',').toStdString();
        EXPECT_EQ(Files(RomFolder).size(), 2);
    }
    const QByteArray backup = TestFiles::Read(Bak());
    Script.AnswerNo();
    ASSERT_TRUE(Save(Backup::Offer, {12}, 0xCC));
    ASSERT_TRUE(Save(Backup::Skip, {RomSize}, 0x10));
    EXPECT_EQ(TestFiles::Read(Bak()), backup);
    EXPECT_EQ(TestFiles::Read(RomPath), With(With(rom, {12}, 0xCC), {RomSize}, 0x10));
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Question), 4) << Transcript().toStdString();
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 0) << Transcript().toStdString();
}

// Saves that stop before any byte is written, each told once: each step of
// the backup made to fail in turn (a copy that comes up short among them), a
// ROM that is gone or changed its length since it was read, a position
// outside the ROM. What must lie on the disk afterwards: the ROM whole under
// its name wherever that can be, and never a save written into anything.
TEST_F(RomSave, ASaveThatCannotGoThroughIsToldAndKeepsTheRom) {
    static const QByteArray older("older backup");
    struct Case {
        const char* name;
        std::vector<std::pair<Op, int>> faults = {};
        QString told = {};            // a part of the warning besides the ROM's name
        bool romAtItsName = true;     // else the ROM's bytes are in the .BAK file
        QByteArray bakHolds = older;  // a null array: no .BAK file
        bool tempLeft = false;
        qint64 expectedSize = -1;
        bool romGone = false;
        bool skipBackup = false;  // the write is tried: a position outside the ROM
    };
    const Case cases[] = {
        {.name = "1: old backup not deleted", .faults = {{Op::Remove, 1}}},
        {.name = "2: no temporary copy", .faults = {{Op::Copy, 1}}, .bakHolds = {}},
        {.name = "2: temporary copy short", .faults = {{Op::ShortCopy, 1}}, .bakHolds = {}},
        {.name = "3: ROM not renamed", .faults = {{Op::Rename, 1}}, .bakHolds = {}},
        {.name = "4: copy not written back, ROM renamed back",
         .faults = {{Op::Copy, 2}},
         .bakHolds = {}},
        {.name = "4: copy written back short, ROM renamed back",
         .faults = {{Op::ShortCopy, 2}},
         .bakHolds = {}},
        {.name = "4: copy not written back, ROM not renamed back",
         .faults = {{Op::Copy, 2}, {Op::Rename, 2}},
         .told = QDir::toNativeSeparators(Bak()),
         .romAtItsName = false,
         .bakHolds = Original,
         .tempLeft = true},
        {.name = "a ROM grown since it was read",
         .told = QStringLiteral("is now 300 bytes long, but it had 299 bytes"),
         .expectedSize = RomSize - 1},
        {.name = "a ROM that is gone", .told = QStringLiteral("no longer there"), .romGone = true},
        {.name = "a position outside the ROM",
         .told = QStringLiteral("Position 301 lies outside the ROM file \"Morlick Red.gb\""),
         .skipBackup = true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        QFile::remove(Bak());
        QFile::remove(Temp());
        ASSERT_TRUE(TestFiles::Write(RomPath, Original));
        ASSERT_TRUE(TestFiles::Write(Bak(), older));
        const ino_t romFile = FileNumber(RomPath);
        Script.Clear();
        Script.AnswerYes();
        for (const auto& [op, nth] : c.faults)
            FileOps::FailOn(op, nth);
        const QString moved = RomPath + QStringLiteral(".moved");
        if (c.romGone) QFile::rename(RomPath, moved);

        EXPECT_FALSE(Save(c.skipBackup ? Backup::Skip : Backup::Offer, {5, RomSize + 1, 6}, 0x00,
                          c.expectedSize));
        FileOps::ClearFaults();
        if (c.romGone) QFile::rename(moved, RomPath);
        EXPECT_EQ(Wrote, c.skipBackup);
        ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1) << Transcript().toStdString();
        const QString warning = Script.Transcript().back().text;
        if (!c.skipBackup) {
            EXPECT_TRUE(warning.contains(QDir::toNativeSeparators(RomPath)))
                << warning.toStdString();
        }
        EXPECT_TRUE(warning.contains(c.told)) << warning.toStdString();
        if (c.romAtItsName) {
            EXPECT_EQ(TestFiles::Read(RomPath), Original);
            // The ROM is the very file it was, never a copy put in its place.
            EXPECT_EQ(FileNumber(RomPath), romFile);
        } else {
            EXPECT_FALSE(QFile::exists(RomPath));
            EXPECT_EQ(FileNumber(Bak()), romFile);
        }
        EXPECT_EQ(QFile::exists(Bak()), !c.bakHolds.isNull());
        EXPECT_EQ(TestFiles::Read(Bak()), c.bakHolds);
        EXPECT_EQ(QFile::exists(Temp()), c.tempLeft);
        EXPECT_EQ(TestFiles::Read(Temp()), c.tempLeft ? Original : QByteArray());
    }
}
