#include "demo/art/tilerun.h"

#include <QtGlobal>
#include <algorithm>

namespace Fixture {

std::string Part(const std::string& name, int x, int y) {
    return name + ":" + std::to_string(x) + ":" + std::to_string(y);
}

TileRun::TileRun(int base, int size, std::vector<int> blankOffsets)
    : Base_(base), Size_(size), BlankOffsets_(std::move(blankOffsets)) {
    FillBlanks();
}

void TileRun::FillBlanks() {
    while (std::find(BlankOffsets_.begin(), BlankOffsets_.end(), static_cast<int>(Tiles_.size())) !=
           BlankOffsets_.end()) {
        const int offset = static_cast<int>(Tiles_.size());
        Names_.emplace(Names_.count("blank") ? "blank@" + std::to_string(offset) : "blank", offset);
        Tiles_.push_back(Tile{});
    }
}

int TileRun::Add(const std::string& name, const Tile& tile) {
    if (Names_.count(name)) qFatal("Tile %s is drawn twice", name.c_str());
    const int offset = static_cast<int>(Tiles_.size());
    Tiles_.push_back(tile);
    Names_.emplace(name, offset);
    FillBlanks();
    return offset;
}

void TileRun::AddCanvas(const std::string& name, const TileCanvas& canvas) {
    for (int y = 0; y < canvas.Height() / 8; ++y)
        for (int x = 0; x < canvas.Width() / 8; ++x)
            Add(Part(name, x, y), canvas.TileAt(x, y));
}

int TileRun::Copy(const TileRun& other, const std::string& name) {
    return Add(name, other.At(other.Number(name)));
}

int TileRun::CopyAt(const TileRun& other, int offset) {
    return Add(other.NameAt(offset), other.At(offset));
}

int TileRun::Number(const std::string& name) const {
    const auto found = Names_.find(name);
    if (found == Names_.end()) qFatal("No tile named %s in the run at %d", name.c_str(), Base_);
    return found->second;
}

std::string TileRun::NameAt(int offset) const {
    for (const auto& [name, at] : Names_)
        if (at == offset) return name;
    return {};
}

void TileRun::Finish() {
    if (static_cast<int>(Tiles_.size()) != Size_)
        qFatal("The run at %d holds %d tiles instead of %d", Base_, static_cast<int>(Tiles_.size()),
               Size_);
}

}  // namespace Fixture
