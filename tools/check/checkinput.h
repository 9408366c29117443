#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "check/finding.h"
#include "core/eventtables.h"
#include "core/morlickfile.h"
#include "core/tables.h"
#include "rom/romfile.h"

namespace Check {

// The two versions of the game, each with its own tileset file and ROM.
enum class GameVersion { Red, Blue };
QString VersionName(GameVersion version);  // "red" or "blue"
QString TilesetFileName(GameVersion version);

// The data files that both versions share, read by the editor's own
// loaders. A file that could not be read leaves its flag false.
struct SharedFiles {
    CategoryTableT Categories;
    MapTableT Maps;
    std::int16_t LastCategory = -1;
    bool MapsRead = false;

    MorlickTables Species;
    bool SpeciesRead = false;

    EventTypeTableT EventTypes;
    std::int16_t LastEventType = -1;
    bool EventTypesRead = false;

    EventAddressTableT EventLists;
    bool EventListsRead = false;
};

// The files of one version: its tileset file and its ROM.
struct VersionFiles {
    GameVersion Version = GameVersion::Red;
    QString TilesetFile;
    TilesetTableT Tilesets;
    std::int16_t LastTileset = -1;
    bool TilesetsRead = false;

    RomFile Rom;
    QString RomName;  // the ROM's file name, for findings
    bool RomRead = false;
};

// A ROM to check together with the version it is of.
struct VersionRom {
    GameVersion Version = GameVersion::Red;
    QString RomPath;
};

// Reads the shared data files of a program folder; each file that cannot
// be read goes into `unreadable` with the editor's message.
std::unique_ptr<SharedFiles> ReadSharedFiles(const QString& folder,
                                             std::vector<Unreadable>& unreadable);
// Reads a version's tileset file from the folder and its ROM.
std::unique_ptr<VersionFiles> ReadVersionFiles(const QString& folder, const VersionRom& version,
                                               std::vector<Unreadable>& unreadable);

}  // namespace Check
