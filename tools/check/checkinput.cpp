#include "check/checkinput.h"

#include <QDir>
#include <QFileInfo>

namespace Check {

namespace {
// The editor's messages end with a sentence on what it cannot do without the
// file, after a blank line; on one line of a report the two read as one.
QString OneLine(const QString& message) {
    return message.simplified();
}

void Refused(const QString& file, const QString& message, std::vector<Unreadable>& unreadable) {
    unreadable.push_back({file, OneLine(message)});
}
}  // namespace

QString VersionName(GameVersion version) {
    return version == GameVersion::Red ? QStringLiteral("red") : QStringLiteral("blue");
}

QString TilesetFileName(GameVersion version) {
    return version == GameVersion::Red ? QStringLiteral("TilesetsR.twy")
                                       : QStringLiteral("TilesetsB.twy");
}

std::unique_ptr<SharedFiles> ReadSharedFiles(const QString& folder,
                                             std::vector<Unreadable>& unreadable) {
    auto files = std::make_unique<SharedFiles>();
    const QDir dir(folder);
    QString error;
    const QString maps = QStringLiteral("Maps.twy");
    files->MapsRead = LoadMapsFile(dir.filePath(maps), files->Categories, files->Maps,
                                   files->LastCategory, error);
    if (!files->MapsRead) Refused(maps, error, unreadable);

    const QString species = QStringLiteral("Morlick.twy");
    files->SpeciesRead = LoadMorlickFile(dir.filePath(species), files->Species, error);
    if (!files->SpeciesRead) Refused(species, error, unreadable);

    const QString types = QStringLiteral("EventTypes.twy");
    files->EventTypesRead =
        LoadEventTypesFile(dir.filePath(types), files->EventTypes, files->LastEventType, error);
    if (!files->EventTypesRead) Refused(types, error, unreadable);

    const QString lists = QStringLiteral("Events.twy");
    files->EventListsRead = LoadEventsFile(dir.filePath(lists), files->EventLists, error);
    if (!files->EventListsRead) Refused(lists, error, unreadable);
    return files;
}

std::unique_ptr<VersionFiles> ReadVersionFiles(const QString& folder, const VersionRom& version,
                                               std::vector<Unreadable>& unreadable) {
    auto files = std::make_unique<VersionFiles>();
    files->Version = version.Version;
    files->TilesetFile = TilesetFileName(version.Version);
    QString error;
    files->TilesetsRead = LoadTilesetFile(QDir(folder).filePath(files->TilesetFile),
                                          files->Tilesets, error, &files->LastTileset);
    if (!files->TilesetsRead) Refused(files->TilesetFile, error, unreadable);

    files->RomName = QFileInfo(version.RomPath).fileName();
    files->RomRead = files->Rom.Open(version.RomPath);
    if (!files->RomRead) Refused(files->RomName, files->Rom.Error(), unreadable);
    return files;
}

}  // namespace Check
