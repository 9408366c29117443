#include <benchmark/benchmark.h>

#include <QDir>
#include <QTemporaryDir>

#include "check/checkfolder.h"
#include "demo/demoproject.h"
#include "fixture/datafilenames.h"
#include "fixture/eventrecord.h"
#include "fixture/project.h"
#include "fixture/smallproject.h"

namespace {
// A folder of 256 maps of 16 x 16 blocks, each with 16 warps, 16 warp-to
// points, a wild list and two full event lists: every map row in use and
// about 1,800 areas for the checker to place.
Fixture::SmallProject FullFolder() {
    Fixture::SmallProject project(4 * 1024 * 1024);
    project.AddTileset(255, 0);
    const int category = project.AddCategory(QStringLiteral("All"), 0);
    project.Species = {{0x01, QStringLiteral("One"), 1}};
    Fixture::EventType people;
    people.Name = QStringLiteral("People");
    people.ListColumn = 1;
    people.RecordSize = 8;
    Fixture::EventType signs;
    signs.Name = QStringLiteral("Signs");
    signs.ListColumn = 3;
    signs.RecordSize = 5;
    project.EventTypes = {people, signs};
    Fixture::EncounterList wild{};
    wild.fill({5, 0x01});
    for (int map = 0; map < 256; ++map) {
        project.AddMap(category, QStringLiteral("Map %1").arg(map), 16, 16, 0,
                       [](int x, int y) { return (x + y) % 256; });
        project.AddWarps(map, std::vector<Fixture::Warp>(16));
        project.AddWarpTo(map, std::vector<Fixture::WarpToPoint>(16));
        project.AddWildList(map, wild);
        for (int type = 0; type < 2; ++type)
            project.AddEventList(
                map, type,
                std::vector<QByteArray>(32, Fixture::EventRecord(project.EventTypes[type], 1, 1)));
    }
    return project;
}
}  // namespace

// The check that a user runs on the bundled demo, both versions.
static void BM_CheckDemoBothVersions(benchmark::State& state) {
    QTemporaryDir dir;
    Fixture::WriteProject(Fixture::DemoProject(), dir.path());
    const QDir folder(dir.path());
    const std::vector<Check::VersionRom> roms = {
        {Check::GameVersion::Red, folder.filePath(QLatin1String(Fixture::RomFileRed))},
        {Check::GameVersion::Blue, folder.filePath(QLatin1String(Fixture::RomFileBlue))}};
    for (auto _ : state) {
        const Check::CheckReport report = Check::CheckFolder(dir.path(), roms);
        if (report.ExitStatus() != 0) state.SkipWithError("the demo gave findings");
        benchmark::DoNotOptimize(report.Findings.size());
    }
}
BENCHMARK(BM_CheckDemoBothVersions)->Unit(benchmark::kMillisecond);

// The check of a folder whose 256 map rows are all in use, with every list.
static void BM_CheckFullFolder256(benchmark::State& state) {
    QTemporaryDir dir;
    const QString rom = FullFolder().Write(dir.path());
    for (auto _ : state) {
        const Check::CheckReport report =
            Check::CheckFolder(dir.path(), {{Check::GameVersion::Red, rom}});
        if (report.ExitStatus() != 0) state.SkipWithError("the full folder gave findings");
        benchmark::DoNotOptimize(report.Findings.size());
    }
}
BENCHMARK(BM_CheckFullFolder256)->Unit(benchmark::kMillisecond);
