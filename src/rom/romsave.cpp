#include "rom/romsave.h"

#include "core/dialogs.h"
#include "rom/rombackup.h"

bool SaveToRom(const QString& romPath, const QString& programFolder, Backup backup,
               const std::function<void(RomFile&)>& write) {
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
