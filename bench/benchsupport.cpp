#include "bench/benchsupport.h"

#include "core/defines.h"
#include "startup/program.h"
#include "startup/splash.h"
#include "startup/versionselect.h"

namespace {
Fixture::SmallProject BigProject() {
    Fixture::SmallProject project(1024 * 1024);
    project.AddTileset(255, 0, 0, [](int b, int t) { return (b + t) % 94; });
    const int cat = project.AddCategory(QStringLiteral("Big"), 0);
    project.AddMap(cat, QStringLiteral("Wilds"), 255, 255, 0,
                   [](int x, int y) { return (x * 7 + y * 13) % 256; });
    // A full list of warps and of warp-to points, spread over the top left corner.
    std::vector<Fixture::Warp> warps;
    std::vector<Fixture::WarpToPoint> points;
    for (int i = 0; i < 16; ++i) {
        warps.push_back({i % 12, i, i, i});
        points.push_back({0, i % 12, 15 - i});
    }
    project.AddWarps(0, warps);
    project.AddWarpTo(0, points);
    // Two event types with full lists of 32 records.
    project.EventTypes.push_back(
        {QStringLiteral("A"), QStringLiteral("People"), 1, 8, 0, 0, 1, 2, 3, 4, 5, 6, 0, 0, 0});
    project.EventTypes.push_back(
        {QStringLiteral("B"), QStringLiteral("Signs"), 3, 5, 4, 4, 2, 3, 4, 0, 0, 0, 0, 0, 0});
    for (int type = 0; type < 2; ++type) {
        std::vector<QByteArray> records;
        for (int i = 0; i < 32; ++i) {
            QByteArray record(project.EventTypes[type].RecordSize, static_cast<char>(i));
            record[type] = static_cast<char>(4 + i % 12);
            record[type + 1] = static_cast<char>(4 + i % 16);
            records.push_back(record);
        }
        project.AddEventList(0, type, records);
    }
    return project;
}
}  // namespace

BigMapFolder::BigMapFolder() : Project_(BigProject()) {
    RomPath_ = Project_.Write(Dir_.path());
    Defines.Reset();
    Defines.ProgramFolder = Dir_.path();
    Defines.RomPath = RomPath_;
    SetDialogs(&Script_);
    QString error;
    LoadTilesetFile(Dir_.filePath(QStringLiteral("TilesetsR.twy")), Defines.TilesetTable, error);
    LoadMapsFile(Dir_.filePath(QStringLiteral("Maps.twy")), Defines.CategoryTable, Defines.MapTable,
                 Defines.CategoryCount, error);
}

BigMapFolder::~BigMapFolder() {
    Program::Reset();
    SetDialogs(nullptr);
}

MainForm* BigMapFolder::StartUp() {
    Script_.ChooseFile(RomPath_);
    Program::Main();
    Program::VersionSelectForm()->Command1_Click();
    Program::SplashForm()->Timer1_Timer();
    return Program::MainWindow();
}
