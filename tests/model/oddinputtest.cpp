#include <gtest/gtest.h>

#include <QByteArray>
#include <QDir>
#include <QTemporaryDir>
#include <functional>
#include <memory>

#include "core/eventtables.h"
#include "core/morlickfile.h"
#include "core/tables.h"
#include "fixture/datafilenames.h"
#include "fixture/smallproject.h"
#include "model/files.h"

// Data files are written by hand by users. Whatever odd bytes they hold, the
// readers answer in reasonable time with a reading or a message naming the
// file; line ends, a byte order mark and the encoding of a name never change
// what is read.

namespace {

constexpr int Megabyte = 1 << 20;

// A reader of one data file and everything it read, as comparable text.
struct Reader {
    const char* file;
    int skippedLines;
    std::function<bool(const QString& path, QStringList& read, QString& error)> load;
};

template <typename Table>
void Dump(const Table& table, QStringList& read) {
    for (std::size_t row = 0; row < table.size(); ++row)
        for (std::size_t col = 0; col < table[row].size(); ++col)
            if (!table[row][col].IsEmpty())
                read << QStringLiteral("%1,%2=%3").arg(row).arg(col).arg(table[row][col].ToText());
}

std::vector<Reader> Readers() {
    return {
        {Fixture::TilesetFileRed, 1,
         [](const QString& path, QStringList& read, QString& error) {
             auto table = std::make_unique<TilesetTableT>();
             if (!LoadTilesetFile(path, *table, error)) return false;
             Dump(*table, read);
             return true;
         }},
        {Fixture::MapsFile, 1,
         [](const QString& path, QStringList& read, QString& error) {
             auto categories = std::make_unique<CategoryTableT>();
             auto maps = std::make_unique<MapTableT>();
             std::int16_t count = 0;
             if (!LoadMapsFile(path, *categories, *maps, count, error)) return false;
             Dump(*categories, read);
             Dump(*maps, read);
             read << QString::number(count);
             return true;
         }},
        {Fixture::MorlickFile, 0,
         [](const QString& path, QStringList& read, QString& error) {
             auto tables = std::make_unique<MorlickTables>();
             if (!LoadMorlickFile(path, *tables, error)) return false;
             for (const MorlickEntry& e : tables->ByList)
                 read << QStringLiteral("%1 %2").arg(e.Code).arg(e.Name);
             return true;
         }},
        {Fixture::EventTypesFile, 2,
         [](const QString& path, QStringList& read, QString& error) {
             auto table = std::make_unique<EventTypeTableT>();
             std::int16_t last = 0;
             if (!LoadEventTypesFile(path, *table, last, error)) return false;
             Dump(*table, read);
             read << QString::number(last);
             return true;
         }},
        {Fixture::EventsFile, 2,
         [](const QString& path, QStringList& read, QString& error) {
             auto table = std::make_unique<EventAddressTableT>();
             if (!LoadEventsFile(path, *table, error)) return false;
             Dump(*table, read);
             return true;
         }},
    };
}

// Every file holds the name "Grove" somewhere but Events.twy, which holds
// numbers only.
Fixture::SmallProject GroveProject() {
    Fixture::SmallProject project;
    project.AddTileset(3, 0);
    project.Tilesets.back().Field0 = QStringLiteral("Grove");
    const int cat = project.AddCategory(QStringLiteral("Grove, north"), 0);
    const int map = project.AddMap(cat, QStringLiteral("Grove Path"), 3, 2, 0,
                                   [](int x, int y) { return (x + y) % 4; });
    project.AddMap(cat, QStringLiteral("Pond"), 2, 2, 0, [](int, int) { return 1; });
    project.Species = {{0x10, QStringLiteral("Grove Mite"), 1}, {0x2A, QStringLiteral("Reed"), 2}};
    project.EventTypes.push_back(
        {QStringLiteral("G"), QStringLiteral("Grove Sign"), 1, 3, 0, 0, 1, 2, 3, 0, 0, 0, 0, 0, 0});
    project.AddEventList(map, 0, {QByteArray("\x01\x02\x03", 3)});
    return project;
}

QByteArray MixedLineEnds(QByteArray text) {
    QByteArray out;
    bool crlf = false;
    for (const char c : text) {
        if (c == '\n' && (crlf = !crlf)) out += '\r';
        out += c;
    }
    return out;
}

QByteArray WithFirstLine(const QByteArray& text, const QByteArray& line) {
    return line + text.mid(text.indexOf('\n'));
}

}  // namespace

TEST(OddInput, LineEndsByteOrderMarksAndEncodingsReadAsTheCleanFileDoes) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    ASSERT_FALSE(GroveProject().Write(dir.path()).isEmpty());
    for (const Reader& reader : Readers()) {
        SCOPED_TRACE(reader.file);
        const QString path = QDir(dir.path()).filePath(QString::fromLatin1(reader.file));
        const QByteArray clean = TestFiles::Read(path);
        QStringList expected;
        QString error;
        ASSERT_TRUE(reader.load(path, expected, error)) << error.toStdString();

        struct Variant {
            const char* name;
            QByteArray text;
        };
        std::vector<Variant> same = {
            {"CRLF and LF mixed", MixedLineEnds(clean)},
            {"only CR LF", QByteArray(clean).replace("\n", "\r\n")},
            {"a byte order mark", QByteArray("\xEF\xBB\xBF") + clean},
        };
        if (reader.skippedLines > 0)
            same.push_back(
                {"a skipped line of a megabyte", WithFirstLine(clean, QByteArray(Megabyte, 'h'))});
        for (const Variant& v : same) {
            SCOPED_TRACE(v.name);
            ASSERT_TRUE(TestFiles::Write(path, v.text));
            QStringList read;
            ASSERT_TRUE(reader.load(path, read, error)) << error.toStdString();
            EXPECT_EQ(read, expected);
        }

        if (!clean.contains("Grove")) continue;
        // A name from an editor that writes Latin-1, with and without a byte
        // order mark in front, and a name a megabyte long.
        const QByteArray latin1 = QByteArray(clean).replace("Grove", "Gr\xF6ve");
        const QString umlaut = QStringLiteral("Gr\u00F6ve");
        const QString longName = QString(Megabyte, u'g');
        const std::pair<QByteArray, QString> names[] = {
            {latin1, umlaut},
            {QByteArray("\xEF\xBB\xBF") + latin1, umlaut},
            {QByteArray(clean).replace("Grove", QByteArray(Megabyte, 'g')), longName}};
        for (const auto& [text, name] : names) {
            SCOPED_TRACE(name.size());
            ASSERT_TRUE(TestFiles::Write(path, text));
            QStringList read;
            ASSERT_TRUE(reader.load(path, read, error)) << error.toStdString();
            QStringList renamed = expected;
            renamed.replaceInStrings(QStringLiteral("Grove"), name);
            EXPECT_EQ(read, renamed);
        }
        ASSERT_TRUE(TestFiles::Write(path, clean));
    }
}

TEST(OddInput, BrokenBytesGiveAReadingOrAMessageNamingTheFile) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    ASSERT_FALSE(GroveProject().Write(dir.path()).isEmpty());
    for (const Reader& reader : Readers()) {
        SCOPED_TRACE(reader.file);
        const QString path = QDir(dir.path()).filePath(QString::fromLatin1(reader.file));
        const QByteArray clean = TestFiles::Read(path);
        const qsizetype secondLine = clean.indexOf('\n') + 1;
        const std::pair<const char*, QByteArray> broken[] = {
            {"a megabyte without a line end", QByteArray(Megabyte, '7')},
            {"a megabyte of commas", QByteArray(Megabyte, ',')},
            {"a megabyte of line ends", QByteArray(Megabyte, '\n')},
            {"a megabyte of quotes", QByteArray(Megabyte, '"')},
            {"a NUL byte in a record", QByteArray(clean).insert(secondLine + 1, '\0')},
            {"NUL bytes only", QByteArray(64, '\0')},
            {"a lone quote", QByteArray(clean).insert(secondLine, '"')},
            {"a quote as the last byte", clean + '"'},
            {"cut in the middle of a record", clean.left(clean.size() - 3)},
            {"an empty file", QByteArray()},
            {"bytes that are no text", QByteArray("\xFF\xFE\x80\x81\n\xC3\x28,\x01\x02", 10)},
        };
        for (const auto& [name, text] : broken) {
            SCOPED_TRACE(name);
            ASSERT_TRUE(TestFiles::Write(path, text));
            QStringList read;
            QString error;
            if (!reader.load(path, read, error)) {
                EXPECT_TRUE(error.contains(QString::fromLatin1(reader.file)))
                    << error.toStdString();
            }
        }
        ASSERT_TRUE(TestFiles::Write(path, clean));
    }
}
