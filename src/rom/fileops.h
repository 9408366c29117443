#pragma once

#include <QString>

// The whole-file operations that the backup and Save As rest on. Each can be
// made to fail on request, so that tests reach every failure path the same
// way for every user: file rights do not stop root, and CI may run as root.
namespace FileOps {

// ShortCopy is not an operation of its own: the copy it names succeeds but
// comes up one byte short, as a copy can on a failing disk without an error.
enum class Op { Remove, Copy, Rename, Write, ShortCopy, OpCount };

bool Remove(const QString& path);
// Copies a file to a new name; fails when the target exists.
bool Copy(const QString& from, const QString& to);
// Gives a file a new name; fails when the target exists.
bool Rename(const QString& from, const QString& to);
// Writes `bytes` to `path` as a whole new file that replaces the old one only
// once it is complete: the old file is never deleted before its replacement
// exists.
bool ReplaceWith(const QString& path, const QByteArray& bytes, QString& error);

// Copies a whole file to `to` through ReplaceWith, so that a file already
// there stays whole until the copy is complete.
bool CopyWholeFile(const QString& from, const QString& to, QString& error);

// True when both paths name one existing file, whatever the spelling: a hard
// link, another case on a disk that ignores case, a link in the path.
bool SameFile(const QString& a, const QString& b);

// For tests: the `nth` operation of a kind from now on fails (1 = the next).
// Writes to the ROM (RomFile) ask ShouldFail(Op::Write) themselves.
void FailOn(Op op, int nth = 1);
void ClearFaults();
// Counts an operation of a kind and says whether it is the one to fail.
bool ShouldFail(Op op);

}  // namespace FileOps
