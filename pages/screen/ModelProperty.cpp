#include "pages/screen/ModelProperty.h"

#include <libexif/exif-data.h>
#include <libexif/exif-mem.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace quorvi {
namespace {

// Hands what is made with a count of references back to the library.
template <auto Unref>
struct Release {
    template <typename Object>
    void operator()(Object* object) const {
        Unref(object);
    }
};

using Memory = std::unique_ptr<ExifMem, Release<exif_mem_unref>>;
using Data = std::unique_ptr<ExifData, Release<exif_data_unref>>;
using Entry = std::unique_ptr<ExifEntry, Release<exif_entry_unref>>;
using Block = std::unique_ptr<unsigned char, Release<std::free>>;

}  // namespace

std::string SiteName(const Deployment& deployment) {
    std::string_view name = deployment.siteRoot;
    if (const std::size_t scheme = name.find("://"); scheme != std::string_view::npos) {
        name.remove_prefix(scheme + 3);
    }
    return std::string(name.substr(0, name.find_first_of(":/")));
}

std::optional<std::string> ModelProperty(std::string_view model) {
    const Memory memory(exif_mem_new_default());
    const Data data(exif_data_new_mem(memory.get()));
    const Entry entry(exif_entry_new_mem(memory.get()));
    if (!memory || !data || !entry) {
        return std::nullopt;
    }
    exif_data_set_byte_order(data.get(), EXIF_BYTE_ORDER_INTEL);
    auto* const text = static_cast<unsigned char*>(exif_mem_alloc(memory.get(), kModelBytes));
    if (text == nullptr) {
        return std::nullopt;
    }
    std::copy_n(model.begin(), std::min(model.size(), kModelBytes), text);  // behind it: zeros
    entry->tag = EXIF_TAG_MODEL;
    entry->format = EXIF_FORMAT_ASCII;
    entry->components = kModelBytes;
    entry->size = kModelBytes;
    entry->data = text;  // the entry's from here on
    exif_content_add_entry(data->ifd[EXIF_IFD_0], entry.get());

    unsigned char* bytes = nullptr;
    unsigned size = 0;
    exif_data_save_data(data.get(), &bytes, &size);
    const Block block(bytes);
    if (!block) {
        return std::nullopt;
    }
    return std::string(reinterpret_cast<const char*>(block.get()), size);
}

}  // namespace quorvi
