#pragma once

#include <QByteArray>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

#include "core/eventtables.h"
#include "core/field.h"
#include "rom/romfile.h"

// What the fuzz targets share: reading table values off the front of an
// input, the ROM image after them, and a check that stops the run.

// Stops the run with a message when a reader broke its promise; libFuzzer
// keeps the input that did it.
#define FUZZ_CHECK(condition) \
    ((condition) ? static_cast<void>(0) : FuzzFailed(#condition, __FILE__, __LINE__))
[[noreturn]] void FuzzFailed(const char* condition, const char* file, int line);

// Reads the front of an input as table values. A value is five bytes: a kind
// and a 32-bit number v, low byte first. The kind, taken modulo 8, makes:
//   0, 1  the number v
//   2     the number v + 0.5, which is rounded where it is used
//   3     the number whose float bits are v: fractions, huge values, infinities, NaN
//   4     the text of the number v, as a quoted number in a data file reads
//   5     the four bytes of v as Latin-1 text
//   6     the flag v & 1
//   7     an empty field
// An input that runs out gives empty fields and zero bytes.
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : Data_(data), Size_(size) {}

    std::uint8_t Byte() { return Pos_ < Size_ ? Data_[Pos_++] : 0; }
    std::int32_t Int32();
    Field NextField();
    // Everything not read yet.
    QByteArray Rest();

    static constexpr int FieldBytes = 5;

private:
    const std::uint8_t* Data_;
    std::size_t Size_;
    std::size_t Pos_ = 0;
};

// The other way round, for making seed inputs: appends values in the form
// FuzzInput reads them.
class FuzzInputWriter {
public:
    FuzzInputWriter& Byte(std::uint8_t value);
    FuzzInputWriter& Numbers(std::initializer_list<std::int32_t> values);
    FuzzInputWriter& NumberText(std::int32_t value) { return Value(4, value); }
    FuzzInputWriter& Text(std::int32_t fourBytes) { return Value(5, fourBytes); }
    FuzzInputWriter& Empty() { return Value(7, 0); }
    FuzzInputWriter& Bytes(const QByteArray& bytes);
    const QByteArray& Data() const { return Data_; }

private:
    FuzzInputWriter& Value(std::uint8_t kind, std::int32_t value);
    QByteArray Data_;
};

// Writes `bytes` to a file of the given name in a folder of this run and
// returns its path, for readers that open a file by its path.
QString WriteScratchFile(const QString& name, const QByteArray& bytes);

// Writes a ROM image to a scratch file and opens it, as the editors open a
// ROM; a file that cannot be made or opened stops the run.
void OpenScratchRom(const QByteArray& image, RomFile& rom);

// The byte of an image at a 1-based position, for checking what a reader
// gave; the position must lie inside the image.
std::uint8_t ImageByte(const QByteArray& image, std::int64_t position);

// Checks a layout that ReadEventLayout passed: it must describe a record the
// event editor can hold, its list's position and count among the columns of
// Events.twy.
void CheckEventLayout(const EventLayout& layout);
