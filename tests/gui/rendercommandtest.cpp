#include <QDir>
#include <QFileInfo>
#include <QImage>

#include "eventedit/eventedit.h"
#include "mapview/tiles.h"
#include "support/apptest.h"
#include "support/commands.h"
#include "warpedit/warpedit.h"

namespace {

// Map rows of the project.
enum { WideField, Hut, Hollow, Broken };

QByteArray Bytes(std::initializer_list<int> values) {
    QByteArray bytes;
    for (const int v : values)
        bytes.append(static_cast<char>(v));
    return bytes;
}

// A field larger than the view, with a block byte below the bias that draws
// "no picture", warps, warp-to points and events on it; a hut without object
// data; a hollow in a category of its own; a map whose grid lies past the
// end of the ROM.
Fixture::SmallProject RenderProject() {
    Fixture::SmallProject project(128 * 1024);
    project.AddTileset(20, 2, 0);
    project.AddTileset(5, 0, 100);
    const int land = project.AddCategory(QStringLiteral("Land"), 0);
    project.AddMap(
        land, QStringLiteral("Wide Field"), 14, 10, 0,
        [](int x, int y) { return x == 6 && y == 5 ? -1 : (x * 5 + y * 3) % 21; }, 4);
    project.AddMap(land, QStringLiteral("Hut"), 3, 2, 1, [](int x, int y) { return (x + y) % 6; });
    project.Map(Hut).ObjectPos = NoData;
    const int caves = project.AddCategory(QStringLiteral("Caves"), Hollow);
    project.AddMap(caves, QStringLiteral("Hollow"), 9, 7, 1,
                   [](int x, int y) { return (x * y) % 6; });
    project.AddMap(caves, QStringLiteral("Broken"), 4, 4, 1, [](int, int) { return 1; });
    project.Map(Broken).GridPos = 128 * 1024 - 7;

    // The marks: the editors add the offsets 2 and 1 to the stored squares.
    project.Map(WideField).XShift = 2;
    project.Map(WideField).YShift = 1;
    // The last warp stands on the map's last square, its symbol reaching a
    // pixel past the picture's edge without lying outside it.
    project.AddWarps(WideField,
                     {{1, 2, 0, 0}, {6, 9, 1, 1}, {9, 0, 2, 2}, {0, 200, 3, 3}, {18, 25, 4, 4}});
    project.AddWarpTo(WideField, {{Fixture::EventPlacement(14, 1, 1, 0), 3, 4},
                                  {Fixture::EventPlacement(14, 6, 4, 0), 8, 11}});
    // A plain type, and one whose stored coordinates carry a bias of 4.
    project.EventTypes.push_back(
        {QStringLiteral("P"), QStringLiteral("Plain"), 1, 3, 0, 0, 1, 2, 3, 0, 0, 0, 0, 0, 0});
    project.EventTypes.push_back(
        {QStringLiteral("B"), QStringLiteral("Biased"), 3, 2, 4, 4, 1, 2, 0, 0, 0, 0, 0, 0, 0});
    project.AddEventList(WideField, 0, {Bytes({0, 6, 9}), Bytes({4, 12, 9})});
    project.AddEventList(WideField, 1, {Bytes({4 + 9, 4 + 4}), Bytes({4 + 2, 4 + 13})});
    return project;
}

QImage Rgb(const QImage& image) {
    return image.convertToFormat(QImage::Format_RGB32);
}

}  // namespace

class RenderCommandTest : public AppTest {
protected:
    void SetUp() override {
        AppTest::SetUp();
        Rom = RenderProject().Write(Folder());
        ASSERT_FALSE(Rom.isEmpty());
        Out = PathOf(QStringLiteral("pictures"));
        // The bank is loaded once a run; the editor shows this folder's bank.
        QString error;
        ASSERT_TRUE(Tiles::Bank().Load(PathOf(QStringLiteral("Tiles.png")), error));
    }
    CommandResult Render(const QStringList& options) {
        return RunCommand(RenderCommand(), options + QStringList{Folder(), Rom, Out});
    }
    QImage Picture(const QString& name) const { return Rgb(QImage(QDir(Out).filePath(name))); }
    // What the editor's view shows of the map: its 8 x 6 blocks of cells.
    static QImage ViewCells(MapView* view) {
        return Rgb(view->MapTile->grab().toImage()).copy(0, 0, 8 * 64, 6 * 64);
    }

    QString Rom;
    QString Out;
};

// With --marks every warp, warp-to point and event that an editor shows has
// the editor's own symbol at the editor's place over the map, inside the
// ring of --border; a warp beyond the picture is counted. The cells of the
// editor's view, scrolled into the middle of a map, are the same pixels as
// that part of the map's picture; the square whose byte lies below the bias
// is among them. With --border the same picture, to its last row and column,
// stands in a ring of the editor's border block; a map without object data
// has no border block and no ring.
TEST_F(RenderCommandTest, PicturesAndMarksAreTheEditorsViewPixelForPixel) {
    MainForm* form = StartUp(Rom);
    ASSERT_NE(form, nullptr);
    GoTo(form, 0, WideField);
    CommandResult result =
        Render({QStringLiteral("--marks"), QStringLiteral("--map"), QString::number(WideField)});
    ASSERT_EQ(result.Status, 0) << result.Err.toStdString();
    EXPECT_TRUE(result.Out.contains(QStringLiteral("11 marks (1 outside the picture)")))
        << result.Out.toStdString();
    result = Render({QStringLiteral("--marks"), QStringLiteral("--border"), QStringLiteral("--map"),
                     QString::number(WideField)});
    ASSERT_EQ(result.Status, 0) << result.Err.toStdString();
    const QImage picture = Picture(QStringLiteral("000_Wide_Field.png"));

    // The symbols lie over the view, whose top left corner is the map's, one
    // block in from the picture's corner.
    int compared = 0;
    const auto compare = [&](PlacementView* placement, int count, const QPixmap& symbol) {
        const QPoint corner = placement->View->MapTile->pos();
        for (int i = 0; i < count; ++i) {
            if (!placement->Sym[i]->isVisibleTo(placement->Sym[i]->parentWidget())) continue;
            const QPoint at = placement->Sym[i]->pos() - corner + QPoint(64, 64);
            EXPECT_TRUE(SamePixels(picture.copy(QRect(at, symbol.size())), Rgb(symbol.toImage())))
                << "symbol " << i << " at " << at.x() << ", " << at.y();
            ++compared;
        }
    };
    form->mnuWarpEdit->trigger();
    WarpEdit* warps = form->findChild<WarpEdit*>();
    ASSERT_NE(warps, nullptr);
    compare(warps->Placement, warps->WarpCount, warps->WarpNon);
    warps->EditWarpTo->setChecked(true);
    compare(warps->Placement, warps->WarpCount, warps->WarpToNon);
    CloseWindow(warps);

    form->mnuEventEdit->trigger();
    EventEdit* events = form->findChild<EventEdit*>();
    ASSERT_NE(events, nullptr);
    compare(events->Placement, events->EventCount, events->EventNon);
    events->SelType->setCurrentRow(1);
    events->Command2_Click();
    ASSERT_EQ(events->CurEventType, 1);
    compare(events->Placement, events->EventCount, events->EventNon);
    EXPECT_EQ(compared, 9);

    // The main window's view, scrolled into the middle of the map.
    form->View->HScroll->setValue(4);
    form->View->VScroll->setValue(3);
    // Square (6, 5) stands in view slot 2 + 8 x 2.
    ASSERT_EQ(form->View->MapTile->Picture(16 * 18), Tiles::Bank().NoPicture());

    result = Render({QStringLiteral("--map"), QStringLiteral("Wide Field")});
    ASSERT_EQ(result.Status, 0) << result.Err.toStdString();
    const QImage plain = Picture(QStringLiteral("000_Wide_Field.png"));
    ASSERT_EQ(plain.size(), QSize(14 * 64, 10 * 64));
    EXPECT_TRUE(SamePixels(plain.copy(3 * 64, 2 * 64, 8 * 64, 6 * 64), ViewCells(form->View)));

    const QImage border = Rgb(form->BorderBlock->grab().toImage());
    ASSERT_EQ(border.size(), QSize(64, 64));
    result = Render({QStringLiteral("--border"), QStringLiteral("--map"), QStringLiteral("Land")});
    ASSERT_EQ(result.Status, 0) << result.Err.toStdString();
    const QImage ringed = Picture(QStringLiteral("000_Wide_Field.png"));
    ASSERT_EQ(ringed.size(), QSize(16 * 64, 12 * 64));
    EXPECT_TRUE(SamePixels(ringed.copy(64, 64, 14 * 64, 10 * 64), plain));
    for (const QPoint block : {QPoint(0, 0), QPoint(15, 0), QPoint(0, 11), QPoint(15, 11),
                               QPoint(7, 0), QPoint(0, 5), QPoint(15, 6), QPoint(9, 11)})
        EXPECT_TRUE(SamePixels(ringed.copy(block.x() * 64, block.y() * 64, 64, 64), border))
            << "ring block " << block.x() << ", " << block.y();

    EXPECT_EQ(Picture(QStringLiteral("001_Hut.png")).size(), QSize(3 * 64, 2 * 64));
    EXPECT_TRUE(result.Out.contains(QStringLiteral("001_Hut.png  3 x 2 blocks, no border block")))
        << result.Out.toStdString();
}

// --map takes a map's name in any case, a map row, or a category's name, and
// each map is drawn once; a name that names nothing stops the command before
// it draws anything. Without --map every map of every category is drawn; one
// that cannot be read is named, the others are drawn, and the status says
// that one is missing. --scale makes each pixel a square of that many
// pixels, never blended with its neighbours.
TEST_F(RenderCommandTest, MapsAreChosenByNameRowOrCategoryAndDrawnAtAnyScale) {
    CommandResult result =
        Render({QStringLiteral("--map"), QStringLiteral("wide FIELD"), QStringLiteral("--map"),
                QStringLiteral("Hollow"), QStringLiteral("--map"), QStringLiteral("0"),
                QStringLiteral("--scale"), QStringLiteral("3")});
    ASSERT_EQ(result.Status, 0) << result.Err.toStdString();
    EXPECT_EQ(QDir(Out).entryList(QDir::Files), QStringList({QStringLiteral("000_Wide_Field.png"),
                                                             QStringLiteral("002_Hollow.png")}));
    EXPECT_TRUE(result.Out.contains(QStringLiteral("[2/2] 002_Hollow.png  9 x 7 blocks")))
        << result.Out.toStdString();
    const QImage scaled = Picture(QStringLiteral("002_Hollow.png"));

    QDir(Out).removeRecursively();
    result = Render({QStringLiteral("--map"), QStringLiteral("Land"), QStringLiteral("--map"),
                     QStringLiteral("Nowhere")});
    EXPECT_EQ(result.Status, 2);
    EXPECT_TRUE(
        result.Err.contains(QStringLiteral("No map and no category of Maps.twy is named "
                                           "\"Nowhere\".")))
        << result.Err.toStdString();
    EXPECT_FALSE(QFileInfo::exists(Out));

    result = Render({QStringLiteral("--map"), QStringLiteral("7")});
    EXPECT_EQ(result.Status, 2);
    EXPECT_TRUE(
        result.Err.contains(QStringLiteral("No category of Maps.twy lists a map at row 7.")))
        << result.Err.toStdString();

    result = Render({});
    EXPECT_EQ(result.Status, 1);
    EXPECT_TRUE(
        result.Err.contains(QStringLiteral("The map \"Broken\" (row 3 of Maps.twy) could "
                                           "not be loaded")))
        << result.Err.toStdString();
    EXPECT_EQ(QDir(Out).entryList(QDir::Files),
              QStringList({QStringLiteral("000_Wide_Field.png"), QStringLiteral("001_Hut.png"),
                           QStringLiteral("002_Hollow.png")}));
    EXPECT_TRUE(result.Out.contains(QStringLiteral("3 of 4 maps drawn")))
        << result.Out.toStdString();
    const QImage plain = Picture(QStringLiteral("002_Hollow.png"));
    ASSERT_EQ(scaled.size(), plain.size() * 3);
    EXPECT_TRUE(SamePixels(
        scaled, plain.scaled(plain.size() * 3, Qt::IgnoreAspectRatio, Qt::FastTransformation)));
}
