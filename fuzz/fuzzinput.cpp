#include "fuzz/fuzzinput.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

void FuzzFailed(const char* condition, const char* file, int line) {
    std::fprintf(stderr, "%s:%d: the reader broke its promise: %s\n", file, line, condition);
    std::abort();
}

std::int32_t FuzzInput::Int32() {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i)
        value |= static_cast<std::uint32_t>(Byte()) << (8 * i);
    return static_cast<std::int32_t>(value);
}

Field FuzzInput::NextField() {
    if (Pos_ >= Size_) return Field();
    const int kind = Byte() % 8;
    const std::int32_t v = Int32();
    switch (kind) {
        case 0:
        case 1:
            return Field::Number(v);
        case 2:
            return Field::Number(v + 0.5);
        case 3:
            return Field::Number(std::bit_cast<float>(v));
        case 4:
            return Field::Text(QString::number(v));
        case 5: {
            const auto u = static_cast<std::uint32_t>(v);
            const char bytes[4] = {static_cast<char>(u), static_cast<char>(u >> 8),
                                   static_cast<char>(u >> 16), static_cast<char>(u >> 24)};
            return Field::Text(QString::fromLatin1(bytes, 4));
        }
        case 6:
            return Field::Flag(v & 1);
        default:
            return Field();
    }
}

QByteArray FuzzInput::Rest() {
    const QByteArray rest(reinterpret_cast<const char*>(Data_ + Pos_),
                          static_cast<qsizetype>(Size_ - Pos_));
    Pos_ = Size_;
    return rest;
}

FuzzInputWriter& FuzzInputWriter::Byte(std::uint8_t value) {
    Data_.append(static_cast<char>(value));
    return *this;
}

FuzzInputWriter& FuzzInputWriter::Value(std::uint8_t kind, std::int32_t value) {
    Byte(kind);
    const auto u = static_cast<std::uint32_t>(value);
    for (int i = 0; i < 4; ++i)
        Byte(static_cast<std::uint8_t>(u >> (8 * i)));
    return *this;
}

FuzzInputWriter& FuzzInputWriter::Numbers(std::initializer_list<std::int32_t> values) {
    for (const std::int32_t value : values)
        Value(0, value);
    return *this;
}

FuzzInputWriter& FuzzInputWriter::Bytes(const QByteArray& bytes) {
    Data_.append(bytes);
    return *this;
}

QString WriteScratchFile(const QString& name, const QByteArray& bytes) {
    // One folder for the whole run, removed when the run ends normally.
    static QTemporaryDir folder;
    if (!folder.isValid()) {
        std::fprintf(stderr, "No scratch folder could be made.\n");
        std::abort();
    }
    const QString path = QDir(folder.path()).filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(bytes) != bytes.size()) {
        std::fprintf(stderr, "The scratch file %s could not be written.\n", qPrintable(path));
        std::abort();
    }
    return path;
}

void OpenScratchRom(const QByteArray& image, RomFile& rom) {
    if (!rom.Open(WriteScratchFile(QStringLiteral("rom.gb"), image))) {
        std::fprintf(stderr, "The scratch ROM could not be opened: %s\n", qPrintable(rom.Error()));
        std::abort();
    }
}

std::uint8_t ImageByte(const QByteArray& image, std::int64_t position) {
    FUZZ_CHECK(position >= 1 && position <= image.size());
    return static_cast<std::uint8_t>(image[static_cast<qsizetype>(position - 1)]);
}

void CheckEventLayout(const EventLayout& layout) {
    FUZZ_CHECK(layout.ListColumn >= 1 && layout.ListColumn + 1 < EventAddressColumns);
    FUZZ_CHECK(layout.RecordSize >= 1 && layout.RecordSize <= MaxRecordSize);
    FUZZ_CHECK(layout.YField >= 1 && layout.XField == layout.YField + 1);
    FUZZ_CHECK(layout.XField <= layout.RecordSize);
    // Biases are held to 16 bits, so a byte with a bias on or off fits a field.
    for (const int bias : {layout.Bias1, layout.Bias2})
        FUZZ_CHECK(bias >= INT16_MIN && bias <= INT16_MAX);
}
