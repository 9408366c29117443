#pragma once

#include <QIcon>

#include "mapedit/maptools.h"

// The picture of a tool's button, drawn by the program: 16 x 16 pixels in
// the four shades of the tile pictures.
QIcon ToolIcon(ToolKind tool);
