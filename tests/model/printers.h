#pragma once

#include <QString>
#include <ostream>

#include "core/field.h"

// Readable failure messages for the model's own types.
inline void PrintTo(const Field& f, std::ostream* os) {
    switch (f.kind()) {
        case Field::Kind::Empty:
            *os << "Empty";
            break;
        case Field::Kind::Number:
            *os << "Number(" << f.ToText().toStdString() << ")";
            break;
        case Field::Kind::Text:
            *os << "Text(\"" << f.ToText().toStdString() << "\")";
            break;
        case Field::Kind::Flag:
            *os << "Flag(" << (f.IsTrue() ? "true" : "false") << ")";
            break;
    }
}

inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}
