#include <png.h>

#include <new>

#include "pages/screen/PictureEncoders.h"

namespace quorvi {
namespace {

void Append(png_structp png, png_bytep bytes, std::size_t count) {
    bool done = true;
    try {
        static_cast<std::string*>(png_get_io_ptr(png))
            ->append(reinterpret_cast<const char*>(bytes), count);
    } catch (const std::bad_alloc&) {
        done = false;
    }
    if (!done) {
        png_error(png, "no memory");
    }
}

[[noreturn]] void GoBack(png_structp png, png_const_charp) {
    png_longjmp(png, 1);
}

// All behind setjmp may go back, so that no object with a destructor lives there.
bool Compress(png_structp png, png_infop info, const RgbPicture& picture, std::string_view exif,
              std::string& file) {
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    png_set_write_fn(png, &file, Append, [](png_structp) {});
    png_set_IHDR(png, info, static_cast<png_uint_32>(picture.width),
                 static_cast<png_uint_32>(picture.height), 8, PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_bytep const block =
        const_cast<png_bytep>(reinterpret_cast<png_const_bytep>(exif.data()));  // only read
    png_set_eXIf_1(png, info, static_cast<png_uint_32>(exif.size()), block);
    png_write_info(png, info);
    for (int y = 0; y < picture.height; ++y) {
        png_write_row(png, picture.Line(y).data());
    }
    png_write_end(png, info);
    return true;
}

}  // namespace

std::optional<std::string> EncodePng(const RgbPicture& picture, std::string_view exif) {
    // In a file of this format the block stands without the mark in front of it.
    constexpr std::string_view kMark("Exif\0\0", 6);
    if (exif.starts_with(kMark)) {
        exif.remove_prefix(kMark.size());
    }
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, GoBack,
                                              [](png_structp, png_const_charp) {});
    if (png == nullptr) {
        return std::nullopt;
    }
    std::string file;
    png_infop info = png_create_info_struct(png);
    const bool done = info != nullptr && Compress(png, info, picture, exif, file);
    png_destroy_write_struct(&png, &info);
    return done ? std::optional(std::move(file)) : std::nullopt;
}

}  // namespace quorvi
