// tarnwey-render: draws maps of a program folder and a ROM into PNG files,
// each block composed from the tile bank as the editor's view composes it.
//
//   tarnwey-render [--game red|blue] [--map NAME|ROW]... [--scale N]
//                  [--border] [--marks] FOLDER ROM OUTDIR
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTextStream>
#include <cstdio>

#include "cli/commandline.h"
#include "core/datafilenames.h"
#include "core/defines.h"
#include "mapview/maploader.h"
#include "mapview/tiles.h"
#include "render/mapmarks.h"
#include "render/mappicture.h"
#include "render/mapselection.h"
#include "rom/romfile.h"

namespace {
constexpr int LargestScale = 16;

QTextStream Out(stdout);
QTextStream Err(stderr);

Cli::Command RenderCommand() {
    return {QStringLiteral("tarnwey-render"),
            {QStringLiteral("[OPTION]... FOLDER ROM OUTDIR")},
            QStringLiteral(
                "Draws maps of a program folder and a ROM into PNG files in OUTDIR (made when\n"
                "missing), one file a map, block by block as the editor shows them: 64 x 64\n"
                "pixels a block. FOLDER holds the data files and the tile bank Tiles.png."),
            {{QStringLiteral("game"),
              QStringLiteral("red|blue"),
              QStringLiteral("The game's version of the ROM: red (TilesetsR.twy, the default) or "
                             "blue (TilesetsB.twy)."),
              {QStringLiteral("red"), QStringLiteral("blue")}},
             {QStringLiteral("map"),
              QStringLiteral("NAME|ROW"),
              QStringLiteral("A map by its name or its row of Maps.twy, or a category by its name; "
                             "may be given again. Without it, every map is drawn."),
              {}},
             {QStringLiteral("scale"),
              QStringLiteral("N"),
              QStringLiteral("Each pixel becomes N x N pixels (1 to %1), never smoothed.")
                  .arg(LargestScale),
              {}},
             {QStringLiteral("border"),
              {},
              QStringLiteral("Draws the map's border block in a ring of one block around the map."),
              {}},
             {QStringLiteral("marks"),
              {},
              QStringLiteral("Marks the warps, warp-to points and events with the symbols of the "
                             "editors."),
              {}}},
            Cli::CommandStatuses,
            {}};
}

// "1 x 1 block", "14 x 10 blocks".
QString MapSize(int width, int height) {
    return QStringLiteral("%1 x %2 %3")
        .arg(width)
        .arg(height)
        .arg(width * height == 1 ? QStringLiteral("block") : QStringLiteral("blocks"));
}
}  // namespace

int main(int argc, char** argv) {
    // The command opens no window: Qt's offscreen platform serves its pictures
    // and fonts, with or without a display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Cli::QuietToolkit();
    QGuiApplication app(argc, argv);
    Cli::CommandLine line(RenderCommand(), Out, Err);
    if (const auto status = line.Parse(QCoreApplication::arguments().mid(1))) return *status;
    if (const auto status = line.NeedOperands(
            {QStringLiteral("FOLDER"), QStringLiteral("ROM"), QStringLiteral("OUTDIR")}))
        return *status;
    const QString versionName = line.Value(QStringLiteral("game"), QStringLiteral("red"));
    const QString scaleText = line.Value(QStringLiteral("scale"), QStringLiteral("1"));
    bool scaleIsNumber = false;
    const int factor = scaleText.toInt(&scaleIsNumber);
    if (!scaleIsNumber || factor < 1 || factor > LargestScale)
        return line.Refuse(QStringLiteral("the option '--scale' is a whole number from 1 to %1, "
                                          "not '%2'")
                               .arg(LargestScale)
                               .arg(scaleText));
    const bool withBorder = line.IsSet(QStringLiteral("border"));
    const bool withMarks = line.IsSet(QStringLiteral("marks"));
    const QStringList places = line.Operands();
    if (!QFileInfo(places[0]).isDir())
        return line.Fail(QStringLiteral("the folder '%1' does not exist").arg(places[0]),
                         Cli::CannotRun);
    const auto Refuse = [&line](const QString& message) {
        return line.Fail(message, Cli::CannotRun);
    };
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
    if (!SelectMaps(line.Values(QStringLiteral("map")), rows, error)) return Refuse(error);
    Tiles& bank = Tiles::Bank();
    if (!bank.Load(folder + u'/' + TileBankFile, error)) return Refuse(error);
    RomFile rom;
    if (!rom.Open(romPath)) return Refuse(rom.Error());
    QStringList problems;
    MarkSources sources;
    if (withMarks && !sources.Load(folder, error, problems)) return Refuse(error);
    for (const QString& problem : problems)
        line.Fail(problem, Cli::Partly);
    if (!outDir.mkpath(QStringLiteral(".")))
        return Refuse(QStringLiteral("the folder \"%1\" could not be made.").arg(outDir.path()));

    // Every colour a picture can hold comes from these pictures, drawn unscaled.
    std::vector<const QPixmap*> pictures;
    for (int i = 0; i < Limits::BankPictures; ++i)
        pictures.push_back(TilePicture(i));
    pictures.push_back(bank.NoPicture());
    if (withMarks)
        pictures.insert(pictures.end(), {&sources.Warp, &sources.WarpTo, &sources.Event});
    const std::vector<QRgb> palette = PaletteOf(pictures);

    QElapsedTimer clock;
    clock.start();
    Cli::Progress progress(Out);
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
            line.Fail(error, Cli::Partly);
            continue;
        }
        MapPictureOptions options;
        options.Scale = factor;
        QString remark;
        if (withBorder) {
            // A map without object data has no border byte.
            if (HasObjectData(Defines.MapTable[row]))
                options.Border = loaded.BorderNum;
            else
                remark += QStringLiteral(", no border block");
        }
        if (withMarks) {
            QStringList listProblems;
            QStringList notes;
            options.Marks = ReadMapMarks(rom, row, sources, listProblems, notes);
            for (const QString& text : listProblems + notes)
                line.Fail(text, Cli::Partly);
            problems += listProblems;
            remark +=
                QStringLiteral(", ") + Cli::Count(static_cast<qint64>(options.Marks.size()),
                                                  QStringLiteral("mark"), QStringLiteral("marks"));
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
            line.Fail(error, Cli::Partly);
            continue;
        }
        if (outside > 0) remark += QStringLiteral(" (%1 outside the picture)").arg(outside);
        ++drawn;
        progress.Finish(counter + QStringLiteral("  ") +
                        MapSize(Defines.MapWidth, Defines.MapHeight) + remark);
    }
    Out << QStringLiteral("%1 of %2 drawn into %3 in %4 s.\n")
               .arg(drawn)
               .arg(Cli::Count(total, QStringLiteral("map"), QStringLiteral("maps")))
               .arg(QDir::toNativeSeparators(outDir.absolutePath()))
               .arg(clock.elapsed() / 1000.0, 0, 'f', 1);
    return problems.isEmpty() ? Cli::Done : Cli::Partly;
}
