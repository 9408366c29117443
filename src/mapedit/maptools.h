#pragma once

#include <QPoint>
#include <QRect>
#include <cstdint>

#include "core/mapdrawing.h"
#include "core/mappattern.h"
#include "core/mapstep.h"

// The tools of the Map Tools frame, in the order of their buttons. The Pencil
// is the main window's own press handler and has no class here.
enum class ToolKind { Pencil, Brush, Rectangle, Fill, Select };
inline constexpr int ToolCount = 5;

// What a tool works on: the grid, the map's size and the block it paints.
struct ToolContext {
    MapGridT& Grid;
    int Width = 0;
    int Height = 0;
    std::int16_t Block = 0;
};

// A tool: what a left press on a square of the view, the drag and the
// release do. A tool puts the squares it changes onto the grid as it works
// and hands the step over when it is done; squares are map squares, never
// cells of the view.
class MapTool {
public:
    virtual ~MapTool() = default;
    // Returns the step of a tool that is done at the press.
    virtual MapStep Press(ToolContext& context, QPoint square) = 0;
    // The pointer moved to a square with the button held; true when the
    // grid changed.
    virtual bool Move(ToolContext&, QPoint) { return false; }
    // The button came up on a square: the drag's step, if it makes one.
    virtual MapStep Release(ToolContext&, QPoint) { return {}; }
    // Escape during the drag: the grid goes back to what it was at the press.
    virtual void Cancel(ToolContext&) {}
    // The squares to outline over the view during the drag.
    virtual QRect Outline() const { return {}; }
};

// Paints every square the pointer passes, joining the squares of a fast move
// by a straight line; the stroke is one step.
class BrushTool : public MapTool {
public:
    MapStep Press(ToolContext& context, QPoint square) override;
    bool Move(ToolContext& context, QPoint square) override;
    MapStep Release(ToolContext& context, QPoint square) override;
    void Cancel(ToolContext& context) override;

private:
    QPoint Last_;
    MapStep Stroke_;
};

// A drag from one corner square to the opposite one, outlined while it lasts.
class CornerDrag : public MapTool {
public:
    MapStep Press(ToolContext&, QPoint square) override;
    bool Move(ToolContext&, QPoint square) override;
    void Cancel(ToolContext&) override { Dragging_ = false; }
    QRect Outline() const override;

protected:
    // Ends the drag on a square and gives the rectangle it spans.
    QRect End(QPoint square);

private:
    QPoint Anchor_;
    QPoint Corner_;
    bool Dragging_ = false;
};

// Fills the rectangle from the press's square to the release's square.
class RectangleTool : public CornerDrag {
public:
    MapStep Release(ToolContext& context, QPoint square) override;
};

// Marks the rectangle from the press's square to the release's square as the
// selection.
class SelectTool : public CornerDrag {
public:
    MapStep Release(ToolContext& context, QPoint square) override;
    QRect Selected() const { return Selected_; }

private:
    QRect Selected_;
};

// Fills the region of the pressed square's block, side by side, at the press.
class FillTool : public MapTool {
public:
    MapStep Press(ToolContext& context, QPoint square) override;
};

// Paste mode: each press stamps the pattern with its top left on the square.
class StampTool : public MapTool {
public:
    void SetPattern(Pattern pattern) { Pattern_ = std::move(pattern); }
    const Pattern& Stamp() const { return Pattern_; }
    MapStep Press(ToolContext& context, QPoint square) override;

private:
    Pattern Pattern_;
};
