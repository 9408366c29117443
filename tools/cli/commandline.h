#pragma once

#include <QElapsedTimer>
#include <QStringList>
#include <QTextStream>
#include <optional>
#include <vector>

// What the program's commands share: their exit statuses, the reading of
// their command lines in the manner of GNU programs, --help and --version,
// counted nouns, and a progress line on a terminal.
namespace Cli {

// The exit statuses, the same in every command.
constexpr int Done = 0;       // the work is done and nothing was found
constexpr int Partly = 1;     // findings, or a part of the work could not be done
constexpr int CannotRun = 2;  // a bad command line, or an input that cannot be read

// What --help of a command says of the exit statuses.
extern const QString CommandStatuses;

// The program's version, as --version prints it.
QString ProgramVersion();

// An option besides --help and --version, named without its dashes.
struct Option {
    QString Name;
    QString Value;        // the name of its value ("N"), empty for a flag
    QString Help;         // what --help says of it, one sentence or more
    QStringList Choices;  // when not empty, the only values it takes
};

struct Command {
    QString Name;          // as it is installed: "tarnwey-render"
    QStringList Synopsis;  // each form after "Usage: NAME "
    QString Description;   // what the command does, for --help
    std::vector<Option> Options;
    QString Epilogue;  // what --help says after the options
    QString Version;   // what --version says; "NAME (Tarnwey) VERSION" when empty
};

// One command line, read against a command's options. Operands are what is
// not an option; "--" ends the options.
class CommandLine {
public:
    CommandLine(Command command, QTextStream& out, QTextStream& err);

    // Reads the arguments (without the program's name). Returns the exit
    // status when the command is to end here: after --help or --version, or
    // after a bad command line has been told on `err`.
    std::optional<int> Parse(const QStringList& arguments);

    bool IsSet(const QString& option) const;
    // The last value given, or `fallback` when the option is not given.
    QString Value(const QString& option, const QString& fallback = {}) const;
    QStringList Values(const QString& option) const;
    const QStringList& Operands() const { return Operands_; }

    // Whether the operands are exactly `names` (the last may repeat); when
    // not, the one-line reason and the usage are told and the result is set.
    std::optional<int> NeedOperands(const QStringList& names, bool lastRepeats = false);
    // Tells a bad command line: the reason, then the usage. Returns CannotRun.
    int Refuse(const QString& reason);
    // Tells a refusal of the work itself on one line. Returns `status`.
    int Fail(const QString& reason, int status);

    QString HelpText() const;
    QString UsageText() const;

private:
    const Option* Find(const QString& name) const;

    Command Command_;
    QTextStream& Out_;
    QTextStream& Err_;
    std::vector<std::pair<QString, QString>> Given_;
    QStringList Operands_;
};

// Drops the toolkit's own messages (warnings on the environment and the
// like), which a command's user has no use for; a fatal one still shows.
void QuietToolkit();

// "1 tile", "3 tiles".
QString Count(qint64 n, const QString& one, const QString& many);

// A line that a terminal shows in place, at most ten times a second, while a
// piece of work goes on; elsewhere only finished lines go out.
class Progress {
public:
    explicit Progress(QTextStream& out);
    void Show(const QString& text);
    void Finish(const QString& text);

private:
    QTextStream& Out_;
    bool Live_;
    bool Shown_ = false;
    QElapsedTimer Since_;
};

}  // namespace Cli
