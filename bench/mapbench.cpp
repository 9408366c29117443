#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QPixmap>

#include "bench/benchsupport.h"
#include "core/defines.h"
#include "eventedit/eventedit.h"
#include "mapedit/mapsave.h"
#include "mapview/maploader.h"
#include "rom/romsave.h"
#include "startup/program.h"
#include "support/offscreen.h"
#include "warpedit/warpedit.h"

namespace {
// The naive load: one system call for every byte, each naming its position.
void ReadMapBytewise(const QString& romPath, int map) {
    const auto& row = Defines.MapTable[map];
    const auto& set = Defines.TilesetTable[row[MapTileset].ToInt16()];
    const int fd = ::open(romPath.toLocal8Bit().constData(), O_RDONLY);
    auto read = [fd](int position) {
        unsigned char byte = 0;
        if (::pread(fd, &byte, 1, position - 1) != 1) byte = 0;
        return byte;
    };
    const int bias = set[TilesetBlockBias].ToInt16();
    int p = set[TilesetBlockPos].ToInt32();
    for (int b = 0; b <= set[TilesetLastBlock].ToInt16(); ++b)
        for (int t = 0; t < 16; ++t)
            Defines.BlockTiles[b][t] = read(p++);
    benchmark::DoNotOptimize(read(row[MapObjectPos].ToInt32()) - bias);
    p = row[MapGridPos].ToInt32();
    const int height = row[MapRows].ToInt16();
    const int width = row[MapCols].ToInt16();
    for (int y = 1; y <= height; ++y)
        for (int x = 1; x <= width; ++x)
            Defines.MapGrid[y][x] = static_cast<std::int16_t>(read(p++) - bias);
    ::close(fd);
}

void WriteMapBytewise(const QString& romPath, const LoadedMap& map) {
    const int fd = ::open(romPath.toLocal8Bit().constData(), O_RDWR);
    auto write = [fd](int position, int value) {
        const unsigned char byte = static_cast<unsigned char>(value);
        benchmark::DoNotOptimize(::pwrite(fd, &byte, 1, position - 1));
    };
    write(map.BorderPos, map.BorderNum);
    int p = map.GridPos;
    for (int y = 1; y <= Defines.MapHeight; ++y)
        for (int x = 1; x <= Defines.MapWidth; ++x)
            write(p++, Defines.MapGrid[y][x]);
    ::close(fd);
}
}  // namespace

static void BM_LoadMap255(benchmark::State& state) {
    BigMapFolder folder;
    LoadedMap loaded;
    QString error;
    for (auto _ : state) {
        if (!ReadMap(folder.Map(), loaded, error)) state.SkipWithError("load failed");
        benchmark::DoNotOptimize(Defines.MapGrid[255][255]);
    }
}
BENCHMARK(BM_LoadMap255)->Unit(benchmark::kMicrosecond);

static void BM_LoadMap255_SystemCallPerByte(benchmark::State& state) {
    BigMapFolder folder;
    for (auto _ : state) {
        ReadMapBytewise(folder.RomPath(), folder.Map());
        benchmark::DoNotOptimize(Defines.MapGrid[255][255]);
    }
}
BENCHMARK(BM_LoadMap255_SystemCallPerByte)->Unit(benchmark::kMicrosecond);

static void BM_SaveMap255(benchmark::State& state) {
    BigMapFolder folder;
    LoadedMap loaded;
    QString error;
    ReadMap(folder.Map(), loaded, error);
    for (auto _ : state) {
        const bool saved = SaveToRom(folder.RomPath(), QString(), Backup::Skip, [&](RomFile& rom) {
            WriteMap(rom, loaded, loaded.BorderNum);
        });
        if (!saved) state.SkipWithError("save failed");
    }
}
BENCHMARK(BM_SaveMap255)->Unit(benchmark::kMicrosecond);

static void BM_SaveMap255_SystemCallPerByte(benchmark::State& state) {
    BigMapFolder folder;
    LoadedMap loaded;
    QString error;
    ReadMap(folder.Map(), loaded, error);
    for (auto _ : state)
        WriteMapBytewise(folder.RomPath(), loaded);
}
BENCHMARK(BM_SaveMap255_SystemCallPerByte)->Unit(benchmark::kMicrosecond);

// One scroll step on the big map: the view redraws all 48 slots and paints.
static void BM_ScrollStep255(benchmark::State& state) {
    BigMapFolder folder;
    MainForm* form = folder.StartUp();
    if (!form) {
        state.SkipWithError("start-up failed");
        return;
    }
    QWidget* cells = form->View->MapTile;
    QPixmap target(cells->size());
    int value = 1;
    for (auto _ : state) {
        value = value % 200 + 1;
        form->View->HScroll->setValue(value);
        cells->render(&target);
    }
}
BENCHMARK(BM_ScrollStep255)->Unit(benchmark::kMicrosecond);

// Opening an editor of the Mode menu on the big map: reading its list and the
// map anew and drawing the placement view. Closing it is not timed.
template <typename Editor>
static void OpenEditor(benchmark::State& state, QAction* MainForm::*command) {
    BigMapFolder folder;
    MainForm* form = folder.StartUp();
    if (!form) {
        state.SkipWithError("start-up failed");
        return;
    }
    for (auto _ : state) {
        (form->*command)->trigger();
        Editor* editor = form->findChild<Editor*>();
        benchmark::DoNotOptimize(editor);
        state.PauseTiming();
        if (editor) editor->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}

// The warp editor: opening it, and one scroll step of its view.
static void BM_OpenWarpEditor255(benchmark::State& state) {
    OpenEditor<WarpEdit>(state, &MainForm::mnuWarpEdit);
}
BENCHMARK(BM_OpenWarpEditor255)->Unit(benchmark::kMicrosecond);

static void BM_WarpEditorScrollStep255(benchmark::State& state) {
    BigMapFolder folder;
    MainForm* form = folder.StartUp();
    if (form) form->mnuWarpEdit->trigger();
    WarpEdit* editor = form ? form->findChild<WarpEdit*>() : nullptr;
    if (!editor) {
        state.SkipWithError("the warp editor did not open");
        return;
    }
    // The view's cells, lines and symbols, as the screen shows them.
    const QRect view = editor->Placement->View->Shape2->geometry();
    QPixmap target(view.size());
    int value = 1;
    for (auto _ : state) {
        value = value % 200 + 1;
        editor->Placement->View->HScroll->setValue(value);
        editor->Client()->render(&target, QPoint(), QRegion(view));
    }
}
BENCHMARK(BM_WarpEditorScrollStep255)->Unit(benchmark::kMicrosecond);

// The event editor: opening it on the big map with a list of 32 records, and
// "Go" from one such list to the other.
static void BM_OpenEventEditor255(benchmark::State& state) {
    OpenEditor<EventEdit>(state, &MainForm::mnuEventEdit);
}
BENCHMARK(BM_OpenEventEditor255)->Unit(benchmark::kMicrosecond);

static void BM_EventEditorGo32Records255(benchmark::State& state) {
    BigMapFolder folder;
    MainForm* form = folder.StartUp();
    if (form) form->mnuEventEdit->trigger();
    EventEdit* editor = form ? form->findChild<EventEdit*>() : nullptr;
    if (!editor || editor->EventCount != 32) {
        state.SkipWithError("the event editor did not open on 32 records");
        return;
    }
    int type = 0;
    for (auto _ : state) {
        type = 1 - type;
        editor->SelType->setCurrentRow(type);
        editor->Command2_Click();
    }
}
BENCHMARK(BM_EventEditorGo32Records255)->Unit(benchmark::kMicrosecond);

// Start-up from the open dialog to the main window on screen.
static void BM_StartUpToMainWindow(benchmark::State& state) {
    BigMapFolder folder;
    for (auto _ : state) {
        MainForm* form = folder.StartUp();
        benchmark::DoNotOptimize(form);
        state.PauseTiming();
        Program::Reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_StartUpToMainWindow)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    UseOffscreenPlatform();
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
