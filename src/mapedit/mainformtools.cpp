// The Map Tools of the main window: the tool buttons and menu, drags over the
// view, the selection, copy and paste, and undo and redo of whole steps.
#include <QClipboard>
#include <QGuiApplication>
#include <utility>

#include "core/defines.h"
#include "core/dialogs.h"
#include "core/hextext.h"
#include "mapedit/mainform.h"
#include "mapedit/toolicons.h"
#include "ui/twips.h"

namespace {
constexpr int LeftButton = 1;

struct ToolEntry {
    const char* Name;
    const char* Caption;
    Qt::Key Key;
};
// In the order of ToolKind.
constexpr ToolEntry ToolEntries[ToolCount] = {
    {"Pencil", "&Pencil", Qt::Key_P},       {"Brush", "&Brush", Qt::Key_B},
    {"Rectangle", "&Rectangle", Qt::Key_R}, {"Fill", "&Fill", Qt::Key_F},
    {"Select", "&Select", Qt::Key_S},
};
}  // namespace

void MainForm::BuildToolMenus() {
    mnuTools = MenuBar()->addMenu(QStringLiteral("&Tools"));
    for (int t = 0; t < ToolCount; ++t) {
        const ToolEntry& entry = ToolEntries[t];
        QAction* action = mnuTools->addAction(ToolIcon(static_cast<ToolKind>(t)),
                                              QString::fromLatin1(entry.Caption));
        action->setShortcut(QKeySequence(entry.Key));
        action->setToolTip(QStringLiteral("%1 (%2)").arg(QString::fromLatin1(entry.Name),
                                                         QKeySequence(entry.Key).toString()));
        // The menu shows a check mark at the chosen tool, the button its picture.
        action->setIconVisibleInMenu(false);
        action->setCheckable(true);
        action->setChecked(t == 0);
        connect(action, &QAction::triggered, this,
                [this, t] { mnuTool_Click(static_cast<ToolKind>(t)); });
        mnuTool[static_cast<size_t>(t)] = action;
    }
    // Escape has no menu entry; it works wherever the window has the focus.
    EscapeKey = new QAction(this);
    EscapeKey->setShortcut(QKeySequence(Qt::Key_Escape));
    addAction(EscapeKey);
    connect(EscapeKey, &QAction::triggered, this, &MainForm::EscapeKey_Press);
}

void MainForm::BuildTools() {
    constexpr int ButtonTwips = 300;
    for (int t = 0; t < ToolCount; ++t) {
        auto* button = new QToolButton(Frame1);
        button->setDefaultAction(mnuTool[static_cast<size_t>(t)]);
        button->setAutoRaise(true);
        Place(button, 45 + ButtonTwips * t, 255, ButtonTwips, ButtonTwips);
        ToolButtons[static_cast<size_t>(t)] = button;
    }
    // Two lines, the square above its block: the label is as wide as the
    // widest square, so the word "Block" always begins the second line.
    PointerText = new QLabel(Frame1);
    Place(PointerText, 75, 630, 1440, 765);
    PointerText->setWordWrap(true);
    const int widest = PointerText->fontMetrics().horizontalAdvance(QStringLiteral("X 254  Y 254"));
    PointerText->setFixedWidth(std::min(PointerText->width(), widest + 2));
    PointerText->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    View->EnableTools();
    connect(View, &MapView::PointerMoved, this, &MainForm::MapTile_MouseMove);
    connect(View, &MapView::MouseUp, this, &MainForm::MapTile_MouseUp);
    connect(View, &MapView::PointerLeft, this, &MainForm::MapTile_MouseLeave);
}

MapTool* MainForm::ToolInHand() {
    if (Pasting_) return &Stamp_;
    switch (CurTool_) {
        case ToolKind::Brush:
            return &Brush_;
        case ToolKind::Rectangle:
            return &Rectangle_;
        case ToolKind::Fill:
            return &Fill_;
        case ToolKind::Select:
            return &Select_;
        case ToolKind::Pencil:
            break;
    }
    return nullptr;  // the Pencil is MapTile_MouseDown itself
}

ToolContext MainForm::Context() {
    return {Defines.MapGrid, Defines.MapWidth, Defines.MapHeight, CurBlock};
}

// A left press on a square with any tool but the Pencil.
void MainForm::ToolPress(MapTool* tool, QPoint square) {
    // A drag whose release never came ends where it was last.
    if (Dragging_) MapTile_MouseUp(DragSquare_, LeftButton);
    ToolContext context = Context();
    Dragging_ = tool;
    DragSquare_ = square;
    Commit(tool->Press(context, square));
    if (!Pasting_) View->SetMark(MapView::ToolMark, tool->Outline());
    DrawMapTiles();
}

void MainForm::MapTile_MouseMove(QPoint square, bool onSquare, Qt::MouseButtons buttons) {
    Pointer_ = square;
    PointerOn_ = onSquare;
    ShowPointer();
    if (Dragging_ && (buttons & Qt::LeftButton)) {
        DragSquare_ = square;
        ToolContext context = Context();
        if (Dragging_->Move(context, square)) DrawMapTiles();
        if (!Pasting_) View->SetMark(MapView::ToolMark, Dragging_->Outline());
    }
    if (Pasting_) {
        const Pattern& stamp = Stamp_.Stamp();
        View->SetMark(MapView::ToolMark,
                      onSquare ? QRect(square, QSize(stamp.Width, stamp.Height)) : QRect());
    }
}

void MainForm::ShowPointer() {
    if (!PointerOn_) {
        PointerText->clear();
        return;
    }
    PointerText->setText(QStringLiteral("X %1  Y %2  Block %3")
                             .arg(Pointer_.x() - 1)
                             .arg(Pointer_.y() - 1)
                             .arg(HexText(Defines.MapGrid[Pointer_.y()][Pointer_.x()])));
}

void MainForm::MapTile_MouseUp(QPoint square, int button) {
    if (button != LeftButton || !Dragging_) return;
    MapTool* tool = std::exchange(Dragging_, nullptr);
    ToolContext context = Context();
    Commit(tool->Release(context, square));
    if (tool == &Select_) SetSelection(Select_.Selected());
    if (!Pasting_) View->SetMark(MapView::ToolMark, QRect());
    DrawMapTiles();
}

void MainForm::MapTile_MouseLeave() {
    PointerOn_ = false;
    PointerText->clear();
    if (Pasting_) View->SetMark(MapView::ToolMark, QRect());
}

void MainForm::Commit(MapStep step) {
    if (step.Empty()) return;
    Undo.Push(std::move(step));
    EnableUndoRedo();
    MapChanged = true;
}

void MainForm::EnableUndoRedo() {
    mnuUndo->setEnabled(Undo.UndoCount() > 0);
    mnuRedo->setEnabled(Undo.RedoCount() > 0);
    ShowPointer();  // the block under the pointer may have changed
}

void MainForm::EndDrag(bool revert) {
    MapTool* tool = std::exchange(Dragging_, nullptr);
    if (!tool) return;
    if (revert) {
        ToolContext context = Context();
        tool->Cancel(context);
        DrawMapTiles();
    }
    if (!Pasting_) View->SetMark(MapView::ToolMark, QRect());
}

void MainForm::LeavePasteMode() {
    Pasting_ = false;
    View->SetMark(MapView::ToolMark, QRect());
}

void MainForm::EscapeKey_Press() {
    EndDrag(true);
    LeavePasteMode();
}

void MainForm::mnuTool_Click(ToolKind tool) {
    EndDrag(true);
    LeavePasteMode();
    CurTool_ = tool;
    // One tool is chosen at a time; a press on the chosen tool's button keeps it.
    for (size_t t = 0; t < mnuTool.size(); ++t)
        mnuTool[t]->setChecked(t == static_cast<size_t>(tool));
}

void MainForm::ResetTools() {
    EndDrag(false);
    LeavePasteMode();
    SetSelection(QRect());
    Undo.Clear();
    EnableUndoRedo();
}

void MainForm::SetSelection(QRect squares) {
    Selection_ = squares;
    View->SetMark(MapView::SelectionMark, squares);
    mnuCopy->setEnabled(!squares.isEmpty());
}

void MainForm::mnuUndo_Click() {
    EndDrag(true);
    if (!Undo.Undo(Defines.MapGrid)) return;
    EnableUndoRedo();
    DrawMapTiles();
}

void MainForm::mnuRedo_Click() {
    EndDrag(true);
    if (!Undo.Redo(Defines.MapGrid)) return;
    EnableUndoRedo();
    DrawMapTiles();
}

void MainForm::mnuSelectAll_Click() {
    if (!MapLoaded_) return;
    SetSelection(QRect(1, 1, Defines.MapWidth, Defines.MapHeight));
}

void MainForm::mnuCopy_Click() {
    QString text;
    if (Selection_.isEmpty() || !PatternText(Defines.MapGrid, Selection_, text)) {
        Dialogs().Beep();
        return;
    }
    QGuiApplication::clipboard()->setText(text);
}

void MainForm::mnuPaste_Click() {
    Pattern pattern;
    if (!MapLoaded_ || !ParsePattern(QGuiApplication::clipboard()->text(), pattern)) {
        Dialogs().Beep();
        return;
    }
    const int above = FirstBlockAbove(pattern, Defines.BlockCount);
    if (above >= 0) {
        Dialogs().Warn(QStringLiteral("The pattern holds the block %1, but the last block of "
                                      "this map's tileset is %2. Nothing was pasted.")
                           .arg(HexText(above), HexText(Defines.BlockCount)));
        return;
    }
    EndDrag(true);
    Stamp_.SetPattern(std::move(pattern));
    Pasting_ = true;
    if (PointerOn_) MapTile_MouseMove(Pointer_, true, Qt::NoButton);
}
