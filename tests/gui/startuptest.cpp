#include <QDir>
#include <QTest>

#include "core/defines.h"
#include "fixture/project.h"
#include "fixture/tilesetfile.h"
#include "startup/program.h"
#include "startup/splash.h"
#include "startup/versionselect.h"
#include "support/apptest.h"

namespace {
// Two tilesets whose blocks lie at different places, and a map on the first.
Fixture::SmallProject TwoTilesetProject() {
    Fixture::SmallProject project;
    project.AddTileset(20, 0);
    project.AddTileset(20, 0, 0, [](int b, int t) { return (b + t + 50) % 94; });
    const int towns = project.AddCategory(QStringLiteral("Towns"), 0);
    project.AddMap(towns, QStringLiteral("Brindle, the old town"), 10, 7, 0,
                   [](int x, int y) { return (x + y) % 21; });
    project.AddMap(towns, QStringLiteral("Quay"), 3, 2, 1, [](int, int) { return 4; });
    project.AddCategory(QStringLiteral("Empty"), 2);
    return project;
}
}  // namespace

class StartupTest : public AppTest {};

// At the first start, Cancel in the open dialog ends the program with no
// window and no file made. A data file or a ROM that cannot be read is named;
// the open dialog then comes again, and its Cancel ends the program.
TEST_F(StartupTest, AtTheFirstStartCancelEndsAndAnUnreadableRomAsksForAnotherOne) {
    Script.CancelFile();
    Program::Main();
    EXPECT_TRUE(Program::Ended());
    EXPECT_EQ(Program::ExitStatus(), 0);
    EXPECT_EQ(Program::MainWindow(), nullptr);
    for (QWidget* w : QApplication::topLevelWidgets())
        EXPECT_FALSE(w->isVisible()) << w->windowTitle().toStdString();
    ASSERT_EQ(Script.Transcript().size(), 1u);
    EXPECT_EQ(Script.Transcript()[0].title, QStringLiteral("Tarnwey - Open ROM File"));
    EXPECT_EQ(Script.Transcript()[0].folder, Folder());
    EXPECT_TRUE(QDir(Folder()).isEmpty());

    for (const char* named : {"Maps.twy", "TilesetsR.twy", "outside"}) {
        SCOPED_TRACE(named);
        Program::Reset();
        Script.Clear();
        Fixture::SmallProject project = TwoTilesetProject();
        if (named[0] == 'o') project.Map(0).GridPos = 64 * 1024 - 10;  // 10 bytes before the end
        const QString rom = project.Write(Folder());
        if (named[0] == 'M') QFile::remove(PathOf(QStringLiteral("Maps.twy")));
        // A record that ends after three of its seven fields.
        if (named[0] == 'T') {
            const QString file = PathOf(QString::fromLatin1(named));
            ASSERT_TRUE(Fixture::WriteFile(file, ReadFile(file) + "\"Half\",0,93\n"));
        }
        EXPECT_EQ(StartUp(rom), nullptr);
        EXPECT_TRUE(Program::Ended());
        ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
        EXPECT_TRUE(Script.Texts().join(u'|').contains(QString::fromLatin1(named)))
            << Script.Texts().join(u'|').toStdString();
        EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::OpenFile), 2);
        EXPECT_EQ(Program::ExitStatus(), 1);
    }
}

// A ROM from the command line stands for the first open dialog only: the
// version question follows as after the dialog, and when that ROM cannot be
// read the dialog comes after all. OK takes the selected version; the splash
// shows until the timer's tick comes from the event loop, once, and the main
// window opens with the lists filled and the first map loaded.
TEST_F(StartupTest, ARomGivenAtStartIsTakenInsteadOfTheFirstDialog) {
    const QString rom = TwoTilesetProject().Write(Folder());
    const QString notRom = PathOf(QStringLiteral("notes.txt"));
    ASSERT_TRUE(Fixture::WriteFile(notRom, "no ROM\n"));
    Program::Main(notRom);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::OpenFile), 0);
    EXPECT_EQ(Defines.RomPath, notRom);
    ASSERT_TRUE(Program::VersionSelectForm()->isVisible());
    Script.ChooseFile(rom);
    Program::VersionSelectForm()->Command1_Click();
    Program::SplashForm()->Timer1_Timer();
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::OpenFile), 1);
    EXPECT_EQ(Defines.RomPath, rom);

    VersionSelect* version = Program::VersionSelectForm();
    ASSERT_TRUE(version->isVisible());
    EXPECT_EQ(version->windowTitle(), QStringLiteral("Tarnwey"));
    EXPECT_EQ(version->Client()->size(), QSize(258, 153));
    EXPECT_EQ(version->VersionList->count(), 2);
    EXPECT_EQ(version->VersionList->item(1)->text(), QStringLiteral("Morlick Blue (English)"));
    EXPECT_FALSE(version->windowFlags() & Qt::WindowCloseButtonHint);
    // A row is selected from the start, so OK always has a version to take.
    EXPECT_EQ(version->VersionList->selectedItems().size(), 1);
    version->Command1_Click();
    EXPECT_EQ(version->TilesetFile, QStringLiteral("TilesetsR.twy"));
    EXPECT_FALSE(version->isVisible());
    Splash* splash = Program::SplashForm();
    EXPECT_TRUE(splash->isVisible());
    EXPECT_TRUE(splash->Timer1->Enabled());
    QTRY_VERIFY(Program::MainWindow() != nullptr);
    EXPECT_FALSE(splash->Timer1->Enabled());
    EXPECT_FALSE(splash->isVisible());
    MainForm* form = Program::MainWindow();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(Program::ExitStatus(), 0);

    ASSERT_EQ(form->CatList->count(), 2);
    EXPECT_EQ(form->CatList->currentRow(), 0);
    EXPECT_EQ(form->MapList->count(), 2);
    EXPECT_EQ(form->MapList->item(0)->text(), QStringLiteral("Brindle, the old town"));
    EXPECT_EQ(form->MapComment->text(), QStringLiteral("Note of Brindle, the old town"));
    EXPECT_EQ(Defines.MapGrid[7][10], (10 + 7) % 21);
    EXPECT_EQ(Script.Unanswered(), 0);
}

// With changes made, File Open asks first: No keeps the window and its
// changes. A Cancel in the dialog, a closed version question, or a ROM that
// cannot be read all come back to the ROM open before, as it was; so does a
// "Go" after the ROM vanished, which is told. A File Open that goes through
// runs start-up again with the earlier version chosen.
TEST_F(StartupTest, FileOpenNeverLeavesTheUserWorseOff) {
    Fixture::SmallProject project = TwoTilesetProject();
    const QString rom = project.Write(Folder());
    // The Blue tileset file names the second tileset's blocks as tileset 0.
    ASSERT_TRUE(
        Fixture::WriteFile(PathOf(QStringLiteral("TilesetsB.twy")),
                           Fixture::TilesetFileText({project.Tilesets[1], project.Tilesets[0]})));
    MainForm* form = StartUp(rom, 1);
    ASSERT_NE(form, nullptr);
    GoTo(form, 0, 1);
    PressCell(form->View->MapTile, 0);
    Script.AnswerNo();
    form->mnuOpen->trigger();
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::OpenFile), 1);  // only the first start

    const QString notRom = PathOf(QStringLiteral("tarnwey.desktop"));
    ASSERT_TRUE(Fixture::WriteFile(notRom, "[Desktop Entry]\nName=Tarnwey\n"));
    for (const int way : {0, 1, 2, 3}) {
        SCOPED_TRACE(way);
        Script.AnswerYes();  // discard the changes
        if (way == 3) {
            ASSERT_TRUE(QFile::rename(rom, rom + QStringLiteral(".gone")));
            GoTo(form, 0, 0);
            ASSERT_TRUE(QFile::rename(rom + QStringLiteral(".gone"), rom));
        } else if (way == 0) {
            Script.CancelFile();
            form->mnuOpen->trigger();
        } else {
            Script.ChooseFile(notRom);
            form->mnuOpen->trigger();
            VersionSelect* version = Program::VersionSelectForm();
            ASSERT_TRUE(version->isVisible());
            if (way == 1) {
                version->close();
            } else {
                version->Command1_Click();
                Program::SplashForm()->Timer1_Timer();
                EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("outside")));
            }
        }
        EXPECT_FALSE(Program::Ended());
        EXPECT_EQ(Program::MainWindow(), form);
        EXPECT_TRUE(form->isVisible());
        EXPECT_FALSE(Program::VersionSelectForm()->isVisible());
        EXPECT_EQ(Defines.RomPath, rom);
        EXPECT_EQ(Defines.CurMap, 1);
        EXPECT_EQ(Defines.MapGrid[1][1], 0);  // painted with block 0 over 4
        EXPECT_TRUE(form->MapChanged);
        EXPECT_EQ(form->Undo.UndoCount(), 1);
    }
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 2);
    // The ROM open before is fully usable: its save writes the painting.
    Script.AnswerNo();  // no backup
    form->mnuSave->trigger();
    EXPECT_FALSE(form->MapChanged);
    EXPECT_EQ(ReadFile(rom).at(project.Map(1).GridPos - 1), 0);

    const int questions = Script.Count(ScriptedDialogs::Kind::Question);
    Script.ChooseFile(rom);
    form->mnuOpen->trigger();
    EXPECT_FALSE(form->isVisible());
    VersionSelect* version = Program::VersionSelectForm();
    EXPECT_EQ(version->VersionList->currentRow(), 1);
    version->Command1_Click();  // no new click on the list
    EXPECT_EQ(version->TilesetFile, QStringLiteral("TilesetsB.twy"));
    Program::SplashForm()->Timer1_Timer();
    MainForm* second = Program::MainWindow();
    ASSERT_NE(second, nullptr);
    EXPECT_NE(second, form);
    EXPECT_EQ(Defines.BlockTiles[0][0], 50);
    EXPECT_FALSE(second->mnuUndo->isEnabled());
    // Nothing was unsaved, and taking the first window down asked nothing.
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Question), questions);
}
