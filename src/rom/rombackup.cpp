#include "rom/rombackup.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "core/dialogs.h"

QString BackupPath(const QString& romPath) {
    return romPath + QStringLiteral(".BAK");
}

QString TempCopyPath(const QString& programFolder) {
    return QDir(programFolder).filePath(QStringLiteral("temp.twy"));
}

namespace {
bool SameSize(const QString& a, const QString& b) {
    return QFileInfo(a).size() == QFileInfo(b).size();
}

QString Unchanged(const QString& romPath) {
    return QStringLiteral("\n\nNothing was saved. The ROM is unchanged at\n%1").arg(romPath);
}
}  // namespace

bool CopyRomToBackup(const QString& romPath, const QString& programFolder, QString& error) {
    const QString bak = BackupPath(romPath);
    const QString temp = TempCopyPath(programFolder);

    // 1. The old backup goes; there may be none yet.
    if (QFile::exists(bak) && !QFile::remove(bak)) {
        error =
            QStringLiteral("The old backup %1 could not be deleted.").arg(bak) + Unchanged(romPath);
        return false;
    }
    // 2. A copy of the ROM beside the program. A copy left from an earlier run
    // is replaced.
    QFile::remove(temp);
    if (!QFile::copy(romPath, temp) || !SameSize(romPath, temp)) {
        QFile::remove(temp);
        error = QStringLiteral("The ROM could not be copied to %1.").arg(temp) + Unchanged(romPath);
        return false;
    }
    // 3. The ROM itself becomes the backup.
    if (!QFile::rename(romPath, bak)) {
        QFile::remove(temp);
        error = QStringLiteral("The ROM could not be renamed to %1.").arg(bak) + Unchanged(romPath);
        return false;
    }
    // 4. The copy becomes the ROM that the save writes into.
    if (!QFile::copy(temp, romPath) || !SameSize(temp, bak)) {
        QFile::remove(romPath);
        if (QFile::rename(bak, romPath)) {
            QFile::remove(temp);
            error = QStringLiteral("The copy of the ROM could not be written back to %1.")
                        .arg(romPath) +
                    Unchanged(romPath);
        } else {
            error = QStringLiteral(
                        "The copy of the ROM could not be written back to %1, and the "
                        "ROM could not be given its name again.\n\nNothing was saved. "
                        "Your ROM is now the file\n%2\nand a copy of it is\n%3")
                        .arg(romPath, bak, temp);
        }
        return false;
    }
    // 5. The temporary copy goes; one that stays is replaced by the next backup.
    QFile::remove(temp);
    return true;
}

bool MakeRomBackup(const QString& romPath, const QString& programFolder) {
    if (!Dialogs().Ask(QStringLiteral("Make a backup of the ROM (%1.BAK)?").arg(romPath)))
        return true;
    QString error;
    if (CopyRomToBackup(romPath, programFolder, error)) return true;
    Dialogs().Warn(error);
    return false;
}
