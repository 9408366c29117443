#pragma once

#include "demo/blocks/blockset.h"

namespace Fixture {

// The tilesets of the demo, in the order of their rows in the tileset files,
// with their blocks by name. The maps of the demo are drawn with these names.
struct DemoTilesets {
    enum Row { Overworld, Cottage, Hall, Cavern, Forest, Wilds, Harbour, Count };

    BlockSet Sets[Count];

    const BlockSet& Set(Row row) const { return Sets[row]; }
};

const DemoTilesets& DemoBlocks();

namespace DemoBlockDrawing {
void DrawOverworld(BlockSet& set);
void DrawCottage(BlockSet& set);
void DrawHall(BlockSet& set);
void DrawCavern(BlockSet& set);
void DrawForest(BlockSet& set);
void DrawWilds(BlockSet& set);
void DrawHarbour(BlockSet& set);
}  // namespace DemoBlockDrawing

}  // namespace Fixture
