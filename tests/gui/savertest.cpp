#include <QClipboard>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <random>
#include <utility>
#include <vector>

#include "blockedit/blockedit.h"
#include "core/defines.h"
#include "core/eventtables.h"
#include "core/typednumber.h"
#include "eventedit/eventedit.h"
#include "fixture/warpdata.h"
#include "model/files.h"
#include "rom/fileops.h"
#include "startup/program.h"
#include "support/apptest.h"
#include "warpedit/warpedit.h"
#include "wildedit/wildedit.h"

// The test of every saver of the program, one table of them driven by one
// loop: the main window's map save with the Map Tools, and the saves of the
// building block, warp (in both its modes), wild and event editors.
//
// It lays out rounds of random program folders: a ROM of
// random bytes with maps from 1 x 1 to 255 x 255 blocks, tilesets, warp and
// warp-to lists, wild lists and event lists of random sizes at random places,
// and the data files that name them. For every map of a round and every saver
// it opens the saver's window and saves with no edit: the ROM must stay byte
// for byte as it was. Then it makes random edits through the window's own
// controls and saves again: no byte may change outside the area the saver
// owns, which the test works out from its own layout, never from the program;
// the window must show after its save what it showed before, and a fresh
// window on the map read again the same; a save refused for a value no byte
// holds changes nothing at all.
//
// A round is made from one seed. A failure names the seed; to replay that
// round alone, run the test with TARNWEY_SAVER_SEED set to it.
//
// About every fifth case of a saver meets, in place of its save, one of the
// file faults a user's disk can throw at it between opening a window and pressing
// its save button.

namespace {

// Random numbers from a seed. The engine's sequence is the same with every
// library, unlike the distributions of <random>, so that a seed replays.
class Dice {
public:
    explicit Dice(quint64 seed) : Engine_(seed) {}
    quint64 Next() { return Engine_(); }
    // 0 to n - 1.
    int Below(int n) { return n <= 1 ? 0 : static_cast<int>(Next() % static_cast<quint64>(n)); }
    int Between(int low, int high) { return low + Below(high - low + 1); }
    bool Chance(int percent) { return Below(100) < percent; }
    int Byte() { return Below(256); }
    template <typename T>
    void Shuffle(std::vector<T>& items) {
        for (int i = static_cast<int>(items.size()) - 1; i > 0; --i)
            std::swap(items[static_cast<size_t>(i)], items[static_cast<size_t>(Below(i + 1))]);
    }
    // When set, every number typed into a box is a byte, so that no save is
    // refused for a value.
    bool OnlyBytes = false;

private:
    std::mt19937_64 Engine_;
};

quint64 Mix(quint64 a, quint64 b) {
    return Dice(a ^ (b * 0xD1B54A32D192ED03ULL)).Next();
}

constexpr quint64 FirstSeed = 0x7A12'5EED'0001ULL;
constexpr int CasesPerSaver = 80;
constexpr int MaxRounds = 40;
constexpr int MapsPerRound = 20;
constexpr int Capacity = 4 * 1024 * 1024;
// What the editors hold of a list; the rest of a longer list stays in the
// ROM untouched.
constexpr int WarpsHeld = 16;
constexpr int EventsHeld = 32;
constexpr int WarpRecordSize = 4;
constexpr int WildListSize = 20;
constexpr int BlockSize = 16;
// Four event types at most, each with its own pair of Events.twy columns.
constexpr int EventListColumns[] = {1, 3, 5, 7};

// Positions a save may change: runs of first and last position, 1-based.
struct Area {
    std::vector<std::pair<qint64, qint64>> Runs;
    void Add(qint64 first, qint64 count) {
        if (count > 0) Runs.push_back({first, first + count - 1});
    }
    bool Holds(qint64 position) const {
        return std::any_of(Runs.begin(), Runs.end(), [position](const auto& run) {
            return position >= run.first && position <= run.second;
        });
    }
};

// An event list of one map as the test laid it out.
struct EventPlan {
    int Type = 0;
    int Position = 0;
    int Count = 0;
};

// One map of a project and what the test knows of it.
struct MapPlan {
    int Category = 0;
    int ListRow = 0;  // the map's row in the map list of its category
    int Row = 0;      // its MapTable row
    int WarpCount = 0;
    std::vector<EventPlan> Events;  // one for each type with a list on the map
};

struct World {
    Fixture::SmallProject Project;
    std::vector<MapPlan> Maps;

    const Fixture::MapRow& Row(const MapPlan& map) const {
        return Project.Categories[static_cast<size_t>(map.Category)]
            .Maps[static_cast<size_t>(map.ListRow)];
    }
    const Fixture::TilesetRow& Tileset(const MapPlan& map) const {
        return Project.Tilesets[static_cast<size_t>(Row(map).Tileset)];
    }
};

// A saver opened on the map the main window holds: its window (none for the
// map save), the area of the ROM it may write, and what a user does with it.
struct SaverCase {
    QWidget* Window = nullptr;
    QString Failure;  // the window did not open as it should
    Area Writes;
    // The moves of an edit, one drawn at random for each step; a move that
    // is in the list twice comes twice as often.
    std::vector<std::function<void(Dice&)>> Moves;
    std::function<void()> Save;     // empty when the map has no such area
    std::function<bool()> Changed;  // the window holds unsaved changes
    // What the window shows of the values its save writes, each as its low
    // byte, in the order of the ROM.
    std::function<QByteArray()> Shows;

    void Edit(Dice& dice, int steps) const {
        for (int step = dice.Between(1, steps); step > 0; --step)
            Moves[static_cast<size_t>(dice.Below(static_cast<int>(Moves.size())))](dice);
    }
};

struct Saver {
    const char* Name;
    QString Saved;  // its confirmation; the block save says nothing
    std::function<SaverCase(MainForm*, const World&, const MapPlan&, Dice&)> Open;
};

// What a user types in a number box: mostly a byte, sometimes text the box
// refuses or turns into 0, sometimes a number no byte can hold.
QString TypedText(Dice& dice) {
    const int roll = dice.OnlyBytes ? 0 : dice.Below(100);
    if (roll < 82) return QString::number(dice.Byte());
    if (roll < 86) return QStringLiteral("abc");
    if (roll < 89) return QString();
    if (roll < 92) return QStringLiteral(" %1.5 ").arg(dice.Byte());
    if (roll < 96) return QString::number(dice.Between(256, 400));
    return QString::number(-dice.Between(1, 9));
}

void Scroll(QScrollBar* bar, Dice& dice) {
    if (!bar->isHidden()) bar->setValue(dice.Between(bar->minimum(), bar->maximum()));
}

void ScrollView(MapView* view, Dice& dice) {
    Scroll(view->HScroll, dice);
    Scroll(view->VScroll, dice);
}

void PressAnyCell(CellArray* cells, Dice& dice) {
    const int index = dice.Below(cells->Count());
    if (!cells->isHidden() && cells->CellVisible(index))
        PressCell(cells, index, dice.Chance(85) ? Qt::LeftButton : Qt::RightButton);
}

void PressAnySymbol(const std::vector<Symbol*>& symbols, int count, Dice& dice) {
    Symbol* symbol = symbols[static_cast<size_t>(dice.Below(std::max(1, count)))];
    if (!symbol->isHidden()) QTest::mousePress(symbol, Qt::LeftButton);
}

// A press on a random visible cell, moves to random points, some outside the
// cells, and the release at the last: what every Map Tool is driven by.
void DragOverCells(CellArray* cells, Dice& dice) {
    const int index = dice.Below(cells->Count());
    if (cells->isHidden() || !cells->CellVisible(index)) return;
    const Qt::MouseButton button = dice.Chance(85) ? Qt::LeftButton : Qt::RightButton;
    QPoint at = cells->CellCentre(index);
    QTest::mousePress(cells, button, Qt::NoModifier, at);
    for (int moves = dice.Below(4); moves > 0; --moves) {
        at =
            QPoint(dice.Between(-40, cells->width() + 40), dice.Between(-40, cells->height() + 40));
        QTest::mouseMove(cells, at);
    }
    QTest::mouseRelease(cells, button, Qt::NoModifier, at);
}

// Paste mode with a pattern copied from the map or made up, some of its
// blocks past the tileset's last one.
void Paste(MainForm* form, Dice& dice) {
    if (dice.Chance(50)) {
        form->mnuSelectAll->trigger();
        form->mnuCopy->trigger();
    } else {
        QString text;
        const int width = dice.Between(1, 6);
        for (int rows = dice.Between(1, 6); rows > 0; --rows)
            for (int x = 1; x <= width; ++x)
                text += QString::number(dice.Below(Defines.BlockCount + 2), 16).toUpper() +
                        (x < width ? u' ' : u'\n');
        QGuiApplication::clipboard()->setText(text);
    }
    form->mnuPaste->trigger();
}

template <typename Window>
Window* OpenWindow(MainForm* form, QAction* command, SaverCase& c) {
    if (command->isEnabled()) command->trigger();
    Window* window = ShownWindow<Window>(form);
    if (!window) c.Failure = QStringLiteral("the window did not open");
    c.Window = window;
    return window;
}

template <typename Values>
void Append(QByteArray& bytes, const Values& values, int count) {
    for (int i = 0; i < count; ++i)
        bytes.append(static_cast<char>(values[static_cast<size_t>(i)]));
}

SaverCase OpenMap(MainForm* form, const World& world, const MapPlan& map, Dice&) {
    const Fixture::MapRow& row = world.Row(map);
    SaverCase c;
    c.Writes.Add(row.ObjectPos, 1);
    c.Writes.Add(row.GridPos, static_cast<qint64>(row.Cols) * row.Rows);
    const auto paint = [form](Dice& dice) {
        if (dice.Chance(30)) ScrollView(form->View, dice);
        if (dice.Chance(30)) form->mnuTool[dice.Below(ToolCount)]->trigger();
        if (dice.Chance(10)) Paste(form, dice);
        DragOverCells(form->View->MapTile, dice);
    };
    c.Moves = {
        paint,
        paint,
        paint,
        [form](Dice& dice) {
            Scroll(form->Scroll, dice);
            PressAnyCell(form->SideBlock, dice);
        },
        [form](Dice& dice) { PressAnyCell(form->BorderBlock, dice); },
        [form](Dice& dice) { (dice.Chance(55) ? form->mnuUndo : form->mnuRedo)->trigger(); }};
    c.Save = [form] { form->mnuSave->trigger(); };
    c.Changed = [form] { return form->MapChanged; };
    c.Shows = [form] {
        QByteArray bytes(1, static_cast<char>(form->BorderNum));
        for (int y = 1; y <= Defines.MapHeight; ++y)
            Append(bytes, &Defines.MapGrid[y][1], Defines.MapWidth);
        return bytes;
    };
    return c;
}

SaverCase OpenBlocks(MainForm* form, const World& world, const MapPlan& map, Dice&) {
    SaverCase c;
    auto* editor = OpenWindow<BlockEdit>(form, form->mnuBlockEdit, c);
    if (!editor) return c;
    const Fixture::TilesetRow& set = world.Tileset(map);
    c.Writes.Add(set.BlockPos, static_cast<qint64>(BlockSize) * (set.LastBlock + 1));
    // A press on the palette or a scroll reloads the block under the frame
    // and drops what was set: they come less often than the tiles.
    const auto tile = [editor](Dice& dice) { PressAnyCell(editor->TileSel, dice); };
    const auto place = [editor](Dice& dice) { PressAnyCell(editor->Block, dice); };
    c.Moves = {tile, tile, tile, place, place, place, place, [editor](Dice& dice) {
                   Scroll(editor->Scroll, dice);
                   PressAnyCell(editor->SideBlock, dice);
               }};
    c.Save = [editor] { QTest::mouseClick(editor->SaveBlock, Qt::LeftButton); };
    c.Changed = [editor] { return editor->BlockChanged; };
    // Every block as the palette shows it, the one in the editor as edited.
    c.Shows = [editor] {
        QByteArray bytes;
        for (int b = 0; b <= Defines.BlockCount; ++b)
            Append(bytes, b == editor->EditBlock ? editor->EditTiles : Defines.BlockTiles[b],
                   BlockSize);
        return bytes;
    };
    return c;
}

Saver WarpSaver(const char* name, bool warpTo) {
    const auto open = [warpTo](MainForm* form, const World& world, const MapPlan& map, Dice&) {
        const Fixture::MapRow& row = world.Row(map);
        SaverCase c;
        if (row.ObjectPos == 1 || !row.WarpsOk || (warpTo && row.WarpToPos == 1)) return c;
        auto* w = OpenWindow<WarpEdit>(form, form->mnuWarpEdit, c);
        if (!w) return c;
        if (warpTo) w->EditWarpTo->click();
        if (w->Mode() != (warpTo ? WarpMode::WarpTo : WarpMode::Warps))
            c.Failure = QStringLiteral("the list of the mode was not read");
        const int count = warpTo ? row.WarpToCount : map.WarpCount;
        c.Writes.Add(warpTo ? row.WarpToPos : row.ObjectPos + 2,
                     static_cast<qint64>(WarpRecordSize) * std::min(count, WarpsHeld));
        const auto place = [w](Dice& dice) { PressAnyCell(w->Placement->View->MapTile, dice); };
        c.Moves = {place, place, [w](Dice& dice) { ScrollView(w->Placement->View, dice); },
                   [w](Dice& dice) { PressAnySymbol(w->WarpSym, w->WarpCount, dice); }};
        if (!warpTo)
            c.Moves.push_back([w](Dice& dice) {
                (dice.Chance(50) ? w->ToMap : w->ToPoint)->setText(TypedText(dice));
            });
        c.Save = [w] { QTest::mouseClick(w->Command1, Qt::LeftButton); };
        c.Changed = [w] { return w->WarpsChanged; };
        // In the warps' mode the selected warp's targets are the boxes' numbers.
        c.Shows = [w, warpTo] {
            QByteArray bytes;
            for (int i = 0; i < w->WarpCount; ++i) {
                WarpRecord record = w->Warps[static_cast<size_t>(i)];
                if (!warpTo && i == w->SelWarp) {
                    record[2] = TypedNumber::WarpTarget(w->ToPoint->text());
                    record[3] = TypedNumber::WarpTarget(w->ToMap->text());
                }
                Append(bytes, record, WarpRecordSize);
            }
            return bytes;
        };
        return c;
    };
    return {name, QStringLiteral("Your changes to the warps have been saved!"), open};
}

SaverCase OpenWild(MainForm* form, const World& world, const MapPlan& map, Dice&) {
    SaverCase c;
    if (world.Row(map).WildPos == 1) return c;
    auto* w = OpenWindow<WildEdit>(form, form->mnuWildEdit, c);
    if (!w) return c;
    c.Writes.Add(world.Row(map).WildPos, WildListSize);
    c.Moves = {[w](Dice& dice) {
                   w->MorlNum[static_cast<size_t>(dice.Below(Limits::WildSlots))]->click();
               },
               [w](Dice& dice) {
                   const int k = dice.Below(w->SelMorl->count());
                   w->SelMorl->setCurrentIndex(k);
                   emit w->SelMorl->activated(k);
               },
               [w](Dice& dice) { w->SelLevel->setText(TypedText(dice)); }};
    c.Save = [w] { QTest::mouseClick(w->Command1, Qt::LeftButton); };
    // The window has no changed flag: its closing question comes always.
    c.Changed = [] { return true; };
    c.Shows = [w] {
        QByteArray bytes;
        for (const WildSlot& slot : w->WildData)
            bytes.append(static_cast<char>(slot.Level)).append(static_cast<char>(slot.Species));
        return bytes;
    };
    return c;
}

// The window opens on type 0; the list of another type on the map is reached
// with "Go". Which list a case takes is drawn from the dice.
SaverCase OpenEvents(MainForm* form, const World& world, const MapPlan& map, Dice& dice) {
    SaverCase c;
    if (!world.Row(map).EventsOk) return c;
    auto* e = OpenWindow<EventEdit>(form, form->mnuEventEdit, c);
    if (!e) return c;
    std::vector<EventPlan> lists = {EventPlan{}};
    for (const EventPlan& list : map.Events)
        if (list.Type == 0)
            lists[0] = list;
        else if (list.Count > 0)
            lists.push_back(list);
    const EventPlan list = lists[static_cast<size_t>(dice.Below(static_cast<int>(lists.size())))];
    if (list.Type != 0) {
        PressRow(e->SelType, list.Type);
        QTest::mouseClick(e->Command2, Qt::LeftButton);
    }
    if (e->CurEventType != list.Type)
        c.Failure = QStringLiteral("\"Go\" did not reach type %1").arg(list.Type);
    const int size = world.Project.EventTypes[static_cast<size_t>(list.Type)].RecordSize;
    c.Writes.Add(list.Position, static_cast<qint64>(size) * std::min(list.Count, EventsHeld));
    const auto place = [e](Dice& dice) { PressAnyCell(e->Placement->View->MapTile, dice); };
    c.Moves = {place, place, [e](Dice& dice) { ScrollView(e->Placement->View, dice); },
               [e](Dice& dice) { PressAnySymbol(e->EventSym, e->EventCount, dice); },
               [e](Dice& dice) {
                   QLineEdit* const boxes[] = {e->TextString, e->PictureNum, e->Move1,
                                               e->Move2,      e->Item,       e->MorlData,
                                               e->TrainerType};
                   QLineEdit* box = boxes[dice.Below(7)];
                   if (!box->isHidden()) box->setText(TypedText(dice));
               }};
    c.Save = [e] { QTest::mouseClick(e->Command1, Qt::LeftButton); };
    c.Changed = [e] { return e->EventsChanged; };
    c.Shows = [e, size] {
        QByteArray bytes;
        for (int i = 0; i < e->EventCount; ++i)
            Append(bytes, e->Events[static_cast<size_t>(i)], size);
        return bytes;
    };
    return c;
}

const std::vector<Saver>& Savers() {
    static const std::vector<Saver> savers = {
        {"map", QStringLiteral("Your changes to the map have been saved!"), OpenMap},
        {"block", QString(), OpenBlocks},
        WarpSaver("warp", false),
        WarpSaver("warp-to", true),
        {"wild", QStringLiteral("Your changes to the wild Morlick have been saved!"), OpenWild},
        {"event", QStringLiteral("Your changes to the Events have been saved!"), OpenEvents},
    };
    return savers;
}

// A count of list entries with the edges weighted: empty, full, and a few
// past what the editor holds.
int ListCount(Dice& dice, int held) {
    const int roll = dice.Below(100);
    if (roll < 12) return 0;
    if (roll < 26) return held;
    if (roll < 34) return dice.Between(held + 1, held + 3);
    return dice.Between(1, held - 1);
}

// A map side in blocks: mostly small, with 1 and 255 often enough.
int MapSide(Dice& dice) {
    const int roll = dice.Below(100);
    if (roll < 10) return 1;
    if (roll < 16) return 255;
    if (roll < 24) return dice.Between(1, 255);
    return dice.Between(1, 24);
}

Fixture::EventType MakeEventType(Dice& dice, int index, int listColumn) {
    Fixture::EventType type;
    type.Field0 = QStringLiteral("T%1").arg(index);
    type.Name = QStringLiteral("Kind %1").arg(index);
    type.ListColumn = listColumn;
    type.RecordSize = dice.Chance(20) ? MaxRecordSize : dice.Between(2, MaxRecordSize);
    type.YField = dice.Between(1, type.RecordSize - 1);
    type.XField = type.YField + 1;
    type.Bias1 = dice.Chance(50) ? 0 : dice.Between(0, 6);
    type.Bias2 = dice.Chance(70) ? type.Bias1 : dice.Between(0, 6);
    for (int* field : {&type.TextField, &type.PictureField, &type.Move1Field, &type.Move2Field,
                       &type.ItemField, &type.MorlField, &type.TrainerField})
        *field = dice.Chance(40) ? 0 : dice.Between(1, type.RecordSize);
    return type;
}

// Lays out one round from its seed.
World MakeWorld(quint64 seed) {
    Dice dice(seed);
    World world{Fixture::SmallProject(Capacity, 0), {}};
    Fixture::SmallProject& project = world.Project;
    // Random bytes everywhere, guard bytes and gaps included.
    QByteArray& bytes = project.Rom.Bytes();
    for (qsizetype i = 0; i < bytes.size(); i += 8) {
        const quint64 eight = dice.Next();
        std::memcpy(bytes.data() + i, &eight, std::min<size_t>(8, bytes.size() - i));
    }

    // Species: distinct codes at list places n to 1.
    const int species = dice.Between(1, 24);
    for (int i = 0, code = dice.Byte(); i < species; ++i, code = (code + dice.Between(1, 9)) % 256)
        project.Species.push_back({code, QStringLiteral("Morl %1").arg(i), species - i});

    std::vector<int> columns(std::begin(EventListColumns), std::end(EventListColumns));
    dice.Shuffle(columns);
    const int types = dice.Between(1, 4);
    for (int t = 0; t < types; ++t)
        project.EventTypes.push_back(MakeEventType(dice, t, columns[static_cast<size_t>(t)]));
    // Records of the largest size in most rounds.
    if (dice.Chance(70))
        project.EventTypes[static_cast<size_t>(dice.Below(types))].RecordSize = MaxRecordSize;

    int row = 0;
    while (static_cast<int>(world.Maps.size()) < MapsPerRound) {
        // Categories of a few maps; some leave rows of MapTable empty between
        // them. The first map is row 0, which start-up loads.
        if (row > 0 && dice.Chance(20)) row += dice.Between(1, 2);
        const int cat =
            project.AddCategory(QStringLiteral("Cat %1").arg(project.Categories.size()), row);
        const int inCategory =
            std::min(dice.Between(1, 12), MapsPerRound - static_cast<int>(world.Maps.size()));
        for (int k = 0; k < inCategory; ++k, ++row) {
            MapPlan plan;
            plan.Category = cat;
            plan.ListRow = k;
            plan.Row = row;

            int tileset = -1;
            if (project.Tilesets.empty() || dice.Chance(55)) {
                const int roll = dice.Below(100);
                const int lastBlock = roll < 10   ? 0
                                      : roll < 20 ? 255
                                      : roll < 35 ? dice.Between(1, 255)
                                                  : dice.Between(1, 40);
                const int bias = dice.Chance(40) ? 0 : dice.Byte();
                tileset = project.AddTileset(lastBlock, bias, dice.Between(0, 264),
                                             [&dice](int, int) { return dice.Byte(); });
                project.Tileset(tileset).LastTile = dice.Chance(20) ? 159 : dice.Between(0, 159);
            }
            const int set =
                tileset >= 0 ? tileset : dice.Below(static_cast<int>(project.Tilesets.size()));
            const int bias = project.Tileset(set).BlockBias;
            // The fixture puts the bias on; any byte is wanted, below the bias too.
            const auto anyByte = [&dice, bias](int, int) { return dice.Byte() - bias; };
            project.AddMap(cat, QStringLiteral("Map %1").arg(row), MapSide(dice), MapSide(dice),
                           set, anyByte, dice.Byte() - bias);
            Fixture::MapRow& map = project.Map(row);
            if (dice.Chance(30)) {
                map.XShift = dice.Between(-3, 4);
                map.YShift = dice.Between(-3, 4);
            }
            map.PlacementFix = dice.Chance(50) ? 0 : dice.Between(-300, 300);
            map.WarpsOk = dice.Chance(95);
            map.EventsOk = dice.Chance(92);

            // The map's other areas in a random order, so that any of them
            // can be the last one.
            std::vector<std::function<void()>> steps;
            if (dice.Chance(88)) {
                steps.push_back([&, row] {
                    std::vector<Fixture::Warp> warps(
                        static_cast<size_t>(ListCount(dice, WarpsHeld)));
                    for (auto& w : warps)
                        w = {dice.Byte(), dice.Byte(), dice.Byte(), dice.Byte()};
                    project.AddWarps(row, warps);
                    world.Maps.back().WarpCount = static_cast<int>(warps.size());
                });
            } else {
                map.ObjectPos = 1;  // no object data: the border byte is position 1
            }
            if (dice.Chance(85)) {
                steps.push_back([&, row] {
                    std::vector<Fixture::WarpToPoint> points(
                        static_cast<size_t>(ListCount(dice, WarpsHeld)));
                    for (auto& p : points)
                        p = {dice.Below(0x10000), dice.Byte(), dice.Byte()};
                    project.AddWarpTo(row, points);
                });
            }
            if (dice.Chance(85)) {
                steps.push_back([&, row] {
                    Fixture::EncounterList list;
                    for (auto& slot : list)
                        slot = {dice.Byte(), dice.Byte()};
                    project.AddWildList(row, list);
                });
            }
            for (int t = 0; t < types; ++t) {
                if (!dice.Chance(75)) continue;
                steps.push_back([&, row, t] {
                    const int size = project.EventTypes[static_cast<size_t>(t)].RecordSize;
                    std::vector<QByteArray> records(
                        static_cast<size_t>(ListCount(dice, EventsHeld)));
                    for (auto& record : records) {
                        record.resize(size);
                        for (char& byte : record)
                            byte = static_cast<char>(dice.Byte());
                    }
                    const int position = project.AddEventList(row, t, records);
                    world.Maps.back().Events.push_back(
                        {t, position, static_cast<int>(records.size())});
                });
            }
            const auto moveGrid = [&, row] { project.MoveGrid(row); };
            const auto moveBlocks = [&, tileset] { project.MoveBlocks(tileset); };
            if (dice.Chance(25)) steps.push_back(moveGrid);
            if (tileset >= 0 && dice.Chance(25)) steps.push_back(moveBlocks);
            dice.Shuffle(steps);
            world.Maps.push_back(plan);
            for (const auto& step : steps)
                step();
        }
    }
    // The ROM ends right behind the last area, whose guard byte goes: the
    // last byte of some saver's area is the ROM's last byte.
    project.Rom.Resize(project.Rom.NextFree() - 2);
    return world;
}

const QByteArray OlderBackup("the backup of an earlier save");

// The backup's temporary copy of the ROM.
QString TempCopy() {
    return QDir(Defines.ProgramFolder).filePath(QStringLiteral("temp.twy"));
}

struct Fault {
    const char* name;
    bool backup;   // the backup question answered Yes
    QString told;  // a part of the warning
    // Else the file at the ROM's name is left exactly as found: the ROM
    // unchanged, another file put in its place, or no file at all.
    bool romInTheBackup;
    bool olderBackupKept;
    // Runs just before the save button is pressed; what it returns runs
    // right after.
    std::function<std::function<void()>(const QString& rom)> arrange;
};

void Nothing() {}

std::function<void()> Inject(std::initializer_list<std::pair<FileOps::Op, int>> faults) {
    for (const auto& [op, nth] : faults)
        FileOps::FailOn(op, nth);
    return [] { FileOps::ClearFaults(); };
}

// Every kind of end a save can come to: refused before the backup or by the
// disk, refused by the ROM's check, stopped in the backup with the ROM kept,
// and stopped with the ROM only in the backup. The save transaction's own
// tests go through each step; here every saver has to meet them the same way.
const std::vector<Fault>& Faults() {
    using Op = FileOps::Op;
    static const std::vector<Fault> faults = {
        {"read-only ROM", false, QStringLiteral("could not be written"), false, true,
         [](const QString&) {
             return Inject({{Op::Write, 1}});
         }},
        {"ROM grown since it was read", true, QStringLiteral("bytes long"), false, true,
         [](const QString& rom) {
             TestFiles::Write(rom, QByteArray(QFileInfo(rom).size() + 1, '\x11'));
             return Nothing;
         }},
        {"disk full during the write", false, QStringLiteral("could not be written"), false, true,
         [](const QString&) {
             auto limit = std::make_shared<TestFiles::FileSizeLimit>(1);
             return [limit]() mutable { limit.reset(); };
         }},
        // A folder in the place of the backup's temporary copy: nothing can
        // be written there, for any user.
        {"no temporary copy possible", true, QStringLiteral("temp.twy"), false, false,
         [](const QString&) {
             QDir().mkdir(TempCopy());
             return [] { QDir(TempCopy()).removeRecursively(); };
         }},
        {"backup step 4, written back short", true, QStringLiteral("written back"), false, false,
         [](const QString&) {
             return Inject({{Op::ShortCopy, 2}});
         }},
        {"backup step 4, no way back", true, QStringLiteral("Your ROM is now the file"), true,
         false,
         [](const QString&) {
             return Inject({{Op::Copy, 2}, {Op::Rename, 2}});
         }},
    };
    return faults;
}

// A save refused for a value no byte holds.
bool Refusal(const ScriptedDialogs::Record& record) {
    return record.kind == ScriptedDialogs::Kind::Warning &&
           record.text.contains(QStringLiteral("cannot be saved"));
}

// By saver: how many cases saved their edits, how many of them changed the
// ROM, and how often each file fault was met.
struct Count {
    int Cases = 0;
    int Changed = 0;
    std::vector<int> FaultsMet = std::vector<int>(Faults().size());
};
using Tally = std::vector<Count>;

QString Hex(const QByteArray& bytes) {
    return QString::fromLatin1(bytes.toHex(' ').toUpper());
}

}  // namespace

class SaverTest : public AppTest {
protected:
    void TearDown() override {
        FileOps::ClearFaults();
        AppTest::TearDown();
    }

    // Runs rounds until every saver has had its cases. With TARNWEY_SAVER_SEED
    // set, runs that one round.
    void Run() {
        bool replay = false;
        const quint64 replaySeed =
            qEnvironmentVariable("TARNWEY_SAVER_SEED").toULongLong(&replay, 0);
        Tally tally(Savers().size());
        for (int round = 0; round < (replay ? 1 : MaxRounds); ++round) {
            if (!replay && std::all_of(tally.begin(), tally.end(), [](const Count& count) {
                    return count.Cases >= CasesPerSaver;
                }))
                break;
            const quint64 seed = replay ? replaySeed : Mix(FirstSeed, static_cast<quint64>(round));
            const QString failure = RunRound(seed, tally);
            ASSERT_TRUE(failure.isEmpty())
                << failure.toStdString()
                << "\nReplay this round alone with TARNWEY_SAVER_SEED=" << seed;
        }
        // Enough cases, enough of them edited the ROM, and each file fault met.
        for (size_t i = 0; i < Savers().size() && !replay; ++i) {
            EXPECT_GE(tally[i].Cases, CasesPerSaver) << Savers()[i].Name;
            EXPECT_GE(tally[i].Changed * 5, tally[i].Cases * 2) << Savers()[i].Name;
            for (size_t f = 0; f < Faults().size(); ++f)
                EXPECT_GT(tally[i].FaultsMet[f], 0) << Savers()[i].Name << ", " << Faults()[f].name;
        }
    }

    QString RunRound(quint64 seed, Tally& tally) {
        Program::Reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Defines.Reset();
        Script.Clear();
        World_ = MakeWorld(seed);
        if (World_.Project.Rom.Size() > Capacity)
            return QStringLiteral("the round's areas do not fit the fixture's ROM");
        Form_ = StartUp(World_.Project);
        if (!Form_) return QStringLiteral("start-up failed: ") + Script.Texts().join(u'|');
        for (const MapPlan& map : World_.Maps) {
            for (size_t i = 0; i < Savers().size(); ++i) {
                Dice dice(Mix(seed, static_cast<quint64>(map.Row) * Savers().size() + i));
                const QString failure = RunCase(i, map, dice, tally);
                // No event loop runs here: the events the windows posted are
                // delivered now, or their queue grows with every case.
                QCoreApplication::sendPostedEvents();
                if (!failure.isEmpty())
                    return QStringLiteral("%1 save, map row %2: ")
                               .arg(QLatin1String(Savers()[i].Name))
                               .arg(map.Row) +
                           failure;
            }
        }
        return QString();
    }

    // One saver on one map: a save with no edit, random edits and a save,
    // and a fresh window after it.
    QString RunCase(size_t index, const MapPlan& map, Dice& dice, Tally& tally) {
        const Saver& saver = Savers()[index];
        QString failure = GoToMap(map);
        if (!failure.isEmpty()) return failure;
        const Dice opening = dice;
        const SaverCase c = saver.Open(Form_, World_, map, dice);
        if (!c.Failure.isEmpty())
            return Finish(c.Window, c.Failure + QStringLiteral(": ") + Script.Texts().join(u'|'));
        if (!c.Save) return QString();
        const QByteArray before = ReadFile(Defines.RomPath);
        bool saved = false;
        failure = Save(saver, c, before, saved);
        if (failure.isEmpty() && !saved)
            failure = QStringLiteral("a save with no edit did not go through: ") +
                      Script.Texts().join(u'|');
        if (!failure.isEmpty()) return Finish(c.Window, QStringLiteral("with no edit, ") + failure);

        // About every fifth case meets a file fault, with edits every byte can
        // hold; which fault goes with the map's row, so that the round's seed
        // replays it. Only an edit of what the window shows has bytes to
        // write.
        dice.OnlyBytes = dice.Chance(20);
        const QByteArray opened = c.Shows();
        c.Edit(dice, 20);
        if (dice.OnlyBytes) {
            for (int tries = 0; tries < 20 && c.Shows() == opened; ++tries)
                c.Edit(dice, 1);
            if (c.Shows() == opened) return Finish(c.Window, QString());
            const size_t f = (static_cast<size_t>(map.Row) + index) % Faults().size();
            bool met = false;
            failure = MeetFault(Faults()[f], c, before, met);
            tally[index].FaultsMet[f] += met;
            GiveUpMap_ = !c.Window;
            return Finish(c.Window, failure);
        }
        ++tally[index].Cases;
        const QByteArray shown = c.Shows();
        failure = Save(saver, c, before, saved);
        if (ReadFile(Defines.RomPath) != before) ++tally[index].Changed;
        if (failure.isEmpty() && saved && c.Shows() != shown)
            failure = QStringLiteral("the window shows %1 after its save, %2 before")
                          .arg(Hex(c.Shows()), Hex(shown));
        if (!failure.isEmpty() || !saved) return Finish(c.Window, failure);

        // A fresh window on the map read again shows what the saved one did.
        failure = Finish(c.Window, QString());
        if (failure.isEmpty()) failure = GoToMap(map);
        Dice again = opening;
        const SaverCase fresh = saver.Open(Form_, World_, map, again);
        if (failure.isEmpty() && fresh.Shows && fresh.Shows() != shown)
            failure = QStringLiteral("opened again, the window shows %1, saved it showed %2")
                          .arg(Hex(fresh.Shows()), Hex(shown));
        return Finish(fresh.Window, failure.isEmpty() ? fresh.Failure : failure);
    }

    // Saves without a backup. A save refused for a value no byte holds must
    // leave the ROM as it was; one that goes through may change the area only.
    QString Save(const Saver& saver, const SaverCase& c, const QByteArray& before, bool& saved) {
        Script.Clear();
        Script.AnswerNo();
        c.Save();
        bool refused = false;
        for (const auto& record : Script.Transcript()) {
            if (record.kind != ScriptedDialogs::Kind::Warning) continue;
            if (!Refusal(record)) return QStringLiteral("unexpected message: ") + record.text;
            refused = true;
        }
        saved = saver.Saved.isEmpty() ? !refused : Script.Count(saver.Saved) == 1;
        // A change of length counts as a change past the shorter file's end.
        const QByteArray after = ReadFile(Defines.RomPath);
        for (const int p : Differences(before, after))
            if (!saved || !c.Writes.Holds(p))
                return QStringLiteral("the save changed position %1 (%2 -> %3)%4")
                    .arg(p)
                    .arg(Hex(before.mid(p - 1, 1)), Hex(after.mid(p - 1, 1)),
                         saved ? QStringLiteral(", outside its area")
                               : QStringLiteral(", but did not go through"));
        return QString();
    }

    // A save that meets a file fault tells the user once, confirms nothing,
    // leaves the window with its changes and keeps the ROM's bytes whole:
    // under the ROM's name, or in its backup when the backup itself was cut
    // short. The disk is then put back as the case found it. A save refused
    // for a value no byte holds never reaches the disk: the fault is not met,
    // and the ROM must be as the fault left it.
    QString MeetFault(const Fault& fault, const SaverCase& c, const QByteArray& before, bool& met) {
        const QString rom = Defines.RomPath;
        const QString bak = rom + QStringLiteral(".BAK");
        TestFiles::Write(bak, OlderBackup);
        const bool changed = c.Changed();
        Script.Clear();
        fault.backup ? Script.AnswerYes() : Script.AnswerNo();
        const auto undo = fault.arrange(rom);
        const QByteArray found = ReadFile(rom);
        c.Save();
        undo();
        QString failure;
        met = !std::any_of(Script.Transcript().begin(), Script.Transcript().end(), Refusal);
        if (!met)
            failure = ReadFile(rom) == found ? QString()
                                             : QStringLiteral("a refused save changed the ROM");
        else if (Script.Count(ScriptedDialogs::Kind::Warning) != 1 ||
                 !Script.Transcript().back().text.contains(fault.told) ||
                 Script.Count(ScriptedDialogs::Kind::Information) > 0)
            failure = QStringLiteral("the user was told: ") + Script.Texts().join(u'|');
        else if (c.Changed() != changed)
            failure = QStringLiteral("the window gave up its changes");
        else if (fault.romInTheBackup
                     ? QFile::exists(rom) || ReadFile(bak) != before
                     : QFile::exists(rom) != !found.isEmpty() || ReadFile(rom) != found)
            failure = QStringLiteral("the ROM was not kept whole");
        else if (fault.olderBackupKept && ReadFile(bak) != OlderBackup)
            failure = QStringLiteral("the older backup is gone");
        if (!failure.isEmpty())
            failure = QLatin1String(fault.name) + QStringLiteral(": ") + failure;
        TestFiles::Write(rom, before);
        QFile::remove(bak);
        QFile::remove(TempCopy());
        return failure;
    }

    // Has the main window go to a map, giving up the changes of a map save
    // that met a file fault.
    QString GoToMap(const MapPlan& map) {
        Script.Clear();
        if (std::exchange(GiveUpMap_, false)) Script.AnswerYes();
        GoTo(Form_, map.Category, map.ListRow);
        if (Defines.CurMap != map.Row || Script.Count(ScriptedDialogs::Kind::Warning) > 0)
            return QStringLiteral("\"Go\" did not load the map: ") + Script.Texts().join(u'|');
        return QString();
    }

    // Closes an editor, answering Yes to a question about unsaved changes;
    // the case's failure comes first, else the closing's.
    QString Finish(QWidget* editor, const QString& failure) {
        Script.Clear();
        Script.AnswerYes();
        const bool closed = !editor || CloseWindow(editor);
        Script.Clear();
        if (!failure.isEmpty()) return failure;
        return closed ? QString() : QStringLiteral("the editor did not close");
    }

    World World_;
    MainForm* Form_ = nullptr;
    bool GiveUpMap_ = false;
};

TEST_F(SaverTest, EverySaverWritesOnlyItsAreaWhatItsWindowShowsAndSurvivesFileFaults) {
    Run();
}
