// The tile bank over any file named Tiles.png: a bank that loads holds 520
// pictures of 16 x 16 pixels, an index outside it gives the "no picture"
// cell, and a bank that cannot be used is told with the file's name and
// leaves the pictures as they were.
#include <QByteArray>
#include <QGuiApplication>
#include <cstdlib>
#include <memory>

#include "fuzz/fuzzinput.h"
#include "mapview/tiles.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    // Pictures need a running application; the offscreen platform needs no display.
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    static const auto app = std::make_unique<QGuiApplication>(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray content(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString path = WriteScratchFile(QString::fromLatin1(TileBankFile), content);
    Tiles& bank = Tiles::Bank();
    const bool wasLoaded = bank.IsLoaded();
    const QPixmap* first = bank.Tile(0);
    const qint64 firstKey = first->cacheKey();
    QString error;
    if (!bank.Load(path, error)) {
        FUZZ_CHECK(error.contains(QString::fromLatin1(TileBankFile)));
        FUZZ_CHECK(bank.IsLoaded() == wasLoaded);
        FUZZ_CHECK(bank.Tile(0) == first && bank.Tile(0)->cacheKey() == firstKey);
        return 0;
    }
    FUZZ_CHECK(bank.IsLoaded());
    for (int i = 0; i < Limits::BankPictures; ++i) {
        const QPixmap* tile = bank.Tile(i);
        FUZZ_CHECK(tile != bank.NoPicture());
        FUZZ_CHECK(tile->width() == 16 && tile->height() == 16);
    }
    for (const int outside : {-1, Limits::BankPictures, 1 << 20})
        FUZZ_CHECK(bank.Tile(outside) == bank.NoPicture());
    FUZZ_CHECK(bank.Blank()->width() == 16 && bank.NoPicture()->width() == 16);
    return 0;
}
