#include <gtest/gtest.h>

#include <QByteArray>
#include <QDir>
#include <QTemporaryDir>
#include <algorithm>
#include <functional>
#include <memory>

#include "core/eventtables.h"
#include "core/morlickfile.h"
#include "core/tables.h"
#include "fixture/datafilenames.h"
#include "model/files.h"
#include "model/printers.h"

// The readers of the five data files, which users write by hand: what each
// reads into its tables, the message that names the file and the line when a
// file is missing or damaged, and odd bytes that change nothing of what is
// read.

namespace {

constexpr int Megabyte = 1 << 20;

// Each row of a table that holds a field, as "tag row: field|field|...".
template <typename Table>
void Dump(const char* tag, const Table& table, QStringList& read) {
    for (std::size_t row = 0; row < table.size(); ++row) {
        QStringList fields;
        bool filled = false;
        for (const Field& field : table[row]) {
            fields << field.ToText();
            filled = filled || !field.IsEmpty();
        }
        if (filled)
            read << QStringLiteral("%1 %2: %3")
                        .arg(QLatin1String(tag))
                        .arg(row)
                        .arg(fields.join(QLatin1Char('|')));
    }
}

// A reader of one data file and everything it read, as comparable text.
struct Reader {
    QString File;
    QString Damaged;  // the sentence that ends the message of a damaged file
    std::function<bool(const QString& path, QStringList& read, QString& error)> Load;
};

const QString ProgramStops = QStringLiteral("Tarnwey cannot go on without it.");
const QString ProgramNeeds =
    QStringLiteral("Tarnwey needs it beside the program and cannot go on without it.");
const QString EventsStop = QStringLiteral("The events cannot be edited until it is mended.");

std::vector<Reader> Readers() {
    return {
        {QLatin1String(Fixture::TilesetFileRed), ProgramStops,
         [](const QString& path, QStringList& read, QString& error) {
             auto table = std::make_unique<TilesetTableT>();
             std::int16_t last = -1;
             if (!LoadTilesetFile(path, *table, error, &last)) return false;
             Dump("tileset", *table, read);
             read << QStringLiteral("last %1").arg(last);
             return true;
         }},
        {QLatin1String(Fixture::MapsFile), ProgramStops,
         [](const QString& path, QStringList& read, QString& error) {
             auto categories = std::make_unique<CategoryTableT>();
             auto maps = std::make_unique<MapTableT>();
             std::int16_t count = -1;
             if (!LoadMapsFile(path, *categories, *maps, count, error)) return false;
             Dump("category", *categories, read);
             Dump("map", *maps, read);
             read << QStringLiteral("last category %1").arg(count);
             return true;
         }},
        {QLatin1String(Fixture::MorlickFile),
         QStringLiteral("The wild Morlick cannot be edited until it is mended."),
         [](const QString& path, QStringList& read, QString& error) {
             auto tables = std::make_unique<MorlickTables>();
             if (!LoadMorlickFile(path, *tables, error)) return false;
             for (const MorlickEntry& e : tables->Records)
                 read << QStringLiteral("species %1|%2|%3").arg(e.Code).arg(e.Name).arg(e.Place);
             for (int row = 0; row < Limits::TableRows; ++row) {
                 const MorlickEntry& place = tables->ByList[static_cast<size_t>(row)];
                 const MorlickEntry& code = tables->ByCode[static_cast<size_t>(row)];
                 if (place.Named) read << QStringLiteral("place %1: %2").arg(row).arg(place.Code);
                 if (code.Named)
                     read << QStringLiteral("code %1: %2|%3")
                                 .arg(row)
                                 .arg(code.Name)
                                 .arg(code.Place);
             }
             read << QStringLiteral("count %1, more from line %2")
                         .arg(tables->Count)
                         .arg(tables->ExtraLine);
             return true;
         }},
        {QLatin1String(Fixture::EventTypesFile), EventsStop,
         [](const QString& path, QStringList& read, QString& error) {
             auto table = std::make_unique<EventTypeTableT>();
             std::int16_t last = -1;
             if (!LoadEventTypesFile(path, *table, last, error)) return false;
             Dump("type", *table, read);
             read << QStringLiteral("last %1").arg(last);
             return true;
         }},
        {QLatin1String(Fixture::EventsFile), EventsStop,
         [](const QString& path, QStringList& read, QString& error) {
             auto table = std::make_unique<EventAddressTableT>();
             if (!LoadEventsFile(path, *table, error)) return false;
             Dump("lists", *table, read);
             return true;
         }},
    };
}

const Reader& ReaderOf(const QString& file) {
    static const std::vector<Reader> readers = Readers();
    return *std::find_if(readers.begin(), readers.end(),
                         [&file](const Reader& reader) { return reader.File == file; });
}

class DataFiles : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(Dir.isValid()); }

    // Writes the file, or leaves it missing for a null text, and reads it.
    bool Load(const QString& file, const QByteArray& text) {
        const QString path = Dir.filePath(file);
        QFile::remove(path);
        if (!text.isNull()) {
            EXPECT_TRUE(TestFiles::Write(path, text));
        }
        Read.clear();
        Error.clear();
        return ReaderOf(file).Load(path, Read, Error);
    }

    QTemporaryDir Dir;
    QStringList Read;
    QString Error;
};

const QString Tilesets = QLatin1String(Fixture::TilesetFileRed);
const QString Maps = QLatin1String(Fixture::MapsFile);
const QString Species = QLatin1String(Fixture::MorlickFile);
const QString Types = QLatin1String(Fixture::EventTypesFile);
const QString Lists = QLatin1String(Fixture::EventsFile);

const QByteArray TilesetHeader = "Field0,Field1,LastTile,TileBase,LastBlock,BlockPos,Bias\n";
const QByteArray MapsHeader = "Maps of Morlick: marker line, category, maps\n";

// One tileset record of 7 fields on one line.
QByteArray TilesetRecord(int row) {
    return QStringLiteral("%1,\"Set %1\",%2,%3,%4,%5,%6\n")
        .arg(row)
        .arg(100 + row)
        .arg(10 * row)
        .arg(row % 256)
        .arg(0x4000 + 16 * row)
        .arg(row % 3)
        .toUtf8();
}

// One map record of 18 fields on one line; the numbers are drawn from the row
// so that a record that lands in the wrong row shows.
QByteArray MapRecord(int row) {
    return QStringLiteral("%1,\"Map %1\",%2,%3,x,%4,y,%5,%6,\"Note %1\",%7,-3,#TRUE#,2,-1,4,%8,0\n")
        .arg(row)
        .arg(1000 + row)
        .arg(2000 + row)
        .arg(1 + row % 255)
        .arg(2 + row % 254)
        .arg(row % 7)
        .arg(3000 + row)
        .arg(4000 + row)
        .toUtf8();
}

// A category group: its marker line, its record, and a map record per row.
QByteArray Group(const QString& name, int first, int count) {
    QByteArray text =
        QStringLiteral("=== %1 ===\n\"%1\",%2,%3\n").arg(name).arg(first).arg(count).toUtf8();
    for (int r = first; r < first + count; ++r)
        text += MapRecord(r);
    return text;
}

}  // namespace

// What each file reads into its rows. Line ends, a byte order mark and the
// encoding or length of a name never change it.
TEST_F(DataFiles, EachFileFillsItsRowsWhateverItsLineEndsAndEncoding) {
    const struct {
        QString file;
        QByteArray text;
        QStringList read;
    } files[] = {
        // A record may run over several lines, and blank lines end the file.
        {Tilesets,
         TilesetHeader + "7,\"Grove, old\"\n159,0\n  255, 16385,\n8,b,1,2,3,4,5\n\n\n",
         {QStringLiteral("tileset 0: 7|Grove, old|159|0|255|16385|"),
          QStringLiteral("tileset 1: 8|b|1|2|3|4|5"), QStringLiteral("last 1")}},
        // Categories fill their own map rows, leaving gaps between them; a
        // category without maps reads no map record, also as the last one.
        {Maps,
         MapsHeader + Group(QStringLiteral("Grove"), 3, 1) + Group(QStringLiteral("Empty"), 5, 0) +
             Group(QStringLiteral("Routes, north"), 255, 1) +
             Group(QStringLiteral("Empty at end"), 0, 0) + "\n\n",
         {QStringLiteral("category 0: |Grove|3|1"), QStringLiteral("category 1: |Empty|5|0"),
          QStringLiteral("category 2: |Routes, north|255|1"),
          QStringLiteral("category 3: |Empty at end|0|0"),
          QStringLiteral("map 3: 3|Map 3|1003|2003|x|4|y|5|3|Note 3|3003|-3|True|2|-1|4|4003|0"),
          QStringLiteral(
              "map 255: 255|Map 255|1255|2255|x|1|y|3|3|Note 255|3255|-3|True|2|-1|4|4255|0"),
          QStringLiteral("last category 3")}},
        // Codes are hexadecimal however they are written, and no line is
        // skipped; a later record takes a code's row and a place's, and the
        // records stay as the file gives them. The last code and the last
        // place are 255.
        {Species,
         "4\n10,\"Grove\",3\n\"0A\",Ten,1\n\"10\",\"Sixteen\"\n4\nff,\"Last\",255\n\n",
         {QStringLiteral("species 16|Grove|3"), QStringLiteral("species 10|Ten|1"),
          QStringLiteral("species 16|Sixteen|4"), QStringLiteral("species 255|Last|255"),
          QStringLiteral("place 1: 10"), QStringLiteral("place 3: 16"),
          QStringLiteral("place 4: 16"), QStringLiteral("code 10: Ten|1"),
          QStringLiteral("code 16: Sixteen|4"), QStringLiteral("place 255: 255"),
          QStringLiteral("code 255: Last|255"), QStringLiteral("count 4, more from line 0")}},
        // Two heading lines are skipped, even when they look like records.
        {Types,
         "\"A\",\"Looks\",1,5,0,0,1,2,0,0,0,0,0,0,0\n\"B\",\"Like\",1,5,0,0,1,2,0,0,0,0,0,0,0\n"
         "\"T0\",\"Grove\",1,5\n4,4,2,3\n0,0,0,0,0,0,0\n\"T\",\"Name\",1,5,0,0,1,2,3,0,0,0,0,0,0\n",
         {QStringLiteral("type 0: T0|Grove|1|5|4|4|2|3|0|0|0|0|0|0|0"),
          QStringLiteral("type 1: T|Name|1|5|0|0|1|2|3|0|0|0|0|0|0"), QStringLiteral("last 1")}},
        // A later record for a map row takes its row.
        {Lists,
         "1,2,3,4,5,6,7,8,9,10\n0,0,0,0,0,0,0,0,0,0\n7,100,2,0,0,0,0,0,0,0\n3,300\n4,0,0,0,0,0,0,"
         "0\n"
         "255,200,5,0,0,0,0,0,0,0\n7,200,5,0,0,0,0,0,0,0\n",
         {QStringLiteral("lists 3: 3|300|4|0|0|0|0|0|0|0"),
          QStringLiteral("lists 7: 7|200|5|0|0|0|0|0|0|0"),
          QStringLiteral("lists 255: 255|200|5|0|0|0|0|0|0|0")}},
    };
    for (const auto& f : files) {
        SCOPED_TRACE(f.text.left(40).toStdString());
        ASSERT_TRUE(Load(f.file, f.text)) << Error.toStdString();
        EXPECT_EQ(Read, f.read);
        const QByteArray latin1 = QByteArray(f.text).replace("Grove", "Gr\xF6ve");
        const QByteArray mark = "\xEF\xBB\xBF";
        const struct {
            const char* name;
            QByteArray text;
            QString grove;  // what "Grove" reads as
        } variants[] = {
            {"CR LF", QByteArray(f.text).replace("\n", "\r\n"), QStringLiteral("Grove")},
            {"a byte order mark", mark + f.text, QStringLiteral("Grove")},
            // A name from an editor that writes Latin-1, after a byte order
            // mark, and a name a megabyte long.
            {"Latin-1 after a byte order mark", mark + latin1, QStringLiteral("Gr\u00F6ve")},
            {"a name of a megabyte", QByteArray(f.text).replace("Grove", QByteArray(Megabyte, 'g')),
             QString(Megabyte, u'g')},
        };
        for (const auto& v : variants) {
            SCOPED_TRACE(v.name);
            ASSERT_TRUE(Load(f.file, v.text)) << Error.toStdString();
            EXPECT_EQ(Read, QStringList(f.read).replaceInStrings(QStringLiteral("Grove"), v.grove));
        }
    }
}

// A file that is missing, ends inside a record, holds more than its table
// can take or a value that cannot be is refused with a message that names
// the file and the line, and ends with what cannot go on.
TEST_F(DataFiles, AMissingOrDamagedFileIsToldWithItsNameAndLine) {
    QByteArray tilesets = TilesetHeader;
    for (int r = 0; r <= Limits::TableRows; ++r)
        tilesets += TilesetRecord(r);
    QByteArray categories = MapsHeader;
    for (int c = 0; c <= Limits::TableRows; ++c)
        categories += Group(QStringLiteral("Cat %1").arg(c), c % 256, 0);
    const QByteArray towns = MapsHeader + Group(QStringLiteral("Towns"), 0, 2);
    QByteArray types = "h\nh\n";
    for (int t = 0; t <= EventTypeRows; ++t)
        types += "\"T\",\"Name\",1,5,0,0,1,2,3,0,0,0,0,0,0\n";
    const struct {
        QString file;
        QByteArray text;
        const char* says;  // what follows "The data file \"<file>\" "
    } cases[] = {
        {Tilesets, QByteArray(), "could not be read (No such file or directory)."},
        // Blank lines at the end fill no record up, and a comma announces a field.
        {Tilesets, TilesetHeader + TilesetRecord(0) + "1,\"Half\",3,4\n\n\n\n",
         "is damaged: it ends inside the record of tileset 1 (line 4)."},
        {Tilesets, TilesetHeader + TilesetRecord(0).chopped(1) + ",\n",
         "is damaged: it ends inside the record of tileset 1 (line 2)."},
        {Tilesets, tilesets, "is damaged: it holds more than 256 tilesets (line 258)."},
        {Maps, towns.left(towns.size() - MapRecord(1).size() / 2),
         "is damaged: the quote that opens on line 5 is never closed."},
        // Every later quote pairs wrongly; the reading fails lines further on.
        {Maps,
         MapsHeader + Group(QStringLiteral("Towns"), 0, 2).replace("Map 1\"", "Map 1") +
             Group(QStringLiteral("Routes"), 2, 2) + Group(QStringLiteral("Caves"), 4, 2),
         "is damaged: the quote that opens on line 5 is not closed on that line, and the fields "
         "after it are out of step."},
        {Maps, MapsHeader + "m\n\"Towns\",0,3\n" + MapRecord(0) + MapRecord(1),
         "is damaged: it ends inside the record of map 2 (line 6)."},
        {Maps, towns + "stray words\n",
         "is damaged: it ends inside the record of category 1 (line 7)."},
        {Maps, categories, "is damaged: it holds more than 256 categories (line 515)."},
        {Maps, MapsHeader + "m\n\"Past\",255,2\n" + MapRecord(255) + MapRecord(256),
         "is damaged: the category \"Past\" names map rows 255 to 256, outside the rows 0 to 255 "
         "(line 4)."},
        {Species, "", "is damaged: it does not begin with the number of species (line 1)."},
        {Species, "256\n", "is damaged: it gives 256 species, but there can be 0 to 255 (line 1)."},
        // A CR LF is one line end.
        {Species, "2\r\n01,\"One\",1\r\n02,\"Two\"\r\n",
         "is damaged: it ends inside species 2 of the 2 it announces (line 3)."},
        {Species, "1\n100,\"Too big\",1\n",
         "is damaged: the code \"100\" of species 1 is no hexadecimal number from 0 to FF (line "
         "2)."},
        {Species, "1\n01,\"Far\",256\n",
         "is damaged: the list place \"256\" of species 1 is no number from 0 to 255 (line 2)."},
        {Types, "h\nh\n", "is damaged: it holds no event type."},
        {Types, "h\nh\n\"T\",\"Cut\",1,5\n",
         "is damaged: it ends inside the record of event type 0 (line 4)."},
        {Types, types, "is damaged: it holds more than 33 event types (line 36)."},
        {Lists, "h\nh\n256,0,0,0,0,0,0,0,0,0\n",
         "is damaged: the record on line 3 names map row \"256\", but rows run from 0 to 255."},
        {Lists, "h\nh\n1,0,0\n",
         "is damaged: it ends inside the record of the map on line 3 (line 4)."},
    };
    for (const auto& c : cases) {
        const QString says = QString::fromLatin1(c.says);
        SCOPED_TRACE(c.file.toStdString() + ": " + c.says);
        EXPECT_FALSE(Load(c.file, c.text));
        const Reader& reader = ReaderOf(c.file);
        EXPECT_EQ(Error, QStringLiteral("The data file \"%1\" %2\n\n%3")
                             .arg(c.file, says,
                                  says.startsWith(u"could") ? ProgramNeeds : reader.Damaged));
    }
}
