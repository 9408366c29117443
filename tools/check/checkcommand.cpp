#include "check/checkcommand.h"

#include <QCommandLineParser>

#include "check/checkfolder.h"
#include "check/reportwriter.h"

namespace Check {

namespace {
constexpr int CannotRead = 2;

const QString Usage = QStringLiteral(
    "Usage: tarnwey-check [--version red|blue] [--json] FOLDER ROM\n"
    "       tarnwey-check --version both [--json] FOLDER RED_ROM BLUE_ROM\n"
    "\n"
    "Checks the data files of a Tarnwey program folder against a ROM: every row that\n"
    "would make the editor read or write the wrong bytes is reported with its file,\n"
    "row and column. Exit status: 0 all is well, 1 findings, 2 a file cannot be read.\n"
    "\n"
    "  --version red|blue|both  the version of the ROM (red when not given); both\n"
    "                           checks both tileset files, each with its own ROM\n"
    "  --json                   the report as JSON, for scripts\n");
}  // namespace

int RunCheckCommand(const QStringList& arguments, QTextStream& out, QTextStream& err) {
    QCommandLineParser parser;
    const QCommandLineOption version(QStringLiteral("version"),
                                     QStringLiteral("The version of the ROM."),
                                     QStringLiteral("red|blue|both"), QStringLiteral("red"));
    const QCommandLineOption json(QStringLiteral("json"), QStringLiteral("The report as JSON."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("This text."));
    parser.addOptions({version, json, help});
    if (!parser.parse(arguments)) {
        err << parser.errorText() << "\n\n" << Usage;
        return CannotRead;
    }
    if (parser.isSet(help)) {
        out << Usage;
        return 0;
    }
    const QString which = parser.value(version);
    const QStringList positional = parser.positionalArguments();
    std::vector<VersionRom> roms;
    if (which == QStringLiteral("both") && positional.size() == 3)
        roms = {{GameVersion::Red, positional[1]}, {GameVersion::Blue, positional[2]}};
    else if (which == QStringLiteral("red") && positional.size() == 2)
        roms = {{GameVersion::Red, positional[1]}};
    else if (which == QStringLiteral("blue") && positional.size() == 2)
        roms = {{GameVersion::Blue, positional[1]}};
    if (roms.empty()) {
        err << Usage;
        return CannotRead;
    }
    const CheckReport report = CheckFolder(positional[0], roms);
    if (parser.isSet(json))
        out << QString::fromUtf8(ReportJson(report));
    else
        out << ReportText(report);
    return report.ExitStatus();
}

}  // namespace Check
