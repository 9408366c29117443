#pragma once

#include <QRgb>
#include <QString>
#include <cstdio>
#include <vector>

struct png_struct_def;
struct png_info_def;

// A PNG file written a row at a time, so that a picture never has to be held
// whole in memory: a map of 255 x 255 blocks is 16320 pixels square at the
// editor's size, and larger still when scaled. With a palette of at most 256
// colours the file is written with indexed colours, packed to the fewest bits
// that hold the palette; with an empty palette it is written in 8-bit RGB.
class PngRows {
public:
    PngRows() = default;
    PngRows(const PngRows&) = delete;
    PngRows& operator=(const PngRows&) = delete;
    ~PngRows();

    // Creates the file and writes its header. False, with a message in
    // Error(), when the file cannot be made.
    bool Open(const QString& path, int width, int height, const std::vector<QRgb>& palette);
    // Writes the next row: Width() palette indices, or Width() colours when
    // there is no palette.
    bool WriteIndexRow(const unsigned char* indices);
    bool WriteColourRow(const QRgb* colours);
    // Ends the file. False, with a message, when any step failed; the file is
    // then removed, so that no half picture is left behind.
    bool Close();

    int Width() const { return Width_; }
    const QString& Error() const { return Error_; }

private:
    bool WriteRow(const unsigned char* bytes);
    bool Fail(const QString& message);
    void Release();
    static void OnError(png_struct_def* png, const char* message);
    static void OnWarning(png_struct_def* png, const char* message);

    QString Path_;
    std::FILE* File_ = nullptr;
    png_struct_def* Png_ = nullptr;
    png_info_def* Info_ = nullptr;
    int Width_ = 0;
    bool Indexed_ = false;
    std::vector<unsigned char> Bytes_;  // one row in the file's form
    QString Error_;
    QString LibraryMessage_;  // the last failure libpng reported
};
