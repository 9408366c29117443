#include "check/checkcommand.h"

#include <QFileInfo>

#include "check/checkfolder.h"
#include "check/reportwriter.h"
#include "cli/commandline.h"

namespace Check {

namespace {
Cli::Command CheckCommand() {
    return {
        QStringLiteral("tarnwey-check"),
        {QStringLiteral("[--game red|blue] [--json] [--verbose] FOLDER ROM"),
         QStringLiteral("--game both [--json] [--verbose] FOLDER RED_ROM BLUE_ROM")},
        QStringLiteral(
            "Checks the data files of a Tarnwey program folder against a ROM: every row that\n"
            "would make the editor read or write the wrong bytes is reported with its file,\n"
            "row and column. Nothing is printed when nothing is found."),
        {{QStringLiteral("game"),
          QStringLiteral("red|blue|both"),
          QStringLiteral("The game's version of the ROM: red (TilesetsR.twy, the default) or "
                         "blue (TilesetsB.twy); both checks both tileset files, each with its "
                         "own ROM."),
          {QStringLiteral("red"), QStringLiteral("blue"), QStringLiteral("both")}},
         {QStringLiteral("json"),
          {},
          QStringLiteral("The report as one JSON document, for scripts."),
          {}},
         {QStringLiteral("verbose"),
          {},
          QStringLiteral("Ends the report with a one-line summary, also when nothing is found."),
          {}}},
        Cli::CommandStatuses,
        {}};
}

// "MorlickRed.gb (red) and MorlickBlue.gb (blue)".
QString RomList(const std::vector<VersionRom>& roms) {
    QStringList names;
    for (const VersionRom& rom : roms)
        names << QStringLiteral("%1 (%2)").arg(QFileInfo(rom.RomPath).fileName(),
                                               VersionName(rom.Version));
    return names.join(QStringLiteral(" and "));
}

QString Summary(const QString& folder, const std::vector<VersionRom>& roms,
                const CheckReport& report) {
    QStringList found;
    if (!report.Findings.empty())
        found << Cli::Count(static_cast<qint64>(report.Findings.size()), QStringLiteral("finding"),
                            QStringLiteral("findings"));
    if (!report.Unreadables.empty())
        found << Cli::Count(static_cast<qint64>(report.Unreadables.size()),
                            QStringLiteral("file that cannot be read"),
                            QStringLiteral("files that cannot be read"));
    return QStringLiteral("Checked %1 against %2: %3.\n")
        .arg(folder, RomList(roms),
             found.isEmpty() ? QStringLiteral("nothing found") : found.join(QStringLiteral(", ")));
}
}  // namespace

int RunCheckCommand(const QStringList& arguments, QTextStream& out, QTextStream& err) {
    Cli::CommandLine line(CheckCommand(), out, err);
    if (const auto status = line.Parse(arguments.mid(1))) return *status;
    const QString game = line.Value(QStringLiteral("game"), QStringLiteral("red"));
    const bool both = game == u"both";
    if (const auto status = line.NeedOperands(
            both ? QStringList{QStringLiteral("FOLDER"), QStringLiteral("RED_ROM"),
                               QStringLiteral("BLUE_ROM")}
                 : QStringList{QStringLiteral("FOLDER"), QStringLiteral("ROM")}))
        return *status;
    const QStringList operands = line.Operands();
    std::vector<VersionRom> roms;
    if (both)
        roms = {{GameVersion::Red, operands[1]}, {GameVersion::Blue, operands[2]}};
    else
        roms = {{game == u"blue" ? GameVersion::Blue : GameVersion::Red, operands[1]}};
    const QString folder = operands[0];
    if (!QFileInfo(folder).isDir())
        return line.Fail(QStringLiteral("the folder '%1' does not exist").arg(folder),
                         Cli::CannotRun);
    const CheckReport report = CheckFolder(folder, roms);
    if (line.IsSet(QStringLiteral("json"))) {
        out << QString::fromUtf8(ReportJson(report));
    } else {
        out << ReportText(report);
        if (line.IsSet(QStringLiteral("verbose"))) out << Summary(folder, roms, report);
    }
    return report.ExitStatus();
}

}  // namespace Check
