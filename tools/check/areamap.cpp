#include "check/areamap.h"

#include <algorithm>
#include <numeric>

namespace Check {

Finding Found(const Finding& cell, const QString& what) {
    Finding finding = cell;
    finding.What = what;
    return finding;
}

QString Sentence(const QString& text) {
    return text.isEmpty() ? text : text.front().toUpper() + text.mid(1);
}

namespace {
QString Bytes(qint64 count) {
    return count == 1 ? QStringLiteral("1 byte") : QStringLiteral("%1 bytes").arg(count);
}
}  // namespace

QString Positions(qint64 first, qint64 last) {
    return first == last ? QStringLiteral("position %1").arg(first)
                         : QStringLiteral("positions %1 to %2").arg(first).arg(last);
}

bool AreaMap::CheckInside(const PlacedArea& placed, std::vector<Finding>& out) const {
    const RomArea& area = placed.Area;
    if (area.IsEmpty() || Rom_.Contains(area)) return true;
    if (area.Start < 1)
        out.push_back(
            Found(placed.Cell, QStringLiteral("%1 (%2 from position %3) would begin before the "
                                              "first byte of %4, which is position 1.")
                                   .arg(Sentence(placed.What))
                                   .arg(Bytes(area.Bytes))
                                   .arg(area.Start)
                                   .arg(RomName_)));
    else
        out.push_back(
            Found(placed.Cell, QStringLiteral("%1 (%2, %3) would reach past the end of %4, "
                                              "which has %5 bytes.")
                                   .arg(Sentence(placed.What))
                                   .arg(Bytes(area.Bytes))
                                   .arg(Positions(area.Start, area.End() - 1))
                                   .arg(RomName_)
                                   .arg(Rom_.Size())));
    return false;
}

bool AreaMap::Place(const PlacedArea& area, std::vector<Finding>& out) {
    if (!CheckInside(area, out)) return false;
    if (!area.Area.IsEmpty()) Areas_.push_back(area);
    return true;
}

void AreaMap::ReportOverlaps(std::vector<Finding>& out) const {
    // A sweep over the areas by their start: each area meets only the areas
    // that began before it and have not ended yet.
    std::vector<size_t> order(Areas_.size());
    std::iota(order.begin(), order.end(), size_t{0});
    std::stable_sort(order.begin(), order.end(), [this](size_t a, size_t b) {
        return Areas_[a].Area.Start < Areas_[b].Area.Start;
    });
    std::vector<size_t> open;
    for (const size_t i : order) {
        const RomArea& area = Areas_[i].Area;
        std::erase_if(open, [&](size_t j) { return Areas_[j].Area.End() <= area.Start; });
        for (const size_t j : open) {
            const PlacedArea& earlier = Areas_[std::min(i, j)];
            const PlacedArea& later = Areas_[std::max(i, j)];
            if (earlier.Blocks && later.Blocks && earlier.Area.Start == later.Area.Start) continue;
            const qint64 first = std::max(earlier.Area.Start, later.Area.Start);
            const qint64 last = std::min(earlier.Area.End(), later.Area.End()) - 1;
            out.push_back(
                Found(later.Cell, QStringLiteral("%1 (%2) shares %3 with %4 (%5, row %6): "
                                                 "the editor would take these bytes "
                                                 "for both.")
                                      .arg(Sentence(later.What))
                                      .arg(Positions(later.Area.Start, later.Area.End() - 1))
                                      .arg(Positions(first, last))
                                      .arg(earlier.Whose)
                                      .arg(earlier.Cell.File)
                                      .arg(earlier.Cell.Row)));
        }
        open.push_back(i);
    }
}

}  // namespace Check
