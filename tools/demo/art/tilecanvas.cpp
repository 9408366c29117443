#include "demo/art/tilecanvas.h"

#include <cstring>

namespace Fixture {

TileCanvas::TileCanvas(int width, int height, quint8 fill)
    : Width_(width), Height_(height), Pixels_(static_cast<size_t>(width) * height, fill) {}

TileCanvas::TileCanvas(const Tile& tile) : TileCanvas(8, 8) {
    for (int i = 0; i < 64; ++i)
        Pixels_[static_cast<size_t>(i)] = tile[static_cast<size_t>(i)];
}

quint8 TileCanvas::At(int x, int y) const {
    if (x < 0 || y < 0 || x >= Width_ || y >= Height_) return 0;
    return Pixels_[static_cast<size_t>(y) * Width_ + x];
}

void TileCanvas::Set(int x, int y, quint8 shade) {
    if (x < 0 || y < 0 || x >= Width_ || y >= Height_) return;
    Pixels_[static_cast<size_t>(y) * Width_ + x] = shade & 3;
}

void TileCanvas::Fill(int x, int y, int width, int height, quint8 shade) {
    for (int row = y; row < y + height; ++row)
        for (int col = x; col < x + width; ++col)
            Set(col, row, shade);
}

void TileCanvas::HLine(int x, int y, int length, quint8 shade) {
    Fill(x, y, length, 1, shade);
}

void TileCanvas::VLine(int x, int y, int length, quint8 shade) {
    Fill(x, y, 1, length, shade);
}

void TileCanvas::Frame(int x, int y, int width, int height, quint8 shade) {
    HLine(x, y, width, shade);
    HLine(x, y + height - 1, width, shade);
    VLine(x, y, height, shade);
    VLine(x + width - 1, y, height, shade);
}

void TileCanvas::Art(int x, int y, std::initializer_list<const char*> rows) {
    int row = y;
    for (const char* line : rows) {
        const int length = static_cast<int>(std::strlen(line));
        for (int i = 0; i < length; ++i) {
            switch (line[i]) {
                case '.':
                    Set(x + i, row, 0);
                    break;
                case '-':
                    Set(x + i, row, 1);
                    break;
                case '+':
                    Set(x + i, row, 2);
                    break;
                case '#':
                    Set(x + i, row, 3);
                    break;
                default:
                    break;  // a blank keeps what lies beneath
            }
        }
        ++row;
    }
}

void TileCanvas::FillBackground(quint8 from, quint8 to) {
    if (from == to) return;
    std::vector<std::pair<int, int>> open;
    for (int x = 0; x < Width_; ++x) {
        open.emplace_back(x, 0);
        open.emplace_back(x, Height_ - 1);
    }
    for (int y = 0; y < Height_; ++y) {
        open.emplace_back(0, y);
        open.emplace_back(Width_ - 1, y);
    }
    while (!open.empty()) {
        const auto [x, y] = open.back();
        open.pop_back();
        if (x < 0 || y < 0 || x >= Width_ || y >= Height_ || At(x, y) != from) continue;
        Set(x, y, to);
        open.emplace_back(x + 1, y);
        open.emplace_back(x - 1, y);
        open.emplace_back(x, y + 1);
        open.emplace_back(x, y - 1);
    }
}

TileCanvas TileCanvas::Turned() const {
    TileCanvas turned(Height_, Width_);
    for (int y = 0; y < Height_; ++y)
        for (int x = 0; x < Width_; ++x)
            turned.Set(Height_ - 1 - y, x, At(x, y));
    return turned;
}

TileCanvas TileCanvas::Mirrored() const {
    TileCanvas mirrored(Width_, Height_);
    for (int y = 0; y < Height_; ++y)
        for (int x = 0; x < Width_; ++x)
            mirrored.Set(Width_ - 1 - x, y, At(x, y));
    return mirrored;
}

TileCanvas TileCanvas::Flipped() const {
    TileCanvas flipped(Width_, Height_);
    for (int y = 0; y < Height_; ++y)
        for (int x = 0; x < Width_; ++x)
            flipped.Set(x, Height_ - 1 - y, At(x, y));
    return flipped;
}

Tile TileCanvas::TileAt(int tileX, int tileY) const {
    Tile tile{};
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            tile[static_cast<size_t>(y * 8 + x)] = At(tileX * 8 + x, tileY * 8 + y);
    return tile;
}

}  // namespace Fixture
