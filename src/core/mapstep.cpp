#include "core/mapstep.h"

void MapStep::Apply(MapGridT& grid, bool forwards) const {
    if (forwards) {
        for (const SquareChange& change : Changes)
            grid[change.Row][change.Column] = change.New;
    } else {
        for (auto change = Changes.rbegin(); change != Changes.rend(); ++change)
            grid[change->Row][change->Column] = change->Old;
    }
}

void MapStep::Append(const MapStep& later) {
    Changes.insert(Changes.end(), later.Changes.begin(), later.Changes.end());
}
