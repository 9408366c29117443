// Writes the seed inputs of the fuzz targets into <folder>/<target>/, from
// the demo world and from small layouts of the fixture library. The data
// files are the demo's own; the ROM targets get the demo's lists and maps
// moved to the front of a small ROM image, so that a seed is a few hundred
// bytes and not the whole ROM. Run by `make fuzz-seeds`; fuzz runs never
// write into these folders.
#include <QBuffer>
#include <QDir>
#include <QImage>
#include <cstdio>
#include <functional>
#include <memory>
#include <optional>

#include "core/eventtables.h"
#include "core/tables.h"
#include "demo/demoproject.h"
#include "fixture/mapsfile.h"
#include "fixture/morlickfile.h"
#include "fixture/project.h"
#include "fixture/smallproject.h"
#include "fixture/tilesetfile.h"
#include "fixture/warpdata.h"
#include "fixture/wilddata.h"
#include "fuzz/fuzzinput.h"

namespace {

QString Folder;
bool Failed = false;

void Seed(const char* target, const char* name, const QByteArray& bytes) {
    const QString dir = QDir(Folder).filePath(QString::fromLatin1(target));
    QString error;
    if (!QDir().mkpath(dir) ||
        !Fixture::WriteFile(QDir(dir).filePath(QString::fromLatin1(name)), bytes, &error)) {
        std::fprintf(stderr, "%s/%s: %s\n", target, name, qPrintable(error));
        Failed = true;
    }
}

// A ROM image of `filler` bytes with `area` at `position`.
QByteArray Image(int size, int position, const QByteArray& area, char filler = '\xA5') {
    QByteArray image(size, filler);
    image.replace(position - 1, area.size(), area);
    return image;
}

QByteArray Png(const QImage& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return bytes;
}

// A map row of the demo and its row number.
struct DemoMapRow {
    int Row;
    const Fixture::MapRow* Map;
};

// The demo map whose `cost` is smallest; a cost of 0 or less rules a map out.
DemoMapRow Cheapest(const Fixture::Project& demo,
                    const std::function<int(const DemoMapRow&)>& cost) {
    std::optional<DemoMapRow> best;
    for (const Fixture::Category& category : demo.Categories) {
        for (std::size_t i = 0; i < category.Maps.size(); ++i) {
            const DemoMapRow row{category.FirstMap + static_cast<int>(i), &category.Maps[i]};
            if (cost(row) > 0 && (!best || cost(row) < cost(*best))) best = row;
        }
    }
    if (!best) {
        std::fprintf(stderr, "The demo has no map for a seed.\n");
        std::exit(1);
    }
    return *best;
}

QByteArray RomBytes(const Fixture::RomImage& rom, int position, int count) {
    return rom.Bytes().mid(position - 1, count);
}

void DataFileSeeds(const Fixture::Project& demo) {
    const QByteArray tilesets = Fixture::TilesetFileText(demo.TilesetsRed);
    // The first two groups of the demo's map list are plenty for a seed.
    const QByteArray mapsHead = Fixture::MapsFileText({demo.Categories[0], demo.Categories[1]});

    Seed("fieldreader", "demo-tilesets", tilesets);
    Seed("fieldreader", "demo-maps-head", mapsHead);
    Seed("fieldreader", "awkward",
         "head, \"not closed\r\n\"North Road, east\",,  12 ,#TRUE#,#false#\r\n"
         "1e3,-7.5,0x10,\"Caf\xE9\"\n\"a\nb\" tail,word\n,\n\n");

    Seed("tilesetfile", "demo-red", tilesets);
    Seed("tilesetfile", "demo-blue", Fixture::TilesetFileText(demo.TilesetsBlue));
    Seed("tilesetfile", "one-block", Fixture::TilesetFileText({{"A", "B", 0, 424, 0, 16385, 0}}));

    Seed("mapsfile", "demo-head", mapsHead);
    Seed("mapsfile", "demo-tail",
         Fixture::MapsFileText(
             std::vector<Fixture::Category>(demo.Categories.end() - 2, demo.Categories.end())));
    // A category without maps and one whose rows leave a gap.
    Fixture::MapRow small;
    small.Name = QStringLiteral("Nook");
    Seed("mapsfile", "gaps",
         Fixture::MapsFileText(
             {{QStringLiteral("Empty"), 0, {}}, {QStringLiteral("Far"), 250, {small, small}}}));

    Seed("morlickfile", "demo", demo.MorlickText);
    Seed("morlickfile", "out-of-order",
         Fixture::MorlickFileText(
             {{0x10, QStringLiteral("Sixteen"), 2}, {0xFF, QStringLiteral("Last"), 1}}));

    Seed("eventtypesfile", "demo", demo.EventTypesText);
    Seed("eventsfile", "demo", demo.EventsText);

    Seed("tilebank", "demo", Png(demo.Tiles));
    Seed("tilebank", "one-picture", Png(demo.Tiles.copy(0, 0, 16, 16)));
}

void MapLoaderSeeds(const Fixture::Project& demo) {
    const auto blocks = [&](const DemoMapRow& r) {
        return (demo.TilesetsRed[static_cast<std::size_t>(r.Map->Tileset)].LastBlock + 1) * 16;
    };
    const DemoMapRow r =
        Cheapest(demo, [&](const DemoMapRow& r) { return blocks(r) + r.Map->Rows * r.Map->Cols; });
    const Fixture::MapRow& map = *r.Map;
    const Fixture::TilesetRow& set = demo.TilesetsRed[static_cast<std::size_t>(map.Tileset)];
    // Blocks, border byte and grid moved to the front of the ROM, one after the other.
    const QByteArray blockBytes = RomBytes(demo.RomRed, set.BlockPos, blocks(r));
    const QByteArray border = RomBytes(demo.RomRed, map.ObjectPos, 1);
    const QByteArray grid = RomBytes(demo.RomRed, map.GridPos, map.Rows * map.Cols);
    const int borderPos = 1 + static_cast<int>(blockBytes.size());
    FuzzInputWriter demoSeed;
    demoSeed.Byte(static_cast<std::uint8_t>(r.Row))
        .Byte(0)
        .Text(0x6E656C47)
        .Numbers({borderPos + 1, borderPos, map.Rows, map.Cols, map.Tileset, set.LastBlock, 1,
                  set.BlockBias})
        .Bytes(blockBytes + border + grid);
    Seed("maploader", "demo-smallest", demoSeed.Data());

    // One block, a 1 x 1 map whose grid byte is the ROM's last byte and lies
    // below the bias.
    FuzzInputWriter edge;
    edge.Byte(255)
        .Byte(0)
        .Empty()
        .Numbers({19, 18, 1, 1, 255, 0, 2, 0x40})
        .Bytes(Image(19, 2, QByteArray(16, '\x07') + "\x41\x3F"));
    Seed("maploader", "one-square-at-the-end", edge.Data());
}

void WarpSeeds(const Fixture::Project& demo) {
    const DemoMapRow warps = Cheapest(demo, [&](const DemoMapRow& r) {
        return r.Map->ObjectPos == 1 ? 0 : demo.RomRed.At(r.Map->ObjectPos + 1);
    });
    const int count = demo.RomRed.At(warps.Map->ObjectPos + 1);
    const QByteArray objects = RomBytes(demo.RomRed, warps.Map->ObjectPos, 2 + 4 * count);
    FuzzInputWriter warpSeed;
    warpSeed.Byte(static_cast<std::uint8_t>(warps.Row))
        .Byte(0)
        .Text(0x6E776F54)
        .Numbers({3, 1, 0})
        .Bytes(Image(static_cast<int>(objects.size()) + 3, 3, objects));
    Seed("warplist", "demo-warps", warpSeed.Data());

    const DemoMapRow to = Cheapest(demo, [](const DemoMapRow& r) { return r.Map->WarpToCount; });
    const QByteArray points = RomBytes(demo.RomRed, to.Map->WarpToPos, 4 * to.Map->WarpToCount);
    FuzzInputWriter toSeed;
    toSeed.Byte(static_cast<std::uint8_t>(to.Row))
        .Byte(1)
        .Text(0x6E776F54)
        .Numbers({1, 2, to.Map->WarpToCount})
        .Bytes(Image(static_cast<int>(points.size()) + 2, 2, points));
    Seed("warplist", "demo-warp-to", toSeed.Data());

    // A list of 17 warps, one more than the editor holds, ending at the ROM's end.
    std::vector<Fixture::Warp> seventeen(17);
    for (int i = 0; i < 17; ++i)
        seventeen[static_cast<std::size_t>(i)] = {i, i, i, 255 - i};
    const QByteArray many = Fixture::ObjectDataBytes(0x20, seventeen);
    FuzzInputWriter manySeed;
    manySeed.Byte(0).Byte(0).Empty().Numbers({1}).Empty().Empty().Bytes(many);
    Seed("warplist", "seventeen", manySeed.Data());
}

void WildSeeds(const Fixture::Project& demo) {
    const DemoMapRow wild =
        Cheapest(demo, [](const DemoMapRow& r) { return r.Map->WildPos == 1 ? 0 : r.Row + 1; });
    const QByteArray list = RomBytes(demo.RomRed, wild.Map->WildPos, 20);
    FuzzInputWriter demoSeed;
    demoSeed.Numbers({3}).Bytes(Image(24, 3, list));
    Seed("wildlist", "demo", demoSeed.Data());
    // The list ends with the ROM's last byte; its position is written as text.
    Fixture::EncounterList levels;
    for (int slot = 0; slot < 10; ++slot)
        levels[static_cast<std::size_t>(slot)] = {slot * 25, 255 - slot};
    FuzzInputWriter edge;
    edge.NumberText(5).Bytes(Image(24, 5, Fixture::WildBytes(levels)));
    Seed("wildlist", "at-the-end", edge.Data());
}

void EventSeeds(const Fixture::Project& demo) {
    // The demo's own rows, read by the program's readers.
    const auto types = std::make_unique<EventTypeTableT>();
    const auto addresses = std::make_unique<EventAddressTableT>();
    std::int16_t lastType = -1;
    QString error;
    if (!LoadEventTypesFile(QStringLiteral("EventTypes.twy"), demo.EventTypesText, *types, lastType,
                            error) ||
        !LoadEventsFile(QStringLiteral("Events.twy"), demo.EventsText, *addresses, error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        std::exit(1);
    }
    const auto countOf = [&](int map, int listColumn) {
        return (*addresses)[map][listColumn + 1].ToInt32();
    };
    // For each type, the map with its shortest list.
    for (int type = 0; type <= lastType; ++type) {
        EventLayout layout;
        if (!ReadEventLayout(*types, type, layout, error)) continue;
        int best = -1;
        for (int map = 0; map < Limits::TableRows; ++map) {
            const int count = countOf(map, layout.ListColumn);
            if (count > 0 && (best < 0 || count < countOf(best, layout.ListColumn))) best = map;
        }
        if (best < 0) continue;
        const auto& row = (*addresses)[best];
        const int count = countOf(best, layout.ListColumn);
        const QByteArray list =
            RomBytes(demo.RomRed, row[layout.ListColumn].ToInt32(), count * layout.RecordSize);
        FuzzInputWriter seed;
        seed.Byte(static_cast<std::uint8_t>(type));
        for (int c = TypeListColumn; c < EventTypeColumnCount; ++c)
            seed.Numbers({(*types)[type][c].ToInt32()});
        seed.Byte(static_cast<std::uint8_t>(best));
        for (int c = 1; c < EventAddressColumns; ++c)
            seed.Numbers({c == layout.ListColumn ? 3 : row[c].ToInt32()});
        seed.Bytes(Image(static_cast<int>(list.size()) + 3, 3, list));
        const QByteArray name = "demo-type-" + QByteArray::number(type);
        Seed("eventlist", name.constData(), seed.Data());
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "Usage: %s <corpus folder>\n", argv[0]);
        return 2;
    }
    Folder = QString::fromLocal8Bit(argv[1]);
    const Fixture::Project demo = Fixture::DemoProject();
    DataFileSeeds(demo);
    MapLoaderSeeds(demo);
    WarpSeeds(demo);
    WildSeeds(demo);
    EventSeeds(demo);
    return Failed ? 1 : 0;
}
