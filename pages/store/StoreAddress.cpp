#include "pages/store/StoreAddress.h"

#include <fmt/format.h>

#include "online/CheckSum.h"

namespace quorvi {
namespace {

constexpr std::string_view kPackageEnding = ".apk";
constexpr std::string_view kLeftOut = "`'-&<>\\/";

}  // namespace

std::string StoreItemAddress(std::string_view root, int item) {
    return fmt::format("{}archives/{}.html", root, item);
}

std::string StoreSearchAddress(std::string_view root, std::string_view words) {
    std::string keywords(words);
    std::erase_if(keywords, [](char c) { return kLeftOut.find(c) != std::string_view::npos; });
    return fmt::format("{}search.php?keywords={}&key={}", root, keywords, StoreSearchKey(keywords));
}

std::optional<std::string> PackageOfStoreLink(std::string_view text) {
    const std::size_t ending = text.find(kPackageEnding);
    if (ending == std::string_view::npos) {
        return std::nullopt;
    }
    return std::string(text).erase(ending, kPackageEnding.size());
}

}  // namespace quorvi
