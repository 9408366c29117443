#pragma once

#include <QImage>
#include <QString>
#include <functional>
#include <vector>

#include "fixture/category.h"
#include "fixture/mapsfile.h"
#include "fixture/romimage.h"
#include "fixture/tilesetfile.h"

// A program folder made for one test: a ROM with tilesets and maps placed on
// purpose, the matching data files and the tile bank.
class SmallProject {
public:
    explicit SmallProject(int romSize = 64 * 1024, quint8 fill = 0xA5);

    // Adds a tileset whose block b has tile number (b * 3 + t) % 94 at place t,
    // unless `tiles` says otherwise. Returns its row.
    int AddTileset(int lastBlock, int bias, int tileBase = 0,
                   std::function<int(int block, int place)> tiles = {});
    // Adds a category with no maps yet. Returns its row.
    int AddCategory(const QString& name, int firstMap);
    // Adds a map to a category, its grid filled by `block(x, y)` (1-based) plus
    // the tileset's bias, and its border byte. Returns its MapTable row.
    int AddMap(int category, const QString& name, int cols, int rows, int tileset,
               std::function<int(int x, int y)> block, int borderBlock = 0);

    Fixture::MapRow& Map(int row);
    Fixture::TilesetRow& Tileset(int row) { return Tilesets[row]; }

    // Writes TilesetsR.twy and TilesetsB.twy (the same tables), Maps.twy, the
    // tile bank and the ROM "test.gb" into folder. Returns the ROM's path.
    QString Write(const QString& folder) const;

    Fixture::RomImage Rom;
    std::vector<Fixture::TilesetRow> Tilesets;
    std::vector<Fixture::Category> Categories;
    int NextFree = 0x4001;  // the next free position of the ROM

private:
    int Take(int size);
};

// A tile bank whose every picture is different: picture i is filled with a
// colour made from i. Tests do not need pretty pictures, only telling ones.
QImage IndexTileBank();

inline const QString SmallRomName = QStringLiteral("test.gb");
