#include <gtest/gtest.h>

#include <sys/stat.h>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "core/scripteddialogs.h"
#include "model/files.h"
#include "model/printers.h"
#include "rom/fileops.h"
#include "rom/rombackup.h"
#include "rom/romsave.h"

namespace {

constexpr int RomSize = 300;

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
    bool Save(Backup backup, std::initializer_list<std::int32_t> positions, std::uint8_t value) {
        Wrote = false;
        return SaveToRom(RomPath, ProgramFolder, backup, [&](RomFile& rom) {
            Wrote = true;
            for (const std::int32_t p : positions)
                rom.RomWriteByte(p, value);
        });
    }

    static QByteArray With(QByteArray bytes, std::initializer_list<std::int32_t> positions,
                           std::uint8_t value) {
        for (const std::int32_t p : positions)
            bytes[p - 1] = static_cast<char>(value);
        return bytes;
    }

    QString Question() const {
        return QStringLiteral("Make a backup of the ROM (") + QDir::toNativeSeparators(RomPath) +
               QStringLiteral(".BAK)?");
    }
    QString Bak() const { return RomPath + QStringLiteral(".BAK"); }
    QString Temp() const { return QDir(ProgramFolder).filePath(QStringLiteral("temp.twy")); }
    QStringList ProgramFiles() const {
        return QDir(ProgramFolder)
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
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

TEST_F(RomSave, AnsweringNoToTheBackupQuestionStillSaves) {
    Script.AnswerNo();
    ASSERT_TRUE(Save(Backup::Offer, {1, 2, RomSize}, 0x00));
    ASSERT_EQ(Script.Transcript().size(), 1u) << Transcript().toStdString();
    const auto& asked = Script.Transcript()[0];
    EXPECT_EQ(asked.kind, ScriptedDialogs::Kind::Question);
    EXPECT_EQ(asked.title, QStringLiteral("Tarnwey"));
    EXPECT_EQ(asked.text, Question());
    EXPECT_TRUE(Wrote);
    EXPECT_EQ(TestFiles::Read(RomPath), With(Original, {1, 2, RomSize}, 0x00));
    EXPECT_FALSE(QFile::exists(Bak()));
    EXPECT_TRUE(ProgramFiles().isEmpty()) << ProgramFiles().join(u',').toStdString();
}

TEST_F(RomSave, FirstBackupKeepsTheOldBytesWithoutAWarning) {
    ASSERT_FALSE(QFile::exists(Bak()));
    const ino_t romFile = FileNumber(RomPath);
    ASSERT_NE(romFile, 0u);
    Script.AnswerYes();
    ASSERT_TRUE(Save(Backup::Offer, {7, 8, 200}, 0xC3)) << Transcript().toStdString();
    // The file that was the ROM became the backup under its new name; the ROM
    // written into is a fresh copy.
    EXPECT_EQ(FileNumber(Bak()), romFile);
    EXPECT_NE(FileNumber(RomPath), romFile);
    EXPECT_EQ(Script.Transcript().size(), 1u) << Transcript().toStdString();
    EXPECT_EQ(TestFiles::Read(Bak()), Original);
    EXPECT_EQ(TestFiles::Read(RomPath), With(Original, {7, 8, 200}, 0xC3));
    EXPECT_TRUE(ProgramFiles().isEmpty()) << ProgramFiles().join(u',').toStdString();
    // Only the ROM and its backup lie in the ROM's folder.
    EXPECT_EQ(QDir(RomFolder).entryList(QDir::Files).size(), 2);
}

TEST_F(RomSave, StaleTempCopyIsReplaced) {
    // Copies left by an earlier run, of the ROM's length and of another.
    QByteArray rom = Original;
    std::uint8_t value = 1;
    for (const QByteArray& stale : {QByteArray(RomSize, '\x99'), QByteArray(17, '\x42')}) {
        ASSERT_TRUE(TestFiles::Write(Temp(), stale));
        Script.AnswerYes();
        ASSERT_TRUE(Save(Backup::Offer, {3}, value)) << Transcript().toStdString();
        EXPECT_EQ(TestFiles::Read(Bak()), rom);
        rom = With(rom, {3}, value++);
        EXPECT_EQ(TestFiles::Read(RomPath), rom);
        EXPECT_FALSE(QFile::exists(Temp()));
    }
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 0) << Transcript().toStdString();
}

TEST_F(RomSave, BackupHoldsTheStateBeforeTheLatestSaveWithAYes) {
    Script.AnswerYes();
    ASSERT_TRUE(Save(Backup::Offer, {10}, 0xAA)) << Transcript().toStdString();
    const QByteArray afterFirst = With(Original, {10}, 0xAA);
    Script.AnswerYes();
    ASSERT_TRUE(Save(Backup::Offer, {11}, 0xBB)) << Transcript().toStdString();
    EXPECT_EQ(TestFiles::Read(Bak()), afterFirst);
    const QByteArray afterSecond = With(afterFirst, {11}, 0xBB);
    EXPECT_EQ(TestFiles::Read(RomPath), afterSecond);
    // A No leaves the older backup alone.
    Script.AnswerNo();
    ASSERT_TRUE(Save(Backup::Offer, {12}, 0xCC));
    EXPECT_EQ(TestFiles::Read(Bak()), afterFirst);
    EXPECT_EQ(TestFiles::Read(RomPath), With(afterSecond, {12}, 0xCC));
    EXPECT_EQ(Script.Count(Question()), 3);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 0) << Transcript().toStdString();
}

TEST_F(RomSave, SkippedBackupAsksNothing) {
    ASSERT_TRUE(Save(Backup::Skip, {RomSize}, 0x10));
    EXPECT_TRUE(Script.Transcript().empty()) << Transcript().toStdString();
    EXPECT_EQ(TestFiles::Read(RomPath), With(Original, {RomSize}, 0x10));
    EXPECT_FALSE(QFile::exists(Bak()));
}

TEST_F(RomSave, BackupWorksWithTheRomInTheProgramFolder) {
    RomPath = QDir(ProgramFolder).filePath(QStringLiteral("Morlick Blue.gb"));
    ASSERT_TRUE(TestFiles::Write(RomPath, Original));
    Script.AnswerYes();
    ASSERT_TRUE(Save(Backup::Offer, {5}, 0x66)) << Transcript().toStdString();
    EXPECT_EQ(TestFiles::Read(Bak()), Original);
    EXPECT_EQ(TestFiles::Read(RomPath), With(Original, {5}, 0x66));
    EXPECT_FALSE(QFile::exists(Temp()));
}

// Each step of the backup made to fail in turn. What must lie on the disk
// afterwards: the ROM whole under its name wherever that can be, and never a
// save written into anything.
TEST_F(RomSave, EachFailingBackupStepStopsTheSaveAndKeepsTheRom) {
    struct Case {
        const char* step;
        std::vector<std::pair<FileOps::Op, int>> faults;
        bool romAtItsName;     // else the ROM's bytes are in the .BAK file
        const char* bakHolds;  // "older", "rom" or "" for no file
        bool tempLeft;
    };
    const std::vector<Case> cases = {
        {"1: old backup not deleted", {{FileOps::Op::Remove, 1}}, true, "older", false},
        {"2: no temporary copy", {{FileOps::Op::Copy, 1}}, true, "", false},
        {"3: ROM not renamed", {{FileOps::Op::Rename, 1}}, true, "", false},
        {"4: copy not written back, ROM renamed back", {{FileOps::Op::Copy, 2}}, true, "", false},
        {"4: copy not written back, ROM not renamed back",
         {{FileOps::Op::Copy, 2}, {FileOps::Op::Rename, 2}},
         false,
         "rom",
         true},
    };
    const QByteArray older("older backup");
    for (const Case& c : cases) {
        SCOPED_TRACE(c.step);
        QFile::remove(Bak());
        QFile::remove(Temp());
        ASSERT_TRUE(TestFiles::Write(RomPath, Original));
        ASSERT_TRUE(TestFiles::Write(Bak(), older));
        const ino_t romFile = FileNumber(RomPath);
        Script.Clear();
        Script.AnswerYes();
        for (const auto& [op, nth] : c.faults)
            FileOps::FailOn(op, nth);

        EXPECT_FALSE(Save(Backup::Offer, {1, 2}, 0x00));
        FileOps::ClearFaults();
        EXPECT_FALSE(Wrote);
        ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1) << Transcript().toStdString();
        const QString warning = Script.Transcript().back().text;
        EXPECT_TRUE(warning.contains(QDir::toNativeSeparators(RomPath))) << warning.toStdString();
        if (c.romAtItsName) {
            EXPECT_EQ(TestFiles::Read(RomPath), Original);
            // The ROM is the very file it was, never a copy put in its place.
            EXPECT_EQ(FileNumber(RomPath), romFile);
        } else {
            EXPECT_FALSE(QFile::exists(RomPath));
            EXPECT_EQ(FileNumber(Bak()), romFile);
            EXPECT_TRUE(warning.contains(QDir::toNativeSeparators(Bak()))) << warning.toStdString();
        }
        const QString bak = QString::fromLatin1(c.bakHolds);
        if (bak.isEmpty()) {
            EXPECT_FALSE(QFile::exists(Bak()));
        } else {
            EXPECT_EQ(TestFiles::Read(Bak()), bak == QStringLiteral("older") ? older : Original);
        }
        EXPECT_EQ(QFile::exists(Temp()), c.tempLeft);
        if (c.tempLeft) {
            EXPECT_EQ(TestFiles::Read(Temp()), Original);
        }
    }
}

TEST_F(RomSave, RomNamedLikeTheTemporaryCopyIsRefusedWhole) {
    // The user opened "temp.twy" in the program's folder: the backup's own
    // temporary name. Nothing may be deleted, neither the ROM nor its backup.
    RomPath = Temp();
    ASSERT_TRUE(TestFiles::Write(RomPath, Original));
    ASSERT_TRUE(TestFiles::Write(Bak(), QByteArray("older backup")));
    Script.AnswerYes();
    EXPECT_FALSE(Save(Backup::Offer, {1}, 0x00));
    EXPECT_FALSE(Wrote);
    ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1) << Transcript().toStdString();
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("temp.twy")));
    EXPECT_EQ(TestFiles::Read(RomPath), Original);
    EXPECT_EQ(TestFiles::Read(Bak()), QByteArray("older backup"));

    // Without a backup the save goes on as the user asked.
    Script.Clear();
    Script.AnswerNo();
    EXPECT_TRUE(Save(Backup::Offer, {1}, 0x00)) << Transcript().toStdString();
    EXPECT_EQ(TestFiles::Read(RomPath), With(Original, {1}, 0x00));
}

TEST_F(RomSave, RefusedWriteIsToldAndChangesNothing) {
    FileOps::FailOn(FileOps::Op::Write);
    EXPECT_FALSE(Save(Backup::Skip, {3, 4}, 0x11));
    EXPECT_TRUE(Wrote);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1) << Transcript().toStdString();
    EXPECT_EQ(TestFiles::Read(RomPath), Original);
}

TEST_F(RomSave, PositionOutsideTheRomSavesNothingAndWarnsOnce) {
    EXPECT_FALSE(Save(Backup::Skip, {5, RomSize + 1, 6}, 0x44));
    EXPECT_TRUE(Wrote);
    ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1) << Transcript().toStdString();
    EXPECT_TRUE(Script.Transcript().back().text.contains(QString::number(RomSize + 1)))
        << Transcript().toStdString();
    EXPECT_EQ(TestFiles::Read(RomPath), Original);

    // With a backup made first, the backup is whole and the ROM still unchanged.
    Script.Clear();
    Script.AnswerYes();
    EXPECT_FALSE(Save(Backup::Offer, {5, 0}, 0x44));
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1) << Transcript().toStdString();
    EXPECT_EQ(TestFiles::Read(RomPath), Original);
    EXPECT_EQ(TestFiles::Read(Bak()), Original);
}

TEST_F(RomSave, MissingRomIsToldAndNotMadeAgain) {
    ASSERT_TRUE(QFile::remove(RomPath));
    // The backup of an earlier save may now be the only copy of the ROM.
    const QByteArray older("older backup");
    ASSERT_TRUE(TestFiles::Write(Bak(), older));
    EXPECT_FALSE(Save(Backup::Skip, {1}, 0x01));
    EXPECT_FALSE(Wrote);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1) << Transcript().toStdString();
    EXPECT_FALSE(QFile::exists(RomPath));

    Script.Clear();
    Script.AnswerYes();
    EXPECT_FALSE(Save(Backup::Offer, {1}, 0x01));
    EXPECT_FALSE(Wrote);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1) << Transcript().toStdString();
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Question), 0) << Transcript().toStdString();
    EXPECT_FALSE(QFile::exists(RomPath));
    EXPECT_EQ(TestFiles::Read(Bak()), older);
    EXPECT_FALSE(QFile::exists(Temp()));
}
