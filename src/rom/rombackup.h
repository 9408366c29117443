#pragma once

#include <QString>

// Offers a backup of the ROM and makes it on Yes: the ROM file becomes the
// ".BAK" file under its new name, and a fresh copy takes its place. Returns
// true when the save may go on (after a No, or a backup made whole). When a
// step fails, the files are put back as far as they can be, the user is told
// where the ROM is, and false is returned: the save must then write nothing.
bool MakeRomBackup(const QString& romPath, const QString& programFolder);

// The five file steps of the backup, without the question.
bool CopyRomToBackup(const QString& romPath, const QString& programFolder, QString& error);

QString BackupPath(const QString& romPath);
QString TempCopyPath(const QString& programFolder);
// A path as the user reads it in a message: with the platform's own separators.
QString ShownPath(const QString& path);
