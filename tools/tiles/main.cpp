// tarnwey-tiles: makes the tile bank Tiles.png, or changes pictures of one,
// from the tiles of a ROM, so that the editor shows the game's own pictures.
//
//   tarnwey-tiles [--shades C0,C1,C2,C3] ROM OUT.png RUN...
//   RUN = POSITION:COUNT@INDEX
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QSaveFile>
#include <QTextStream>
#include <vector>

#include "cli/commandline.h"
#include "mapview/bankatlas.h"
#include "rom/romfile.h"
#include "tiles/tilerun.h"

namespace {
QTextStream Out(stdout);
QTextStream Err(stderr);

Cli::Command TilesCommand() {
    return {QStringLiteral("tarnwey-tiles"),
            {QStringLiteral("[--shades C0,C1,C2,C3] ROM OUT.png RUN...")},
            QStringLiteral(
                "Draws tiles of a ROM into the tile bank OUT.png. Each RUN is\n"
                "POSITION:COUNT@INDEX: COUNT tiles of 16 bytes from the 1-based ROM position\n"
                "POSITION on go into the bank's pictures INDEX on, each pixel as a 2 x 2 square.\n"
                "Numbers are decimal, or hexadecimal after 0x. Pictures no run fills keep what\n"
                "an existing OUT.png holds, or the lightest shade in a new one. A run that\n"
                "reaches past the ROM or the bank is refused, and then nothing is written."),
            {{QStringLiteral("shades"),
              QStringLiteral("C0,C1,C2,C3"),
              QStringLiteral("The colours of the values 0 to 3, lightest first (default "
                             "#FFF8FF,#C0C7C0,#808080,#000000)."),
              {}}},
            Cli::CommandStatuses,
            {}};
}
}  // namespace

int main(int argc, char** argv) {
    // No window is opened; the offscreen platform serves the picture work.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Cli::QuietToolkit();
    QGuiApplication app(argc, argv);
    Cli::CommandLine line(TilesCommand(), Out, Err);
    if (const auto status = line.Parse(QCoreApplication::arguments().mid(1))) return *status;
    if (const auto status = line.NeedOperands(
            {QStringLiteral("ROM"), QStringLiteral("OUT.png"), QStringLiteral("RUN")}, true))
        return *status;
    const QStringList places = line.Operands();
    std::array<QRgb, 4> colours = BankAtlas::Shades;
    QString error;
    if (line.IsSet(QStringLiteral("shades")) &&
        !ParseShades(line.Value(QStringLiteral("shades")), colours, error))
        return line.Refuse(error);
    std::vector<TileRun> runs;
    for (qsizetype i = 2; i < places.size(); ++i) {
        TileRun run;
        if (!ParseTileRun(places[i], run, error)) return line.Refuse(error);
        runs.push_back(run);
    }
    // A refusal of the work says that nothing was written, and nothing follows.
    const auto Refuse = [&line](const QString& message, int status = Cli::Partly) {
        const QString sentence = message.endsWith(u'.') ? message : message + u'.';
        return line.Fail(sentence + QStringLiteral(" Nothing was written."), status);
    };

    RomFile rom;
    if (!rom.Open(places[0])) return Refuse(rom.Error(), Cli::CannotRun);
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
                              .arg(outPath, reader.errorString()),
                          Cli::CannotRun);
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

    for (const TileRun& run : runs)
        for (int t = 0; t < run.Count; ++t)
            DrawTile(rom, run.Position + TileBytes * t, bank, run.Index + t, colours);

    // The bank is written whole or not at all.
    QSaveFile file(outPath);
    if (!file.open(QIODevice::WriteOnly) || !bank.save(&file, "PNG") || !file.commit())
        return Refuse(QStringLiteral("The tile bank \"%1\" could not be written: %2")
                          .arg(outPath, file.errorString()));
    for (const TileRun& run : runs)
        Out << QStringLiteral("%1: %2 from position %3 into %4\n")
                   .arg(run.Text,
                        Cli::Count(run.Count, QStringLiteral("tile"), QStringLiteral("tiles")))
                   .arg(run.Position)
                   .arg(run.Count == 1 ? QStringLiteral("picture %1").arg(run.Index)
                                       : QStringLiteral("pictures %1 to %2")
                                             .arg(run.Index)
                                             .arg(run.Index + run.Count - 1));
    Out << QStringLiteral("%1 %2.\n")
               .arg(outPath, existing ? QStringLiteral("changed; its other pictures are as "
                                                       "they were")
                                      : QStringLiteral("made; its other pictures are lightest"));
    return Cli::Done;
}
