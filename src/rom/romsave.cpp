#include "rom/romsave.h"

#include <QFileInfo>

#include "core/dialogs.h"
#include "rom/rombackup.h"

bool SaveToRom(const QString& romPath, const QString& programFolder, Backup backup,
               const std::function<void(RomFile&)>& write, qint64 expectedSize) {
    // The file must still be the ROM the program read. A backup is not even
    // offered otherwise: its first step deletes the old backup, which may by
    // then be the only copy of the user's work.
    const QFileInfo file(romPath);
    if (!file.exists()) {
        Dialogs().Warn(QStringLiteral("The ROM file %1 is no longer there: it has been moved, "
                                      "renamed or deleted since Tarnwey read it.\n\nNothing was "
                                      "saved, and no backup was made.")
                           .arg(ShownPath(romPath)));
        return false;
    }
    if (expectedSize >= 0 && file.size() != expectedSize) {
        Dialogs().Warn(QStringLiteral("The ROM file %1 is now %2 bytes long, but it had %3 bytes "
                                      "when Tarnwey read it: another program has changed or "
                                      "replaced it.\n\nNothing was saved, and no backup was "
                                      "made. Open the ROM again to go on.")
                           .arg(ShownPath(romPath))
                           .arg(file.size())
                           .arg(expectedSize));
        return false;
    }
    if (backup == Backup::Offer && !MakeRomBackup(romPath, programFolder)) return false;
    RomFile rom;
    if (!rom.Open(romPath)) {
        Dialogs().Warn(rom.Error() + QStringLiteral("\n\nNothing was saved."));
        return false;
    }
    write(rom);
    if (!rom.Close()) {
        Dialogs().Warn(rom.Error() + QStringLiteral("\n\nThe changes were not saved."));
        return false;
    }
    return true;
}
