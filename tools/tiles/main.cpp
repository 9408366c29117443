// tarnwey-tiles: makes the tile bank Tiles.png, or changes pictures of one,
// from the tiles of a ROM, so that the editor shows the game's own pictures.
//
//   tarnwey-tiles [--shades C0,C1,C2,C3] ROM OUT.png RUN...
//   RUN = POSITION:COUNT@INDEX
#include <QCommandLineParser>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QSaveFile>
#include <QTextStream>
#include <vector>

#include "mapview/bankatlas.h"
#include "rom/romfile.h"
#include "tiles/tilerun.h"

namespace {
constexpr int Written = 0;
constexpr int Refused = 1;
constexpr int BadCommandLine = 2;

QTextStream Out(stdout);
QTextStream Err(stderr);

int Refuse(const QString& message, int status = Refused) {
    Err << "tarnwey-tiles: " << message << "\nNothing was written.\n";
    return status;
}
}  // namespace

int main(int argc, char** argv) {
    // No window is opened; the offscreen platform serves the picture work.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Draws tiles of a ROM into the tile bank OUT.png: each run POSITION:COUNT@INDEX takes "
        "COUNT tiles of 16 bytes from the 1-based ROM position POSITION on and puts them into "
        "the bank's pictures INDEX on, each pixel as a 2 x 2 square. Pictures no run fills keep "
        "what an existing OUT.png holds, or the lightest shade in a new one."));
    parser.addHelpOption();
    const QCommandLineOption shades(
        QStringLiteral("shades"),
        QStringLiteral("The colours of the values 0 to 3, lightest first (default "
                       "#FFF8FF,#C0C7C0,#808080,#000000)."),
        QStringLiteral("C0,C1,C2,C3"));
    parser.addOption(shades);
    parser.addPositionalArgument(QStringLiteral("ROM"), QStringLiteral("The ROM file."));
    parser.addPositionalArgument(QStringLiteral("OUT.png"), QStringLiteral("The tile bank."));
    parser.addPositionalArgument(QStringLiteral("RUN"),
                                 QStringLiteral("POSITION:COUNT@INDEX, one or more."),
                                 QStringLiteral("RUN..."));
    if (!parser.parse(QCoreApplication::arguments()))
        return Refuse(parser.errorText(), BadCommandLine);
    if (parser.isSet(QStringLiteral("help"))) {
        Out << parser.helpText();
        return Written;
    }
    const QStringList places = parser.positionalArguments();
    if (places.size() < 3)
        return Refuse(QStringLiteral("give ROM, OUT.png and at least one RUN (see --help)."),
                      BadCommandLine);
    std::array<QRgb, 4> colours = BankAtlas::Shades;
    QString error;
    if (parser.isSet(shades) && !ParseShades(parser.value(shades), colours, error))
        return Refuse(error, BadCommandLine);
    std::vector<TileRun> runs;
    for (qsizetype i = 2; i < places.size(); ++i) {
        TileRun run;
        if (!ParseTileRun(places[i], run, error)) return Refuse(error, BadCommandLine);
        runs.push_back(run);
    }

    RomFile rom;
    if (!rom.Open(places[0])) return Refuse(rom.Error());
    for (const TileRun& run : runs)
        if (!CheckTileRun(run, rom, error)) return Refuse(error);

    // The bank the runs go into: the file as it is, or a new one all lightest.
    const QString outPath = places[1];
    QImage bank;
    const bool existing = QFileInfo::exists(outPath);
    if (existing) {
        QImageReader reader(outPath);
        bank = reader.read();
        if (bank.isNull())
            return Refuse(QStringLiteral("The tile bank \"%1\" could not be read (%2).")
                              .arg(outPath, reader.errorString()));
        if (bank.width() < BankAtlas::Size().width() || bank.height() < BankAtlas::Size().height())
            return Refuse(QStringLiteral("The tile bank \"%1\" is %2 x %3 pixels, too small to "
                                         "hold %4 pictures of 16 x 16 pixels, 16 to a row.")
                              .arg(outPath)
                              .arg(bank.width())
                              .arg(bank.height())
                              .arg(Limits::BankPictures));
        bank = bank.convertToFormat(QImage::Format_RGB32);
    } else {
        bank = QImage(BankAtlas::Size(), QImage::Format_RGB32);
        bank.fill(colours[0]);
    }

    for (const TileRun& run : runs) {
        for (int t = 0; t < run.Count; ++t)
            DrawTile(rom, run.Position + TileBytes * t, bank, run.Index + t, colours);
        Out << QStringLiteral("%1: %2 tiles from position %3 into pictures %4 to %5\n")
                   .arg(run.Text)
                   .arg(run.Count)
                   .arg(run.Position)
                   .arg(run.Index)
                   .arg(run.Index + run.Count - 1);
    }

    // The bank is written whole or not at all.
    QSaveFile file(outPath);
    if (!file.open(QIODevice::WriteOnly) || !bank.save(&file, "PNG") || !file.commit())
        return Refuse(QStringLiteral("The tile bank \"%1\" could not be written: %2")
                          .arg(outPath, file.errorString()));
    Out << QStringLiteral("%1 %2.\n")
               .arg(outPath, existing ? QStringLiteral("changed; its other pictures are as "
                                                       "they were")
                                      : QStringLiteral("made; its other pictures are lightest"));
    return Written;
}
