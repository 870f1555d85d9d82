#include "pages/bookmarks/BookmarkAddress.h"

#include <algorithm>

namespace quorvi {
namespace {

constexpr std::string_view kWebSchemes[] = {"http://", "https://"};

char LowerLetter(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool BeginsWith(std::string_view url, std::string_view scheme) {
    return url.size() > scheme.size() &&
           std::ranges::equal(url.substr(0, scheme.size()), scheme, {}, LowerLetter);
}

}  // namespace

AddressOpening OpeningOf(std::string_view url) {
    if (url.empty()) {
        return AddressOpening::nothing;
    }
    const bool isWeb = std::ranges::any_of(
        kWebSchemes, [&](std::string_view scheme) { return BeginsWith(url, scheme); });
    return isWeb ? AddressOpening::atOnce : AddressOpening::askFirst;
}

}  // namespace quorvi
