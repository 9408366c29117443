#pragma once

#include <QString>

#include "mapview/maploader.h"

// Reads what the main window needs of a ROM into the working state: the
// tileset file of the chosen version and the Maps file, then the first map of
// the ROM at RomPath, with category 0 and map 0 current. False, with a
// message for the user, when a data file, the ROM or its first map cannot be
// read; the working state may then hold part of the new ROM, and the caller
// puts back what it kept.
bool ReadRomAndDataFiles(const QString& tilesetFile, LoadedMap& firstMap, QString& error);
