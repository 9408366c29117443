#include <QDir>
#include <QFile>
#include <QTest>
#include <functional>

#include "blockedit/blockedit.h"
#include "core/defines.h"
#include "eventedit/eventedit.h"
#include "fixture/warpdata.h"
#include "model/files.h"
#include "rom/fileops.h"
#include "support/apptest.h"
#include "warpedit/warpedit.h"
#include "wildedit/wildedit.h"

// Every saver of the program meets every file fault a user's disk can throw
// at it between opening a window and pressing its save button. Whatever
// happens, the user is told once, nothing is confirmed, the window keeps its
// changes, and the ROM's bytes survive whole: under the ROM's name, or in its
// backup when the backup itself was cut short.

namespace {

const QByteArray OlderBackup("the backup of an earlier save");

Fixture::SmallProject FaultProject() {
    Fixture::SmallProject project;
    project.AddTileset(3, 0);
    const int cat = project.AddCategory(QStringLiteral("Faults"), 0);
    const int map =
        project.AddMap(cat, QStringLiteral("Field"), 6, 5, 0, [](int, int) { return 1; });
    project.AddWarps(map, {{1, 1, 0, 0}, {2, 3, 1, 0}});
    project.AddWarpTo(map, {{Fixture::EventPlacement(6, 1, 1, 0), 1, 1}});
    project.AddWildList(map, {{{2, 0x10},
                               {3, 0x10},
                               {4, 0x10},
                               {5, 0x10},
                               {6, 0x10},
                               {7, 0x10},
                               {8, 0x10},
                               {9, 0x10},
                               {10, 0x10},
                               {11, 0x10}}});
    project.Species = {{0x10, QStringLiteral("Sixteen"), 1}};
    project.EventTypes.push_back(
        {QStringLiteral("P"), QStringLiteral("Plain"), 1, 3, 0, 0, 1, 2, 3, 0, 0, 0, 0, 0, 0});
    project.AddEventList(map, 0, {QByteArray("\x01\x01\x07", 3), QByteArray("\x02\x02\x08", 3)});
    return project;
}

template <typename Window>
Window* Shown(MainForm* form) {
    for (Window* w : form->findChildren<Window*>())
        if (w->isVisible()) return w;
    return nullptr;
}

// One saver: how to open its window and change something through the real
// widgets, how to press its save button, and whether the window still holds
// unsaved changes.
struct Saver {
    const char* name;
    std::function<QWidget*(MainForm*)> openAndEdit;
    std::function<void(MainForm*, QWidget*)> save;
    std::function<bool(MainForm*, QWidget*)> changed;
};

// The warp editor in one of its modes: the first symbol moved to another square.
Saver WarpSaver(const char* name, bool warpTo) {
    return {name,
            [warpTo](MainForm* f) -> QWidget* {
                f->mnuWarpEdit->trigger();
                WarpEdit* w = Shown<WarpEdit>(f);
                if (!w) return nullptr;
                if (warpTo) w->EditWarpTo->click();
                QTest::mousePress(w->WarpSym[0], Qt::LeftButton);
                PressCell(w->Placement->View->MapTile, 16 * 2 + 3);
                return w;
            },
            [](MainForm*, QWidget* w) {
                QTest::mouseClick(static_cast<WarpEdit*>(w)->Command1, Qt::LeftButton);
            },
            [](MainForm*, QWidget* w) { return static_cast<WarpEdit*>(w)->WarpsChanged; }};
}

std::vector<Saver> Savers() {
    const auto press = [](QWidget* w) { QTest::mouseClick(w, Qt::LeftButton); };
    return {
        {"map",
         [](MainForm* f) -> QWidget* {
             PressCell(f->View->MapTile, 0);
             return nullptr;
         },
         [](MainForm* f, QWidget*) { f->mnuSave->trigger(); },
         [](MainForm* f, QWidget*) { return f->MapChanged; }},
        {"block",
         [](MainForm* f) -> QWidget* {
             f->mnuBlockEdit->trigger();
             BlockEdit* b = Shown<BlockEdit>(f);
             if (!b) return nullptr;
             PressCell(b->TileSel, 9);
             PressCell(b->Block, 0);
             return b;
         },
         [press](MainForm*, QWidget* w) { press(static_cast<BlockEdit*>(w)->SaveBlock); },
         [](MainForm*, QWidget* w) { return static_cast<BlockEdit*>(w)->BlockChanged; }},
        WarpSaver("warps", false),
        WarpSaver("warp-to", true),
        {"wild",
         [](MainForm* f) -> QWidget* {
             f->mnuWildEdit->trigger();
             WildEdit* w = Shown<WildEdit>(f);
             if (!w) return nullptr;
             w->SelLevel->selectAll();
             QTest::keyClicks(w->SelLevel, QStringLiteral("77"));
             return w;
         },
         [press](MainForm*, QWidget* w) { press(static_cast<WildEdit*>(w)->Command1); },
         // The window has no changed flag: its closing question comes always.
         [](MainForm*, QWidget*) { return true; }},
        {"events",
         [](MainForm* f) -> QWidget* {
             f->mnuEventEdit->trigger();
             EventEdit* e = Shown<EventEdit>(f);
             if (!e) return nullptr;
             QTest::mousePress(e->EventSym[1], Qt::LeftButton);
             PressCell(e->Placement->View->MapTile, 16 * 4 + 2);
             return e;
         },
         [press](MainForm*, QWidget* w) { press(static_cast<EventEdit*>(w)->Command1); },
         [](MainForm*, QWidget* w) { return static_cast<EventEdit*>(w)->EventsChanged; }},
    };
}

// Where the ROM's bytes must be after the fault.
enum class Survives {
    AtItsName,           // the ROM file, unchanged
    InTheBackup,         // the .BAK file; the ROM's name is free
    AsTheOtherFileLeft,  // the file now at the ROM's name is left exactly as found
    NowhereToWrite,      // the ROM is gone; the older backup is untouched
};

struct Fault {
    const char* name;
    bool backup;     // the backup question answered Yes
    QString told;    // a part of the warning
    Survives where;  // where the ROM's bytes are afterwards
    bool olderBackupKept;
    // Runs just before the save button is pressed; what it returns runs
    // right after (and lifts a limit that must not outlive the save).
    std::function<std::function<void()>(const QString& rom, const QString& folder)> arrange;
};

std::function<void()> Nothing() {
    return [] {};
}

std::function<void()> Inject(std::initializer_list<std::pair<FileOps::Op, int>> faults) {
    for (const auto& [op, nth] : faults)
        FileOps::FailOn(op, nth);
    return [] { FileOps::ClearFaults(); };
}

std::function<void()> Limit(rlim_t bytes) {
    auto limit = std::make_shared<TestFiles::FileSizeLimit>(bytes);
    return [limit]() mutable { limit.reset(); };
}

std::vector<Fault> Faults(qint64 romSize) {
    using Op = FileOps::Op;
    return {
        {"read-only ROM", false, QStringLiteral("could not be written"), Survives::AtItsName, true,
         [](const QString&, const QString&) {
             return Inject({{Op::Write, 1}});
         }},
        {"ROM deleted", true, QStringLiteral("no longer there"), Survives::NowhereToWrite, true,
         [](const QString& rom, const QString&) {
             QFile::remove(rom);
             return Nothing();
         }},
        {"ROM replaced by a shorter file", true, QStringLiteral("bytes long"),
         Survives::AsTheOtherFileLeft, true,
         [romSize](const QString& rom, const QString&) {
             TestFiles::Write(rom, QByteArray(romSize - 1, '\x11'));
             return Nothing();
         }},
        {"ROM grown", true, QStringLiteral("bytes long"), Survives::AsTheOtherFileLeft, true,
         [romSize](const QString& rom, const QString&) {
             TestFiles::Write(rom, QByteArray(romSize + 512, '\x22'));
             return Nothing();
         }},
        // A folder in the place of the temporary copy: nothing can be written
        // there, for any user.
        {"no temporary copy possible in the program folder", true, QStringLiteral("temp.twy"),
         Survives::AtItsName, false,
         [](const QString&, const QString& folder) {
             QDir(folder).mkdir(QStringLiteral("temp.twy"));
             return Nothing();
         }},
        {"backup step 1", true, QStringLiteral("old backup"), Survives::AtItsName, true,
         [](const QString&, const QString&) {
             return Inject({{Op::Remove, 1}});
         }},
        {"backup step 2", true, QStringLiteral("could not be copied"), Survives::AtItsName, false,
         [](const QString&, const QString&) {
             return Inject({{Op::Copy, 1}});
         }},
        {"backup step 3", true, QStringLiteral("could not be renamed"), Survives::AtItsName, false,
         [](const QString&, const QString&) {
             return Inject({{Op::Rename, 1}});
         }},
        {"backup step 4", true, QStringLiteral("written back"), Survives::AtItsName, false,
         [](const QString&, const QString&) {
             return Inject({{Op::Copy, 2}});
         }},
        {"backup step 4, no way back", true, QStringLiteral("Your ROM is now the file"),
         Survives::InTheBackup, false,
         [](const QString&, const QString&) {
             return Inject({{Op::Copy, 2}, {Op::Rename, 2}});
         }},
        {"disk full during the backup", true, QStringLiteral("could not be copied"),
         Survives::AtItsName, false,
         [romSize](const QString&, const QString&) { return Limit(romSize / 2); }},
        {"disk full during the write", false, QStringLiteral("could not be written"),
         Survives::AtItsName, true, [](const QString&, const QString&) { return Limit(1); }},
    };
}

}  // namespace

class FileFaultTest : public AppTest {
protected:
    void TearDown() override {
        FileOps::ClearFaults();
        AppTest::TearDown();
    }
    // Answers Yes to whatever the next step asks, and forgets the answer after.
    template <typename Step>
    void Confirmed(Step step) {
        Script.Clear();
        Script.AnswerYes();
        step();
        Script.Clear();
    }
};

TEST_F(FileFaultTest, EverySaverSurvivesEveryFileFaultWithTheRomWhole) {
    MainForm* form = StartUp(FaultProject());
    ASSERT_NE(form, nullptr);
    const QString rom = Defines.RomPath;
    const QString bak = rom + QStringLiteral(".BAK");
    const QString temp = QDir(Folder()).filePath(QStringLiteral("temp.twy"));
    const QByteArray original = ReadFile(rom);
    const QStringList confirmations = {
        QStringLiteral("Your changes to the map have been saved!"),
        QStringLiteral("Your changes to the warps have been saved!"),
        QStringLiteral("Your changes to the wild Morlick have been saved!"),
        QStringLiteral("Your changes to the Events have been saved!")};

    for (const Saver& saver : Savers()) {
        for (const Fault& fault : Faults(original.size())) {
            SCOPED_TRACE(std::string(saver.name) + ", " + fault.name);
            // The disk as the user left it, and the map read afresh.
            QDir(temp).removeRecursively();
            QFile::remove(temp);
            ASSERT_TRUE(TestFiles::Write(rom, original));
            ASSERT_TRUE(TestFiles::Write(bak, OlderBackup));
            Confirmed([&] { GoTo(form, 0, 0); });
            QWidget* window = saver.openAndEdit(form);
            if (QString::fromLatin1(saver.name) != QStringLiteral("map")) {
                ASSERT_NE(window, nullptr);
            }
            ASSERT_TRUE(saver.changed(form, window));

            Script.Clear();
            if (fault.backup) Script.AnswerYes();
            const QByteArray found = [&] {
                const auto undo = fault.arrange(rom, Folder());
                const QByteArray onDisk = ReadFile(rom);
                saver.save(form, window);
                undo();
                return onDisk;
            }();

            const QString transcript = Script.Texts().join(QStringLiteral(" | "));
            ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1) << transcript.toStdString();
            EXPECT_TRUE(Script.Transcript().back().text.contains(fault.told))
                << transcript.toStdString();
            for (const QString& text : confirmations)
                EXPECT_EQ(Script.Count(text), 0);
            EXPECT_TRUE(saver.changed(form, window));
            switch (fault.where) {
                case Survives::AtItsName:
                    EXPECT_EQ(ReadFile(rom), original);
                    break;
                case Survives::InTheBackup:
                    EXPECT_FALSE(QFile::exists(rom));
                    EXPECT_EQ(ReadFile(bak), original);
                    break;
                case Survives::AsTheOtherFileLeft:
                    EXPECT_EQ(ReadFile(rom), found);
                    break;
                case Survives::NowhereToWrite:
                    EXPECT_FALSE(QFile::exists(rom));
                    break;
            }
            if (fault.olderBackupKept) {
                EXPECT_EQ(ReadFile(bak), OlderBackup);
            }

            if (window) {
                Confirmed([&] { window->close(); });
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            }
        }
    }
}
