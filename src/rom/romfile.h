#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <vector>

#include "rom/romarea.h"

// A ROM file opened for one command. Positions are 1-based: position p is the
// byte at file offset p - 1. The whole file is read into memory at open, so
// every read is answered from memory. Writes are recorded and reach the disk
// together at Close, in place, one write per run of neighbouring bytes, never
// past the end of the file and never to a byte that was not written.
class RomFile {
public:
    // Reads the file. Returns false, with a message for the user in Error(),
    // when it cannot be read.
    bool Open(const QString& path);

    qint64 Size() const { return Bytes_.size(); }
    bool Contains(std::int32_t position, std::int32_t count = 1) const;
    bool Contains(const RomArea& area) const { return Contains(area.Start, area.Bytes); }

    // The byte at a position, 0 to 255. A position outside the file reads as 0
    // and marks the file as failed, with a message naming the position.
    std::uint8_t ReadByte(std::int32_t position);

    // Records one byte to be written. A position outside the file is refused
    // and marks the file as failed: nothing at all is then written at Close.
    void RomWriteByte(std::int32_t position, std::uint8_t value);

    // Writes the recorded bytes into the file. Returns false, with a message,
    // when a position was refused or the disk refused the write; a write that
    // fails part of the way puts back the bytes it had already replaced.
    bool Close();

    bool Failed() const { return !Error_.isEmpty(); }
    const QString& Error() const { return Error_; }
    const QString& Path() const { return Path_; }

private:
    void FailAt(std::int32_t position);

    QString Path_;
    QByteArray Bytes_;
    QByteArray Before_;  // the file as Open read it
    // One mark per byte of the file for the bytes written since Open, and the
    // range that holds them, so Close looks only where writing happened.
    std::vector<bool> Written_;
    qint64 FirstWritten_ = 0;
    qint64 LastWritten_ = -1;
    QString Error_;
};
