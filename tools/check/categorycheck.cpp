#include <algorithm>

#include "check/cells.h"
#include "check/checks.h"

namespace Check {

void CheckCategories(const SharedFiles& files, std::vector<Finding>& out) {
    // The maps of a category go to the rows it names, in the order of the
    // file: a later category that names a row takes it from an earlier one.
    for (int c = 1; c <= files.LastCategory; ++c) {
        const auto& category = files.Categories[c];
        const int first = category[CatFirstMap].ToInt16();
        const int last = first + category[CatMapCount].ToInt16() - 1;
        for (int e = 0; e < c; ++e) {
            const auto& earlier = files.Categories[e];
            const int earlierFirst = earlier[CatFirstMap].ToInt16();
            const int earlierLast = earlierFirst + earlier[CatMapCount].ToInt16() - 1;
            const int from = std::max(first, earlierFirst);
            const int to = std::min(last, earlierLast);
            if (from > to) continue;
            out.push_back(Found(
                CategoryCell(files, c, CatFirstMap),
                QStringLiteral("Its maps take rows %1 to %2, and rows %3 to %4 of them are "
                               "rows of category %5 \"%6\" (rows %7 to %8) as well: the later "
                               "records replace the earlier ones, so that \"%6\" would show "
                               "maps of this category.")
                    .arg(first)
                    .arg(last)
                    .arg(from)
                    .arg(to)
                    .arg(e)
                    .arg(earlier[CatName].ToText())
                    .arg(earlierFirst)
                    .arg(earlierLast)));
        }
    }
}

}  // namespace Check
