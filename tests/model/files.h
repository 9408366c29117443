#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>

// Small file helpers for the model tests.
namespace TestFiles {

inline bool Write(const QString& path, const QByteArray& content) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
    return file.write(content) == content.size();
}

// The whole file, or a null array when it cannot be read.
inline QByteArray Read(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return QByteArray();
    QByteArray content = file.readAll();
    if (content.isNull()) content = QByteArray("");  // an empty file reads as empty, not null
    return content;
}

// Bytes 0, 1, 2, ... of the given length, so that every offset holds a value
// that tells it apart from its neighbours.
inline QByteArray Pattern(int size) {
    QByteArray bytes(size, '\0');
    for (int i = 0; i < size; ++i)
        bytes[i] = static_cast<char>((i * 7 + 3) & 0xFF);
    return bytes;
}

}  // namespace TestFiles
