#pragma once

#include <QString>
#include <vector>

#include "check/finding.h"
#include "rom/romarea.h"
#include "rom/romfile.h"

namespace Check {

// An area of the ROM that the editor reads and writes, and the cell of a
// data file that puts it there.
struct PlacedArea {
    RomArea Area;
    Finding Cell;   // file, row, name, column and column name of the cell
    QString What;   // the area in a finding about its own cell: "the grid"
    QString Whose;  // the area in a finding about another cell: "the grid of map 3 \"Elm\""
    // The block definitions of a tileset, which another tileset may share
    // when it starts at the same position.
    bool Blocks = false;
};

// The areas of one ROM, for finding those that lie outside the file and
// those that share bytes where they should not.
class AreaMap {
public:
    AreaMap(const RomFile& rom, const QString& romName) : Rom_(rom), RomName_(romName) {}

    // Reports an area that does not lie wholly inside the ROM. True when it does.
    bool CheckInside(const PlacedArea& area, std::vector<Finding>& out) const;
    // The same, and keeps an area that lies inside for the overlap check.
    bool Place(const PlacedArea& area, std::vector<Finding>& out);
    // Reports every two kept areas that share a byte, but for block
    // definitions of two tilesets that start at one position. The finding
    // goes to the cell of the area placed later.
    void ReportOverlaps(std::vector<Finding>& out) const;

private:
    const RomFile& Rom_;
    QString RomName_;
    std::vector<PlacedArea> Areas_;
};

// "position 5" or "positions 5 to 9".
QString Positions(qint64 first, qint64 last);
// A finding about a cell.
Finding Found(const Finding& cell, const QString& what);
// The text with its first letter in upper case, for a sentence that begins
// with a phrase such as "the grid".
QString Sentence(const QString& text);

}  // namespace Check
