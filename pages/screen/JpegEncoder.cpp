#include <csetjmp>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <memory>
// Behind <cstddef> and <cstdio>, whose types it uses and does not include.
#include <jpeglib.h>

#include "pages/screen/PictureEncoders.h"

namespace quorvi {
namespace {

struct ErrorHandler {
    jpeg_error_mgr base;
    std::jmp_buf back;
};

// What the library allocates for the file.
struct Target {
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
};

[[noreturn]] void GoBack(j_common_ptr codec) {
    std::longjmp(reinterpret_cast<ErrorHandler*>(codec->err)->back, 1);
}

// All between Start and Finish may go back, so that no object with a destructor lives there.
bool Compress(jpeg_compress_struct& jpeg, const RgbPicture& picture, int quality,
              std::string_view exif, Target& target) {
    ErrorHandler errors{};
    jpeg.err = jpeg_std_error(&errors.base);
    errors.base.error_exit = GoBack;
    errors.base.output_message = [](j_common_ptr) {};
    if (setjmp(errors.back) != 0) {
        jpeg_destroy_compress(&jpeg);
        return false;
    }
    jpeg_create_compress(&jpeg);
    jpeg_mem_dest(&jpeg, &target.bytes, &target.size);
    jpeg.image_width = static_cast<JDIMENSION>(picture.width);
    jpeg.image_height = static_cast<JDIMENSION>(picture.height);
    jpeg.input_components = static_cast<int>(RgbPicture::kPixelBytes);
    jpeg.in_color_space = JCS_RGB;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, quality, TRUE);
    if (quality == kBestQuality) {
        jpeg.comp_info[0].h_samp_factor = 1;
        jpeg.comp_info[0].v_samp_factor = 1;
    }
    jpeg_start_compress(&jpeg, TRUE);
    jpeg_write_marker(&jpeg, JPEG_APP0 + 1, reinterpret_cast<const JOCTET*>(exif.data()),
                      static_cast<unsigned>(exif.size()));
    while (jpeg.next_scanline < jpeg.image_height) {
        const std::uint8_t* const line = picture.Line(static_cast<int>(jpeg.next_scanline)).data();
        JSAMPROW row = const_cast<JSAMPROW>(line);  // only read
        jpeg_write_scanlines(&jpeg, &row, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    return true;
}

}  // namespace

std::optional<std::string> EncodeJpeg(const RgbPicture& picture, int quality,
                                      std::string_view exif) {
    jpeg_compress_struct jpeg{};
    Target target;
    const bool done = Compress(jpeg, picture, quality, exif, target);
    const std::unique_ptr<unsigned char, decltype(&std::free)> bytes(target.bytes, &std::free);
    if (!done) {
        return std::nullopt;
    }
    return std::string(reinterpret_cast<const char*>(bytes.get()), target.size);
}

}  // namespace quorvi
