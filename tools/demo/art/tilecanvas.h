#pragma once

#include <initializer_list>
#include <vector>

#include "demo/art/tile.h"

namespace Fixture {

// A small picture in the four colour values, drawn on at pixel level and then
// cut into 8 x 8 tiles. Drawing outside the canvas is ignored.
//
// Pixel art is given as rows of characters: '.' lightest, '-' light, '+' dark,
// '#' darkest, and a blank leaves the pixel as it is.
class TileCanvas {
public:
    TileCanvas(int width, int height, quint8 fill = 0);
    explicit TileCanvas(const Tile& tile);

    int Width() const { return Width_; }
    int Height() const { return Height_; }

    quint8 At(int x, int y) const;
    void Set(int x, int y, quint8 shade);
    void Fill(int x, int y, int width, int height, quint8 shade);
    void HLine(int x, int y, int length, quint8 shade);
    void VLine(int x, int y, int length, quint8 shade);
    void Frame(int x, int y, int width, int height, quint8 shade);
    void Art(int x, int y, std::initializer_list<const char*> rows);
    // Repaints the background: every pixel of shade from that is joined to
    // the canvas's edge through pixels of that shade takes shade to.
    void FillBackground(quint8 from, quint8 to);
    // Turns the canvas a quarter turn clockwise or mirrors it left to right.
    TileCanvas Turned() const;
    TileCanvas Mirrored() const;
    TileCanvas Flipped() const;  // top to bottom

    // The 8 x 8 tile whose top left pixel is (8 * tileX, 8 * tileY).
    Tile TileAt(int tileX = 0, int tileY = 0) const;

private:
    int Width_;
    int Height_;
    std::vector<quint8> Pixels_;
};

}  // namespace Fixture
