#include "render/pngrows.h"

#include <png.h>
#include <QFile>
#include <cerrno>
#include <csetjmp>
#include <cstring>

// libpng reports a failure by a long jump back to the last setjmp. Every
// function here that calls into libpng sets its own jump point and holds no
// object with a destructor across the call, so the jump skips nothing.

PngRows::~PngRows() {
    if (Png_ || File_) {
        Release();
        QFile::remove(Path_);
    }
}

void PngRows::OnError(png_struct_def* png, const char* message) {
    auto* self = static_cast<PngRows*>(png_get_error_ptr(png));
    self->LibraryMessage_ = QString::fromLocal8Bit(message);
    png_longjmp(png, 1);
}

void PngRows::OnWarning(png_struct_def*, const char*) {}

bool PngRows::Fail(const QString& reason) {
    // Without a reason of our own, libpng's message stands.
    Error_ = QStringLiteral("The picture \"%1\" could not be written: %2")
                 .arg(Path_, reason.isEmpty() ? LibraryMessage_ + u'.' : reason);
    Release();
    QFile::remove(Path_);
    return false;
}

void PngRows::Release() {
    if (Png_) png_destroy_write_struct(&Png_, Info_ ? &Info_ : nullptr);
    Png_ = nullptr;
    Info_ = nullptr;
    if (File_) std::fclose(File_);
    File_ = nullptr;
}

namespace {
// zlib's effort, 0 to 9: at 3 a map is packed about as fast as at 1 and
// smaller; at 6 and above the files shrink by half again but take twice the
// time on maps of many different blocks.
constexpr int PackingEffort = 3;

int BitDepthFor(size_t colours) {
    if (colours <= 2) return 1;
    if (colours <= 4) return 2;
    if (colours <= 16) return 4;
    return 8;
}

// The header steps, apart so that their jump point holds no C++ object.
bool WriteHeader(png_structp png, png_infop info, std::FILE* file, int width, int height,
                 const png_color* palette, int colours) {
    if (setjmp(png_jmpbuf(png))) return false;
    png_init_io(png, file);
    const bool indexed = colours > 0;
    png_set_IHDR(png, info, static_cast<png_uint_32>(width), static_cast<png_uint_32>(height),
                 indexed ? BitDepthFor(static_cast<size_t>(colours)) : 8,
                 indexed ? PNG_COLOR_TYPE_PALETTE : PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (indexed) png_set_PLTE(png, info, palette, colours);
    // Map pictures repeat row after row: the difference to the row above is
    // mostly zero, which packs small and fast.
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_UP);
    png_set_compression_level(png, PackingEffort);
    png_write_info(png, info);
    // Rows are handed over one byte a pixel; libpng packs them to the depth.
    if (indexed) png_set_packing(png);
    return true;
}

bool WriteOneRow(png_structp png, const unsigned char* bytes) {
    if (setjmp(png_jmpbuf(png))) return false;
    png_write_row(png, bytes);
    return true;
}

bool WriteEnd(png_structp png) {
    if (setjmp(png_jmpbuf(png))) return false;
    png_write_end(png, nullptr);
    return true;
}
}  // namespace

bool PngRows::Open(const QString& path, int width, int height, const std::vector<QRgb>& palette) {
    Path_ = path;
    Width_ = width;
    Error_.clear();
    LibraryMessage_.clear();
    Indexed_ = !palette.empty();
    if (palette.size() > 256) return Fail(QStringLiteral("a palette holds at most 256 colours."));
    File_ = std::fopen(QFile::encodeName(path).constData(), "wb");
    if (!File_) return Fail(QString::fromLocal8Bit(std::strerror(errno)) + u'.');
    Png_ = png_create_write_struct(PNG_LIBPNG_VER_STRING, this, &PngRows::OnError,
                                   &PngRows::OnWarning);
    if (Png_) Info_ = png_create_info_struct(Png_);
    if (!Png_ || !Info_) return Fail(QStringLiteral("out of memory."));
    std::vector<png_color> colours;
    for (const QRgb rgb : palette)
        colours.push_back({static_cast<png_byte>(qRed(rgb)), static_cast<png_byte>(qGreen(rgb)),
                           static_cast<png_byte>(qBlue(rgb))});
    if (!WriteHeader(Png_, Info_, File_, width, height, colours.data(),
                     static_cast<int>(colours.size())))
        return Fail(QString());
    Bytes_.assign(static_cast<size_t>(width) * (Indexed_ ? 1 : 3), 0);
    return true;
}

bool PngRows::WriteRow(const unsigned char* bytes) {
    if (!Png_) return false;
    if (!WriteOneRow(Png_, bytes)) return Fail(QString());
    return true;
}

bool PngRows::WriteIndexRow(const unsigned char* indices) {
    return WriteRow(indices);
}

bool PngRows::WriteColourRow(const QRgb* colours) {
    unsigned char* out = Bytes_.data();
    for (int x = 0; x < Width_; ++x) {
        *out++ = static_cast<unsigned char>(qRed(colours[x]));
        *out++ = static_cast<unsigned char>(qGreen(colours[x]));
        *out++ = static_cast<unsigned char>(qBlue(colours[x]));
    }
    return WriteRow(Bytes_.data());
}

bool PngRows::Close() {
    if (!Png_) return false;
    if (!WriteEnd(Png_)) return Fail(QString());
    png_destroy_write_struct(&Png_, &Info_);
    Png_ = nullptr;
    Info_ = nullptr;
    const bool flushed = std::fflush(File_) == 0 && !std::ferror(File_);
    const int closed = std::fclose(File_);
    File_ = nullptr;
    if (!flushed || closed != 0) {
        Error_ = QStringLiteral("The picture \"%1\" could not be written: the disk refused it.")
                     .arg(Path_);
        QFile::remove(Path_);
        return false;
    }
    return true;
}
