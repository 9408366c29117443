#include "rom/fileops.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <array>
#include <filesystem>
#include <system_error>

namespace FileOps {
namespace {
// For each kind, how many operations are still to pass before one fails; 0
// means no fault is planted.
std::array<int, static_cast<size_t>(Op::OpCount)> Countdown{};

std::filesystem::path NativePath(const QString& path) {
    return std::filesystem::path(QFile::encodeName(path).toStdString());
}
}  // namespace

void FailOn(Op op, int nth) {
    Countdown[static_cast<size_t>(op)] = nth;
}

void ClearFaults() {
    Countdown.fill(0);
}

bool ShouldFail(Op op) {
    int& left = Countdown[static_cast<size_t>(op)];
    if (left == 0) return false;
    return --left == 0;
}

bool Remove(const QString& path) {
    return !ShouldFail(Op::Remove) && QFile::remove(path);
}

bool Copy(const QString& from, const QString& to) {
    if (ShouldFail(Op::Copy) || !QFile::copy(from, to)) return false;
    if (ShouldFail(Op::ShortCopy)) QFile::resize(to, QFileInfo(to).size() - 1);
    return true;
}

bool Rename(const QString& from, const QString& to) {
    return !ShouldFail(Op::Rename) && QFile::rename(from, to);
}

bool ReplaceWith(const QString& path, const QByteArray& bytes, QString& error) {
    if (ShouldFail(Op::Write)) {
        error = QStringLiteral("the disk refused the write");
        return false;
    }
    // QSaveFile writes beside the target and renames over it at commit, so
    // the target stays whole until the new file is complete.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        error = file.errorString();
        return false;
    }
    return true;
}

bool CopyWholeFile(const QString& from, const QString& to, QString& error) {
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly)) {
        error = source.errorString();
        return false;
    }
    const QByteArray bytes = source.readAll();
    if (source.error() != QFileDevice::NoError) {
        error = source.errorString();
        return false;
    }
    return ReplaceWith(to, bytes, error);
}

bool SameFile(const QString& a, const QString& b) {
    std::error_code ec;
    const bool same = std::filesystem::equivalent(NativePath(a), NativePath(b), ec);
    return !ec && same;
}

}  // namespace FileOps
