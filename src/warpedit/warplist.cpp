#include "warpedit/warplist.h"

#include <QFileInfo>

#include "core/defines.h"

QString WarpFieldName(WarpMode mode, int field) {
    static const QString warp[] = {QStringLiteral("y"), QStringLiteral("x"),
                                   QStringLiteral("Warp-To Point"), QStringLiteral("Warp-To Map")};
    static const QString warpTo[] = {QStringLiteral("Event Placement (low byte)"),
                                     QStringLiteral("Event Placement (high byte)"),
                                     QStringLiteral("y"), QStringLiteral("x")};
    return mode == WarpMode::Warps ? warp[field] : warpTo[field];
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

bool ReadWarpList(RomFile& rom, int map, WarpMode mode, WarpTable& rows, WarpListPlace& place,
                  QString& error) {
    const auto& row = Defines.MapTable[map];
    const QString name = row[MapName].ToText();
    int count = 0;
    WarpListPlace found;
    if (mode == WarpMode::Warps) {
        const std::int32_t objects = row[MapObjectPos].ToInt32();
        const std::int32_t countAt = objects + 1;
        if (!rom.Contains(countAt)) {
            error = NotInRom(QStringLiteral("warp count of map \"%1\"").arg(name), countAt, 1, rom);
            return false;
        }
        count = rom.ReadByte(countAt);
        found.Start = objects + 2;
    } else {
        count = row[MapWarpToCount].ToInt32();
        found.Start = row[MapWarpToPos].ToInt32();
        if (count < 0) {
            found.Notice = QStringLiteral(
                               "Maps.twy gives map \"%1\" %2 warp-to points, which cannot be; "
                               "the editor shows none.")
                               .arg(name)
                               .arg(count);
            count = 0;
        }
    }
    if (count > Limits::MaxWarps) {
        found.Notice = QStringLiteral(
                           "Map \"%1\" has %2 %3, but the editor holds %4. It shows the first "
                           "%4; the others stay in the ROM as they are.")
                           .arg(name)
                           .arg(count)
                           .arg(mode == WarpMode::Warps ? QStringLiteral("warps")
                                                        : QStringLiteral("warp-to points"))
                           .arg(Limits::MaxWarps);
        count = Limits::MaxWarps;
    }
    const int bytes = 4 * count;
    if (count > 0 && !rom.Contains(found.Start, bytes)) {
        error = NotInRom((mode == WarpMode::Warps ? QStringLiteral("warp list of map \"%1\"")
                                                  : QStringLiteral("warp-to list of map \"%1\""))
                             .arg(name),
                         found.Start, bytes, rom);
        return false;
    }
    std::int32_t p = found.Start;
    for (int i = 0; i < count; ++i)
        for (std::int32_t& field : rows[i])
            field = rom.ReadByte(p++);
    found.Count = count;
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
