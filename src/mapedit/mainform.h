#pragma once

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <array>
#include <functional>
#include <memory>

#include "core/undolist.h"
#include "mapedit/maptools.h"
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

    // Map tools, in the frame Frame1: a button for each tool, in the order of
    // ToolKind, and the square under the pointer.
    std::array<QToolButton*, ToolCount> ToolButtons{};
    QLabel* PointerText;

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
    QAction* mnuRedo;
    QAction* mnuCopy;
    QAction* mnuPaste;
    QAction* mnuSelectAll;
    QMenu* mnuTools;
    std::array<QAction*, ToolCount> mnuTool{};  // in the order of ToolKind
    QAction* EscapeKey;
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
    ToolKind CurTool() const { return CurTool_; }
    bool Pasting() const { return Pasting_; }
    QRect Selection() const { return Selection_; }  // empty when nothing is selected

    // Handlers.
    void CatList_MouseDown();
    void MapList_MouseDown();
    void Command2_Click();
    void Scroll_Change(int value);
    void SideBlock_MouseDown(int index, int button);
    void MapTile_MouseDown(int index, int button);
    void BorderBlock_MouseDown(int index, int button);
    void mnuUndo_Click();
    void mnuRedo_Click();
    void mnuCopy_Click();
    void mnuPaste_Click();
    void mnuSelectAll_Click();
    void mnuTool_Click(ToolKind tool);
    void EscapeKey_Press();
    void MapTile_MouseMove(QPoint square, bool onSquare, Qt::MouseButtons buttons);
    void MapTile_MouseUp(QPoint square, int button);
    void MapTile_MouseLeave();
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
    void BuildTools();
    void BuildToolMenus();
    MapTool* ToolInHand();
    void ToolPress(MapTool* tool, QPoint square);
    ToolContext Context();
    // Records a step that changed squares, for undo, and marks the map changed.
    void Commit(MapStep step);
    // Brings the undo and redo entries and the pointer's readout up to date.
    void EnableUndoRedo();
    void ShowPointer();
    // Ends a drag; `revert` takes back what it painted so far.
    void EndDrag(bool revert);
    void LeavePasteMode();
    // Forgets the selection, paste mode and the undo list, for a new map.
    void ResetTools();
    void SetSelection(QRect squares);
    void WriteMapTo(const QString& romPath, bool offerBackup);

    ProgramHooks Hooks_;
    LoadedMap Loaded_;
    bool MapLoaded_ = false;
    // Map tools: the tool chosen, paste mode, the drag under way and the
    // selection, in map squares.
    ToolKind CurTool_ = ToolKind::Pencil;
    BrushTool Brush_;
    RectangleTool Rectangle_;
    FillTool Fill_;
    SelectTool Select_;
    StampTool Stamp_;
    bool Pasting_ = false;
    MapTool* Dragging_ = nullptr;
    QPoint DragSquare_;
    QPoint Pointer_;
    bool PointerOn_ = false;
    QRect Selection_;
};
