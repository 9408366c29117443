#include <QTest>

#include "core/defines.h"
#include "support/apptest.h"

namespace {
// Three categories: one of maps with editor data in different combinations,
// one with no maps, one more.
Fixture::SmallProject NavigationProject() {
    Fixture::SmallProject project;
    project.AddTileset(20, 0);
    const int places = project.AddCategory(QStringLiteral("Places"), 0);
    const int full =
        project.AddMap(places, QStringLiteral("Full"), 4, 4, 0, [](int, int) { return 3; });
    const int bare =
        project.AddMap(places, QStringLiteral("Bare"), 2, 2, 0, [](int, int) { return 4; });
    const int noWarps =
        project.AddMap(places, QStringLiteral("No warps"), 2, 2, 0, [](int, int) { return 5; });
    project.Map(full).WildPos = 0x100;
    project.Map(bare).ObjectPos = 1;
    project.Map(bare).EventsOk = false;
    project.Map(noWarps).WarpsOk = false;
    project.AddCategory(QStringLiteral("Nothing here"), 3);
    const int more = project.AddCategory(QStringLiteral("More, with a comma"), 10);
    project.AddMap(more, QStringLiteral("Far, away"), 5, 1, 0, [](int, int) { return 6; });
    return project;
}
}  // namespace

class NavigationTest : public AppTest {};

TEST_F(NavigationTest, GoSetsTheEditorCommandsFromTheMapRow) {
    MainForm* form = StartUp(NavigationProject());
    ASSERT_NE(form, nullptr);
    // The first map shows its own name and what its row allows from the start.
    EXPECT_TRUE(form->mnuWildEdit->isEnabled());
    EXPECT_EQ(form->CurMapName->text(), QStringLiteral("Full"));

    struct Case {
        int row;
        bool border, warps, wild, events;
    };
    for (const Case& c : {Case{0, true, true, true, true}, Case{1, false, false, false, false},
                          Case{2, true, false, false, true}, Case{0, true, true, true, true}}) {
        SCOPED_TRACE(c.row);
        GoTo(form, 0, c.row);
        EXPECT_EQ(Defines.CurMap, c.row);
        EXPECT_EQ(form->CurMapName->text(), Defines.MapTable[c.row][MapName].ToText());
        EXPECT_EQ(form->BorderBlock->isVisibleTo(form), c.border);
        EXPECT_EQ(form->Shape1->isVisibleTo(form), c.border);
        EXPECT_EQ(form->Label1->isVisibleTo(form), c.border);
        EXPECT_EQ(form->mnuWarpEdit->isEnabled(), c.warps);
        EXPECT_EQ(form->mnuWildEdit->isEnabled(), c.wild);
        EXPECT_EQ(form->mnuEventEdit->isEnabled(), c.events);
        EXPECT_TRUE(form->mnuBlockEdit->isEnabled());
    }
}

TEST_F(NavigationTest, BrowsingTheListsShowsTheNotesAndLoadsNothing) {
    MainForm* form = StartUp(NavigationProject());
    ASSERT_NE(form, nullptr);
    PressCell(form->View->MapTile, 0);
    ASSERT_TRUE(form->MapChanged);
    const int painted = Defines.MapGrid[1][1];
    PressRow(form->CatList, 2);
    EXPECT_EQ(Defines.CurCategory, 2);
    ASSERT_EQ(form->MapList->count(), 1);
    EXPECT_EQ(form->MapList->item(0)->text(), QStringLiteral("Far, away"));
    EXPECT_EQ(form->MapComment->text(), QStringLiteral("Note of Far, away"));
    PressRow(form->MapList, 0);
    EXPECT_EQ(form->MapComment->text(), QStringLiteral("Note of Far, away"));
    PressRow(form->CatList, 0);
    PressRow(form->MapList, 2);
    EXPECT_EQ(form->MapComment->text(), QStringLiteral("Note of No warps"));
    EXPECT_EQ(Defines.CurMap, 0);
    EXPECT_EQ(Defines.MapGrid[1][1], painted);
    EXPECT_TRUE(form->MapChanged);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Question), 0);
    // Keys move the selection without running the handler.
    form->CatList->setFocus();
    QTest::keyClick(form->CatList, Qt::Key_Down);
    EXPECT_EQ(form->CatList->currentRow(), 1);
    EXPECT_EQ(Defines.CurCategory, 0);
    EXPECT_EQ(form->MapList->count(), 3);
}

TEST_F(NavigationTest, GoOnACategoryWithoutMapsOnlyBeeps) {
    MainForm* form = StartUp(NavigationProject());
    ASSERT_NE(form, nullptr);
    PressRow(form->CatList, 1);
    EXPECT_EQ(form->MapList->count(), 0);
    form->Command2->click();
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Beep), 1);
    EXPECT_EQ(Defines.CurMap, 0);
    EXPECT_EQ(Defines.MapWidth, 4);
}

TEST_F(NavigationTest, DiscardQuestionGuardsGoBothWays) {
    MainForm* form = StartUp(NavigationProject());
    ASSERT_NE(form, nullptr);
    form->SideBlock_MouseDown(16 * 2, 1);  // block 2
    PressCell(form->View->MapTile, 0);
    ASSERT_EQ(Defines.MapGrid[1][1], 2);

    Script.AnswerNo();
    GoTo(form, 0, 1);
    EXPECT_EQ(Script.Count(QStringLiteral("Discard the changes you have made?")), 1);
    EXPECT_EQ(Defines.CurMap, 0);
    EXPECT_EQ(Defines.MapGrid[1][1], 2);
    EXPECT_TRUE(form->MapChanged);
    EXPECT_TRUE(form->mnuUndo->isEnabled());
    // The lists may now point at another map than the loaded one.
    EXPECT_EQ(form->MapList->currentRow(), 1);

    Script.AnswerYes();
    form->Command2->click();
    EXPECT_EQ(Script.Count(QStringLiteral("Discard the changes you have made?")), 2);
    EXPECT_EQ(Defines.CurMap, 1);
    EXPECT_FALSE(form->MapChanged);
    EXPECT_FALSE(form->mnuUndo->isEnabled());
    EXPECT_EQ(form->Undo.UndoCount(), 0);
    // Go without changes asks nothing.
    GoTo(form, 0, 0);
    EXPECT_EQ(Script.Count(QStringLiteral("Discard the changes you have made?")), 2);
    EXPECT_EQ(Defines.MapGrid[1][1], 3);
}
