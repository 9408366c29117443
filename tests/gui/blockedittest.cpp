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
enum Set { Plain, OneBlock, FullSet, NarrowChooser, SharesPlain, SetCount };

Fixture::SmallProject BlockProject() {
    Fixture::SmallProject project;
    project.AddTileset(20, 0);                        // Plain: 21 blocks, bias 0
    project.AddTileset(0, 1);                         // OneBlock: BlockCount 0, bias 1
    project.AddTileset(255, 0, 0, [](int b, int t) {  // FullSet: BlockCount 255
        return (b + t) % 90 + 1;
    });
    project.AddTileset(1, 0, 100, [](int b, int t) {  // NarrowChooser: 96 tiles
        if (b == 0 && t == 3) return 160;             // the first past the chooser
        if (b == 0 && t == 4) return 120;             // a hidden chooser cell
        return t + 1;
    });
    project.Tileset(NarrowChooser).LastTile = 95;
    project.AddTileset(20, 0);  // SharesPlain: its block area is Plain's
    project.Tileset(SharesPlain).BlockPos = project.Tileset(Plain).BlockPos;
    const int cat = project.AddCategory(QStringLiteral("Blocks"), 0);
    for (int set = 0; set < SetCount; ++set)
        project.AddMap(cat, QStringLiteral("Map %1").arg(set), 3, 2, set,
                       [](int x, int y) { return (x + y) % 2; });
    return project;
}

QString DiscardQuestion() {
    return QStringLiteral("Discard the changes you have made?");
}

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
        BlockEdit* editor = nullptr;
        for (BlockEdit* e : Form->findChildren<BlockEdit*>())
            if (e->isVisible()) editor = e;
        return editor;
    }
    // Closes the editor as its close box does; true when it went.
    bool Close(BlockEdit* editor) {
        const bool closed = editor->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return closed;
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
    quint8 RomByte(int position) const {
        return static_cast<quint8>(ReadFile(Defines.RomPath)[position - 1]);
    }
    void PutRomByte(int position, quint8 value) {
        QFile file(Defines.RomPath);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.seek(position - 1);
        file.write(reinterpret_cast<const char*>(&value), 1);
    }

    Fixture::SmallProject Project = BlockProject();
    MainForm* Form = nullptr;
};

TEST_F(BlockEditTest, SaveRewritesExactlyTheTilesetsBlockArea) {
    for (const int set : {OneBlock, FullSet}) {
        SCOPED_TRACE(set);
        BlockEdit* editor = Open(set);
        ASSERT_NE(editor, nullptr);
        const int first = Project.Tileset(set).BlockPos;
        const int blocks = Project.Tileset(set).LastBlock + 1;
        const int last = first + 16 * blocks - 1;
        // Behind the editor's back, the ROM changes at both ends of the area
        // and just outside it: the save puts back the area, and only the area,
        // from what it read.
        const quint8 firstByte = RomByte(first);
        const quint8 lastByte = RomByte(last);
        for (const int p : {first - 1, first, last, last + 1})
            PutRomByte(p, 0xEE);
        const QByteArray before = ReadFile(Defines.RomPath);

        // The lowest slot of the palette, then tile 0 into place 6: a zero byte.
        editor->Scroll->setValue(editor->Scroll->maximum());
        PressCell(editor->SideBlock, 16 * std::min(3, blocks - 1) + 2);
        const int block = editor->EditBlock;
        EXPECT_EQ(block, blocks - 1);
        SetTile(editor, 0, 6);
        Save(editor);
        EXPECT_EQ(
            Script.Count(QStringLiteral("Make a backup of the ROM (%1.BAK)?").arg(Defines.RomPath)),
            1);
        EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Information), 0);  // no message
        EXPECT_FALSE(editor->BlockChanged);
        const QByteArray after = ReadFile(Defines.RomPath);
        ASSERT_EQ(after.size(), before.size());
        const int changed = first + 16 * block + 6;
        EXPECT_EQ(Differences(before, after), (std::vector<int>{first, changed, last}));
        EXPECT_EQ(static_cast<quint8>(after[changed - 1]), 0);
        EXPECT_EQ(static_cast<quint8>(after[first - 1]), firstByte);
        EXPECT_EQ(static_cast<quint8>(after[last - 1]), lastByte);
        EXPECT_EQ(static_cast<quint8>(after[first - 2]), 0xEE);
        EXPECT_EQ(static_cast<quint8>(after[last]), 0xEE);
        EXPECT_EQ(Defines.BlockTiles[block][6], 0);
        EXPECT_TRUE(Close(editor));
        Program::Reset();
        Script.Clear();
    }
}

TEST_F(BlockEditTest, AScrollReloadsTheBufferSoTheSaveChangesNothing) {
    BlockEdit* editor = Open(Plain);
    ASSERT_NE(editor, nullptr);
    const QByteArray before = ReadFile(Defines.RomPath);
    SetTile(editor, 50, 0);
    EXPECT_TRUE(editor->BlockChanged);
    editor->Scroll->setValue(2);
    // The frame stayed on the top slot: the block under it is now block 2,
    // read afresh, and the flag is still set.
    EXPECT_EQ(editor->EditBlock, 2);
    EXPECT_EQ(editor->EditTiles, Defines.BlockTiles[2]);
    EXPECT_EQ(editor->Block->Picture(0), TilePicture(TileIndex(Defines.BlockTiles[2][0])));
    EXPECT_TRUE(editor->BlockChanged);
    Save(editor);
    EXPECT_EQ(ReadFile(Defines.RomPath), before);
    EXPECT_FALSE(editor->BlockChanged);
    EXPECT_TRUE(Close(editor));
    EXPECT_EQ(Script.Count(DiscardQuestion()), 0);
}

TEST_F(BlockEditTest, TheMainWindowShowsTheSavedBlockAndKeepsItsOwnPainting) {
    Form = StartUp(Project);
    ASSERT_NE(Form, nullptr);
    // Paint square (1, 1) with block 1; square (2, 1) holds block 1 from the ROM.
    PressCell(Form->SideBlock, 16);
    PressCell(Form->View->MapTile, 0);
    ASSERT_TRUE(Form->MapChanged);
    BlockEdit* editor = OpenAgain();
    ASSERT_NE(editor, nullptr);
    EXPECT_FALSE(Form->isVisible());
    PressCell(editor->SideBlock, 16);  // block 1
    SetTile(editor, 77, 5);
    Save(editor);
    EXPECT_TRUE(Close(editor));
    ASSERT_TRUE(Form->isVisible());
    EXPECT_TRUE(Form->MapChanged);
    EXPECT_EQ(Defines.MapGrid[1][1], 1);
    for (const int slot : {0, 1})  // squares (1, 1) and (2, 1)
        EXPECT_EQ(Form->View->MapTile->Picture(16 * slot + 5), TilePicture(TileIndex(77)));
    EXPECT_EQ(Form->SideBlock->Picture(16 + 5), TilePicture(TileIndex(77)));

    // A tileset with the same block area reads the saved block.
    Script.AnswerYes();  // discard the painting
    GoTo(Form, 0, SharesPlain);
    EXPECT_EQ(Defines.BlockTiles[1][5], 77);
}

TEST_F(BlockEditTest, TheClosingQuestionComesOnlyWithUnsavedChanges) {
    BlockEdit* editor = Open(Plain);
    ASSERT_NE(editor, nullptr);
    // Choosing tiles and picking a place's tile is no change.
    PressCell(editor->TileSel, 9);
    PressCell(editor->Block, 3, Qt::RightButton);
    PressCell(editor->Block, 3, Qt::MiddleButton);
    EXPECT_FALSE(editor->BlockChanged);
    EXPECT_TRUE(Close(editor));
    EXPECT_EQ(Script.Count(DiscardQuestion()), 0);

    // Setting a place with the tile it already holds is a change.
    editor = OpenAgain();
    ASSERT_NE(editor, nullptr);
    PressCell(editor->Block, 3, Qt::RightButton);
    PressCell(editor->Block, 3);
    EXPECT_TRUE(editor->BlockChanged);
    Script.AnswerNo();
    EXPECT_FALSE(Close(editor));
    EXPECT_TRUE(editor->isVisible());
    EXPECT_FALSE(Form->isVisible());
    EXPECT_EQ(Script.Count(DiscardQuestion()), 1);
    // Another palette slot drops the change without asking.
    PressCell(editor->SideBlock, 16 * 2);
    EXPECT_FALSE(editor->BlockChanged);
    EXPECT_TRUE(Close(editor));
    EXPECT_EQ(Script.Count(DiscardQuestion()), 1);

    // Yes closes and drops the buffer; the ROM and BlockTiles are untouched.
    const QByteArray before = ReadFile(Defines.RomPath);
    const auto tiles = Defines.BlockTiles[0];
    editor = OpenAgain();
    ASSERT_NE(editor, nullptr);
    SetTile(editor, 40, 0);
    Script.AnswerYes();
    EXPECT_TRUE(Close(editor));
    EXPECT_EQ(Script.Count(DiscardQuestion()), 2);
    EXPECT_TRUE(Form->isVisible());
    EXPECT_EQ(Defines.BlockTiles[0], tiles);
    EXPECT_EQ(ReadFile(Defines.RomPath), before);
    EXPECT_TRUE(Script.ScriptUsedUp());
}

TEST_F(BlockEditTest, ReadoutsShowTheBlockWithItsBiasAndTheTileWithout) {
    BlockEdit* editor = Open(OneBlock);
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->BlockHex->text(), QStringLiteral("Building Block Hex Value: 01"));
    EXPECT_EQ(editor->TileHex->text(), QStringLiteral("Tile Hex Value: 00"));
    PressCell(editor->TileSel, 10);
    EXPECT_EQ(editor->TileHex->text(), QStringLiteral("Tile Hex Value: 0A"));
    // A save and a palette click keep naming the tile under the frame.
    PressCell(editor->Block, 0);
    Save(editor);
    EXPECT_EQ(editor->TileHex->text(), QStringLiteral("Tile Hex Value: 0A"));
    EXPECT_TRUE(Close(editor));

    Program::Reset();
    editor = Open(Plain);
    ASSERT_NE(editor, nullptr);
    editor->Scroll->setValue(editor->Scroll->maximum());
    PressCell(editor->SideBlock, 16 * 3);
    EXPECT_EQ(editor->BlockHex->text(), QStringLiteral("Building Block Hex Value: 14"));
    PressCell(editor->TileSel, 93);
    EXPECT_EQ(editor->TileHex->text(), QStringLiteral("Tile Hex Value: 5D"));
    EXPECT_EQ(editor->TileBorder->LeftTwips(), 1440 + 13 * 240);
    EXPECT_EQ(editor->TileBorder->TopTwips(), 1200 + 5 * 240);
    EXPECT_EQ(editor->BigTile->Picture(0), TilePicture(93));
}

TEST_F(BlockEditTest, AFewBlocksKeepThePaletteAndFrameOnRealBlocks) {
    BlockEdit* editor = Open(NarrowChooser);  // blocks 0 and 1 only
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->Scroll->maximum(), 0);
    EXPECT_EQ(editor->Scroll->value(), 0);
    for (int i = 0; i < 64; ++i)
        EXPECT_EQ(editor->SideBlock->CellVisible(i), i < 32) << i;
    PressCell(editor->SideBlock, 16 * 3);  // an empty slot takes no press
    EXPECT_EQ(editor->SelBorder->TopTwips(), 120);
    PressCell(editor->SideBlock, 16 + 4);
    EXPECT_EQ(editor->SelBorder->TopTwips(), 1080);
    EXPECT_EQ(editor->EditBlock, 1);
}

TEST_F(BlockEditTest, TheChooserShowsOnlyTheTilesetsTiles) {
    BlockEdit* editor = Open(NarrowChooser);
    ASSERT_NE(editor, nullptr);
    for (int i = 0; i < 160; ++i) {
        ASSERT_EQ(editor->TileSel->CellVisible(i), i <= 95) << i;
        if (i <= 95) {
            ASSERT_EQ(editor->TileSel->Picture(i), TilePicture(100 + i)) << i;
        }
    }
    // The grid lines stay over the empty part.
    for (Line* line : editor->ChooserLines)
        EXPECT_TRUE(line->isVisible());
    PressCell(editor->TileSel, 7);
    PressCell(editor->TileSel, 100);  // hidden: the press reaches no tile
    EXPECT_EQ(editor->SelTile, 7);
    EXPECT_EQ(editor->TileHex->text(), QStringLiteral("Tile Hex Value: 07"));

    // Place 4 holds tile 120: the frame goes to its hidden cell, BigTile is empty.
    PressCell(editor->Block, 4, Qt::RightButton);
    EXPECT_EQ(editor->SelTile, 120);
    EXPECT_TRUE(editor->TileBorder->isVisible());
    EXPECT_EQ(editor->TileBorder->LeftTwips(), 1440 + 8 * 240);
    EXPECT_EQ(editor->TileBorder->TopTwips(), 1200 + 7 * 240);
    EXPECT_EQ(editor->BigTile->Picture(0), nullptr);

    // Place 3 holds tile 160, the first past the chooser: the tile is picked and named,
    // there is no cell to frame, and the user hears it.
    PressCell(editor->Block, 3, Qt::RightButton);
    EXPECT_EQ(editor->SelTile, 160);
    EXPECT_EQ(editor->TileHex->text(), QStringLiteral("Tile Hex Value: A0"));
    EXPECT_FALSE(editor->TileBorder->isVisible());
    EXPECT_EQ(editor->BigTile->Picture(0), nullptr);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Beep), 1);
    EXPECT_FALSE(editor->BlockChanged);
    // Set into place 0, it draws as the map does and saves as byte 160.
    PressCell(editor->Block, 0);
    EXPECT_EQ(editor->Block->Picture(0), TilePicture(260));
    Save(editor);
    EXPECT_EQ(RomByte(Project.Tileset(NarrowChooser).BlockPos), 160);
    // A chooser press brings the frame back.
    PressCell(editor->TileSel, 2);
    EXPECT_TRUE(editor->TileBorder->isVisible());
}

TEST_F(BlockEditTest, ASaveThatCannotWriteSaysSoAndKeepsTheChange) {
    BlockEdit* editor = Open(Plain);
    ASSERT_NE(editor, nullptr);
    const auto tiles = Defines.BlockTiles[0];
    SetTile(editor, 33, 1);
    ASSERT_TRUE(QFile::remove(Defines.RomPath));
    Save(editor);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1)
        << Script.Texts().join(u'|').toStdString();
    EXPECT_TRUE(editor->BlockChanged);
    EXPECT_EQ(editor->EditTiles[1], 33);
    EXPECT_EQ(Defines.BlockTiles[0], tiles);
    EXPECT_FALSE(QFile::exists(Defines.RomPath));
}
