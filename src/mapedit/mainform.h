#pragma once

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <array>
#include <functional>

#include "mapedit/undolist.h"
#include "mapview/maploader.h"
#include "mapview/mapview.h"
#include "ui/cellarray.h"
#include "ui/form.h"
#include "ui/shapes.h"

// The main window: the map view, the block palette, the border block, the
// map lists and the menus from which the editors open.
class MainForm : public Form {
    Q_OBJECT
public:
    // What the main window asks of the program around it; start-up hands
    // these over when it makes the window.
    struct ProgramHooks {
        std::function<void()> End;      // ends the program at once
        std::function<void()> NewPass;  // hides the window and asks for another ROM
    };

    // Start-up has read the data files and the first map into the working
    // state; `firstMap` is what that read gave besides.
    MainForm(const LoadedMap& firstMap, ProgramHooks hooks);

    // True once a map has been read into the working state.
    bool MapLoaded() const { return MapLoaded_; }

    // Map view.
    MapView* View;

    // Block palette and border block.
    CellArray* SideBlock;
    Outline* Shape3;
    std::array<Line*, 5> PaletteLines{};  // Line13 to Line17
    QScrollBar* Scroll;
    Outline* SelBorder;
    QLabel* BlockHex;
    CellArray* BorderBlock;
    Outline* Shape1;
    QLabel* Label1;
    QGroupBox* Frame1;
    QLabel* Label2;

    // Map selection.
    QGroupBox* Frame2;
    QListWidget* CatList;
    QListWidget* MapList;
    QLabel* MapComment;
    QPushButton* Command2;
    QLabel* CurMapName;

    // Menus.
    QMenu* mnuFile;
    QAction* mnuOpen;
    QAction* mnuSave;
    QAction* mnuSaveAs;
    QAction* mnuExit;
    QMenu* mnuEdit;
    QAction* mnuUndo;
    QMenu* mnuMode;
    QAction* mnuBlockEdit;
    QAction* mnuWildEdit;
    QAction* mnuWarpEdit;
    QAction* mnuEventEdit;
    QMenu* mnuOptions;
    QAction* mnuGridlines;
    QMenu* mnuHelp;
    QAction* mnuAbout;

    // State that belongs to this window.
    std::int16_t CurBlock = 0;
    std::int16_t BorderNum = 0;
    bool MapChanged = false;
    bool SkipExitPrompt = false;
    UndoList Undo;

    // Handlers.
    void CatList_MouseDown();
    void MapList_MouseDown();
    void Command2_Click();
    void Scroll_Change(int value);
    void SideBlock_MouseDown(int index, int button);
    void MapTile_MouseDown(int index, int button);
    void BorderBlock_MouseDown(int index, int button);
    void mnuUndo_Click();
    void mnuGridlines_Click();
    void mnuSave_Click();
    void mnuSaveAs_Click();
    void mnuOpen_Click();
    void mnuExit_Click();
    void mnuBlockEdit_Click();
    void mnuWildEdit_Click();
    void mnuWarpEdit_Click();
    void mnuEventEdit_Click();
    void mnuAbout_Click();

    void DrawSideBlocks();
    void DrawMapTiles() { View->DrawMapTiles(); }
    // Reads CurMap and sets the view and palette up for it. False, after a
    // message, when the map could not be read; the map shown before stays.
    bool LoadMap();
    // Sets the view and palette up for a map just read into the working state.
    void ShowMap(const LoadedMap& loaded);
    // The name of the current map, its border controls and the editors that
    // its row allows.
    void ShowMapRow();

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload(bool& Cancel) override;

private:
    void BuildMenus();
    void BuildPalette();
    void BuildMapSelection();
    void FillMapList();
    void BringOnPalette(int block);
    void ShowBorderControls(bool show);
    bool AskToExit();
    void WriteMapTo(const QString& romPath, bool offerBackup);

    ProgramHooks Hooks_;
    LoadedMap Loaded_;
    bool MapLoaded_ = false;
};
