#pragma once

#include <QString>
#include <QStringList>
#include <vector>

// The map rows that the command's --map arguments name, from the category
// and map tables of the working state. An argument of digits is a map row; other
// text is the name of maps (upper or lower case alike) or, when no map has
// that name, of a category, which stands for all its maps. With no argument,
// every map of every category. Each row comes once, in the order named. False,
// with a message naming the argument, when one names nothing.
bool SelectMaps(const QStringList& names, std::vector<int>& rows, QString& error);

// The file name of a map's picture: its row in three digits and its name,
// with blanks as underscores and nothing a file name could trip on, such as
// "012_Mirror_Lake.png".
QString PictureFileName(int row);
