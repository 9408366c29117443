#include "rom/romsave.h"

#include <QFileInfo>

#include "core/dialogs.h"
#include "rom/rombackup.h"

bool SaveToRom(const QString& romPath, const QString& programFolder, Backup backup,
               const std::function<void(RomFile&)>& write, qint64 expectedSize) {
    const QFileInfo file(romPath);
    if (expectedSize >= 0 && file.exists() && file.size() != expectedSize) {
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
