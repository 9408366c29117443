#include "support/smallproject.h"

#include <QDir>
#include <QFile>

namespace {
void WriteText(const QString& path, const QByteArray& text) {
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) file.write(text);
}
}  // namespace

QImage IndexTileBank() {
    QImage atlas(16 * 16, 33 * 16, QImage::Format_RGB32);
    for (int i = 0; i < 33 * 16; ++i)
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 16; ++x)
                atlas.setPixel((i % 16) * 16 + x, (i / 16) * 16 + y, qRgb(i % 256, i / 256, 7));
    return atlas;
}

SmallProject::SmallProject(int romSize, quint8 fill) : Rom(romSize, fill) {}

int SmallProject::Take(int size) {
    const int position = NextFree;
    NextFree += size;
    return position;
}

int SmallProject::AddTileset(int lastBlock, int bias, int tileBase,
                             std::function<int(int, int)> tiles) {
    Fixture::TilesetRow row;
    row.Field0 = QStringLiteral("Set%1").arg(Tilesets.size());
    row.LastTile = 93;
    row.TileBase = tileBase;
    row.LastBlock = lastBlock;
    row.BlockPos = Take((lastBlock + 1) * 16);
    row.BlockBias = bias;
    for (int b = 0; b <= lastBlock; ++b)
        for (int t = 0; t < 16; ++t)
            Rom.PutByte(row.BlockPos + 16 * b + t,
                        static_cast<quint8>(tiles ? tiles(b, t) : (b * 3 + t) % 94));
    Tilesets.push_back(row);
    return static_cast<int>(Tilesets.size()) - 1;
}

int SmallProject::AddCategory(const QString& name, int firstMap) {
    Categories.push_back({name, firstMap, {}});
    return static_cast<int>(Categories.size()) - 1;
}

int SmallProject::AddMap(int category, const QString& name, int cols, int rows, int tileset,
                         std::function<int(int, int)> block, int borderBlock) {
    const int bias = Tilesets[tileset].BlockBias;
    Fixture::MapRow map;
    map.Field0 = QStringLiteral("M");
    map.Name = name;
    map.Rows = rows;
    map.Cols = cols;
    map.Tileset = tileset;
    map.Note = QStringLiteral("Note of ") + name;
    map.ObjectPos = Take(1);
    Rom.PutByte(map.ObjectPos, static_cast<quint8>(borderBlock + bias));
    // A guard byte after the object byte, so a save that writes one byte too
    // many is seen.
    Take(1);
    map.GridPos = Take(cols * rows);
    Take(1);
    for (int y = 1; y <= rows; ++y)
        for (int x = 1; x <= cols; ++x)
            Rom.PutByte(map.GridPos + (y - 1) * cols + (x - 1),
                        static_cast<quint8>(block(x, y) + bias));
    auto& cat = Categories[category];
    cat.Maps.push_back(map);
    return cat.FirstMap + static_cast<int>(cat.Maps.size()) - 1;
}

Fixture::MapRow& SmallProject::Map(int row) {
    for (auto& cat : Categories)
        if (row >= cat.FirstMap && row < cat.FirstMap + static_cast<int>(cat.Maps.size()))
            return cat.Maps[row - cat.FirstMap];
    return Categories.front().Maps.front();
}

QString SmallProject::Write(const QString& folder) const {
    const QDir dir(folder);
    const QByteArray tilesets = Fixture::TilesetFileText(Tilesets);
    WriteText(dir.filePath(QStringLiteral("TilesetsR.twy")), tilesets);
    WriteText(dir.filePath(QStringLiteral("TilesetsB.twy")), tilesets);
    WriteText(dir.filePath(QStringLiteral("Maps.twy")), Fixture::MapsFileText(Categories));
    IndexTileBank().save(dir.filePath(QStringLiteral("Tiles.png")));
    const QString rom = dir.filePath(SmallRomName);
    Rom.Save(rom);
    return rom;
}
