#pragma once

#include <QPixmap>

// The picture of an event editor's symbol, 33 x 33 pixels: "Event", framed in
// black, or in orange-red when selected. One pair serves every event type.
// The map pictures mark the events with the unselected one.
QPixmap EventSymbolPicture(bool selected);
