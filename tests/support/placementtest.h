#pragma once

#include <QTest>

#include "core/defines.h"
#include "support/apptest.h"

// A test of an editor that places entries on the placement view: the warp
// editor and the event editor. `Menu` is the main window's command that
// opens it.
template <class Editor, QAction* MainForm::*Menu>
class PlacementTest : public AppTest {
protected:
    // Starts up on the project: the main window, with no editor open.
    void StartUpOn(const Fixture::SmallProject& project) {
        Form = StartUp(project);
        ASSERT_NE(Form, nullptr);
    }
    // Goes to a map of category 0 and opens the editor; nullptr when it stays shut.
    Editor* Open(int map) {
        GoTo(Form, 0, map);
        (Form->*Menu)->trigger();
        return ShownWindow<Editor>(Form);
    }
    // Presses the cell of a view block (0 to 7, 0 to 5) at a place (0 to 15).
    static void PressCell(Editor* e, int bx, int by, int place) {
        ::PressCell(e->Placement->View->MapTile, 16 * (bx + 8 * by) + place);
    }
    static void PressSymbol(Editor* e, int index) {
        QTest::mousePress(e->Placement->Sym[index], Qt::LeftButton);
    }
    // Clicks "Save" and answers No to the backup.
    void Save(Editor* e) {
        Script.AnswerNo();
        QTest::mouseClick(e->Command1, Qt::LeftButton);
    }
    // The last save was refused before the backup question, with a warning
    // that names the entry and the field, and the ROM is `rom` still.
    void ExpectRefused(const QString& entry, const QString& field, const QByteArray& rom) {
        ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
        const QString warning = Script.Transcript().back().text;
        EXPECT_TRUE(warning.contains(entry) && warning.contains(field)) << warning.toStdString();
        EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Question), 0);
        EXPECT_EQ(ReadFile(Defines.RomPath), rom);
        Script.Clear();
    }
    static quint8 RomByte(const QByteArray& rom, int position) {
        return static_cast<quint8>(rom[position - 1]);
    }

    MainForm* Form = nullptr;
};
