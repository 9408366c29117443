#include "core/mapdrawing.h"

#include <algorithm>
#include <cstdlib>

QRect SquaresBetween(QPoint a, QPoint b) {
    return QRect(QPoint(std::min(a.x(), b.x()), std::min(a.y(), b.y())),
                 QPoint(std::max(a.x(), b.x()), std::max(a.y(), b.y())));
}

std::vector<QPoint> LineSquares(QPoint from, QPoint to) {
    // Bresenham's line: one square per step along the longer axis.
    std::vector<QPoint> squares;
    const int dx = std::abs(to.x() - from.x());
    const int dy = -std::abs(to.y() - from.y());
    const int sx = from.x() < to.x() ? 1 : -1;
    const int sy = from.y() < to.y() ? 1 : -1;
    int error = dx + dy;
    QPoint at = from;
    for (;;) {
        squares.push_back(at);
        if (at == to) break;
        const int twice = 2 * error;
        if (twice >= dy) {
            error += dy;
            at.rx() += sx;
        }
        if (twice <= dx) {
            error += dx;
            at.ry() += sy;
        }
    }
    return squares;
}

MapStep PaintStep(const MapGridT& grid, const std::vector<QPoint>& squares, std::int16_t block) {
    MapStep step;
    for (const QPoint& square : squares) {
        const int old = grid[square.y()][square.x()];
        if (old != block) step.Add(square.y(), square.x(), old, block);
    }
    return step;
}

MapStep RectangleStep(const MapGridT& grid, QRect squares, std::int16_t block) {
    MapStep step;
    for (int y = squares.top(); y <= squares.bottom(); ++y)
        for (int x = squares.left(); x <= squares.right(); ++x)
            if (grid[y][x] != block) step.Add(y, x, grid[y][x], block);
    return step;
}

MapStep FillStep(const MapGridT& grid, int width, int height, QPoint start, std::int16_t block) {
    MapStep step;
    const int old = grid[start.y()][start.x()];
    if (old == block) return step;
    // Each square is marked when it joins the region, so none is taken twice.
    std::vector<std::uint8_t> seen(static_cast<size_t>((width + 2) * (height + 2)), 0);
    const auto mark = [&](int x, int y) {
        if (x < 1 || y < 1 || x > width || y > height) return false;
        const size_t at = static_cast<size_t>(y * (width + 2) + x);
        if (seen[at] || grid[y][x] != old) return false;
        seen[at] = 1;
        return true;
    };
    std::vector<QPoint> open;
    open.reserve(static_cast<size_t>(width + height));
    mark(start.x(), start.y());
    open.push_back(start);
    while (!open.empty()) {
        const QPoint at = open.back();
        open.pop_back();
        step.Add(at.y(), at.x(), old, block);
        for (const QPoint next : {QPoint(at.x() - 1, at.y()), QPoint(at.x() + 1, at.y()),
                                  QPoint(at.x(), at.y() - 1), QPoint(at.x(), at.y() + 1)})
            if (mark(next.x(), next.y())) open.push_back(next);
    }
    return step;
}

MapStep StampStep(const MapGridT& grid, int width, int height, const Pattern& pattern,
                  QPoint topLeft) {
    MapStep step;
    const int lastRow = std::min(height, topLeft.y() + pattern.Height - 1);
    const int lastColumn = std::min(width, topLeft.x() + pattern.Width - 1);
    for (int y = std::max(1, topLeft.y()); y <= lastRow; ++y)
        for (int x = std::max(1, topLeft.x()); x <= lastColumn; ++x) {
            const int block = pattern.At(x - topLeft.x(), y - topLeft.y());
            if (grid[y][x] != block) step.Add(y, x, grid[y][x], block);
        }
    return step;
}
