#pragma once

#include <QString>
#include <vector>

#include "check/checkinput.h"
#include "check/finding.h"

namespace Check {

// Checks the data files of a program folder against the ROM of each
// version given, with the editor's own readers: every cell that would make
// the editor read or write the wrong bytes is a finding.
CheckReport CheckFolder(const QString& folder, const std::vector<VersionRom>& versions);

}  // namespace Check
