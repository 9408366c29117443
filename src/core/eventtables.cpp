#include "core/eventtables.h"

#include "core/datafile.h"

namespace {
const QString EventsStop = QStringLiteral("The events cannot be edited until it is mended.");
// The event data files begin with two lines of headings.
constexpr int HeaderLines = 2;

void SkipHeader(FieldReader& reader) {
    for (int i = 0; i < HeaderLines; ++i)
        reader.SkipLine();
}

bool ReadEventTypes(FieldReader& reader, const QString& path, EventTypeTableT& table,
                    std::int16_t& lastType, QString& error) {
    SkipHeader(reader);
    table = {};
    if (reader.AtEnd()) {
        error = DataFile::Damaged(path, QStringLiteral("it holds no event type."), EventsStop);
        return false;
    }
    int row = -1;
    while (!reader.AtEnd()) {
        if (++row >= EventTypeRows) {
            error = DataFile::Damaged(path,
                                      QStringLiteral("it holds more than %1 event types (line %2).")
                                          .arg(EventTypeRows)
                                          .arg(reader.Line()),
                                      EventsStop);
            return false;
        }
        if (!DataFile::ReadRecord(reader, table[row], 0, EventTypeColumnCount, path,
                                  QStringLiteral("event type %1").arg(row), error, EventsStop))
            return false;
    }
    lastType = static_cast<std::int16_t>(row);
    return true;
}

bool ReadEvents(FieldReader& reader, const QString& path, EventAddressTableT& table,
                QString& error) {
    SkipHeader(reader);
    table = {};
    while (!reader.AtEnd()) {
        const int line = reader.Line();
        std::array<Field, EventAddressColumns> record;
        if (!DataFile::ReadRecord(reader, record, 0, EventAddressColumns, path,
                                  QStringLiteral("the map on line %1").arg(line), error,
                                  EventsStop))
            return false;
        const int map = record[0].ToInt32();
        if (record[0].kind() != Field::Kind::Number || map < 0 || map >= Limits::TableRows) {
            error = DataFile::Damaged(path,
                                      QStringLiteral("the record on line %1 names map row \"%2\", "
                                                     "but rows run from 0 to %3.")
                                          .arg(line)
                                          .arg(record[0].Written())
                                          .arg(Limits::TableRows - 1),
                                      EventsStop);
            return false;
        }
        table[map] = record;
    }
    return true;
}
}  // namespace

bool LoadEventTypesFile(const QString& path, EventTypeTableT& table, std::int16_t& lastType,
                        QString& error) {
    QByteArray content;
    if (!DataFile::ReadWhole(path, content, error, EventsStop)) return false;
    return LoadEventTypesFile(path, content, table, lastType, error);
}

bool LoadEventTypesFile(const QString& path, const QByteArray& content, EventTypeTableT& table,
                        std::int16_t& lastType, QString& error) {
    FieldReader reader(content);
    // The last type is told only of a file that was read whole.
    std::int16_t last = 0;
    if (!DataFile::Finish(reader, ReadEventTypes(reader, path, table, last, error), path, error,
                          EventsStop))
        return false;
    lastType = last;
    return true;
}

bool LoadEventsFile(const QString& path, EventAddressTableT& table, QString& error) {
    QByteArray content;
    if (!DataFile::ReadWhole(path, content, error, EventsStop)) return false;
    return LoadEventsFile(path, content, table, error);
}

bool LoadEventsFile(const QString& path, const QByteArray& content, EventAddressTableT& table,
                    QString& error) {
    FieldReader reader(content);
    return DataFile::Finish(reader, ReadEvents(reader, path, table, error), path, error,
                            EventsStop);
}

std::vector<EventLayoutFault> EventLayoutFaults(const EventTypeTableT& table, int type) {
    const auto& row = table[type];
    std::vector<EventLayoutFault> faults;
    const auto fault = [&faults](EventTypeColumn column, const QString& what) {
        faults.push_back({column, what});
    };
    const int listColumn = row[TypeListColumn].ToInt32();
    const int size = row[TypeRecordSize].ToInt32();
    const int y = row[TypeYField].ToInt32();
    const int x = row[TypeXField].ToInt32();
    if (listColumn < 1 || listColumn > EventAddressColumns - 2)
        fault(TypeListColumn,
              QStringLiteral("has its list in column %1 of Events.twy, but lists lie in columns "
                             "1 to 8")
                  .arg(listColumn));
    if (size < 1 || size > MaxRecordSize) {
        fault(TypeRecordSize, QStringLiteral("has records of %1 bytes, but a record has 1 to %2")
                                  .arg(size)
                                  .arg(MaxRecordSize));
        return faults;
    }
    if (y < 1 || y >= size)
        fault(TypeYField, QStringLiteral("has its y in byte %1 of records of %2 bytes, which "
                                         "leaves no byte for x after it")
                              .arg(y)
                              .arg(size));
    else if (x != y + 1)
        fault(TypeXField,
              QStringLiteral("has its x in byte %1, but x must follow y (byte %2) directly")
                  .arg(x)
                  .arg(y));
    for (int c = TypeTextField; c <= TypeTrainerField; ++c) {
        const int field = row[c].ToInt32();
        if (field < 0 || field > size)
            fault(static_cast<EventTypeColumn>(c),
                  QStringLiteral("names byte %1 of records of %2 bytes").arg(field).arg(size));
    }
    return faults;
}

bool ReadEventLayout(const EventTypeTableT& table, int type, EventLayout& layout, QString& error) {
    const auto& row = table[type];
    const std::vector<EventLayoutFault> faults = EventLayoutFaults(table, type);
    if (!faults.empty()) {
        error = QStringLiteral("The event type \"%1\" (row %2 of EventTypes.twy) %3.")
                    .arg(row[TypeName].ToText())
                    .arg(type)
                    .arg(faults.front().What);
        return false;
    }
    layout.ListColumn = row[TypeListColumn].ToInt32();
    layout.RecordSize = row[TypeRecordSize].ToInt32();
    // A bias counts squares, held to 16 bits like the map's offsets, so that
    // a coordinate with both on or off always fits a field.
    layout.Bias1 = row[TypeBias1].ToInt16();
    layout.Bias2 = row[TypeBias2].ToInt16();
    layout.YField = row[TypeYField].ToInt32();
    layout.XField = row[TypeXField].ToInt32();
    return true;
}
