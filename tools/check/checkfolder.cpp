#include "check/checkfolder.h"

#include <QHash>
#include <algorithm>
#include <tuple>

#include "check/areamap.h"
#include "check/checks.h"

namespace Check {

namespace {
// Findings are told file by file in the order the editor reads the files,
// then by row and column.
int FileOrder(const QString& file) {
    static const QStringList order = {
        QStringLiteral("TilesetsR.twy"),  QStringLiteral("TilesetsB.twy"),
        QStringLiteral("Maps.twy"),       QStringLiteral("Morlick.twy"),
        QStringLiteral("EventTypes.twy"), QStringLiteral("Events.twy"),
        QStringLiteral("Tiles.png"),
    };
    const qsizetype at = order.indexOf(file);
    return at < 0 ? static_cast<int>(order.size()) : static_cast<int>(at);
}

bool Before(const Finding& a, const Finding& b) {
    return std::make_tuple(FileOrder(a.File), a.Row, a.Column) <
           std::make_tuple(FileOrder(b.File), b.Row, b.Column);
}

// Adds the findings of one version. A finding that another version made in
// the same words, such as a map's size, is one finding of both.
void Merge(std::vector<Finding>& all, std::vector<Finding>& found, const QString& version) {
    const auto key = [](const Finding& f) {
        return QStringLiteral("%1|%2|%3|%4").arg(f.File).arg(f.Row).arg(f.Column).arg(f.What);
    };
    QHash<QString, size_t> byKey;
    for (size_t i = 0; i < all.size(); ++i)
        if (!all[i].Versions.isEmpty()) byKey.insert(key(all[i]), i);
    for (Finding& finding : found) {
        const QString k = key(finding);
        if (const auto same = byKey.constFind(k); same != byKey.cend()) {
            all[same.value()].Versions << version;
            continue;
        }
        finding.Versions = QStringList{version};
        byKey.insert(k, all.size());
        all.push_back(std::move(finding));
    }
}

std::vector<Finding> CheckVersion(const SharedFiles& shared, VersionFiles& version) {
    std::vector<Finding> found;
    AreaMap areas(version.Rom, version.RomName);
    AreaMap* inRom = version.RomRead ? &areas : nullptr;
    if (version.TilesetsRead) CheckTilesets(version, inRom, found);
    if (shared.MapsRead) CheckMaps(shared, version, inRom, found);
    if (shared.MapsRead && shared.EventListsRead && inRom) CheckEventAreas(shared, areas, found);
    areas.ReportOverlaps(found);
    return found;
}
}  // namespace

int CheckReport::ExitStatus() const {
    if (!Unreadables.empty()) return 2;
    return Findings.empty() ? 0 : 1;
}

CheckReport CheckFolder(const QString& folder, const std::vector<VersionRom>& versions) {
    CheckReport report;
    const auto shared = ReadSharedFiles(folder, report.Unreadables);
    std::vector<Finding> all;
    if (shared->MapsRead) CheckCategories(*shared, all);
    if (shared->SpeciesRead) CheckSpeciesFile(*shared, all);
    CheckTileBank(folder, all);
    if (shared->EventTypesRead) CheckEventTypes(*shared, all);
    if (shared->MapsRead && shared->EventTypesRead && shared->EventListsRead)
        CheckEventCounts(*shared, all);
    for (const VersionRom& version : versions) {
        const QString name = VersionName(version.Version);
        report.Versions << name;
        const auto files = ReadVersionFiles(folder, version, report.Unreadables);
        std::vector<Finding> found = CheckVersion(*shared, *files);
        Merge(all, found, name);
    }
    // A finding of every version checked is told without naming versions.
    for (Finding& finding : all)
        if (finding.Versions.size() == report.Versions.size()) finding.Versions.clear();
    std::stable_sort(all.begin(), all.end(), Before);
    report.Findings = std::move(all);
    return report;
}

}  // namespace Check
