#include "warpedit/warplist.h"

#include <QFileInfo>
#include <algorithm>

#include "core/defines.h"

QString WarpFieldName(WarpMode mode, int field) {
    static const QString warp[] = {QStringLiteral("y"), QStringLiteral("x"),
                                   QStringLiteral("Warp-To Point"), QStringLiteral("Warp-To Map")};
    static const QString warpTo[] = {QStringLiteral("Event Placement (low byte)"),
                                     QStringLiteral("Event Placement (high byte)"),
                                     QStringLiteral("y"), QStringLiteral("x")};
    return mode == WarpMode::Warps ? warp[field] : warpTo[field];
}

void ShiftWarpList(WarpTable& rows, int count, WarpMode mode, int map, int sign) {
    // An offset counts squares and is held to 16 bits like the program's other
    // counts, so that a byte with an offset on or off always fits a field.
    const int dx = sign * Defines.MapTable[map][MapXShift].ToInt16();
    const int dy = sign * Defines.MapTable[map][MapYShift].ToInt16();
    for (int i = 0; i < count; ++i) {
        rows[i][XField(mode)] += dx;
        rows[i][YField(mode)] += dy;
    }
}

namespace {
QString NotInRom(const QString& what, std::int32_t position, int bytes, const RomFile& rom) {
    return QStringLiteral(
               "The %1 (%2 bytes from position %3) does not lie inside the ROM file \"%4\", "
               "which has %5 bytes.\n\nThe data files do not fit this ROM.")
        .arg(what)
        .arg(bytes)
        .arg(position)
        .arg(QFileInfo(rom.Path()).fileName())
        .arg(rom.Size());
}
}  // namespace

RomArea WarpCountArea(const MapRowT& map) {
    return {PositionAfter(map[MapObjectPos].ToInt32(), 1), 1};
}

bool FindWarpList(RomFile& rom, const MapRowT& map, WarpMode mode, WarpListPlace& place) {
    const QString name = map[MapName].ToText();
    WarpListPlace found;
    if (mode == WarpMode::Warps) {
        const RomArea countAt = WarpCountArea(map);
        if (!rom.Contains(countAt)) return false;
        found.Given = rom.ReadByte(countAt.Start);
        found.Start = PositionAfter(countAt.Start, countAt.Bytes);
    } else {
        found.Given = map[MapWarpToCount].ToInt32();
        found.Start = map[MapWarpToPos].ToInt32();
        if (found.Given < 0)
            found.Notice = QStringLiteral(
                               "Maps.twy gives map \"%1\" %2 warp-to points, which cannot be; "
                               "the editor shows none.")
                               .arg(name)
                               .arg(found.Given);
    }
    found.Count = std::max(found.Given, 0);
    if (found.Count > Limits::MaxWarps) {
        found.Notice = QStringLiteral(
                           "Map \"%1\" has %2 %3, but the editor holds %4. It shows the first "
                           "%4; the others stay in the ROM as they are.")
                           .arg(name)
                           .arg(found.Given)
                           .arg(mode == WarpMode::Warps ? QStringLiteral("warps")
                                                        : QStringLiteral("warp-to points"))
                           .arg(Limits::MaxWarps);
        found.Count = Limits::MaxWarps;
    }
    place = found;
    return true;
}

bool ReadWarpList(RomFile& rom, int map, WarpMode mode, WarpTable& rows, WarpListPlace& place,
                  QString& error) {
    const auto& row = Defines.MapTable[map];
    const QString name = row[MapName].ToText();
    WarpListPlace found;
    if (!FindWarpList(rom, row, mode, found)) {
        const RomArea countAt = WarpCountArea(row);
        error = NotInRom(QStringLiteral("warp count of map \"%1\"").arg(name), countAt.Start,
                         countAt.Bytes, rom);
        return false;
    }
    const RomArea list = found.List();
    if (!list.IsEmpty() && !rom.Contains(list)) {
        error = NotInRom((mode == WarpMode::Warps ? QStringLiteral("warp list of map \"%1\"")
                                                  : QStringLiteral("warp-to list of map \"%1\""))
                             .arg(name),
                         list.Start, list.Bytes, rom);
        return false;
    }
    std::int32_t p = found.Start;
    for (int i = 0; i < found.Count; ++i)
        for (std::int32_t& field : rows[i])
            field = rom.ReadByte(p++);
    place = found;
    return true;
}

void WriteWarpList(RomFile& rom, std::int32_t start, const WarpTable& rows, int count) {
    std::int32_t p = start;
    for (int i = 0; i < count; ++i)
        for (const std::int32_t field : rows[i])
            rom.RomWriteByte(p++, static_cast<std::uint8_t>(field));
}

void EventPlacement(int mapCols, int column, int row, int fix, std::int32_t& low,
                    std::int32_t& high) {
    // 239 (EF) and 198 (C6) are the low and high bytes of the placement of
    // the map's first square; a row of blocks is W + 6 further on.
    const long long sum =
        239LL + mapCols + column + static_cast<long long>(row) * (mapCols + 6) + fix;
    long long carry = sum / 256;
    long long rest = sum % 256;
    if (rest < 0) {
        rest += 256;
        --carry;
    }
    low = static_cast<std::int32_t>(rest);
    high = static_cast<std::int32_t>(198 + carry);
}
