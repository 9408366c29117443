#pragma once

#include <map>
#include <string>
#include <vector>

#include "demo/art/tile.h"
#include "demo/art/tilecanvas.h"

namespace Fixture {

// One run of the tile bank: a stretch of consecutive bank indices that holds
// the tiles of one or more tilesets. Tiles are added in order under a name, so
// that block definitions can name their tiles instead of counting them. Some
// places of a run hold the all-lightest picture; they are filled as the run
// grows past them.
class TileRun {
public:
    TileRun(int base, int size, std::vector<int> blankOffsets);

    int Base() const { return Base_; }
    int Size() const { return Size_; }

    // Adds a tile and returns its offset in the run.
    int Add(const std::string& name, const Tile& tile);
    int Add(const std::string& name, const TileCanvas& canvas) {
        return Add(name, canvas.TileAt());
    }
    // Adds every tile of a canvas, row by row; tile (x, y) is named "name:x:y".
    void AddCanvas(const std::string& name, const TileCanvas& canvas);
    // Adds the tile that another run holds under a name, keeping the name.
    int Copy(const TileRun& other, const std::string& name);
    // Adds the tile another run holds at an offset, keeping its name.
    int CopyAt(const TileRun& other, int offset);

    // The offset of a named tile: its tile number in a tileset whose tile base
    // is this run's base. Stops the program on an unknown name, which is a
    // mistake in the drawing code.
    int Number(const std::string& name) const;
    const Tile& At(int offset) const { return Tiles_[static_cast<size_t>(offset)]; }
    const std::vector<Tile>& Tiles() const { return Tiles_; }
    std::string NameAt(int offset) const;

    // Fills the blank places still open and checks that the run has its size.
    void Finish();

private:
    void FillBlanks();

    int Base_;
    int Size_;
    std::vector<int> BlankOffsets_;
    std::vector<Tile> Tiles_;
    std::map<std::string, int> Names_;
};

// Name of tile (x, y) of a picture added with AddCanvas.
std::string Part(const std::string& name, int x, int y);

}  // namespace Fixture
