#include "rom/romfile.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include "rom/fileops.h"

bool RomFile::Open(const QString& path) {
    Path_ = path;
    Written_.clear();
    FirstWritten_ = 0;
    LastWritten_ = -1;
    Error_.clear();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        Error_ = QStringLiteral("The ROM file \"%1\" could not be opened (%2).")
                     .arg(QFileInfo(path).fileName(), file.errorString());
        Bytes_.clear();
        return false;
    }
    Bytes_ = file.readAll();
    Before_ = Bytes_;  // shared until the first write
    if (file.error() != QFileDevice::NoError) {
        Error_ = QStringLiteral("The ROM file \"%1\" could not be read (%2).")
                     .arg(QFileInfo(path).fileName(), file.errorString());
        return false;
    }
    return true;
}

bool RomFile::Contains(std::int32_t position, std::int32_t count) const {
    return position >= 1 && count >= 0 &&
           static_cast<qint64>(position) - 1 + count <= Bytes_.size();
}

void RomFile::FailAt(std::int32_t position) {
    if (!Error_.isEmpty()) return;  // the first fault is the one worth telling
    Error_ = QStringLiteral(
                 "Position %1 lies outside the ROM file \"%2\", which has %3 bytes.\n\n"
                 "The data files do not fit this ROM.")
                 .arg(position)
                 .arg(QFileInfo(Path_).fileName())
                 .arg(Bytes_.size());
}

std::uint8_t RomFile::ReadByte(std::int32_t position) {
    if (!Contains(position)) {
        FailAt(position);
        return 0;
    }
    return static_cast<std::uint8_t>(Bytes_[position - 1]);
}

void RomFile::RomWriteByte(std::int32_t position, std::uint8_t value) {
    if (!Contains(position)) {
        FailAt(position);
        return;
    }
    const qint64 offset = position - 1;
    if (Written_.empty()) {
        Written_.assign(Bytes_.size(), false);
        FirstWritten_ = offset;
        LastWritten_ = offset;
    }
    Written_[offset] = true;
    FirstWritten_ = std::min(FirstWritten_, offset);
    LastWritten_ = std::max(LastWritten_, offset);
    Bytes_[offset] = static_cast<char>(value);
}

bool RomFile::Close() {
    const bool nothingToWrite = Failed() || LastWritten_ < FirstWritten_;
    const qint64 first = FirstWritten_;
    const qint64 last = LastWritten_;
    const std::vector<bool> written = std::move(Written_);
    Written_.clear();
    FirstWritten_ = 0;
    LastWritten_ = -1;
    if (nothingToWrite) return !Failed();

    // Open for reading and writing: this never truncates the file, and a ROM
    // that vanished since Open is not made again as an empty file. Unbuffered,
    // so that a refused write is known at the run that caused it.
    QFile file(Path_);
    QString why;
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        why = file.errorString();
    else if (file.size() != Bytes_.size())
        why = QStringLiteral("its length changed while it was open");  // never write past its end
    // The bytes that reached the file so far, so that a write failing half-way
    // (a full disk, a file size limit, a failing device) can put them back.
    std::vector<std::pair<qint64, qint64>> reached;
    qint64 offset = first;
    while (why.isEmpty() && offset <= last) {
        if (!written[offset]) {
            ++offset;
            continue;
        }
        qint64 end = offset;
        while (end <= last && written[end])
            ++end;
        qint64 done = 0;
        if (FileOps::ShouldFail(FileOps::Op::Write))
            why = QStringLiteral("the disk refused the write");
        else if (!file.seek(offset) ||
                 (done = file.write(Bytes_.constData() + offset, end - offset)) != end - offset)
            why = file.errorString();
        if (done > 0) reached.emplace_back(offset, offset + done);
        offset = end;
    }
    if (why.isEmpty() && !file.flush()) why = file.errorString();
    if (why.isEmpty()) {
        Before_ = Bytes_;
        return true;
    }

    bool restored = true;
    for (const auto& [from, to] : reached)
        restored = file.seek(from) &&
                   file.write(Before_.constData() + from, to - from) == to - from && restored;
    restored = file.flush() && restored;
    file.close();
    Bytes_ = Before_;
    Error_ = QStringLiteral("The ROM file \"%1\" could not be written (%2).")
                 .arg(QFileInfo(Path_).fileName(), why);
    if (!reached.empty() && !restored)
        Error_ += QStringLiteral(
            "\n\nPart of the changes may have reached the ROM before the write "
            "failed. If you made a backup, it holds the ROM as it was before this save.");
    return false;
}
