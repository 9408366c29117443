#pragma once

#include <QString>

// The names of the data files in the program's folder, named once for the
// windows and the commands that read them.
namespace DataFileNames {
inline const QString TilesetsRed = QStringLiteral("TilesetsR.twy");
inline const QString TilesetsBlue = QStringLiteral("TilesetsB.twy");
inline const QString Maps = QStringLiteral("Maps.twy");
inline const QString Morlick = QStringLiteral("Morlick.twy");
inline const QString EventTypes = QStringLiteral("EventTypes.twy");
inline const QString Events = QStringLiteral("Events.twy");
}  // namespace DataFileNames
