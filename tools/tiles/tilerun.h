#pragma once

#include <QRgb>
#include <QString>
#include <array>
#include <cstdint>

class QImage;
class RomFile;

// One RUN of the command line, POSITION:COUNT@INDEX: COUNT tiles of the ROM
// from the 1-based POSITION on, the first into bank picture INDEX and the
// others into the pictures after it.
struct TileRun {
    QString Text;  // as typed, for messages
    std::int32_t Position = 1;
    int Count = 0;
    int Index = 0;
};

// A ROM tile: 8 x 8 pixels of 2 bits, two bytes a row from the top.
inline constexpr int TileBytes = 16;

// Reads a RUN. Numbers are decimal, or hexadecimal after 0x. False, with a
// message naming the run, when it is not written as a run.
bool ParseTileRun(const QString& text, TileRun& run, QString& error);

// True when the run lies inside the ROM and inside the bank's pictures 0 to
// 519; else false, with a message that names the run and says where it ends.
bool CheckTileRun(const TileRun& run, const RomFile& rom, QString& error);

// Reads --shades: four colours, lightest first, separated by commas, each
// written #RRGGBB, RRGGBB or as a colour name. False, with a message.
bool ParseShades(const QString& text, std::array<QRgb, 4>& shades, QString& error);

// Draws the ROM tile at `position` into bank picture `index` of `bank`: each
// pixel of the tile becomes a 2 x 2 square of its shade. The first byte of a
// row holds the low bit of each of its eight pixels and the second the high
// bit, the leftmost pixel in bit 7.
void DrawTile(RomFile& rom, std::int32_t position, QImage& bank, int index,
              const std::array<QRgb, 4>& shades);
