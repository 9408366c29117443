#pragma once

#include <QString>
#include <cstdint>

// One cell of a data table. It keeps the kind of value that was read and is
// converted only where it is used, the way the data files are meant to be read.
class Field {
public:
    enum class Kind { Empty, Number, Text, Flag };

    Field() = default;
    static Field Number(double value);
    static Field Text(const QString& value);
    static Field Flag(bool value);

    Kind kind() const { return Kind_; }
    bool IsEmpty() const { return Kind_ == Kind::Empty; }

    // A ROM position: rounded to the nearest whole number and held to 32 bits.
    // Text that does not read as a number counts as 0.
    std::int32_t ToInt32() const;
    // A count or a row, held to 16 bits in the same way.
    std::int16_t ToInt16() const;
    QString ToText() const;
    // The field as it stands in the file, trimmed and without its quotes: a
    // number keeps its own digits, so "10" can still be read as hexadecimal.
    const QString& Written() const { return Written_; }
    // The test of a flag column: false for the flag false, the number 0 and an
    // empty cell; true for everything else.
    bool IsTrue() const;

    // Two fields are equal when they hold the same value, however written.
    bool operator==(const Field& other) const {
        return Kind_ == other.Kind_ && Number_ == other.Number_ && Text_ == other.Text_ &&
               Flag_ == other.Flag_;
    }
    // Keeps the text a field was read from.
    Field& WrittenAs(const QString& text) {
        Written_ = text;
        return *this;
    }

    // True when a text is a number in plain decimal notation, so that a name
    // such as "Nan" or "Inf" stays text.
    static bool LooksNumeric(const QString& text);

private:
    double AsNumber() const;

    Kind Kind_ = Kind::Empty;
    double Number_ = 0;
    QString Text_;
    bool Flag_ = false;
    QString Written_;
};
