#include "render/mappicture.h"

#include <QImage>
#include <QPainter>
#include <QRect>
#include <algorithm>
#include <array>
#include <cstring>
#include <unordered_map>

#include "core/defines.h"
#include "mapview/compose.h"
#include "render/pngrows.h"

namespace {
constexpr int BlockPixels = 64;
constexpr int SquarePixels = 32;
constexpr int MostPaletteColours = 256;

// Palette indices of colours. A small table keyed on a hash of the colour
// answers nearly every pixel; a colour it does not hold is looked up in the
// palette and put into the table.
class ColourIndex {
public:
    explicit ColourIndex(const std::vector<QRgb>& palette) {
        for (size_t i = 0; i < palette.size(); ++i)
            Index_.emplace(palette[i] | Opaque, static_cast<unsigned char>(i));
    }
    unsigned char operator()(QRgb colour) {
        colour |= Opaque;
        Slot& slot = Table_[(colour * 0x9E3779B1u) >> (32 - TableBits)];
        if (slot.Colour != colour) {
            const auto found = Index_.find(colour);
            slot.Colour = colour;
            slot.Index = found == Index_.end() ? 0 : found->second;
        }
        return slot.Index;
    }

private:
    static constexpr QRgb Opaque = 0xFF000000u;
    static constexpr int TableBits = 12;
    struct Slot {
        QRgb Colour = 0;  // never a colour looked up, which is always opaque
        unsigned char Index = 0;
    };
    std::array<Slot, 1 << TableBits> Table_{};
    std::unordered_map<QRgb, unsigned char> Index_;
};

// The block of a slot of the picture: a square of the map, or the border
// block in the ring around it.
int BlockAt(int column, int row, int ring, const MapPictureOptions& options) {
    const int x = column - ring + 1;
    const int y = row - ring + 1;
    if (x < 1 || y < 1 || x > Defines.MapWidth || y > Defines.MapHeight) return *options.Border;
    return Defines.MapGrid[y][x];
}
}  // namespace

std::vector<QRgb> PaletteOf(const std::vector<const QPixmap*>& pictures) {
    std::vector<QRgb> palette;
    std::unordered_map<QRgb, bool> seen;
    for (const QPixmap* picture : pictures) {
        const QImage image = picture->toImage().convertToFormat(QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y) {
            const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
            for (int x = 0; x < image.width(); ++x) {
                if (!seen.emplace(line[x], true).second) continue;
                if (palette.size() == MostPaletteColours) return {};
                palette.push_back(line[x]);
            }
        }
    }
    return palette;
}

int WriteMapPicture(const QString& path, const MapPictureOptions& options,
                    const std::vector<QRgb>& palette, const PictureProgress& progress,
                    QString& error) {
    const int ring = options.Border ? 1 : 0;
    const int columns = Defines.MapWidth + 2 * ring;
    const int rows = Defines.MapHeight + 2 * ring;
    const int scale = options.Scale;
    const int width = columns * BlockPixels;
    const QRect whole(0, 0, width, rows * BlockPixels);

    // Marks are placed by their squares from the map's corner, inside the ring.
    std::vector<QRect> markRects;
    int outside = 0;
    for (const MapMark& mark : options.Marks) {
        const QRect rect(QPoint(ring * BlockPixels + SquarePixels * mark.Square.x(),
                                ring * BlockPixels + SquarePixels * mark.Square.y()),
                         mark.Picture->size());
        if (!whole.intersects(rect)) ++outside;
        markRects.push_back(rect);
    }

    PngRows file;
    if (!file.Open(path, width * scale, rows * BlockPixels * scale, palette)) {
        error = file.Error();
        return -1;
    }
    ColourIndex index(palette);
    QImage band(width, BlockPixels, QImage::Format_RGB32);
    std::vector<unsigned char> indexRow(palette.empty() ? 0 : static_cast<size_t>(width) * scale);
    std::vector<QRgb> colourRow(palette.empty() ? static_cast<size_t>(width) * scale : 0);
    for (int row = 0; row < rows; ++row) {
        {
            QPainter painter(&band);
            // Pictures are pixel art, set down at their own size, never smoothed.
            painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
            for (int column = 0; column < columns; ++column) {
                const auto pictures = BlockPictures(BlockAt(column, row, ring, options));
                for (int t = 0; t < Limits::TilesPerBlock; ++t)
                    painter.drawPixmap(QPoint(column * BlockPixels, 0) + PlaceOffset(t),
                                       *pictures[t]);
            }
            // A mark's picture may reach a pixel into the next row of blocks;
            // it is drawn in every row it touches.
            const QRect bandRect(0, row * BlockPixels, width, BlockPixels);
            for (size_t m = 0; m < markRects.size(); ++m)
                if (markRects[m].intersects(bandRect))
                    painter.drawPixmap(markRects[m].topLeft() - bandRect.topLeft(),
                                       *options.Marks[m].Picture);
        }
        for (int y = 0; y < BlockPixels; ++y) {
            const auto* line = reinterpret_cast<const QRgb*>(band.constScanLine(y));
            bool written = true;
            if (!palette.empty()) {
                unsigned char* out = indexRow.data();
                if (scale == 1) {
                    for (int x = 0; x < width; ++x)
                        out[x] = index(line[x]);
                } else {
                    for (int x = 0; x < width; ++x, out += scale)
                        std::memset(out, index(line[x]), static_cast<size_t>(scale));
                }
                for (int s = 0; s < scale && written; ++s)
                    written = file.WriteIndexRow(indexRow.data());
            } else {
                QRgb* out = colourRow.data();
                for (int x = 0; x < width; ++x, out += scale)
                    std::fill_n(out, scale, line[x]);
                for (int s = 0; s < scale && written; ++s)
                    written = file.WriteColourRow(colourRow.data());
            }
            if (!written) {
                error = file.Error();
                return -1;
            }
        }
        if (progress) progress(row + 1, rows);
    }
    if (!file.Close()) {
        error = file.Error();
        return -1;
    }
    return outside;
}
