// Takes the screenshots a reviewer looks at: the program is started on a ROM
// under a real display (Xvfb will do), driven to each state through its own
// handlers, and the screen around its window is saved as PNG files.
//
//   screenshots <program folder> <rom> <output folder>
#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>

#include "blockedit/blockedit.h"
#include "core/defines.h"
#include "core/scripteddialogs.h"
#include "eventedit/eventedit.h"
#include "mapedit/mainform.h"
#include "startup/program.h"
#include "startup/splash.h"
#include "startup/versionselect.h"
#include "ui/programfont.h"
#include "warpedit/warpedit.h"
#include "wildedit/wildedit.h"

namespace {
QString Out;

void Settle() {
    for (int i = 0; i < 20; ++i)
        QApplication::processEvents(QEventLoop::AllEvents, 10);
}

void Shoot(QWidget* window, const QString& name, int extraHeight = 0) {
    Settle();
    const QRect frame = window->frameGeometry().adjusted(-4, -4, 4, 4 + extraHeight);
    QPixmap shot = QGuiApplication::primaryScreen()->grabWindow(0, frame.x(), frame.y(),
                                                                frame.width(), frame.height());
    shot.save(QDir(Out).filePath(name + QStringLiteral(".png")));
    std::printf("%s\n", qPrintable(name));
}

// Finds the first map that `fits` and goes to it through the lists, as a
// user does.
template <typename Test>
bool GoToMap(MainForm* form, Test fits) {
    for (int c = 0; c <= Defines.CategoryCount; ++c) {
        const int first = Defines.CategoryTable[c][CatFirstMap].ToInt16();
        const int count = Defines.CategoryTable[c][CatMapCount].ToInt16();
        for (int r = 0; r < count; ++r) {
            if (!fits(Defines.MapTable[first + r])) continue;
            form->CatList->setCurrentRow(c);
            form->CatList_MouseDown();
            form->MapList->setCurrentRow(r);
            form->MapList_MouseDown();
            form->Command2_Click();
            return true;
        }
    }
    return false;
}

bool GoToMapOfSize(MainForm* form, int cols, int rows) {
    if (GoToMap(form, [&](const auto& map) {
            return map[MapCols].ToInt16() == cols && map[MapRows].ToInt16() == rows;
        }))
        return true;
    std::printf("no map of %d x %d\n", cols, rows);
    return false;
}

void ShootMenu(MainForm* form, QMenu* menu, const QString& name) {
    menu->popup(form->mapToGlobal(QPoint(0, 0)) +
                QPoint(form->MenuBar()->actionGeometry(menu->menuAction()).left(), 20));
    Shoot(form, name, 120);
    menu->hide();
}
// The square of view column bx and row by, and the index of its first cell.
QPoint ViewSquare(MainForm* form, int bx, int by) {
    return QPoint(form->View->ViewCol + bx, form->View->ViewRow + by);
}
int FirstCell(int bx, int by) {
    return 16 * (bx + 8 * by);
}

// A drag through the main window's handlers, as the view reports it: the
// press on a cell, moves over squares of the view, and the release unless
// the picture is to show the drag under way.
void DragOver(MainForm* form, std::initializer_list<QPoint> places, bool release = true) {
    const QPoint first = *places.begin();
    form->MapTile_MouseDown(FirstCell(first.x(), first.y()), 1);
    QPoint square;
    for (const QPoint& place : places) {
        square = ViewSquare(form, place.x(), place.y());
        form->MapTile_MouseMove(square, true, Qt::LeftButton);
    }
    if (release) form->MapTile_MouseUp(square, 1);
}

// Each tool at work on the map in view.
void ShootTools(MainForm* form) {
    form->SideBlock_MouseDown(16 * 1, 1);
    form->mnuTool_Click(ToolKind::Brush);
    DragOver(form, {{0, 5}, {3, 3}, {4, 3}, {7, 1}});
    Shoot(form, QStringLiteral("tool-brush"));
    form->SideBlock_MouseDown(16 * 3, 1);
    form->mnuTool_Click(ToolKind::Rectangle);
    DragOver(form, {{1, 0}, {3, 2}}, false);
    Shoot(form, QStringLiteral("tool-rectangle-dragging"));
    form->MapTile_MouseUp(ViewSquare(form, 3, 2), 1);
    Shoot(form, QStringLiteral("tool-rectangle-done"));
    form->SideBlock_MouseDown(16 * 5, 1);
    form->mnuTool_Click(ToolKind::Fill);
    DragOver(form, {{2, 1}});
    Shoot(form, QStringLiteral("tool-fill"));
    form->mnuTool_Click(ToolKind::Select);
    DragOver(form, {{1, 1}, {4, 3}});
    form->mnuCopy_Click();
    Shoot(form, QStringLiteral("tool-select"));
    form->View->HScroll->setValue(form->View->HScroll->value() + 2);
    Shoot(form, QStringLiteral("tool-select-scrolled"));
    form->mnuPaste_Click();
    form->MapTile_MouseMove(ViewSquare(form, 4, 3), true, Qt::NoButton);
    Shoot(form, QStringLiteral("tool-paste-following"));
    form->MapTile_MouseDown(FirstCell(4, 3), 1);
    form->MapTile_MouseUp(ViewSquare(form, 4, 3), 1);
    form->MapTile_MouseMove(ViewSquare(form, 6, 5), true, Qt::NoButton);
    Shoot(form, QStringLiteral("tool-paste-stamped"));
    form->EscapeKey_Press();
    form->mnuTool_Click(ToolKind::Pencil);
    ShootMenu(form, form->mnuTools, QStringLiteral("menu-tools"));
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc < 4) {
        std::fprintf(stderr, "usage: screenshots <program folder> <rom> <output folder>\n");
        return 2;
    }
    ApplyProgramFont();
    // "screenshots --grab <file> <x> <y> <width> <height>" saves part of the
    // screen, for pictures of a program driven by hand.
    if (QString::fromLocal8Bit(argv[1]) == QStringLiteral("--grab") && argc >= 7) {
        const QPixmap shot = QGuiApplication::primaryScreen()->grabWindow(
            0, std::atoi(argv[3]), std::atoi(argv[4]), std::atoi(argv[5]), std::atoi(argv[6]));
        return shot.save(QString::fromLocal8Bit(argv[2])) ? 0 : 1;
    }
    Out = QString::fromLocal8Bit(argv[3]);
    QDir().mkpath(Out);
    ScriptedDialogs dialogs;
    SetDialogs(&dialogs);
    Defines.ProgramFolder = QString::fromLocal8Bit(argv[1]);
    dialogs.ChooseFile(QString::fromLocal8Bit(argv[2]));
    Program::Main();
    VersionSelect* version = Program::VersionSelectForm();
    if (!version) return 1;
    Shoot(version, QStringLiteral("versionselect"));
    // The first window on a bare display can come out black: its own
    // rendering is saved beside it.
    version->grab().save(QDir(Out).filePath(QStringLiteral("versionselect-window.png")));
    version->Command1_Click();
    // The splash is up for a moment only, until its timer ticks: its own
    // rendering is saved instead of the screen.
    Program::SplashForm()->grab().save(QDir(Out).filePath(QStringLiteral("splash.png")));
    Settle();
    MainForm* form = Program::MainWindow();
    if (!form) return 1;
    Shoot(form, QStringLiteral("main-first-map"));

    // The map whose comment is longest fills the comment's label.
    int longest = 0;
    for (int r = 0; r < Limits::TableRows; ++r)
        longest = std::max(longest, static_cast<int>(Defines.MapTable[r][MapNote].ToText().size()));
    if (GoToMap(form,
                [longest](const auto& row) { return row[MapNote].ToText().size() == longest; }))
        Shoot(form, QStringLiteral("map-longest-comment"));
    if (GoToMapOfSize(form, 1, 1)) Shoot(form, QStringLiteral("map-1x1"));
    if (GoToMapOfSize(form, 9, 6)) {
        Shoot(form, QStringLiteral("map-9x6"));
        form->View->HScroll->setValue(2);
        Shoot(form, QStringLiteral("map-9x6-scrolled"));
    }
    if (GoToMapOfSize(form, 255, 255)) {
        form->View->HScroll->setValue(124);
        form->View->VScroll->setValue(125);
        form->SideBlock_MouseDown(16 * 2, 1);
        Shoot(form, QStringLiteral("map-255-middle-gridlines"));
        form->mnuGridlines_Click();
        Shoot(form, QStringLiteral("map-255-middle-no-gridlines"));
        form->mnuGridlines_Click();
        ShootTools(form);
    }
    // Paint a few squares, then show the menus.
    form->SideBlock_MouseDown(16 * 4, 1);
    for (int i : {0, 16, 32, 128})
        form->MapTile_MouseDown(i, 1);
    form->BorderBlock_MouseDown(0, 1);
    Shoot(form, QStringLiteral("painted"));
    ShootMenu(form, form->mnuFile, QStringLiteral("menu-file"));
    ShootMenu(form, form->mnuEdit, QStringLiteral("menu-edit"));
    ShootMenu(form, form->mnuMode, QStringLiteral("menu-mode"));
    ShootMenu(form, form->mnuOptions, QStringLiteral("menu-options"));
    // The building block editor on the first map's tileset: a block chosen,
    // a tile chosen and set into it, the palette scrolled.
    form->mnuBlockEdit_Click();
    if (auto* blocks = form->findChild<BlockEdit*>()) {
        Shoot(blocks, QStringLiteral("blockedit-open"));
        blocks->Scroll->setValue(2);
        blocks->SideBlock_MouseDown(16 * 2, 1);
        blocks->TileSel_MouseDown(37, 1);
        blocks->Block_MouseDown(5, 1);
        blocks->Block_MouseDown(10, 1);
        Shoot(blocks, QStringLiteral("blockedit-editing"));
        blocks->BlockChanged = false;
        blocks->close();
    }
    // The wild encounter editor on the first map with a wild list: slot 3
    // chosen, its level typed, the species list open.
    dialogs.AnswerYes();  // discard the painting
    if (GoToMap(form, [](const auto& map) { return map[MapWildPos].ToInt32() != NoData; })) {
        form->mnuWildEdit_Click();
        if (auto* wild = form->findChild<WildEdit*>()) {
            Shoot(wild, QStringLiteral("wildedit-open"));
            wild->MorlNum[3]->click();
            wild->SelLevel->setText(QStringLiteral("42"));
            Shoot(wild, QStringLiteral("wildedit-slot3"));
            wild->SelMorl->showPopup();
            Shoot(wild, QStringLiteral("wildedit-list-open"), 200);
            wild->SelMorl->hidePopup();
            dialogs.AnswerYes();
            wild->close();
        }
    }
    // The warp editor on the first map with both lists: the warps, one moved
    // onto another's square and selected there, the gridlines off, then the
    // warp-to points.
    if (GoToMap(form, [](const auto& map) {
            return map[MapObjectPos].ToInt32() != NoData && map[MapWarpsOk].IsTrue() &&
                   map[MapWarpToPos].ToInt32() != NoData;
        })) {
        form->mnuWarpEdit_Click();
        if (auto* warps = form->findChild<WarpEdit*>()) {
            Shoot(warps, QStringLiteral("warpedit-warps"));
            if (warps->WarpCount >= 2) {
                const QPoint at = warps->EntrySquare(0);
                warps->WarpSym_MouseDown(1);
                // The cell of square `at`: its block's slot and the quadrant's place.
                const int bx = at.x() / 2 - (warps->Placement->View->ViewCol - 1);
                const int by = at.y() / 2 - (warps->Placement->View->ViewRow - 1);
                if (bx >= 0 && bx < 8 && by >= 0 && by < 6)
                    warps->MapTile_MouseDown(16 * (bx + 8 * by) + 2 * (at.x() % 2) +
                                             8 * (at.y() % 2));
            }
            Shoot(warps, QStringLiteral("warpedit-selected-over-another"));
            warps->CheckGrid->setChecked(false);
            Shoot(warps, QStringLiteral("warpedit-no-gridlines"));
            warps->CheckGrid->setChecked(true);
            warps->EditWarpTo->setChecked(true);
            Shoot(warps, QStringLiteral("warpedit-warp-to"));
            warps->WarpsChanged = false;
            warps->close();
        }
    }
    // The event editor on the first map that has events: type 0, an event
    // selected, the gridlines off, then the next type that has events here.
    if (GoToMap(form, [](const auto& map) { return map[MapEventsOk].IsTrue(); })) {
        form->mnuEventEdit_Click();
        if (auto* events = form->findChild<EventEdit*>()) {
            Shoot(events, QStringLiteral("eventedit-open"));
            if (events->EventCount > 1) events->EventSym_MouseDown(1);
            Shoot(events, QStringLiteral("eventedit-selected"));
            events->CheckGrid->setChecked(false);
            Shoot(events, QStringLiteral("eventedit-no-gridlines"));
            events->CheckGrid->setChecked(true);
            for (int t = 1; t <= events->LastEventType; ++t) {
                events->SelType->setCurrentRow(t);
                events->Command2_Click();
                if (events->CurEventType == t) {
                    Shoot(events, QStringLiteral("eventedit-type%1").arg(t));
                    break;
                }
            }
            events->EventsChanged = false;
            events->close();
        }
    }
    form->mnuAbout_Click();
    Shoot(QApplication::activeWindow() ? QApplication::activeWindow() : form,
          QStringLiteral("about"));
    return 0;
}
