#include <QDir>
#include <QTest>

#include "core/defines.h"
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

TEST_F(StartupTest, CancellingTheFirstDialogEndsWithNoWindowAndNoFile) {
    const QStringList before = QDir(Folder()).entryList(QDir::Files);
    Script.CancelFile();
    Program::Main();
    EXPECT_TRUE(Program::Ended());
    EXPECT_EQ(Program::ExitStatus(), 0);
    EXPECT_EQ(Program::MainWindow(), nullptr);
    for (QWidget* w : QApplication::topLevelWidgets())
        EXPECT_FALSE(w->isVisible()) << w->windowTitle().toStdString();
    ASSERT_EQ(Script.Transcript().size(), 1u);
    EXPECT_EQ(Script.Transcript()[0].kind, ScriptedDialogs::Kind::OpenFile);
    EXPECT_EQ(Script.Transcript()[0].title, QStringLiteral("Tarnwey - Open ROM File"));
    EXPECT_EQ(Script.Transcript()[0].folder, Folder());
    EXPECT_EQ(QDir(Folder()).entryList(QDir::Files), before);
}

TEST_F(StartupTest, StartUpFillsTheListsAndLoadsTheFirstMap) {
    const Fixture::SmallProject project = TwoTilesetProject();
    const QString rom = project.Write(Folder());
    Script.ChooseFile(rom);
    Program::Main();
    VersionSelect* version = Program::VersionSelectForm();
    ASSERT_NE(version, nullptr);
    EXPECT_TRUE(version->isVisible());
    EXPECT_EQ(version->windowTitle(), QStringLiteral("Tarnwey"));
    EXPECT_EQ(version->Client()->size(), QSize(258, 153));
    EXPECT_EQ(version->VersionList->count(), 2);
    EXPECT_EQ(version->VersionList->item(1)->text(), QStringLiteral("Morlick Blue (English)"));
    EXPECT_FALSE(version->windowFlags() & Qt::WindowCloseButtonHint);
    // A row is selected from the start, so OK always has a version to take.
    EXPECT_EQ(version->VersionList->selectedItems().size(), 1);
    EXPECT_EQ(Defines.RomPath, rom);

    version->Command1_Click();
    EXPECT_EQ(version->TilesetFile, QStringLiteral("TilesetsR.twy"));
    EXPECT_FALSE(version->isVisible());
    Splash* splash = Program::SplashForm();
    ASSERT_NE(splash, nullptr);
    EXPECT_TRUE(splash->isVisible());
    EXPECT_TRUE(splash->Timer1->Enabled());
    // The tick comes from the event loop, once.
    QTRY_VERIFY(Program::MainWindow() != nullptr);
    EXPECT_FALSE(splash->Timer1->Enabled());
    MainForm* form = Program::MainWindow();
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(splash->isVisible());

    ASSERT_EQ(form->CatList->count(), 2);
    EXPECT_EQ(form->CatList->currentRow(), 0);
    EXPECT_EQ(form->MapList->count(), 2);
    EXPECT_EQ(form->MapList->item(0)->text(), QStringLiteral("Brindle, the old town"));
    EXPECT_EQ(form->MapComment->text(), QStringLiteral("Note of Brindle, the old town"));
    EXPECT_EQ(Defines.CurMap, 0);
    EXPECT_EQ(Defines.MapWidth, 10);
    EXPECT_EQ(Defines.MapHeight, 7);
    EXPECT_EQ(Defines.MapGrid[7][10], (10 + 7) % 21);
    EXPECT_EQ(Defines.CategoryCount, 1);
    EXPECT_EQ(Script.Unanswered(), 0);
}

// A ROM from the command line stands for the first open dialog only; the
// version question follows as after the dialog.
TEST_F(StartupTest, ARomGivenAtStartIsTakenInsteadOfTheFirstDialog) {
    const QString rom = TwoTilesetProject().Write(Folder());
    Program::Main(rom);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::OpenFile), 0);
    EXPECT_EQ(Defines.RomPath, rom);
    ASSERT_NE(Program::VersionSelectForm(), nullptr);
    EXPECT_TRUE(Program::VersionSelectForm()->isVisible());
    Script.CancelFile();
    Program::UnloadForNewPass();
    Program::Main();
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::OpenFile), 1);
}

TEST_F(StartupTest, TheBlueVersionReadsItsOwnTilesetFile) {
    Fixture::SmallProject project = TwoTilesetProject();
    const QString rom = project.Write(Folder());
    // Make the Blue tileset file name the second tileset's blocks as tileset 0.
    std::vector<Fixture::TilesetRow> blue = {project.Tilesets[1], project.Tilesets[0]};
    QFile file(PathOf(QStringLiteral("TilesetsB.twy")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(Fixture::TilesetFileText(blue));
    file.close();
    ASSERT_NE(StartUp(rom, 1), nullptr);
    EXPECT_EQ(Program::VersionSelectForm()->TilesetFile, QStringLiteral("TilesetsB.twy"));
    EXPECT_EQ(Defines.BlockTiles[0][0], 50);
}

TEST_F(StartupTest, AMissingDataFileIsNamedAndEndsTheProgram) {
    const QString rom = TwoTilesetProject().Write(Folder());
    QFile::remove(PathOf(QStringLiteral("Maps.twy")));
    EXPECT_EQ(StartUp(rom), nullptr);
    EXPECT_TRUE(Program::Ended());
    EXPECT_EQ(Program::ExitStatus(), 1);
    ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("Maps.twy")));
}

TEST_F(StartupTest, ADamagedTilesetFileIsNamedAndEndsTheProgram) {
    const QString rom = TwoTilesetProject().Write(Folder());
    QFile file(PathOf(QStringLiteral("TilesetsR.twy")));
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("\"Half\",0,93\n");  // a record that ends after three of its seven fields
    file.close();
    EXPECT_EQ(StartUp(rom), nullptr);
    ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("TilesetsR.twy")));
}

TEST_F(StartupTest, AMapOutsideTheRomIsToldAndTheWindowStaysUsable) {
    Fixture::SmallProject project = TwoTilesetProject();
    project.Map(0).GridPos = 64 * 1024 - 10;  // 70 squares from 10 bytes before the end
    MainForm* form = StartUp(project);
    ASSERT_NE(form, nullptr);
    EXPECT_FALSE(form->MapLoaded());
    ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("outside")));
    // Saving without a map does nothing but beep; another map still loads.
    form->mnuSave->trigger();
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Beep), 1);
    GoTo(form, 0, 1);
    EXPECT_TRUE(form->MapLoaded());
    EXPECT_EQ(Defines.MapWidth, 3);
}

TEST_F(StartupTest, AVanishedRomIsToldOnGoAndTheLoadedMapStays) {
    MainForm* form = StartUp(TwoTilesetProject());
    ASSERT_NE(form, nullptr);
    PressCell(form->View->MapTile, 0);
    const std::int16_t painted = Defines.MapGrid[1][1];
    QFile::remove(Defines.RomPath);
    Script.AnswerYes();  // discard the changes and go
    GoTo(form, 0, 1);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    EXPECT_EQ(Defines.CurMap, 0);
    EXPECT_EQ(Defines.MapWidth, 10);
    // The go did not happen, so the painted square is still unsaved work: the
    // window still knows of it and can undo it, and leaving asks about it.
    EXPECT_EQ(Defines.MapGrid[1][1], painted);
    EXPECT_TRUE(form->MapChanged);
    EXPECT_TRUE(form->mnuUndo->isEnabled());
    EXPECT_EQ(form->Undo.UndoCount(), 1);
    Script.AnswerNo();  // stay
    form->mnuExit->trigger();
    EXPECT_EQ(Script.Count(QStringLiteral("Exit without saving the changes you have made?")), 1);
}

TEST_F(StartupTest, FileOpenRunsStartUpAgainWithTheEarlierVersionChosen) {
    const QString rom = TwoTilesetProject().Write(Folder());
    MainForm* form = StartUp(rom, 1);
    ASSERT_NE(form, nullptr);
    Script.ChooseFile(rom);
    form->mnuOpen->trigger();
    EXPECT_EQ(Script.Count(QStringLiteral("Discard the changes you have made?")), 0);
    EXPECT_FALSE(form->isVisible());
    VersionSelect* version = Program::VersionSelectForm();
    ASSERT_NE(version, nullptr);
    EXPECT_TRUE(version->isVisible());
    EXPECT_EQ(version->VersionList->currentRow(), 1);
    version->Command1_Click();  // no new click on the list
    EXPECT_EQ(version->TilesetFile, QStringLiteral("TilesetsB.twy"));
    Program::SplashForm()->Timer1_Timer();
    MainForm* second = Program::MainWindow();
    ASSERT_NE(second, nullptr);
    EXPECT_NE(second, form);
    EXPECT_FALSE(second->mnuUndo->isEnabled());
    EXPECT_FALSE(second->mnuWildEdit->isEnabled());
    EXPECT_TRUE(second->mnuWarpEdit->isEnabled());
    // No exit question came from taking the first window down.
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Question), 0);
}

// With changes made, File Open asks first: No keeps the window and its
// changes; Yes goes on to the chooser, whose Cancel ends the program.
TEST_F(StartupTest, FileOpenWithChangesAsksBeforeStartingAgain) {
    MainForm* form = StartUp(TwoTilesetProject());
    ASSERT_NE(form, nullptr);
    PressCell(form->View->MapTile, 0);
    Script.AnswerNo();
    form->mnuOpen->trigger();
    EXPECT_EQ(Program::MainWindow(), form);
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(form->MapChanged);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::OpenFile), 1);  // only the first start

    Script.AnswerYes();
    Script.CancelFile();
    form->mnuOpen->trigger();
    EXPECT_EQ(Script.Count(QStringLiteral("Discard the changes you have made?")), 2);
    EXPECT_TRUE(Program::Ended());
    EXPECT_EQ(Program::ExitStatus(), 0);
    EXPECT_EQ(Program::MainWindow(), nullptr);
}
