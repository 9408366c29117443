#include "startup/romload.h"

#include "core/datafilenames.h"
#include "core/defines.h"

bool ReadRomAndDataFiles(const QString& tilesetFile, LoadedMap& firstMap, QString& error) {
    if (tilesetFile.isEmpty()) {
        error = QStringLiteral("No version of the game was chosen, so there is no tileset file.");
        return false;
    }
    Defines.ClearTables();
    if (!LoadTilesetFile(Defines.ProgramFolder + u'/' + tilesetFile, Defines.TilesetTable, error) ||
        !LoadMapsFile(Defines.ProgramFolder + u'/' + DataFileNames::Maps, Defines.CategoryTable,
                      Defines.MapTable, Defines.CategoryCount, error))
        return false;
    Defines.CurTileset = 0;
    Defines.CurCategory = 0;
    Defines.CurMap = 0;
    return ReadMap(0, firstMap, error);
}
