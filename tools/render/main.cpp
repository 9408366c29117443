// tarnwey-render: draws maps of a program folder and a ROM into PNG files,
// each block composed from the tile bank as the editor's view composes it.
//
//   tarnwey-render [--version red|blue] [--map NAME|ROW]... [--scale N]
//                  [--border] [--marks] FOLDER ROM OUTDIR
#include <unistd.h>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTextStream>
#include <cstdio>

#include "core/datafilenames.h"
#include "core/defines.h"
#include "mapview/maploader.h"
#include "mapview/tiles.h"
#include "render/mapmarks.h"
#include "render/mappicture.h"
#include "render/mapselection.h"
#include "rom/romfile.h"

namespace {
// Exit status: every picture asked for was written; something could not be
// drawn (a map or a list, each named in a message); the files could not be
// read at all or the command line was wrong.
constexpr int AllDrawn = 0;
constexpr int SomethingMissing = 1;
constexpr int NothingDrawn = 2;
constexpr int LargestScale = 16;

QTextStream Out(stdout);
QTextStream Err(stderr);

int Refuse(const QString& message) {
    Err << "tarnwey-render: " << message << '\n';
    return NothingDrawn;
}

// A line that a terminal shows in place, at most ten times a second;
// elsewhere only finished lines go out.
class ProgressLine {
public:
    ProgressLine() : Live_(isatty(fileno(stdout)) != 0) { Since_.start(); }
    void Show(const QString& text) {
        if (!Live_ || Since_.elapsed() < ShowEvery) return;
        Since_.restart();
        Out << '\r' << text << "\x1b[K";
        Out.flush();
    }
    void Finish(const QString& text) {
        if (Live_) Out << '\r' << "\x1b[K";
        Out << text << '\n';
        Out.flush();
    }

private:
    static constexpr qint64 ShowEvery = 100;  // milliseconds
    bool Live_;
    QElapsedTimer Since_;
};
}  // namespace

int main(int argc, char** argv) {
    // The command opens no window: Qt's offscreen platform serves its pictures
    // and fonts, with or without a display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Draws maps of a program folder and a ROM into PNG files, one file a map, block by "
        "block as the editor shows them: 64 x 64 pixels a block."));
    parser.addHelpOption();
    const QCommandLineOption version(QStringLiteral("version"),
                                     QStringLiteral("The game's version: red (TilesetsR.twy, the "
                                                    "default) or blue (TilesetsB.twy)."),
                                     QStringLiteral("red|blue"), QStringLiteral("red"));
    const QCommandLineOption map(QStringLiteral("map"),
                                 QStringLiteral("A map by its name or its row of Maps.twy, or a "
                                                "category by its name; may be given again. "
                                                "Without it, every map is drawn."),
                                 QStringLiteral("NAME|ROW"));
    const QCommandLineOption scale(QStringLiteral("scale"),
                                   QStringLiteral("Each pixel becomes N x N pixels (1 to %1), "
                                                  "never smoothed.")
                                       .arg(LargestScale),
                                   QStringLiteral("N"), QStringLiteral("1"));
    const QCommandLineOption border(QStringLiteral("border"),
                                    QStringLiteral("Draws the map's border block in a ring of "
                                                   "one block around the map."));
    const QCommandLineOption marks(QStringLiteral("marks"),
                                   QStringLiteral("Marks the warps, warp-to points and events "
                                                  "with the symbols of the editors."));
    parser.addOptions({version, map, scale, border, marks});
    parser.addPositionalArgument(QStringLiteral("FOLDER"),
                                 QStringLiteral("The program folder with the data files and "
                                                "the tile bank Tiles.png."));
    parser.addPositionalArgument(QStringLiteral("ROM"), QStringLiteral("The ROM file."));
    parser.addPositionalArgument(QStringLiteral("OUTDIR"),
                                 QStringLiteral("Where the pictures go; made when missing."));
    if (!parser.parse(QCoreApplication::arguments())) return Refuse(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        Out << parser.helpText();
        return AllDrawn;
    }
    const QStringList places = parser.positionalArguments();
    if (places.size() != 3)
        return Refuse(QStringLiteral("give FOLDER, ROM and OUTDIR (see --help)."));
    const QString versionName = parser.value(version).toLower();
    if (versionName != u"red" && versionName != u"blue")
        return Refuse(
            QStringLiteral("the version is red or blue, not \"%1\".").arg(parser.value(version)));
    bool scaleIsNumber = false;
    const int factor = parser.value(scale).toInt(&scaleIsNumber);
    if (!scaleIsNumber || factor < 1 || factor > LargestScale)
        return Refuse(QStringLiteral("the scale is a whole number from 1 to %1, not \"%2\".")
                          .arg(LargestScale)
                          .arg(parser.value(scale)));
    const QString folder = QDir(places[0]).absolutePath();
    const QString romPath = places[1];
    const QDir outDir(places[2]);

    // The tables, the tile bank and the ROM, read as the editor reads them.
    Defines.ProgramFolder = folder;
    Defines.RomPath = romPath;
    QString error;
    const QString tilesetFile =
        versionName == u"red" ? DataFileNames::TilesetsRed : DataFileNames::TilesetsBlue;
    if (!LoadTilesetFile(folder + u'/' + tilesetFile, Defines.TilesetTable, error) ||
        !LoadMapsFile(folder + u'/' + DataFileNames::Maps, Defines.CategoryTable, Defines.MapTable,
                      Defines.CategoryCount, error))
        return Refuse(error);
    std::vector<int> rows;
    if (!SelectMaps(parser.values(map), rows, error)) return Refuse(error);
    Tiles& bank = Tiles::Bank();
    if (!bank.Load(folder + u'/' + TileBankFile, error)) return Refuse(error);
    RomFile rom;
    if (!rom.Open(romPath)) return Refuse(rom.Error());
    QStringList problems;
    MarkSources sources;
    if (parser.isSet(marks) && !sources.Load(folder, error, problems)) return Refuse(error);
    for (const QString& problem : problems)
        Err << "tarnwey-render: " << problem << '\n';
    if (!outDir.mkpath(QStringLiteral(".")))
        return Refuse(QStringLiteral("the folder \"%1\" could not be made.").arg(outDir.path()));

    // Every colour a picture can hold comes from these pictures, drawn unscaled.
    std::vector<const QPixmap*> pictures;
    for (int i = 0; i < Limits::BankPictures; ++i)
        pictures.push_back(TilePicture(i));
    pictures.push_back(bank.NoPicture());
    if (parser.isSet(marks))
        pictures.insert(pictures.end(), {&sources.Warp, &sources.WarpTo, &sources.Event});
    const std::vector<QRgb> palette = PaletteOf(pictures);

    QElapsedTimer clock;
    clock.start();
    ProgressLine progress;
    int drawn = 0;
    const int total = static_cast<int>(rows.size());
    const int width = QString::number(total).size();
    for (int n = 0; n < total; ++n) {
        const int row = rows[n];
        const QString file = PictureFileName(row);
        const QString counter = QStringLiteral("[%1/%2] ").arg(n + 1, width).arg(total) + file;
        // A block number past the tileset's last block shows the rows of
        // BlockTiles that the load leaves alone. They start empty for every
        // map, as in the editor right after start-up, so that a picture does
        // not depend on the maps drawn before it.
        for (auto& tiles : Defines.BlockTiles)
            tiles.fill(0);
        LoadedMap loaded;
        if (!ReadMap(rom, row, loaded, error)) {
            progress.Finish(counter + QStringLiteral("  not drawn"));
            problems << error;
            Err << "tarnwey-render: " << error << '\n';
            continue;
        }
        MapPictureOptions options;
        options.Scale = factor;
        QString remark;
        if (parser.isSet(border)) {
            // A map without object data has no border byte.
            if (HasObjectData(Defines.MapTable[row]))
                options.Border = loaded.BorderNum;
            else
                remark += QStringLiteral(", no border block");
        }
        if (parser.isSet(marks)) {
            QStringList listProblems;
            QStringList notes;
            options.Marks = ReadMapMarks(rom, row, sources, listProblems, notes);
            for (const QString& text : listProblems + notes)
                Err << "tarnwey-render: " << text << '\n';
            problems += listProblems;
            remark += QStringLiteral(", %1 marks").arg(options.Marks.size());
        }
        const int outside = WriteMapPicture(
            outDir.filePath(file), options, palette,
            [&](int done, int all) {
                progress.Show(counter + QStringLiteral("  block row %1 of %2").arg(done).arg(all));
            },
            error);
        if (outside < 0) {
            progress.Finish(counter + QStringLiteral("  not drawn"));
            problems << error;
            Err << "tarnwey-render: " << error << '\n';
            continue;
        }
        if (outside > 0) remark += QStringLiteral(" (%1 outside the picture)").arg(outside);
        ++drawn;
        progress.Finish(
            counter +
            QStringLiteral("  %1 x %2 blocks").arg(Defines.MapWidth).arg(Defines.MapHeight) +
            remark);
    }
    Out << QStringLiteral("%1 of %2 maps drawn into %3 in %4 s.\n")
               .arg(drawn)
               .arg(total)
               .arg(QDir::toNativeSeparators(outDir.absolutePath()))
               .arg(clock.elapsed() / 1000.0, 0, 'f', 1);
    return problems.isEmpty() ? AllDrawn : SomethingMissing;
}
