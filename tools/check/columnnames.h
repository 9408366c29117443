#pragma once

#include <QString>

#include "core/eventtables.h"

// The columns of the data files in plain words, for the checker's findings.
namespace Check {

QString TilesetColumnName(int column);
QString CategoryColumnName(int column);
QString MapColumnName(int column);
QString EventTypeColumnName(int column);
QString SpeciesColumnName(int column);
// A column of Events.twy: the map row, or the position or count of the list
// of the first type whose list column names it.
QString EventsColumnName(int column, const EventTypeTableT& types, int lastType);

}  // namespace Check
