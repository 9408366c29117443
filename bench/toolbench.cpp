// The Map Tools on the 255 x 255 map, each step with the redraw of the view,
// beside the painting of one square with the Pencil.
#include <benchmark/benchmark.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QPixmap>
#include <functional>

#include "bench/benchsupport.h"
#include "core/defines.h"

namespace {
constexpr int LeftButton = 1;

// The main window on the big map, and the view's cells drawn as the screen
// shows them after each step.
class ToolBench {
public:
    explicit ToolBench(benchmark::State& state) : Form(Folder.StartUp()) {
        if (!Form) {
            state.SkipWithError("start-up failed");
            return;
        }
        Target = QPixmap(Form->View->MapTile->size());
    }
    void Redraw() { Form->View->MapTile->render(&Target); }
    // Chooses the block of palette slot 1 or 2 in turn, so each step changes
    // its squares.
    void NextBlock() { Form->SideBlock_MouseDown(16 * (1 + Turn_++ % 2), LeftButton); }
    void Press(QPoint last) {
        Form->MapTile_MouseDown(0, LeftButton);
        Form->MapTile_MouseUp(last, LeftButton);
        Redraw();
    }
    // The whole map one block, so that a Fill reaches every square.
    void OneBlockEverywhere() {
        for (int y = 1; y <= 255; ++y)
            for (int x = 1; x <= 255; ++x)
                Defines.MapGrid[y][x] = 0;
    }
    // Clipboard text of the whole map in block `block`.
    static QString WholeMapText(int block) {
        QString line;
        for (int x = 1; x <= 255; ++x) {
            line += QStringLiteral("%1").arg(block, 2, 16, QChar(u'0'));
            line += x < 255 ? QChar(u' ') : QChar(u'\n');
        }
        return line.repeated(255);
    }

    BigMapFolder Folder;
    MainForm* Form;
    QPixmap Target;

private:
    int Turn_ = 0;
};

// Each step type: how to make it, its last square.
void Step(benchmark::State& state, ToolKind tool, QPoint last) {
    ToolBench bench(state);
    if (!bench.Form) return;
    bench.Form->mnuTool[static_cast<size_t>(tool)]->trigger();
    if (tool == ToolKind::Fill) bench.OneBlockEverywhere();
    for (auto _ : state) {
        state.PauseTiming();
        bench.NextBlock();
        state.ResumeTiming();
        bench.Press(last);
    }
}

// Undo and Redo, in turn, each with the redraw, of the step that `make` makes.
void UndoRedo(benchmark::State& state, const std::function<void(ToolBench&)>& make) {
    ToolBench bench(state);
    if (!bench.Form) return;
    make(bench);
    if (bench.Form->Undo.UndoCount() != 1) state.SkipWithError("no step was made");
    bool undo = true;
    for (auto _ : state) {
        (undo ? bench.Form->mnuUndo : bench.Form->mnuRedo)->trigger();
        bench.Redraw();
        undo = !undo;
    }
}

// A step of one of the tools, on a map of one block for the Fill.
std::function<void(ToolBench&)> ToolStep(ToolKind tool, QPoint last) {
    return [tool, last](ToolBench& bench) {
        bench.Form->mnuTool[static_cast<size_t>(tool)]->trigger();
        if (tool == ToolKind::Fill) bench.OneBlockEverywhere();
        bench.NextBlock();
        bench.Press(last);
    };
}
}  // namespace

static void BM_PaintOneSquare255(benchmark::State& state) {
    Step(state, ToolKind::Pencil, QPoint(1, 1));
}
BENCHMARK(BM_PaintOneSquare255)->Unit(benchmark::kMicrosecond);

static void BM_FillWholeMap255(benchmark::State& state) {
    Step(state, ToolKind::Fill, QPoint(1, 1));
}
BENCHMARK(BM_FillWholeMap255)->Unit(benchmark::kMicrosecond);

static void BM_RectangleOverTheView255(benchmark::State& state) {
    Step(state, ToolKind::Rectangle, QPoint(8, 6));
}
BENCHMARK(BM_RectangleOverTheView255)->Unit(benchmark::kMicrosecond);

// A stamp of a 255 x 255 pattern over the whole map, two patterns in turn.
static void BM_Stamp255x255(benchmark::State& state) {
    ToolBench bench(state);
    if (!bench.Form) return;
    const QString texts[] = {ToolBench::WholeMapText(1), ToolBench::WholeMapText(2)};
    int turn = 0;
    for (auto _ : state) {
        state.PauseTiming();
        QGuiApplication::clipboard()->setText(texts[turn++ % 2]);
        bench.Form->mnuPaste->trigger();
        state.ResumeTiming();
        bench.Press(QPoint(1, 1));
    }
    if (Defines.MapGrid[255][255] != 2 - turn % 2) state.SkipWithError("nothing was stamped");
}
BENCHMARK(BM_Stamp255x255)->Unit(benchmark::kMicrosecond);

static void BM_UndoRedoPaintOneSquare255(benchmark::State& state) {
    UndoRedo(state, ToolStep(ToolKind::Pencil, QPoint(1, 1)));
}
BENCHMARK(BM_UndoRedoPaintOneSquare255)->Unit(benchmark::kMicrosecond);

static void BM_UndoRedoFillWholeMap255(benchmark::State& state) {
    UndoRedo(state, ToolStep(ToolKind::Fill, QPoint(1, 1)));
}
BENCHMARK(BM_UndoRedoFillWholeMap255)->Unit(benchmark::kMicrosecond);

static void BM_UndoRedoRectangleOverTheView255(benchmark::State& state) {
    UndoRedo(state, ToolStep(ToolKind::Rectangle, QPoint(8, 6)));
}
BENCHMARK(BM_UndoRedoRectangleOverTheView255)->Unit(benchmark::kMicrosecond);

static void BM_UndoRedoStamp255x255(benchmark::State& state) {
    UndoRedo(state, [](ToolBench& bench) {
        QGuiApplication::clipboard()->setText(ToolBench::WholeMapText(1));
        bench.Form->mnuPaste->trigger();
        bench.Press(QPoint(1, 1));
    });
}
BENCHMARK(BM_UndoRedoStamp255x255)->Unit(benchmark::kMicrosecond);
