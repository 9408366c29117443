#include "core/defines.h"
#include "demo/demoproject.h"
#include "fixture/datafilenames.h"
#include "fixture/project.h"
#include "startup/program.h"
#include "support/apptest.h"

class DemoTest : public AppTest {};

// Every map of the bundled demo, in both versions, can be reached through the
// lists and "Go" and shows blocks of its tileset, without a message.
TEST_F(DemoTest, EveryDemoMapOfBothVersionsLoadsThroughTheLists) {
    QString error;
    ASSERT_TRUE(Fixture::WriteProject(Fixture::DemoProject(), Folder(), &error))
        << error.toStdString();
    for (const char* rom : {Fixture::RomFileRed, Fixture::RomFileBlue}) {
        SCOPED_TRACE(rom);
        MainForm* form =
            StartUp(PathOf(QString::fromLatin1(rom)), rom == Fixture::RomFileRed ? 0 : 1);
        ASSERT_NE(form, nullptr) << Script.Texts().join(u'\n').toStdString();
        int maps = 0;
        for (int c = 0; c <= Defines.CategoryCount; ++c) {
            const auto& category = Defines.CategoryTable[c];
            for (int r = 0; r < category[CatMapCount].ToInt16(); ++r, ++maps) {
                GoTo(form, c, r);
                ASSERT_EQ(Defines.CurMap, category[CatFirstMap].ToInt16() + r);
                SCOPED_TRACE(CurMapRow()[MapName].ToText().toStdString());
                EXPECT_EQ(form->CurMapName->text(), CurMapRow()[MapName].ToText());
                for (int y = 1; y <= Defines.MapHeight; ++y)
                    for (int x = 1; x <= Defines.MapWidth; ++x)
                        ASSERT_TRUE(IsBlockRow(Defines.MapGrid[y][x]) &&
                                    Defines.MapGrid[y][x] <= Defines.BlockCount)
                            << x << "," << y;
            }
        }
        EXPECT_GE(maps, 8);
        EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 0)
            << Script.Texts().join(u'\n').toStdString();
        Program::Reset();
    }
}
