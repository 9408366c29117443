#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include "support/commands.h"

namespace {

// One run of a command: what it is given, its exit status, and the start of
// what it prints: on standard output when it succeeds, on standard error
// when it does not, the other staying empty. "@bin" stands for the build's
// program folder with the demo, "@tmp" for an empty folder. A status of 2
// means a refusal: the one-line reason, before the usage when the command
// line itself was bad.
struct Case {
    QString Program;
    QStringList Arguments;
    int Status;
    QString Says;
};

QString Check() {
    return QStringLiteral(TARNWEY_CHECK_COMMAND);
}
QString Editor() {
    return QStringLiteral(TARNWEY_EDITOR);
}

const QString Ver = QStringLiteral("1.2");

}  // namespace

TEST(CommandLine, TheEditorAndEveryCommandFollowOneSetOfRules) {
    const QString check = Check(), render = RenderCommand(), tiles = TilesCommand();
    const QString editor = Editor();
    const QString bin = QFileInfo(check).path();
    QTemporaryDir tmp;
    const QString usage = QStringLiteral("Usage: %1 ");
    const Case cases[] = {
        {check, {"--version"}, 0, "tarnwey-check (Tarnwey) " + Ver + "\n"},
        {render, {"--version"}, 0, "tarnwey-render (Tarnwey) " + Ver + "\n"},
        {tiles, {"--version"}, 0, "tarnwey-tiles (Tarnwey) " + Ver + "\n"},
        {editor, {"--version"}, 0, "Tarnwey " + Ver + "\n"},
        {check, {"--help"}, 0, usage.arg("tarnwey-check")},
        {render, {"-h"}, 0, usage.arg("tarnwey-render")},
        {tiles, {"--help"}, 0, usage.arg("tarnwey-tiles")},
        {editor, {"--help"}, 0, usage.arg("tarnwey")},
        // Bad command lines: the reason, then the usage under the installed name.
        {check, {"-V"}, 2, "tarnwey-check: unknown option '-V'\n" + usage.arg("tarnwey-check")},
        {check,
         {"--game", "green", "f", "r"},
         2,
         "tarnwey-check: the option '--game' is red, blue or both, not 'green'\nUsage"},
        {check,
         {"f", "r", "--game"},
         2,
         "tarnwey-check: the option '--game' needs a value (red|blue|both)\nUsage"},
        {check, {"--game", "both", "f", "r"}, 2, "tarnwey-check: missing BLUE_ROM\nUsage"},
        {check, {"f", "r", "r2"}, 2, "tarnwey-check: one operand too many: 'r2'\nUsage"},
        {check,
         {"--json=yes", "f", "r"},
         2,
         "tarnwey-check: the option '--json' takes no value\nUsage"},
        {render,
         {},
         2,
         "tarnwey-render: missing FOLDER, ROM and OUTDIR\n" + usage.arg("tarnwey-render")},
        {render,
         {"--game", "both", "f", "r", "o"},
         2,
         "tarnwey-render: the option '--game' is red or blue, not 'both'\nUsage"},
        {render,
         {"--scale", "17", "f", "r", "o"},
         2,
         "tarnwey-render: the option '--scale' is a whole number from 1 to 16, not '17'\nUsage"},
        {tiles, {"r.gb", "o.png"}, 2, "tarnwey-tiles: missing RUN\n" + usage.arg("tarnwey-tiles")},
        {tiles, {"r.gb", "o.png", "12:3"}, 2, "tarnwey-tiles: The run \"12:3\" is not written"},
        // The editor refuses before its toolkit looks for a display, so a
        // platform that cannot start is never reached.
        {editor,
         {"-platform", "xcb", "--bogus"},
         2,
         "tarnwey: unknown option '--bogus'\n" + usage.arg("tarnwey")},
        {editor,
         {"-style=fusion", "a.gb", "b.gb"},
         2,
         "tarnwey: one operand too many: 'b.gb'\nUsage"},
        // Inputs that cannot be read: said once, naming them, and nothing more.
        {check, {"@tmp/none", "r.gb"}, 2, "tarnwey-check: the folder '@tmp/none' does not exist\n"},
        {render,
         {"@tmp/none", "r.gb", "@tmp"},
         2,
         "tarnwey-render: the folder '@tmp/none' does not exist\n"},
        {tiles, {"@tmp/none.gb", "@tmp/o.png", "1:1@0"}, 2, "tarnwey-tiles: "},
        // Work done, in part or whole, on the demo.
        {check, {"--game", "both", "@bin", "@bin/MorlickRed.gb", "@bin/MorlickBlue.gb"}, 0, ""},
        {check,
         {"--verbose", "--game", "blue", "@bin", "@bin/MorlickBlue.gb"},
         0,
         "Checked @bin against MorlickBlue.gb (blue): nothing found.\n"},
        {tiles,
         {"@bin/MorlickRed.gb", "@tmp/o.png", "1:1@7"},
         0,
         "1:1@7: 1 tile from position 1 into picture 7\n"},
        {render, {"--map", "0", "@bin", "@bin/MorlickRed.gb", "@tmp/maps"}, 0, "[1/1] "},
        {render, {"@bin", "@bin/MorlickRed.gb", "@tmp/last", "--map", "1"}, 0, "[1/1] "},
    };
    for (const Case& c : cases) {
        const auto fill = [&](QString text) {
            return text.replace(QStringLiteral("@bin"), bin)
                .replace(QStringLiteral("@tmp"), tmp.path());
        };
        QStringList arguments;
        for (const QString& a : c.Arguments)
            arguments << fill(a);
        SCOPED_TRACE((QFileInfo(c.Program).fileName() + u' ' + arguments.join(u' ')).toStdString());
        const CommandResult result = RunCommand(c.Program, arguments);
        const QString says = fill(c.Says);
        EXPECT_EQ(result.Status, c.Status) << result.Err.toStdString();
        const QString& said = c.Status == 0 ? result.Out : result.Err;
        EXPECT_TRUE(says.isEmpty() ? said.isEmpty() : said.startsWith(says)) << said.toStdString();
        EXPECT_TRUE((c.Status == 0 ? result.Err : result.Out).isEmpty());
        // A refusal is one line, followed by the usage when the command line was bad.
        if (c.Status != 0) {
            EXPECT_TRUE(result.Err.count(u'\n') == 1 ||
                        result.Err.section(u'\n', 1).startsWith(QStringLiteral("Usage: ")))
                << result.Err.toStdString();
        }
    }
}
