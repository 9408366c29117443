#include <QApplication>
#include <QFile>
#include <QTest>

#include "blockedit/blockedit.h"
#include "core/defines.h"
#include "mapview/compose.h"
#include "mapview/tiles.h"
#include "startup/program.h"
#include "support/apptest.h"

namespace {

// Tilesets chosen for the block editor's edges, one map on each, map row
// equal to tileset row.
enum Set { Plain, OneBlock, FullSet, NarrowChooser, SetCount };

Fixture::SmallProject BlockProject() {
    Fixture::SmallProject project;
    project.AddTileset(20, 0);                        // Plain: 21 blocks, bias 0
    project.AddTileset(0, 1);                         // OneBlock: BlockCount 0, bias 1
    project.AddTileset(255, 0, 0, [](int b, int t) {  // FullSet: BlockCount 255
        return (b + t) % 90 + 1;
    });
    project.Tileset(FullSet).LastTile = 200;          // more tiles than the chooser's 160 cells
    project.AddTileset(1, 0, 100, [](int b, int t) {  // NarrowChooser: 96 tiles
        if (b == 0 && t == 3) return 160;             // the first past the chooser
        return t + 1;
    });
    project.Tileset(NarrowChooser).LastTile = 95;
    const int cat = project.AddCategory(QStringLiteral("Blocks"), 0);
    for (int set = 0; set < SetCount; ++set)
        project.AddMap(cat, QStringLiteral("Map %1").arg(set), 3, 2, set,
                       [](int x, int y) { return (x + y) % 2; });
    return project;
}

const QString DiscardQuestion = QStringLiteral("Discard the changes you have made?");

}  // namespace

class BlockEditTest : public AppTest {
protected:
    // Starts on the project, goes to the map of a tileset and opens the editor.
    BlockEdit* Open(int set) {
        Form = StartUp(Project);
        if (!Form) return nullptr;
        if (set != 0) GoTo(Form, 0, set);
        return OpenAgain();
    }
    BlockEdit* OpenAgain() {
        Form->mnuBlockEdit->trigger();
        return ShownWindow<BlockEdit>(Form);
    }
    // Saves, answering the backup question No.
    void Save(BlockEdit* editor) {
        Script.AnswerNo();
        QTest::mouseClick(editor->SaveBlock, Qt::LeftButton);
    }
    void SetTile(BlockEdit* editor, int tile, int place) {
        PressCell(editor->TileSel, tile);
        PressCell(editor->Block, place);
    }

    Fixture::SmallProject Project = BlockProject();
    MainForm* Form = nullptr;
};

TEST_F(BlockEditTest, SaveRewritesExactlyTheTilesetsBlockArea) {
    for (const auto& [set, lastHex] : {std::pair{OneBlock, "01"}, std::pair{FullSet, "FF"}}) {
        SCOPED_TRACE(set);
        BlockEdit* editor = Open(set);
        ASSERT_NE(editor, nullptr);
        const int first = Project.Tileset(set).BlockPos;
        const int blocks = Project.Tileset(set).LastBlock + 1;
        const int last = first + 16 * blocks - 1;
        // Behind the editor's back, the ROM changes at both ends of the area
        // and just outside it: the save puts back the area, and only the area,
        // from what it read.
        const QByteArray read = ReadFile(Defines.RomPath);
        for (const int p : {first - 1, first, last, last + 1})
            PutRomByte(p, 0xEE);
        const QByteArray before = ReadFile(Defines.RomPath);

        // The lowest slot of the palette, then tile 0 into place 6: a zero byte.
        editor->Scroll->setValue(editor->Scroll->maximum());
        PressCell(editor->SideBlock, 16 * std::min(3, blocks - 1) + 2);
        const int block = editor->EditBlock;
        EXPECT_EQ(block, blocks - 1);
        EXPECT_EQ(editor->BlockHex->text(), QStringLiteral("Building Block Hex Value: ") + lastHex);
        SetTile(editor, 0, 6);
        Save(editor);
        EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Information), 0);  // no message
        EXPECT_FALSE(editor->BlockChanged);
        EXPECT_EQ(editor->TileHex->text(), QStringLiteral("Tile Hex Value: 00"));
        const QByteArray after = ReadFile(Defines.RomPath);
        const int changed = first + 16 * block + 6;
        EXPECT_EQ(Differences(before, after), (std::vector<int>{first, changed, last}));
        EXPECT_EQ(after[changed - 1], 0);
        EXPECT_EQ(after[first - 1], read[first - 1]);
        EXPECT_EQ(after[last - 1], read[last - 1]);
        EXPECT_TRUE(CloseWindow(editor));
        Program::Reset();
        Script.Clear();
    }
}

// A scroll reloads the buffer from the block under the frame, so its save
// changes nothing; the closing question comes only with unsaved changes; a
// save of a changed block shows in the main window, which keeps its own
// painting.
TEST_F(BlockEditTest, TheMainWindowShowsTheSavedBlockAndKeepsItsOwnPainting) {
    Form = StartUp(Project);
    ASSERT_NE(Form, nullptr);
    const QByteArray before = ReadFile(Defines.RomPath);
    // Paint square (1, 1) with block 1; square (2, 1) holds block 1 from the ROM.
    PressCell(Form->SideBlock, 16);
    PressCell(Form->View->MapTile, 0);
    BlockEdit* editor = OpenAgain();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->windowTitle(), QStringLiteral("Tarnwey - Building Block Editor"));
    // Choosing tiles and picking a place's tile is no change; setting a
    // place with the tile it already holds is one.
    PressCell(editor->TileSel, 9);
    PressCell(editor->Block, 3, Qt::RightButton);
    EXPECT_FALSE(editor->BlockChanged);
    PressCell(editor->Block, 3);
    Script.AnswerNo();
    EXPECT_FALSE(CloseWindow(editor));
    EXPECT_EQ(Script.Count(DiscardQuestion), 1);
    editor->Scroll->setValue(2);
    EXPECT_EQ(editor->EditBlock, 2);
    EXPECT_EQ(editor->EditTiles, Defines.BlockTiles[2]);
    EXPECT_EQ(editor->Block->Picture(0), TilePicture(TileIndex(Defines.BlockTiles[2][0])));
    EXPECT_TRUE(editor->BlockChanged);
    Save(editor);
    EXPECT_EQ(ReadFile(Defines.RomPath), before);

    editor->Scroll->setValue(0);
    PressCell(editor->SideBlock, 16);  // block 1
    SetTile(editor, 77, 5);
    Save(editor);
    EXPECT_EQ(Differences(before, ReadFile(Defines.RomPath)),
              (std::vector<int>{Project.Tileset(Plain).BlockPos + 16 + 5}));
    EXPECT_TRUE(CloseWindow(editor));
    ASSERT_TRUE(Form->isVisible());
    EXPECT_TRUE(Form->MapChanged);
    for (const int slot : {0, 1})  // squares (1, 1) and (2, 1)
        EXPECT_EQ(Form->View->MapTile->Picture(16 * slot + 5), TilePicture(TileIndex(77)));
    EXPECT_EQ(Form->SideBlock->Picture(16 + 5), TilePicture(TileIndex(77)));
    EXPECT_EQ(Script.Count(DiscardQuestion), 1);
}

// Two blocks and 96 tiles: the palette and the chooser show only what the
// tileset has, and a tile past the chooser is picked without a frame.
TEST_F(BlockEditTest, TheChooserShowsOnlyTheTilesetsTiles) {
    BlockEdit* editor = Open(NarrowChooser);
    ASSERT_NE(editor, nullptr);
    for (int i = 0; i < 64; ++i)
        EXPECT_EQ(editor->SideBlock->CellVisible(i), i < 32) << i;
    PressCell(editor->SideBlock, 16 * 3);  // an empty slot takes no press
    EXPECT_EQ(editor->SelBorder->TopTwips(), 120);
    for (int i = 0; i < 160; ++i) {
        ASSERT_EQ(editor->TileSel->CellVisible(i), i <= 95) << i;
        if (i <= 95) {
            ASSERT_EQ(editor->TileSel->Picture(i), TilePicture(100 + i)) << i;
        }
    }
    PressCell(editor->TileSel, 93);
    PressCell(editor->TileSel, 100);  // hidden: the press reaches no tile
    EXPECT_EQ(editor->SelTile, 93);
    EXPECT_EQ(editor->TileHex->text(), QStringLiteral("Tile Hex Value: 5D"));
    EXPECT_EQ(editor->TileBorder->LeftTwips(), 1440 + 13 * 240);
    EXPECT_EQ(editor->TileBorder->TopTwips(), 1200 + 5 * 240);
    EXPECT_EQ(editor->BigTile->Picture(0), TilePicture(193));

    // Place 3 holds tile 160, the first past the chooser: the tile is picked and named,
    // there is no cell to frame, and the user hears it.
    PressCell(editor->Block, 3, Qt::RightButton);
    EXPECT_EQ(editor->SelTile, 160);
    EXPECT_EQ(editor->TileHex->text(), QStringLiteral("Tile Hex Value: A0"));
    EXPECT_FALSE(editor->TileBorder->isVisible());
    EXPECT_EQ(editor->BigTile->Picture(0), nullptr);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Beep), 1);
    EXPECT_FALSE(editor->BlockChanged);
    // Set into place 0 of block 1, it draws as the map does and saves as byte 160.
    PressCell(editor->SideBlock, 16 + 4);
    EXPECT_EQ(editor->SelBorder->TopTwips(), 1080);
    PressCell(editor->Block, 0);
    EXPECT_EQ(editor->Block->Picture(0), TilePicture(260));
    Save(editor);
    EXPECT_EQ(ReadFile(Defines.RomPath)[Project.Tileset(NarrowChooser).BlockPos + 16 - 1],
              static_cast<char>(160));
    // A chooser press brings the frame back.
    PressCell(editor->TileSel, 2);
    EXPECT_TRUE(editor->TileBorder->isVisible());
}
