#include "demo/demoproject.h"

#include "demo/art/tilebank.h"
#include "demo/art/tilecatalogue.h"
#include "demo/demoevents.h"
#include "demo/maps/demomap.h"
#include "fixture/cartridge.h"
#include "fixture/eventsfile.h"
#include "fixture/eventtypesfile.h"
#include "fixture/morlickfile.h"
#include "fixture/warpdata.h"

namespace Fixture {

namespace {
// Where the areas of the demo ROMs lie. The block definitions of both versions
// share one bank but stand in a different order and at a different start, so
// a tileset file of the other version points at the wrong blocks.
constexpr int BlockArea = 0x0C000 + 1;
constexpr int BlueBlockShift = 0x90;
constexpr int WildlandsGridArea = 0x20000 + 1;
constexpr int GridArea = 0x30000 + 1;
constexpr int ObjectArea = 0x38000 + 1;
constexpr int WildArea = 0x3C000 + 1;
constexpr int EventArea = 0x3D000 + 1;
constexpr quint32 FillerSeed = 0x4D4F524Cu;

struct TilesetInfo {
    const char* Name;
    int Run;
    int Bias;
};

// One entry per row of DemoTilesets, in the same order.
constexpr TilesetInfo TilesetInfos[DemoTilesets::Count] = {
    {"Overworld", 1, 0x20}, {"Cottage", 2, 0x40}, {"Hall", 3, 0x10},    {"Cavern", 4, 0x80},
    {"Forest", 5, 0x08},    {"Wilds", 6, 0x00},   {"Harbour", 6, 0x50},
};

std::vector<TilesetRow> TilesetRows(const std::vector<int>& blockPositions) {
    const TileCatalogue& bank = Catalogue();
    std::vector<TilesetRow> rows;
    for (int i = 0; i < DemoTilesets::Count; ++i) {
        const TilesetInfo& info = TilesetInfos[i];
        const TileRun& run = bank.Run(info.Run);
        TilesetRow row;
        row.Field0 = info.Name;
        row.Field1 = QStringLiteral("Run %1").arg(info.Run);
        row.LastTile = run.Size() - 1;
        row.TileBase = run.Base();
        row.LastBlock = DemoBlocks().Sets[i].Count() - 1;
        row.BlockPos = blockPositions[static_cast<size_t>(i)];
        row.BlockBias = info.Bias;
        rows.push_back(row);
    }
    return rows;
}

// Puts every tileset's blocks into a ROM from start on, in the given order,
// each area starting on a 16-byte boundary, and gives the positions by row.
std::vector<int> PutAllBlocks(RomImage& rom, int start, const std::vector<int>& order) {
    std::vector<int> positions(DemoTilesets::Count, 1);
    rom.SetNextFree(start);
    for (const int row : order) {
        const std::vector<BlockDef>& blocks = DemoBlocks().Sets[row].Blocks();
        const int position = rom.Allocate(static_cast<int>(blocks.size()) * 16, 16);
        PutBlocks(rom, position, blocks);
        positions[static_cast<size_t>(row)] = position;
    }
    return positions;
}

struct Layout {
    RomImage Shared;  // grids, object data, warp-to lists, events
    RomImage Red;     // the version's own bytes: blocks and encounters
    RomImage Blue;
    std::vector<Category> Categories;
    std::vector<EventAddresses> Events;
};

void LayOutMap(Layout& layout, const DemoMap& map, MapRow& row, int& gridCursor, int& objectCursor,
               int& wildCursor, int& eventCursor) {
    row = map.Info;
    row.Field0 = QStringLiteral("%1").arg(map.Row, 2, 16, QLatin1Char('0')).toUpper();
    row.Tileset = map.Tileset;
    row.Rows = map.Grid.Rows();
    row.Cols = map.Grid.Cols();
    const int bias = TilesetInfos[map.Tileset].Bias;

    RomImage& shared = layout.Shared;
    // The big map has a bank to itself; the others follow each other.
    if (map.Grid.Rows() * map.Grid.Cols() > 0x4000) {
        row.GridPos = WildlandsGridArea;
    } else {
        shared.SetNextFree(gridCursor);
        row.GridPos = shared.Allocate(map.Grid.Rows() * map.Grid.Cols());
        gridCursor = shared.NextFree();
    }
    PutGrid(shared, row.GridPos, map.Grid, bias);

    shared.SetNextFree(objectCursor);
    row.ObjectPos = 1;
    if (map.HasObjects) {
        std::vector<Warp> warps = map.Warps;
        for (Warp& warp : warps) {
            warp.X -= row.XShift;
            warp.Y -= row.YShift;
        }
        const QByteArray bytes = ObjectDataBytes(map.Border + bias, warps);
        row.ObjectPos = shared.Allocate(static_cast<int>(bytes.size()));
        shared.Put(row.ObjectPos, bytes);
    }
    row.WarpToPos = 1;
    row.WarpToCount = 0;
    if (map.HasWarpTo) {
        std::vector<WarpToPoint> points;
        for (const Square& at : map.WarpTo)
            points.push_back({EventPlacement(row.Cols, at.X / 2, at.Y / 2, row.PlacementFix),
                              at.Y - row.YShift, at.X - row.XShift});
        const QByteArray bytes = WarpToBytes(points);
        row.WarpToPos = shared.Allocate(static_cast<int>(bytes.size()));
        shared.Put(row.WarpToPos, bytes);
        row.WarpToCount = static_cast<int>(points.size());
    }
    objectCursor = shared.NextFree();

    row.WildPos = 1;
    if (map.HasWild) {
        row.WildPos = wildCursor;
        layout.Red.Put(wildCursor, WildBytes(map.WildRed));
        layout.Blue.Put(wildCursor, WildBytes(map.WildBlue));
        wildCursor += 20;
    }

    if (map.HasEventRecord) {
        EventAddresses addresses;
        addresses.MapRow = map.Row;
        for (int type = 0; type < DemoEventTypeCount; ++type) {
            const auto& records = map.Events[static_cast<size_t>(type)];
            const int column = DemoEventTypes()[static_cast<size_t>(type)].ListColumn;
            if (records.empty()) continue;
            addresses.SetList(column, eventCursor, static_cast<int>(records.size()));
            for (const QByteArray& record : records) {
                shared.Put(eventCursor, record);
                eventCursor += static_cast<int>(record.size());
            }
        }
        layout.Events.push_back(addresses);
    }
}

// Copies every byte where the shared image differs from the filler into a
// version's ROM.
void Merge(RomImage& version, const RomImage& shared, const RomImage& filler) {
    for (int position = 1; position <= shared.Size(); ++position)
        if (shared.At(position) != filler.At(position))
            version.PutByte(position, shared.At(position));
}
}  // namespace

Project DemoProject() {
    RomImage filler(DemoRomSize);
    FillWithFiller(filler, FillerSeed);
    Layout layout{filler, filler, filler, {}, {}};

    // Each version has its own tileset file: Red keeps the tilesets in row
    // order, Blue in the reverse order and a little further on.
    const std::vector<int> forward{0, 1, 2, 3, 4, 5, 6};
    const std::vector<int> backward{6, 5, 4, 3, 2, 1, 0};

    int gridCursor = GridArea;
    int objectCursor = ObjectArea;
    int wildCursor = WildArea;
    int eventCursor = EventArea;
    for (const DemoCategory& plan : DemoWorld()) {
        Category category{plan.Name, plan.FirstMap, {}};
        for (const DemoMap& map : plan.Maps) {
            category.Maps.emplace_back();
            LayOutMap(layout, map, category.Maps.back(), gridCursor, objectCursor, wildCursor,
                      eventCursor);
        }
        layout.Categories.push_back(category);
    }

    Project project;
    project.RomRed = layout.Red;
    project.RomBlue = layout.Blue;
    Merge(project.RomRed, layout.Shared, filler);
    Merge(project.RomBlue, layout.Shared, filler);
    project.TilesetsRed = TilesetRows(PutAllBlocks(project.RomRed, BlockArea, forward));
    project.TilesetsBlue =
        TilesetRows(PutAllBlocks(project.RomBlue, BlockArea + BlueBlockShift, backward));
    PutCartridgeHeader(project.RomRed, QStringLiteral("MORLICK RED"));
    PutCartridgeHeader(project.RomBlue, QStringLiteral("MORLICK BLUE"));
    FinishChecksum(project.RomRed);
    FinishChecksum(project.RomBlue);

    project.Categories = layout.Categories;
    project.MorlickText = MorlickFileText(DemoSpecies());
    project.EventTypesText = EventTypesFileText(DemoEventTypes());
    project.EventsText = EventsFileText(layout.Events);
    project.Tiles = TileBankImage();
    return project;
}

}  // namespace Fixture
