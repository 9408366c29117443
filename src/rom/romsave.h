#pragma once

#include <QString>
#include <functional>

#include "rom/romfile.h"

// How a saver reaches the ROM.
enum class Backup { Offer, Skip };

// The save transaction that every saver shares: offer the backup (unless
// skipped), open the ROM, let `write` record the saver's bytes, close it. A
// failure is told to the user and false is returned; the caller then shows no
// confirmation and keeps its changed flag. Nothing is written when a position
// lies outside the ROM. `expectedSize` is the ROM's length when the program
// read it: a file that has since changed its length is no longer that ROM,
// and nothing is touched, not even the backup (-1: not known, no check).
bool SaveToRom(const QString& romPath, const QString& programFolder, Backup backup,
               const std::function<void(RomFile&)>& write, qint64 expectedSize = -1);
