#include "demo/art/tilebank.h"

#include "demo/art/tilecatalogue.h"

namespace Fixture {

namespace {
constexpr int PicturesAcross = 16;
constexpr int PictureSize = 16;

// Paints a tile at double size. An indexed image takes the colour value
// itself, any other image its shade.
void PaintTile(QImage& image, int left, int top, const Tile& tile) {
    const bool indexed = image.format() == QImage::Format_Indexed8;
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x) {
            const quint8 value = tile[static_cast<size_t>(y * 8 + x)] & 3;
            const uint shade = indexed ? value : Shades[value];
            for (int dy = 0; dy < 2; ++dy)
                for (int dx = 0; dx < 2; ++dx)
                    image.setPixel(left + 2 * x + dx, top + 2 * y + dy, shade);
        }
}
}  // namespace

QImage TileBankImage() {
    const TileCatalogue& catalogue = Catalogue();
    const int rows = (TileCatalogue::Pictures + PicturesAcross - 1) / PicturesAcross;
    // An indexed image keeps the file small and holds exactly the four shades.
    QImage image(PicturesAcross * PictureSize, rows * PictureSize, QImage::Format_Indexed8);
    image.setColorTable(QList<QRgb>(Shades.begin(), Shades.end()));
    image.fill(0);
    for (int index = 0; index < TileCatalogue::Pictures; ++index)
        PaintTile(image, (index % PicturesAcross) * PictureSize,
                  (index / PicturesAcross) * PictureSize, catalogue.At(index));
    return image;
}

QImage BankPicture(int index) {
    QImage image(PictureSize, PictureSize, QImage::Format_RGB32);
    image.fill(Shades[0]);
    if (index < 0 || index >= TileCatalogue::Pictures) {
        for (int i = 0; i < PictureSize; ++i) {
            image.setPixel(i, i, Shades[3]);
            image.setPixel(PictureSize - 1 - i, i, Shades[3]);
        }
        return image;
    }
    PaintTile(image, 0, 0, Catalogue().At(index));
    return image;
}

}  // namespace Fixture
