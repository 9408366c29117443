// Draws the program's icon, tarnwey.png: a house, a tree and a path on a
// square of the game's four shades, drawn here by hand pixel by pixel and
// scaled up without smoothing.
//
//   makeicon <output file>
#include <QImage>
#include <QTextStream>

#include "mapview/bankatlas.h"

namespace {
// One character a pixel: '.' the lightest shade, '+' and 'o' the middle
// ones, '#' the darkest.
const char* const Art[] = {
    "################",  //
    "#..............#",  //
    "#....#.....++..#",  //
    "#...###...+oo+.#",  //
    "#..#####.+oooo+#",  //
    "#.#######+oooo+#",  //
    "#..ooooo.+oooo+#",  //
    "#..o#ooo..+oo+.#",  //
    "#..o#o#o...##..#",  //
    "#..ooooo...##..#",  //
    "#++++++++++++++#",  //
    "#+o+++o+++o+++o#",  //
    "#++++++++++++++#",  //
    "#..o.....o...o.#",  //
    "#.....o........#",  //
    "################",  //
};
constexpr int ArtPixels = 16;
constexpr int Scale = 16;  // 256 x 256 pixels

int Shade(char c) {
    switch (c) {
        case '+':
            return 1;
        case 'o':
            return 2;
        case '#':
            return 3;
        default:
            return 0;
    }
}
}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        QTextStream(stderr) << "Usage: makeicon <output file>\n";
        return 2;
    }
    QImage art(ArtPixels, ArtPixels, QImage::Format_RGB32);
    for (int y = 0; y < ArtPixels; ++y)
        for (int x = 0; x < ArtPixels; ++x)
            art.setPixel(x, y, BankAtlas::Shades[Shade(Art[y][x])]);
    const QImage icon = art.scaled(ArtPixels * Scale, ArtPixels * Scale, Qt::IgnoreAspectRatio,
                                   Qt::FastTransformation);
    return icon.save(QString::fromLocal8Bit(argv[1]), "PNG") ? 0 : 1;
}
