#pragma once

#include <QPixmap>
#include <QPoint>
#include <QRgb>
#include <QString>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

// A mark on a map picture: the picture of an editor's symbol, put on a
// half-block square of the map as the placement views put it.
struct MapMark {
    QPoint Square;  // half-block squares from the map's top left corner, from 0
    const QPixmap* Picture = nullptr;
};

// What a map picture shows besides the map.
struct MapPictureOptions {
    // Each pixel of the editor's view becomes a square of Scale x Scale pixels.
    int Scale = 1;
    // The map's border block, drawn as a ring of one block around the map.
    std::optional<std::int16_t> Border;
    // Drawn in this order over the blocks, a later mark over an earlier one.
    std::vector<MapMark> Marks;
};

// The colours of a set of pictures, for a file with indexed colours: empty
// when they are more than 256.
std::vector<QRgb> PaletteOf(const std::vector<const QPixmap*>& pictures);

// Called after each row of blocks with the rows done and the rows in all.
using PictureProgress = std::function<void(int done, int all)>;

// Draws the map of the working state (MapGrid, BlockTiles, CurTileset,
// MapWidth and MapHeight, as a map load leaves them) into a PNG file, one
// row of blocks at a time, each block composed from its tile pictures as the
// editor's view composes it. A block is 64 x 64 pixels and a half-block square
// 32 x 32, times the scale. `palette` lists every colour the pictures can
// give, or is empty for a file in RGB. Returns the number of marks that lie
// outside the picture, or -1 with a message when the file cannot be written.
int WriteMapPicture(const QString& path, const MapPictureOptions& options,
                    const std::vector<QRgb>& palette, const PictureProgress& progress,
                    QString& error);
