#include <map>

#include "check/cells.h"
#include "check/checks.h"
#include "core/hextext.h"

namespace Check {

void CheckSpeciesFile(const SharedFiles& files, std::vector<Finding>& out) {
    // The wild editor lists the species at places 1 to the number of
    // records. A place outside them, or one that two records give, leaves
    // a species out of the list and an empty entry in it, and choosing the
    // empty entry would write species code 00.
    const MorlickTables& species = files.Species;
    const QString emptyEntry = QStringLiteral(
        "the wild editor's list would lack a species and show an empty entry instead, which "
        "writes species code 00 when chosen.");
    std::map<int, int> byPlace, byCode;  // the first record of each place and each code
    for (int r = 0; r < static_cast<int>(species.Records.size()); ++r) {
        const MorlickEntry& record = species.Records[static_cast<size_t>(r)];
        if (record.Place < 1 || record.Place > species.Count) {
            out.push_back(Found(SpeciesCell(files, r, 2),
                                QStringLiteral("The list place %1 lies outside 1 to %2: ")
                                        .arg(record.Place)
                                        .arg(species.Count) +
                                    emptyEntry));
        } else if (const auto first = byPlace.find(record.Place); first != byPlace.end()) {
            out.push_back(
                Found(SpeciesCell(files, r, 2),
                      QStringLiteral("The list place %1 is already the place of \"%2\" (row %3): ")
                              .arg(record.Place)
                              .arg(species.Records[static_cast<size_t>(first->second)].Name)
                              .arg(first->second) +
                          emptyEntry));
        } else {
            byPlace[record.Place] = r;
        }
        if (const auto first = byCode.find(record.Code); first != byCode.end())
            out.push_back(Found(SpeciesCell(files, r, 0),
                                QStringLiteral("The code %1 is already the code of \"%2\" (row "
                                               "%3): the wild editor would show one name for "
                                               "both.")
                                    .arg(HexText(record.Code))
                                    .arg(species.Records[static_cast<size_t>(first->second)].Name)
                                    .arg(first->second)));
        else
            byCode[record.Code] = r;
    }
    if (species.ExtraLine > 0)
        out.push_back(Found(SpeciesCell(files, species.Count, -1),
                            QStringLiteral("The file goes on after the %1 species its first "
                                           "number announces (from line %2): the wild editor "
                                           "does not read these records.")
                                .arg(species.Count)
                                .arg(species.ExtraLine)));
}

}  // namespace Check
