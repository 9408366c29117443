#include "demo/maps/textmap.h"

#include <QtGlobal>

namespace Fixture {

void TextMap::Block(char letter, const std::string& name, int w, int h) {
    Pictures_[letter] = Picture{name, w, h};
}

void TextMap::Area(char letter, const std::string& name, const std::string& sameKind) {
    Areas_[letter] = AreaKind{name, sameKind + letter};
}

std::string TextMap::EdgeSuffix(const std::vector<std::string>& rows, int x, int y,
                                const std::string& sameKind) const {
    // Beyond the map's edge the area goes on, so a lake can run off the map.
    const auto inside = [&](int dx, int dy) {
        const int nx = x + dx;
        const int ny = y + dy;
        if (ny < 0 || ny >= static_cast<int>(rows.size())) return true;
        if (nx < 0 || nx >= static_cast<int>(rows[static_cast<size_t>(ny)].size())) return true;
        return sameKind.find(rows[static_cast<size_t>(ny)][static_cast<size_t>(nx)]) !=
               std::string::npos;
    };
    std::string side;
    if (!inside(0, -1))
        side += 'n';
    else if (!inside(0, 1))
        side += 's';
    if (!inside(-1, 0))
        side += 'w';
    else if (!inside(1, 0))
        side += 'e';
    if (!side.empty()) return "_" + side;
    if (!inside(-1, -1)) return "_inw";
    if (!inside(1, -1)) return "_ine";
    if (!inside(-1, 1)) return "_isw";
    if (!inside(1, 1)) return "_ise";
    return "";
}

MapGrid TextMap::Draw(const std::vector<std::string>& rows) const {
    const int height = static_cast<int>(rows.size());
    const int width = static_cast<int>(rows.front().size());
    MapGrid grid(width, height);
    for (int y = 0; y < height; ++y) {
        const std::string& row = rows[static_cast<size_t>(y)];
        if (static_cast<int>(row.size()) != width) qFatal("Map row %d is %d wide", y, width);
        for (int x = 0; x < width; ++x) {
            const char letter = row[static_cast<size_t>(x)];
            if (const auto area = Areas_.find(letter); area != Areas_.end()) {
                grid.Set(
                    x, y,
                    Set_.Number(area->second.Name + EdgeSuffix(rows, x, y, area->second.SameKind)));
                continue;
            }
            const auto picture = Pictures_.find(letter);
            if (picture == Pictures_.end()) qFatal("No block for the letter %c", letter);
            const Picture& p = picture->second;
            if (p.W == 1 && p.H == 1) {
                grid.Set(x, y, Set_.Number(p.Name));
                continue;
            }
            // The place in the picture: how far the same letter reaches to the
            // left and upwards.
            int left = 0;
            while (x - left - 1 >= 0 && row[static_cast<size_t>(x - left - 1)] == letter)
                ++left;
            int up = 0;
            while (y - up - 1 >= 0 &&
                   rows[static_cast<size_t>(y - up - 1)][static_cast<size_t>(x)] == letter)
                ++up;
            grid.Set(x, y, Set_.Number(Part(p.Name, left % p.W, up % p.H)));
        }
    }
    return grid;
}

}  // namespace Fixture
