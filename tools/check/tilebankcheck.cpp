#include <QDir>

#include "check/checks.h"
#include "mapview/tilebankfile.h"

namespace Check {

void CheckTileBank(const QString& folder, std::vector<Finding>& out) {
    // The editor will not start without the bank, so a bank it refuses is
    // told in the editor's own words.
    QImage atlas;
    QString error;
    if (ReadTileBankFile(QDir(folder).filePath(QString::fromLatin1(TileBankFile)), atlas, error))
        return;
    Finding finding;
    finding.File = QString::fromLatin1(TileBankFile);
    finding.What = error.simplified();
    out.push_back(finding);
}

}  // namespace Check
