#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QString>
#include <QStringList>

// What a command of the program did: its exit status and what it printed.
struct CommandResult {
    int Status = -1;
    QString Out;
    QString Err;
};

// Runs a command to its end (at most a minute) and collects what it printed.
CommandResult RunCommand(const QString& program, const QStringList& arguments);

// The program's commands, built beside the editor.
inline QString RenderCommand() {
    return QStringLiteral(TARNWEY_RENDER_COMMAND);
}
inline QString TilesCommand() {
    return QStringLiteral(TARNWEY_TILES_COMMAND);
}

// Whether two pictures are of one size and have the same colour in every
// pixel; the failure names the first pixel that differs.
::testing::AssertionResult SamePixels(const QImage& actual, const QImage& expected);
