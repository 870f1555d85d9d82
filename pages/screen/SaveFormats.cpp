#include "pages/screen/SaveFormats.h"

#include "base/Text.h"

namespace quorvi {
namespace {

template <typename Rows>
bool HasIndex(const Rows& rows, int index) {
    return index >= 0 && static_cast<std::size_t>(index) < rows.size();
}

}  // namespace

SaveFormat FormatOf(int index) {
    return HasIndex(kSaveFormats, index) ? static_cast<SaveFormat>(index) : SaveFormat::jpg;
}

int QualityOf(int index) {
    constexpr int kWhole = 100;
    return HasIndex(kSaveQualities, index) ? kSaveQualities[static_cast<std::size_t>(index)].quality
                                           : kWhole;
}

const SaveFormatRow& RowOf(SaveFormat format) {
    return kSaveFormats[static_cast<std::size_t>(format)];
}

std::optional<SaveFormat> FormatOfName(std::string_view name) {
    if (const std::size_t folder = name.rfind('/'); folder != std::string_view::npos) {
        name.remove_prefix(folder + 1);
    }
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos) {
        return std::nullopt;
    }
    for (const SaveFormatRow& row : kSaveFormats) {
        if (EqualsNoCase(name.substr(dot + 1), row.extension)) {
            return row.format;
        }
    }
    return std::nullopt;
}

}  // namespace quorvi
