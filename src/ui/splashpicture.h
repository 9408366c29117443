#pragma once

#include <QPixmap>
#include <QSize>

// The program's own picture, shown by the splash window and by About: a
// little landscape in the four shades of the game's screen.
QPixmap SplashPicture(QSize size);
