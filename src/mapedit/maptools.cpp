#include "mapedit/maptools.h"

#include <utility>

MapStep BrushTool::Press(ToolContext& context, QPoint square) {
    Stroke_ = PaintStep(context.Grid, {square}, context.Block);
    Stroke_.Apply(context.Grid);
    Last_ = square;
    return {};
}

bool BrushTool::Move(ToolContext& context, QPoint square) {
    if (square == Last_) return false;
    const MapStep part = PaintStep(context.Grid, LineSquares(Last_, square), context.Block);
    part.Apply(context.Grid);
    Stroke_.Append(part);
    Last_ = square;
    return !part.Empty();
}

MapStep BrushTool::Release(ToolContext& context, QPoint square) {
    Move(context, square);
    return std::exchange(Stroke_, {});
}

void BrushTool::Cancel(ToolContext& context) {
    Stroke_.Apply(context.Grid, false);
    Stroke_ = {};
}

MapStep CornerDrag::Press(ToolContext&, QPoint square) {
    Anchor_ = Corner_ = square;
    Dragging_ = true;
    return {};
}

bool CornerDrag::Move(ToolContext&, QPoint square) {
    Corner_ = square;
    return false;
}

QRect CornerDrag::Outline() const {
    return Dragging_ ? SquaresBetween(Anchor_, Corner_) : QRect();
}

QRect CornerDrag::End(QPoint square) {
    Corner_ = square;
    Dragging_ = false;
    return SquaresBetween(Anchor_, Corner_);
}

MapStep RectangleTool::Release(ToolContext& context, QPoint square) {
    MapStep step = RectangleStep(context.Grid, End(square), context.Block);
    step.Apply(context.Grid);
    return step;
}

MapStep SelectTool::Release(ToolContext&, QPoint square) {
    Selected_ = End(square);
    return {};
}

MapStep FillTool::Press(ToolContext& context, QPoint square) {
    MapStep step = FillStep(context.Grid, context.Width, context.Height, square, context.Block);
    step.Apply(context.Grid);
    return step;
}

MapStep StampTool::Press(ToolContext& context, QPoint square) {
    MapStep step = StampStep(context.Grid, context.Width, context.Height, Pattern_, square);
    step.Apply(context.Grid);
    return step;
}
