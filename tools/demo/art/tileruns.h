#pragma once

#include "demo/art/tilerun.h"

// The drawing of each run of the tile bank, one file per run.
namespace Fixture::TileRuns {

void DrawOverworld(TileRun& run);                         // run 1: towns and routes
void DrawHouse(TileRun& run);                             // run 2: homes
void DrawHall(TileRun& run, const TileRun& house);        // run 3: halls and labs
void DrawCavern(TileRun& run);                            // run 4: caves
void DrawForest(TileRun& run, const TileRun& overworld);  // run 5: forest
void DrawWilds(TileRun& run);                             // run 6: wilderness and coast

}  // namespace Fixture::TileRuns
