#pragma once

#include <sys/resource.h>
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <csignal>

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

// While it lives, no file of this process may grow past `bytes`, nor be
// written beyond that offset: the kernel's file size limit, which stops root
// too, stands in for a disk that is full. Writes past the limit fail with an
// error instead of ending the process.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &Old_);
        OldSignal_ = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = Old_;
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &Old_);
        std::signal(SIGXFSZ, OldSignal_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit Old_{};
    void (*OldSignal_)(int) = nullptr;
};

}  // namespace TestFiles
