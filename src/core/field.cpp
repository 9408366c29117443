#include "core/field.h"

#include <cmath>
#include <limits>

bool Field::LooksNumeric(const QString& text) {
    bool digit = false;
    for (const QChar c : text) {
        if (c.isDigit())
            digit = true;
        else if (c != u'+' && c != u'-' && c != u'.' && c != u'e' && c != u'E')
            return false;
    }
    return digit;
}

Field Field::Number(double value) {
    Field f;
    f.Kind_ = Kind::Number;
    f.Number_ = value;
    return f;
}

Field Field::Text(const QString& value) {
    Field f;
    f.Kind_ = Kind::Text;
    f.Text_ = value;
    return f;
}

Field Field::Flag(bool value) {
    Field f;
    f.Kind_ = Kind::Flag;
    f.Flag_ = value;
    return f;
}

double Field::AsNumber() const {
    switch (Kind_) {
        case Kind::Number:
            return Number_;
        case Kind::Flag:
            return Flag_ ? -1 : 0;
        case Kind::Text: {
            const QString text = Text_.trimmed();
            bool ok = false;
            const double v = LooksNumeric(text) ? text.toDouble(&ok) : 0;
            return ok ? v : 0;
        }
        case Kind::Empty:
            break;
    }
    return 0;
}

namespace {
template <typename T>
T HeldTo(double v) {
    if (std::isnan(v)) return 0;
    v = std::nearbyint(v);
    if (v < std::numeric_limits<T>::min()) return std::numeric_limits<T>::min();
    if (v > std::numeric_limits<T>::max()) return std::numeric_limits<T>::max();
    return static_cast<T>(v);
}
}  // namespace

std::int32_t Field::ToInt32() const {
    return HeldTo<std::int32_t>(AsNumber());
}

std::int16_t Field::ToInt16() const {
    return HeldTo<std::int16_t>(AsNumber());
}

QString Field::ToText() const {
    switch (Kind_) {
        case Kind::Text:
            return Text_;
        case Kind::Number:
            return QString::number(Number_, 'g', 15);
        case Kind::Flag:
            return Flag_ ? QStringLiteral("True") : QStringLiteral("False");
        case Kind::Empty:
            break;
    }
    return QString();
}

bool Field::IsTrue() const {
    switch (Kind_) {
        case Kind::Flag:
            return Flag_;
        case Kind::Number:
            return Number_ != 0;
        case Kind::Text:
            return !Text_.isEmpty();  // "" holds nothing, like an empty field
        case Kind::Empty:
            break;
    }
    return false;
}
