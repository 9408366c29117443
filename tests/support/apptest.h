#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QTemporaryDir>

#include "core/scripteddialogs.h"
#include "fixture/smallproject.h"
#include "mapedit/mainform.h"
#include "model/files.h"

// A test that runs the program in a fresh program folder of its own, with
// every dialog answered from a script.
class AppTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    QString Folder() const { return Dir_.path(); }
    QString PathOf(const QString& name) const;

    // Runs start-up on a ROM of the folder: the open dialog gets the ROM,
    // VersionSelect gets the version row, and the timer's tick loads the main
    // window. Returns the main window, or nullptr when start-up ended.
    MainForm* StartUp(const QString& romPath, int versionRow = 0);

    // Writes the project into the folder and starts up on its ROM.
    MainForm* StartUp(const Fixture::SmallProject& project);

    // Chooses a category and a map with mouse presses on the lists, then
    // presses "Go".
    void GoTo(MainForm* form, int category, int mapRow);

    static QByteArray ReadFile(const QString& path) { return TestFiles::Read(path); }
    // Writes one byte of the open ROM at a 1-based position, behind the
    // program's back.
    static void PutRomByte(int position, quint8 value);
    // The positions, 1-based, where two files differ; a length change counts
    // as a difference at the first position past the shorter one.
    static std::vector<int> Differences(const QByteArray& before, const QByteArray& after);

    ScriptedDialogs Script;

private:
    QTemporaryDir Dir_;
};

// Presses a mouse button on a cell of a cell array through the real widget.
void PressCell(CellArray* cells, int index, Qt::MouseButton button = Qt::LeftButton);
// Presses on a row of a list through the real widget.
void PressRow(QListWidget* list, int row);

// The window of a kind that the main window shows, after a menu command
// opened it; nullptr when none is on the screen.
template <class Window>
Window* ShownWindow(MainForm* form) {
    for (Window* w : form->findChildren<Window*>())
        if (w->isVisible()) return w;
    return nullptr;
}
// Closes a window as its close box does and lets it go; true when it went.
bool CloseWindow(QWidget* window);
