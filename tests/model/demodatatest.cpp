#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "demo/demoproject.h"
#include "fixture/datafilenames.h"
#include "fixture/project.h"

// The bundled demo is made by the build and doubles as the base of the test
// fixtures. It has to come out the same every time, and these very bytes:
// any change to the demo world must show here and be checked by eye.
TEST(DemoData, TwoRunsWriteTheSameKnownBytes) {
    const std::pair<const char*, const char*> files[] = {
        {Fixture::EventTypesFile,
         "74356f36d8f12019d9f1cadcbb31ab15a8d3741b5ba0727846a156c31aee22c5"},
        {Fixture::EventsFile, "614db35265dddf86ea2b4e451e5cfc8c1d82c5e3d22259c8c01baaf8bd72f505"},
        {Fixture::MapsFile, "8280f34e4ba8565a17d8a263c1246defd3f5798aa07de00979449b16c4fab1d9"},
        {Fixture::MorlickFile, "5cde526fbcab1127021fb747b53c0c136693711ac7eb68b903e11512a08a2783"},
        {Fixture::TilesetFileBlue,
         "dc0003b3d59af28737a3848827d5decaf95d667aa0ca6b2d87a138b1f922138e"},
        {Fixture::TilesetFileRed,
         "bab2f6bd17dd8411420cecfda9cff13950f9841af4da382a16ad716920c96f1a"},
        {Fixture::TileBankFileName,
         "8e44bdbea015c32d553cb708660930495c84b939b39b0053ca7d54840cf4af81"},
        {Fixture::RomFileBlue, "8c5783288e9ec2bb799ba39cad34ed24dd450dd5d88d93a5b15d8d5b6e257b68"},
        {Fixture::RomFileRed, "48d3dbd356eb80c4d20dbb260ff322ff19a4deb961ec27ffd666b1b02d990024"},
    };
    QTemporaryDir first, second;
    QString error;
    ASSERT_TRUE(Fixture::WriteProject(Fixture::DemoProject(), first.path(), &error))
        << error.toStdString();
    ASSERT_TRUE(Fixture::WriteProject(Fixture::DemoProject(), second.path(), &error))
        << error.toStdString();
    const auto read = [](const QTemporaryDir& dir, const char* name) {
        QFile file(QDir(dir.path()).filePath(QString::fromLatin1(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    for (const auto& [name, sha256] : files) {
        SCOPED_TRACE(name);
        const QByteArray bytes = read(first, name);
        ASSERT_FALSE(bytes.isEmpty());
        EXPECT_EQ(bytes, read(second, name));
        EXPECT_EQ(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex(),
                  QByteArray(sha256));
    }
    EXPECT_EQ(QDir(first.path()).entryList(QDir::Files).size(),
              static_cast<qsizetype>(std::size(files)));
}
