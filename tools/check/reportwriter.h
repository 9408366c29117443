#pragma once

#include <QByteArray>
#include <QString>

#include "check/finding.h"

namespace Check {

// The report as text: the files that could not be read, then one finding a
// line, each naming the file, the row and the column. Nothing when all is well.
QString ReportText(const CheckReport& report);

// The report as a JSON document for scripts: the versions checked, the exit
// status, the files that could not be read and the findings.
QByteArray ReportJson(const CheckReport& report);

}  // namespace Check
