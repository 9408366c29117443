#include <QApplication>
#include <QFileInfo>
#include <QTextStream>
#include <cstdio>

#include "cli/commandline.h"
#include "core/defines.h"
#include "startup/program.h"
#include "ui/programfont.h"
#include "ui/qtdialogs.h"

namespace {
Cli::Command EditorCommand() {
    return {QStringLiteral("tarnwey"),
            {QStringLiteral("[QT-OPTION]... [ROM]")},
            QStringLiteral(
                "The map editor for ROM files of Morlick Red and Blue. Without ROM it asks for\n"
                "the ROM file first; with it, it opens that file as if it had been chosen in\n"
                "the open dialog, and asks for the game's version next. The data files and the\n"
                "tile bank lie beside the program."),
            {},
            QStringLiteral(
                "Qt's own options are taken too, for instance -platform xcb, -style fusion or\n"
                "-display :1.\n\n"
                "Exit status: 0 when the editor is left by its Exit; 1 when start-up cannot go\n"
                "on (a data file or the tile bank cannot be read); 2 a bad command line."),
            QStringLiteral("Tarnwey ") + Cli::ProgramVersion()};
}

// The arguments less the toolkit's own options, which the toolkit takes out
// itself once it starts. Knowing them beforehand lets the whole command line
// be judged before the toolkit needs a display.
QStringList ArgumentsForTheEditor(int argc, char** argv) {
    static const QStringList withValue = {"platform",      "platformpluginpath",
                                          "platformtheme", "plugin",
                                          "qmljsdebugger", "qwindowgeometry",
                                          "qwindowicon",   "qwindowtitle",
                                          "session",       "style",
                                          "stylesheet",    "display",
                                          "geometry",      "title",
                                          "name",          "visual",
                                          "ncols",         "cmap"};
    static const QStringList flags = {"reverse", "widgetcount", "nograb", "dograb", "testability"};
    QStringList arguments;
    bool operandsOnly = false;
    for (int i = 1; i < argc; ++i) {
        const QString argument = QString::fromLocal8Bit(argv[i]);
        if (operandsOnly || !argument.startsWith(u'-') || argument.size() == 1) {
            arguments << argument;
            continue;
        }
        if (argument == u"--") operandsOnly = true;
        // The toolkit takes -option and --option alike, and -style=NAME.
        const QString name = argument.mid(argument.startsWith(u"--") ? 2 : 1).section(u'=', 0, 0);
        if (flags.contains(name)) continue;
        if (withValue.contains(name)) {
            if (!argument.contains(u'=')) ++i;
            continue;
        }
        arguments << argument;
    }
    return arguments;
}
}  // namespace

int main(int argc, char** argv) {
    QTextStream out(stdout);
    QTextStream err(stderr);
    Cli::CommandLine line(EditorCommand(), out, err);
    // The command line is answered before the toolkit starts, so that --help,
    // --version and a refusal need no display.
    if (const auto status = line.Parse(ArgumentsForTheEditor(argc, argv))) return *status;
    if (!line.Operands().isEmpty())
        if (const auto status = line.NeedOperands({QStringLiteral("ROM")})) return *status;

    // The toolkit's note on a missing runtime folder, which it mends itself,
    // is no business of the user's.
    static const QtMessageHandler toolkit = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& context, const QString& message) {
            if (!message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR")))
                toolkit(type, context, message);
        });
    QApplication app(argc, argv);
    out.flush();
    err.flush();
    // Windows are shown and hidden in turn; the program ends only by its own
    // Exit, never because no window happens to be up.
    QApplication::setQuitOnLastWindowClosed(false);
    ApplyProgramFont();
    QtDialogs dialogs;
    SetDialogs(&dialogs);
    Defines.ProgramFolder = QCoreApplication::applicationDirPath();
    Program::SetOnEnd([] { QCoreApplication::exit(Program::ExitStatus()); });
    Program::Main(line.Operands().isEmpty() ? QString()
                                            : QFileInfo(line.Operands()[0]).absoluteFilePath());
    if (Program::Ended()) return Program::ExitStatus();
    return QApplication::exec();
}
