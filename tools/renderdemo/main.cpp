// Draws the maps of a program folder into pictures, the way the editor
// composes them: block definitions and grids read from a ROM at the positions
// of the data files, each tile taken from the tile bank. It reads the files on
// its own, so it also checks that what makedemo wrote hangs together.
//
//   renderdemo <program folder> <output folder> [R|B] [rom file]
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTextStream>
#include <vector>

namespace {
// The data-file text as a stream of fields: comma or line end between
// fields, text in double quotes.
class Fields {
public:
    explicit Fields(const QString& text) : Text_(text) {}
    void SkipLine() {
        while (Pos_ < Text_.size() && Text_[Pos_] != u'\n')
            ++Pos_;
        if (Pos_ < Text_.size()) ++Pos_;
    }
    bool AtEnd() const { return Text_.mid(Pos_).trimmed().isEmpty(); }
    QString Next() {
        while (Pos_ < Text_.size() && Text_[Pos_] == u' ')
            ++Pos_;
        QString field;
        if (Pos_ < Text_.size() && Text_[Pos_] == u'"') {
            const qsizetype end = Text_.indexOf(u'"', Pos_ + 1);
            field = Text_.mid(Pos_ + 1, end - Pos_ - 1);
            Pos_ = end + 1;
        } else {
            while (Pos_ < Text_.size() && Text_[Pos_] != u',' && Text_[Pos_] != u'\n')
                field += Text_[Pos_++];
        }
        if (Pos_ < Text_.size()) ++Pos_;
        return field.trimmed();
    }
    int Number() { return Next().toInt(); }

private:
    QString Text_;
    qsizetype Pos_ = 0;
};

QString ReadText(const QString& path) {
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll());
}

struct Tileset {
    int TileBase, LastBlock, BlockPos, Bias;
};
struct Map {
    QString Name;
    int Row, GridPos, Rows, Cols, Tileset;
};
}  // namespace

int main(int argc, char** argv) {
    QTextStream out(stdout);
    if (argc < 3) {
        out << "Usage: renderdemo <program folder> <output folder> [R|B] [rom file]\n";
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    const QDir output(QString::fromLocal8Bit(argv[2]));
    output.mkpath(QStringLiteral("."));
    const bool blue = argc > 3 && argv[3][0] == 'B';
    const QString romPath = argc > 4 ? QString::fromLocal8Bit(argv[4])
                                     : folder.filePath(blue ? "MorlickBlue.gb" : "MorlickRed.gb");

    std::vector<Tileset> tilesets;
    Fields tilesetFile(ReadText(folder.filePath(blue ? "TilesetsB.twy" : "TilesetsR.twy")));
    tilesetFile.SkipLine();
    while (!tilesetFile.AtEnd()) {
        tilesetFile.Next();
        tilesetFile.Next();
        tilesetFile.Number();
        Tileset t{};
        t.TileBase = tilesetFile.Number();
        t.LastBlock = tilesetFile.Number();
        t.BlockPos = tilesetFile.Number();
        t.Bias = tilesetFile.Number();
        tilesets.push_back(t);
    }

    std::vector<Map> maps;
    Fields mapsFile(ReadText(folder.filePath("Maps.twy")));
    mapsFile.SkipLine();
    while (!mapsFile.AtEnd()) {
        mapsFile.SkipLine();
        mapsFile.Next();
        const int first = mapsFile.Number();
        const int count = mapsFile.Number();
        for (int i = 0; i < count; ++i) {
            std::vector<QString> f;
            for (int k = 0; k < 18; ++k)
                f.push_back(mapsFile.Next());
            maps.push_back(
                {f[1], first + i, f[2].toInt(), f[5].toInt(), f[7].toInt(), f[8].toInt()});
        }
    }

    QFile romFile(romPath);
    romFile.open(QIODevice::ReadOnly);
    const QByteArray rom = romFile.readAll();
    const auto byteAt = [&rom](int position) {
        return position >= 1 && position <= rom.size() ? static_cast<quint8>(rom[position - 1]) : 0;
    };
    const QImage bank(folder.filePath("Tiles.png"));
    const QImage bankRgb = bank.convertToFormat(QImage::Format_RGB32);

    for (const Map& map : maps) {
        const Tileset& t = tilesets[static_cast<size_t>(map.Tileset)];
        // Large maps are drawn at a quarter of the size, and cut to 64 x 64 blocks.
        const int cols = std::min(map.Cols, 64);
        const int rows = std::min(map.Rows, 64);
        QImage image(cols * 64, rows * 64, QImage::Format_RGB32);
        image.fill(Qt::red);
        QPainter painter(&image);
        for (int y = 0; y < rows; ++y)
            for (int x = 0; x < cols; ++x) {
                const int block = byteAt(map.GridPos + y * map.Cols + x) - t.Bias;
                for (int place = 0; place < 16; ++place) {
                    const int tile = byteAt(t.BlockPos + 16 * block + place);
                    const int index = t.TileBase + tile;
                    if (index < 0 || index >= 520) continue;
                    painter.drawImage(QPoint(x * 64 + (place % 4) * 16, y * 64 + (place / 4) * 16),
                                      bankRgb, QRect((index % 16) * 16, (index / 16) * 16, 16, 16));
                }
            }
        painter.end();
        // A map larger than the picture also gets an overview, four pixels a
        // block.
        if (map.Cols > cols || map.Rows > rows) {
            QImage overview(map.Cols * 4, map.Rows * 4, QImage::Format_RGB32);
            QPainter small(&overview);
            std::vector<QImage> cache(256);
            for (int y = 0; y < map.Rows; ++y)
                for (int x = 0; x < map.Cols; ++x) {
                    const int block = byteAt(map.GridPos + y * map.Cols + x) - t.Bias;
                    if (block < 0 || block > 255) continue;
                    QImage& shrunk = cache[static_cast<size_t>(block)];
                    if (shrunk.isNull()) {
                        QImage full(64, 64, QImage::Format_RGB32);
                        QPainter one(&full);
                        for (int place = 0; place < 16; ++place) {
                            const int index = t.TileBase + byteAt(t.BlockPos + 16 * block + place);
                            if (index >= 0 && index < 520)
                                one.drawImage(QPoint((place % 4) * 16, (place / 4) * 16), bankRgb,
                                              QRect((index % 16) * 16, (index / 16) * 16, 16, 16));
                        }
                        one.end();
                        shrunk = full.scaled(4, 4, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
                    }
                    small.drawImage(QPoint(x * 4, y * 4), shrunk);
                }
            small.end();
            overview.save(output.filePath(QStringLiteral("%1_overview.png").arg(map.Row)));
        }
        const QString name = QStringLiteral("%1_%2.png")
                                 .arg(map.Row, 2, 10, QLatin1Char('0'))
                                 .arg(map.Name.simplified().replace(' ', '_').remove('\''));
        image.save(output.filePath(name));
        out << name << ' ' << map.Cols << 'x' << map.Rows << '\n';
    }
    return 0;
}
