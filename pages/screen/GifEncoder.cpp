#include <gif_lib.h>

#include <memory>
#include <new>

#include "pages/screen/OctreeQuantizer.h"
#include "pages/screen/PictureEncoders.h"

namespace quorvi {
namespace {

constexpr int kColourBits = 8;

int Append(GifFileType* gif, const GifByteType* bytes, int count) {
    try {
        static_cast<std::string*>(gif->UserData)
            ->append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(count));
    } catch (const std::bad_alloc&) {
        return 0;
    }
    return count;
}

// A map of 256 colours, of which those behind the palette are black.
ColorMapObject* MakeMap(const IndexedPicture& picture) {
    ColorMapObject* const map = GifMakeMapObject(1 << kColourBits, nullptr);
    if (map != nullptr) {
        for (std::size_t i = 0; i < picture.palette.size(); ++i) {
            const auto& [red, green, blue] = picture.palette[i];
            map->Colors[i] = {red, green, blue};
        }
    }
    return map;
}

bool Write(GifFileType* gif, IndexedPicture& picture) {
    const std::unique_ptr<ColorMapObject, decltype(&GifFreeMapObject)> map(MakeMap(picture),
                                                                           &GifFreeMapObject);
    if (!map ||
        EGifPutScreenDesc(gif, picture.width, picture.height, kColourBits, 0, map.get()) !=
            GIF_OK ||
        EGifPutImageDesc(gif, 0, 0, picture.width, picture.height, false, nullptr) != GIF_OK) {
        return false;
    }
    for (int y = 0; y < picture.height; ++y) {
        GifPixelType* const line =
            picture.indexes.data() + static_cast<std::ptrdiff_t>(y) * picture.width;
        if (EGifPutLine(gif, line, picture.width) != GIF_OK) {
            return false;
        }
    }
    return true;
}

}  // namespace

std::optional<std::string> EncodeGif(const RgbPicture& picture) {
    IndexedPicture indexed = OctreeQuantizer::WithLimit(kMostPaletteColours)->Quantize(picture);
    std::string file;
    int error = 0;
    GifFileType* const gif = EGifOpen(&file, Append, &error);
    if (gif == nullptr) {
        return std::nullopt;
    }
    const bool written = Write(gif, indexed);
    const bool closed = EGifCloseFile(gif, &error) == GIF_OK;
    return written && closed ? std::optional(std::move(file)) : std::nullopt;
}

}  // namespace quorvi
