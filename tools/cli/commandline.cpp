#include "cli/commandline.h"

#include <unistd.h>
#include <QtGlobal>
#include <cstdio>

namespace Cli {

namespace {
constexpr qint64 ShowEvery = 100;  // milliseconds between two progress lines

// "red or blue", "red, blue or both".
QString OneOf(const QStringList& choices) {
    if (choices.size() < 2) return choices.join(QString());
    return choices.mid(0, choices.size() - 1).join(QStringLiteral(", ")) + QStringLiteral(" or ") +
           choices.last();
}

QString AndList(const QStringList& names) {
    if (names.size() < 2) return names.join(QString());
    return names.mid(0, names.size() - 1).join(QStringLiteral(", ")) + QStringLiteral(" and ") +
           names.last();
}

// The options' column of --help, with their text wrapped beside it.
QString OptionLines(const std::vector<Option>& options) {
    constexpr int TextColumn = 24;
    constexpr int TextWidth = 79 - TextColumn;
    const QString indent(TextColumn, u' ');
    QString text;
    for (const Option& option : options) {
        QString head = QStringLiteral("  --") + option.Name;
        if (!option.Value.isEmpty()) head += u' ' + option.Value;
        QStringList lines{QString()};
        for (const QString& word : option.Help.split(u' ', Qt::SkipEmptyParts)) {
            if (!lines.last().isEmpty() && lines.last().size() + 1 + word.size() > TextWidth)
                lines << QString();
            if (!lines.last().isEmpty()) lines.last() += u' ';
            lines.last() += word;
        }
        text += head.size() < TextColumn ? head.leftJustified(TextColumn) : head + u'\n' + indent;
        text += lines.join(u'\n' + indent) + u'\n';
    }
    return text;
}
}  // namespace

const QString CommandStatuses = QStringLiteral(
    "Exit status: 0 done, nothing found; 1 findings, or a part of the work could not\n"
    "be done (each part is named); 2 a bad command line, or an input that cannot be\n"
    "read at all.");

QString ProgramVersion() {
    return QStringLiteral(TARNWEY_VERSION);
}

CommandLine::CommandLine(Command command, QTextStream& out, QTextStream& err)
    : Command_(std::move(command)), Out_(out), Err_(err) {
    Command_.Options.push_back(
        {QStringLiteral("help"), {}, QStringLiteral("Prints this help and ends."), {}});
    Command_.Options.push_back({QStringLiteral("version"),
                                {},
                                QStringLiteral("Prints the program's version and ends."),
                                {}});
}

const Option* CommandLine::Find(const QString& name) const {
    for (const Option& option : Command_.Options)
        if (option.Name == name) return &option;
    return nullptr;
}

std::optional<int> CommandLine::Parse(const QStringList& arguments) {
    bool optionsEnd = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (optionsEnd || argument == u"-" || !argument.startsWith(u'-')) {
            Operands_ << argument;
            continue;
        }
        if (argument == u"--") {
            optionsEnd = true;
            continue;
        }
        if (argument == u"-h") {
            Given_.emplace_back(QStringLiteral("help"), QString());
            continue;
        }
        if (!argument.startsWith(u"--"))
            return Refuse(QStringLiteral("unknown option '%1'").arg(argument));
        const qsizetype equals = argument.indexOf(u'=');
        const QString name = argument.mid(2, equals < 0 ? -1 : equals - 2);
        const Option* option = Find(name);
        if (!option) return Refuse(QStringLiteral("unknown option '--%1'").arg(name));
        QString value;
        if (option->Value.isEmpty()) {
            if (equals >= 0)
                return Refuse(QStringLiteral("the option '--%1' takes no value").arg(name));
        } else if (equals >= 0) {
            value = argument.mid(equals + 1);
        } else if (i + 1 < arguments.size()) {
            value = arguments[++i];
        } else {
            return Refuse(
                QStringLiteral("the option '--%1' needs a value (%2)").arg(name, option->Value));
        }
        if (!option->Choices.isEmpty() && !option->Choices.contains(value))
            return Refuse(QStringLiteral("the option '--%1' is %2, not '%3'")
                              .arg(name, OneOf(option->Choices), value));
        Given_.emplace_back(name, value);
    }
    if (IsSet(QStringLiteral("help"))) {
        Out_ << HelpText();
        return Done;
    }
    if (IsSet(QStringLiteral("version"))) {
        Out_ << (Command_.Version.isEmpty()
                     ? QStringLiteral("%1 (Tarnwey) %2").arg(Command_.Name, ProgramVersion())
                     : Command_.Version)
             << '\n';
        return Done;
    }
    return std::nullopt;
}

bool CommandLine::IsSet(const QString& option) const {
    for (const auto& [name, value] : Given_)
        if (name == option) return true;
    return false;
}

QString CommandLine::Value(const QString& option, const QString& fallback) const {
    const QStringList values = Values(option);
    return values.isEmpty() ? fallback : values.last();
}

QStringList CommandLine::Values(const QString& option) const {
    QStringList values;
    for (const auto& [name, value] : Given_)
        if (name == option) values << value;
    return values;
}

std::optional<int> CommandLine::NeedOperands(const QStringList& names, bool lastRepeats) {
    const qsizetype given = Operands_.size();
    if (given < names.size())
        return Refuse(QStringLiteral("missing %1").arg(AndList(names.mid(given))));
    if (given > names.size() && !lastRepeats)
        return Refuse(QStringLiteral("one operand too many: '%1'").arg(Operands_[names.size()]));
    return std::nullopt;
}

int CommandLine::Refuse(const QString& reason) {
    Err_ << Command_.Name << ": " << reason << '\n' << UsageText();
    Err_ << QStringLiteral("Try '%1 --help' for more.\n").arg(Command_.Name);
    return CannotRun;
}

int CommandLine::Fail(const QString& reason, int status) {
    Err_ << Command_.Name << ": " << reason << '\n';
    return status;
}

QString CommandLine::UsageText() const {
    QString text;
    for (qsizetype i = 0; i < Command_.Synopsis.size(); ++i)
        text += (i == 0 ? QStringLiteral("Usage: ") : QStringLiteral("   or: ")) + Command_.Name +
                u' ' + Command_.Synopsis[i] + u'\n';
    return text;
}

QString CommandLine::HelpText() const {
    QString text = UsageText() + u'\n' + Command_.Description + QStringLiteral("\n\nOptions:\n") +
                   OptionLines(Command_.Options);
    if (!Command_.Epilogue.isEmpty()) text += u'\n' + Command_.Epilogue + u'\n';
    return text;
}

void QuietToolkit() {
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
        if (type == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(message));
    });
}

QString Count(qint64 n, const QString& one, const QString& many) {
    return QStringLiteral("%1 %2").arg(n).arg(n == 1 ? one : many);
}

Progress::Progress(QTextStream& out) : Out_(out), Live_(isatty(fileno(stdout)) != 0) {
    Since_.start();
}

void Progress::Show(const QString& text) {
    if (!Live_ || Since_.elapsed() < ShowEvery) return;
    Since_.restart();
    Out_ << '\r' << text << "\x1b[K";
    Out_.flush();
    Shown_ = true;
}

void Progress::Finish(const QString& text) {
    if (Shown_) Out_ << '\r' << "\x1b[K";
    Shown_ = false;
    Out_ << text << '\n';
    Out_.flush();
}

}  // namespace Cli
