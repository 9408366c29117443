#include "rom/rombackup.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "core/dialogs.h"
#include "rom/fileops.h"

QString BackupPath(const QString& romPath) {
    return romPath + QStringLiteral(".BAK");
}

QString TempCopyPath(const QString& programFolder) {
    return QDir(programFolder).filePath(QStringLiteral("temp.twy"));
}

QString ShownPath(const QString& path) {
    return QDir::toNativeSeparators(path);
}

namespace {
bool SameSize(const QString& a, const QString& b) {
    return QFileInfo(a).size() == QFileInfo(b).size();
}

QString Unchanged(const QString& romPath) {
    return QStringLiteral("\n\nNothing was saved. The ROM is unchanged at\n%1")
        .arg(ShownPath(romPath));
}
}  // namespace

bool CopyRomToBackup(const QString& romPath, const QString& programFolder, QString& error) {
    const QString bak = BackupPath(romPath);
    const QString temp = TempCopyPath(programFolder);

    // The temporary copy has a fixed name in the program's folder. A ROM that
    // is that very file would be deleted by step 2 once step 1 had taken its
    // backup, so nothing is touched then.
    if (FileOps::SameFile(romPath, temp)) {
        error = QStringLiteral(
                    "The ROM is the file %1, which Tarnwey uses for the temporary copy "
                    "it makes during a backup, so no backup can be made of it.\n\n"
                    "Give the ROM another name, or save without a backup.")
                    .arg(ShownPath(temp)) +
                Unchanged(romPath);
        return false;
    }

    // 1. The old backup goes; there may be none yet.
    if (QFile::exists(bak) && !FileOps::Remove(bak)) {
        error = QStringLiteral("The old backup %1 could not be deleted.").arg(ShownPath(bak)) +
                Unchanged(romPath);
        return false;
    }
    // 2. A copy of the ROM beside the program. A copy left from an earlier run
    // is replaced.
    QFile::remove(temp);
    if (!FileOps::Copy(romPath, temp) || !SameSize(romPath, temp)) {
        QFile::remove(temp);
        error = QStringLiteral("The ROM could not be copied to %1.").arg(ShownPath(temp)) +
                Unchanged(romPath);
        return false;
    }
    // 3. The ROM itself becomes the backup.
    if (!FileOps::Rename(romPath, bak)) {
        QFile::remove(temp);
        error = QStringLiteral("The ROM could not be renamed to %1.").arg(ShownPath(bak)) +
                Unchanged(romPath);
        return false;
    }
    // 4. The copy becomes the ROM that the save writes into. When it fails,
    // the backup is given the ROM's name again: it is the ROM, untouched.
    if (!FileOps::Copy(temp, romPath) || !SameSize(romPath, bak)) {
        QFile::remove(romPath);
        if (FileOps::Rename(bak, romPath)) {
            QFile::remove(temp);
            error = QStringLiteral("The copy of the ROM could not be written back to %1.")
                        .arg(ShownPath(romPath)) +
                    Unchanged(romPath);
        } else {
            error = QStringLiteral(
                        "The copy of the ROM could not be written back to %1, and the "
                        "ROM could not be given its name again.\n\nNothing was saved. "
                        "Your ROM is now the file\n%2\nand a copy of it is\n%3")
                        .arg(ShownPath(romPath), ShownPath(bak), ShownPath(temp));
        }
        return false;
    }
    // 5. The temporary copy goes; one that stays is replaced by the next backup.
    FileOps::Remove(temp);
    return true;
}

bool MakeRomBackup(const QString& romPath, const QString& programFolder) {
    if (!Dialogs().Ask(
            QStringLiteral("Make a backup of the ROM (%1.BAK)?").arg(ShownPath(romPath))))
        return true;
    QString error;
    if (CopyRomToBackup(romPath, programFolder, error)) return true;
    Dialogs().Warn(error);
    return false;
}
