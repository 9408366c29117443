#pragma once

#include <QPixmap>

#include "warpedit/warplist.h"

// The picture of a warp editor's symbol, 33 x 33 pixels: "Warp" for a warp,
// "Warp" over "To" for a warp-to point, framed in black, or in red when
// selected. The map pictures mark the lists with the unselected ones.
QPixmap WarpSymbolPicture(WarpMode mode, bool selected);
