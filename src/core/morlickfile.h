#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <cstdint>
#include <vector>

#include "core/limits.h"

// One species of Morlick.twy.
struct MorlickEntry {
    std::int16_t Code = 0;  // as the ROM holds it
    QString Name;
    std::int16_t Place = 0;  // place in the species list, from 1
    bool Named = false;      // a record of the file gives this entry
};

// The species by code and by list place. A code or place that no record
// names leaves an empty row: code 0, no name, place 0.
struct MorlickTables {
    std::array<MorlickEntry, Limits::TableRows> ByCode;
    std::array<MorlickEntry, Limits::TableRows> ByList;
    int Count = 0;  // records in the file, and places in the list
    // The records in the order of the file, before a later record with the
    // same code or place takes an earlier one's row in the tables.
    std::vector<MorlickEntry> Records;
    // The line where text after the last announced record begins; 0 when
    // the file ends with that record.
    int ExtraLine = 0;
};

// The list shows places 1 to Count, each a row of ByList, so a file holds at
// most 255 species.
inline constexpr int MaxSpecies = Limits::TableRows - 1;

// Reads Morlick.twy: no line is skipped, the first field is the count, then
// each record is a code in hexadecimal digits, a name and a list place, as
// many as the count says; anything after them is not read. On
// failure returns false with a message naming the file and the line; the
// tables are then not to be used.
bool LoadMorlickFile(const QString& path, MorlickTables& tables, QString& error);
// The same from the file's content, already read; `path` names the file in messages.
bool LoadMorlickFile(const QString& path, const QByteArray& content, MorlickTables& tables,
                     QString& error);
