#pragma once

#include <QStringList>
#include <QTextStream>

namespace Check {

// The command tarnwey-check: reads its arguments (the program's name
// first), checks the folder, writes the report to `out` and what went wrong
// with the command itself to `err`. Returns the exit status: 0 when all is
// well, 1 for findings, 2 when a file or the command line cannot be read.
int RunCheckCommand(const QStringList& arguments, QTextStream& out, QTextStream& err);

}  // namespace Check
