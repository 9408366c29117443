#include <QDir>

#include "core/defines.h"
#include "demo/demoproject.h"
#include "fixture/datafilenames.h"
#include "fixture/project.h"
#include "startup/program.h"
#include "support/apptest.h"

// The bundled demo: every map of both versions can be reached through the
// lists and "Go", loads without a message, and offers the editors its row says.
class DemoTest : public AppTest {};

TEST_F(DemoTest, EveryDemoMapLoadsWithTheEditorsItsRowOffers) {
    QString error;
    ASSERT_TRUE(Fixture::WriteProject(Fixture::DemoProject(), Folder(), &error))
        << error.toStdString();
    for (int version = 0; version < 2; ++version) {
        SCOPED_TRACE(version);
        const QString rom =
            PathOf(QString::fromLatin1(version == 0 ? Fixture::RomFileRed : Fixture::RomFileBlue));
        MainForm* form = StartUp(rom, version);
        ASSERT_NE(form, nullptr) << Script.Texts().join(u'\n').toStdString();
        int maps = 0;
        for (int c = 0; c <= Defines.CategoryCount; ++c) {
            const int count = Defines.CategoryTable[c][CatMapCount].ToInt16();
            for (int r = 0; r < count; ++r) {
                GoTo(form, c, r);
                const auto& row = CurMapRow();
                SCOPED_TRACE(row[MapName].ToText().toStdString());
                ASSERT_TRUE(form->MapLoaded());
                ASSERT_EQ(Defines.CurMap, Defines.CategoryTable[c][CatFirstMap].ToInt16() + r);
                EXPECT_EQ(Defines.MapWidth, row[MapCols].ToInt16());
                EXPECT_EQ(form->mnuWarpEdit->isEnabled(),
                          row[MapObjectPos].ToInt32() != 1 && row[MapWarpsOk].IsTrue());
                EXPECT_EQ(form->mnuWildEdit->isEnabled(), row[MapWildPos].ToInt32() != 1);
                EXPECT_EQ(form->mnuEventEdit->isEnabled(), row[MapEventsOk].IsTrue());
                EXPECT_EQ(form->BorderBlock->isVisibleTo(form), row[MapObjectPos].ToInt32() != 1);
                // Every square names a block of the tileset.
                for (int y = 1; y <= Defines.MapHeight; ++y)
                    for (int x = 1; x <= Defines.MapWidth; ++x)
                        ASSERT_TRUE(Defines.MapGrid[y][x] >= 0 &&
                                    Defines.MapGrid[y][x] <= Defines.BlockCount)
                            << x << "," << y;
                ++maps;
            }
        }
        EXPECT_GE(maps, 8);
        EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 0)
            << Script.Texts().join(u'\n').toStdString();
        Program::Reset();
    }
}
