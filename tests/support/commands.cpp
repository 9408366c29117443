#include "support/commands.h"

#include <QProcess>

CommandResult RunCommand(const QString& program, const QStringList& arguments) {
    QProcess process;
    // Without a runtime folder the toolkit would complain, if a command let it.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("XDG_RUNTIME_DIR"));
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    CommandResult result;
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished();
        result.Err = QStringLiteral("the command did not end within a minute");
        return result;
    }
    result.Status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.Out = QString::fromLocal8Bit(process.readAllStandardOutput());
    result.Err = QString::fromLocal8Bit(process.readAllStandardError());
    return result;
}

::testing::AssertionResult SamePixels(const QImage& actual, const QImage& expected) {
    if (actual.size() != expected.size())
        return ::testing::AssertionFailure()
               << "the picture is " << actual.width() << " x " << actual.height() << " pixels, not "
               << expected.width() << " x " << expected.height();
    for (int y = 0; y < actual.height(); ++y)
        for (int x = 0; x < actual.width(); ++x) {
            const QRgb a = actual.pixel(x, y) | 0xFF000000u;
            const QRgb e = expected.pixel(x, y) | 0xFF000000u;
            if (a != e)
                return ::testing::AssertionFailure()
                       << QStringLiteral("pixel %1, %2 is #%3, not #%4")
                              .arg(x)
                              .arg(y)
                              .arg(a & 0xFFFFFFu, 6, 16, QLatin1Char('0'))
                              .arg(e & 0xFFFFFFu, 6, 16, QLatin1Char('0'))
                              .toStdString();
        }
    return ::testing::AssertionSuccess();
}
