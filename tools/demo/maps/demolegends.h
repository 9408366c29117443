#pragma once

#include "demo/maps/textmap.h"

// The letters the demo maps are drawn with, one legend per tileset.
namespace Fixture::DemoLegends {

// T trees, . path, g grass, W tall grass, f flowers, b bushes, o boulder,
// s sign, m mailbox, a sand, l L r ledge (west end, middle, east end), F E
// fence (and its end post), i h j hedge, Z steps, B flower bed, C cave mouth,
// ~ water, * lilies, = bridge, H J homes (door left, door right), K hall,
// P shop, 1 to 8 woods edges (trees in the quarters that the digit's mix names).
TextMap Overworld();
// . floor, # rock, ~ pool, U ladder up, D ladder down, b boulder, k rock to
// smash, m stalagmites, c crystals, - cliff, E exit, = bridge, z steps, , gravel,
// x litter, t track, o puddle, S skylight, w web, q moss, p pit, | column, O ore,
// R fossil, B beam, d dark.
TextMap Cavern();
// C canopy, n s canopy rims (forest below, forest above), T trees, g grass,
// . path, W tall grass, c clearing.
TextMap Forest();
// . sand, : meadow, P pines, ~ sea, p q pier and its end, = boardwalk, b boat,
// r sea rock, o buoy, A palm, L lighthouse, c crates, B barrels, n nets,
// u ruins, i pillar, M peaks, K cliff, d dunes, s stones, S signpost, t tent,
// f campfire.
TextMap Harbour();

}  // namespace Fixture::DemoLegends
