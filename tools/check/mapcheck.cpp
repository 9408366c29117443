#include <QStringList>
#include <map>

#include "check/cells.h"
#include "check/checks.h"
#include "core/hextext.h"
#include "mapview/maploader.h"
#include "warpedit/warplist.h"
#include "wildedit/wildlist.h"

namespace Check {

namespace {

PlacedArea MapArea(const SharedFiles& files, int map, int column, const RomArea& area,
                   const QString& what) {
    PlacedArea placed;
    placed.Area = area;
    placed.Cell = MapCell(files, map, column);
    placed.What = what;
    placed.Whose = what + QStringLiteral(" of ") + MapLabel(files, map);
    return placed;
}

// The tileset column must name a row of the version's tileset file: a row
// beyond it is empty, and its blocks would be read from position 0.
void CheckTilesetRow(const SharedFiles& files, const VersionFiles& version, int map,
                     std::vector<Finding>& out) {
    const int tileset = files.Maps[map][MapTileset].ToInt16();
    if (tileset >= 0 && tileset <= version.LastTileset) return;
    out.push_back(Found(MapCell(files, map, MapTileset),
                        QStringLiteral("The map names tileset %1, but %2 has tilesets 0 to %3.")
                            .arg(tileset)
                            .arg(version.TilesetFile)
                            .arg(version.LastTileset)));
}

bool CheckSize(const SharedFiles& files, int map, std::vector<Finding>& out) {
    const auto& row = files.Maps[map];
    bool sound = true;
    const struct {
        MapColumn Column;
        const char* Way;
    } sizes[] = {{MapRows, "high"}, {MapCols, "wide"}};
    for (const auto& size : sizes) {
        const int blocks = row[size.Column].ToInt16();
        if (IsMapSize(blocks)) continue;
        sound = false;
        out.push_back(Found(MapCell(files, map, size.Column),
                            QStringLiteral("The map is %1 blocks %2, but a map is 1 to %3 "
                                           "blocks %2.")
                                .arg(blocks)
                                .arg(QLatin1String(size.Way))
                                .arg(Limits::MapSizeMax)));
    }
    return sound;
}

QString TooMany(int given, const QString& what, const QString& editor, int holds) {
    return QStringLiteral("%1 %2, but the %3 holds %4: it would show and save only the first %4.")
        .arg(given)
        .arg(what, editor)
        .arg(holds);
}

// The border byte, the warp count and the warps, as the map load and the
// warp editor read them from the object data.
void CheckObjectData(const SharedFiles& files, VersionFiles& version, AreaMap& areas, int map,
                     const MapPlace& place, std::vector<Finding>& out) {
    const auto& row = files.Maps[map];
    const RomArea border = place.Border;
    const PlacedArea borderByte =
        MapArea(files, map, MapObjectPos, border, QStringLiteral("the border byte"));
    // A map without object data has its border byte read from position 1,
    // and written back unchanged by the map save: it is no area of the map's.
    if (!HasObjectData(row) || !areas.CheckInside(borderByte, out)) return;
    // For the overlap check the object data is one area: the border byte,
    // then the warp count and the warps where the warp editor reads them.
    RomArea objects = border;
    if (WarpsEditable(row)) {
        WarpListPlace warps;
        if (!FindWarpList(version.Rom, row, WarpMode::Warps, warps)) {
            areas.CheckInside(MapArea(files, map, MapObjectPos, WarpCountArea(row),
                                      QStringLiteral("the warp count byte")),
                              out);
            return;
        }
        if (warps.Given > Limits::MaxWarps)
            out.push_back(Found(MapCell(files, map, MapObjectPos),
                                QStringLiteral("The warp count byte at position %1 of %2 gives ")
                                        .arg(WarpCountArea(row).Start)
                                        .arg(version.RomName) +
                                    TooMany(warps.Given, QStringLiteral("warps"),
                                            QStringLiteral("warp editor"), Limits::MaxWarps)));
        if (!areas.CheckInside(
                MapArea(files, map, MapObjectPos, warps.List(), QStringLiteral("the warp list")),
                out))
            return;
        objects.Bytes = static_cast<std::int32_t>(warps.List().End() - objects.Start);
    }
    areas.Place(MapArea(files, map, MapObjectPos, objects, QStringLiteral("the object data")), out);
}

void CheckWarpTo(const SharedFiles& files, VersionFiles& version, AreaMap* areas, int map,
                 std::vector<Finding>& out) {
    const auto& row = files.Maps[map];
    if (!WarpToEditable(row)) return;
    WarpListPlace points;
    FindWarpList(version.Rom, row, WarpMode::WarpTo, points);  // reads no byte of the ROM
    if (points.Given < 0)
        out.push_back(Found(MapCell(files, map, MapWarpToCount),
                            QStringLiteral("The map has %1 warp-to points, which cannot be: the "
                                           "warp editor would show none.")
                                .arg(points.Given)));
    if (points.Given > Limits::MaxWarps)
        out.push_back(Found(MapCell(files, map, MapWarpToCount),
                            QStringLiteral("The map has ") +
                                TooMany(points.Given, QStringLiteral("warp-to points"),
                                        QStringLiteral("warp editor"), Limits::MaxWarps)));
    if (areas)
        areas->Place(
            MapArea(files, map, MapWarpToPos, points.List(), QStringLiteral("the warp-to list")),
            out);
}

// The wild list, and the species codes in it that no record of Morlick.twy names.
void CheckWild(const SharedFiles& files, VersionFiles& version, AreaMap& areas, int map,
               std::vector<Finding>& out) {
    const auto& row = files.Maps[map];
    if (!WildEditable(row)) return;
    const std::int32_t position = row[MapWildPos].ToInt32();
    if (!areas.Place(MapArea(files, map, MapWildPos, WildListArea(position),
                             QStringLiteral("the wild list")),
                     out) ||
        !files.SpeciesRead)
        return;
    WildList list;
    QString error;
    if (!ReadWildList(version.Rom, position, list, error)) return;
    std::map<int, QStringList> unnamed;  // code, its slots
    for (int slot = 0; slot < Limits::WildSlots; ++slot) {
        const int code = list[static_cast<size_t>(slot)].Species;
        if (!files.Species.ByCode[code].Named) unnamed[code] << QString::number(slot);
    }
    if (unnamed.empty()) return;
    QStringList codes;
    for (const auto& [code, inSlots] : unnamed)
        codes << QStringLiteral("%1 (slot%2 %3)")
                     .arg(HexText(code))
                     .arg(inSlots.size() > 1 ? QStringLiteral("s") : QString())
                     .arg(inSlots.join(QStringLiteral(", ")));
    out.push_back(
        Found(MapCell(files, map, MapWildPos),
              QStringLiteral("The wild list at position %1 of %2 holds species code%3 "
                             "%4, which no record of Morlick.twy names: the wild "
                             "editor would show no name and no choice for %5.")
                  .arg(position)
                  .arg(version.RomName)
                  .arg(unnamed.size() > 1 ? QStringLiteral("s") : QString())
                  .arg(codes.join(QStringLiteral(", ")))
                  .arg(unnamed.size() > 1 ? QStringLiteral("them") : QStringLiteral("it"))));
}

}  // namespace

void CheckMaps(const SharedFiles& files, VersionFiles& version, AreaMap* areas,
               std::vector<Finding>& out) {
    // The block definitions of a map's tileset are placed with the tileset's
    // own row; here only the map's own areas count.
    const TilesetRowT noTileset{};
    for (const int map : MapRowsInUse(files)) {
        if (version.TilesetsRead) CheckTilesetRow(files, version, map, out);
        const bool sized = CheckSize(files, map, out);
        CheckWarpTo(files, version, areas, map, out);
        if (!areas) continue;
        const MapPlace place = FindMapPlace(files.Maps[map], noTileset);
        if (sized)
            areas->Place(MapArea(files, map, MapGridPos, place.Grid, QStringLiteral("the grid")),
                         out);
        CheckObjectData(files, version, *areas, map, place, out);
        CheckWild(files, version, *areas, map, out);
    }
}

}  // namespace Check
