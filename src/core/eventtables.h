#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <cstdint>
#include <vector>

#include "core/field.h"
#include "core/limits.h"

// Columns of EventTypes.twy, one row per event type. Field numbers count the
// bytes of a record from 1; 0 means that the type has no such field.
enum EventTypeColumn {
    TypeField0,
    TypeName,
    TypeListColumn,  // column of Events.twy with the list's position; the next holds its count
    TypeRecordSize,
    TypeBias1,  // kept on the y byte
    TypeBias2,  // kept on the x byte
    TypeYField,
    TypeXField,  // always TypeYField + 1
    TypeTextField,
    TypePictureField,
    TypeMove1Field,
    TypeMove2Field,
    TypeItemField,
    TypeMorlField,
    TypeTrainerField,
    EventTypeColumnCount
};

inline constexpr int EventTypeRows = 33;        // rows 0 to 32
inline constexpr int EventAddressColumns = 10;  // the map row, then columns 1 to 9
inline constexpr int MaxRecordSize = 16;

using EventTypeTableT = std::array<std::array<Field, EventTypeColumnCount>, EventTypeRows>;
using EventAddressTableT = std::array<std::array<Field, EventAddressColumns>, Limits::TableRows>;

// Reads EventTypes.twy: two lines skipped, then records of 15 fields, the
// first being row 0. `lastType` becomes the highest row filled. False, with a
// message naming the file and the line, when it cannot be read, holds no
// type, ends inside a record or holds more than 33 types.
bool LoadEventTypesFile(const QString& path, EventTypeTableT& table, std::int16_t& lastType,
                        QString& error);
// The same from the file's content, already read; `path` names the file in messages.
bool LoadEventTypesFile(const QString& path, const QByteArray& content, EventTypeTableT& table,
                        std::int16_t& lastType, QString& error);

// Reads Events.twy: two lines skipped, then records of 10 fields, each into
// the row its first field names; a later record for a row replaces an earlier
// one, and rows no record names stay empty (they read as 0). False, with a
// message, when it cannot be read, ends inside a record or names a row
// outside 0 to 255.
bool LoadEventsFile(const QString& path, EventAddressTableT& table, QString& error);
// The same from the file's content, already read; `path` names the file in messages.
bool LoadEventsFile(const QString& path, const QByteArray& content, EventAddressTableT& table,
                    QString& error);

// What a type's row says, checked against what the editor can hold.
struct EventLayout {
    int ListColumn = 1;
    int RecordSize = 1;
    int Bias1 = 0;
    int Bias2 = 0;
    int YField = 1;
    int XField = 2;
};

// A column of a type's row whose value the editor cannot use, and what is
// wrong with it as the end of a sentence that begins with the type's name.
struct EventLayoutFault {
    EventTypeColumn Column = TypeListColumn;
    QString What;
};

// Every column of a type's row that breaks what the editor can hold, in
// column order. The field numbers are checked only against a record size
// that is itself sound, and x only when y is.
std::vector<EventLayoutFault> EventLayoutFaults(const EventTypeTableT& table, int type);

// Reads and checks the row of a type: a list column of 1 to 8, a record size
// of 1 to 16, y and x fields inside the record with x directly after y, and
// the seven other field numbers 0 or inside the record; the biases are held
// to 16 bits. False, with a message naming the type and the first fault, when
// the row breaks one of these.
bool ReadEventLayout(const EventTypeTableT& table, int type, EventLayout& layout, QString& error);
