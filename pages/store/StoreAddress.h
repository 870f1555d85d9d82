// Where the pages of the app store are, and what its links say.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

// The page of an item, below the store's root, which ends in a slash. ASCII.
[[nodiscard]] std::string StoreItemAddress(std::string_view root, int item);

// The page with what is found for these words. Words and address are in UTF-8, and so is what the
// key is worked out from: the site compares it with what it receives. Quotes, hyphens, slashes and
// what has a meaning in HTML are left out of the words; nothing in them is escaped, kept on purpose
// (StoreSearchAddressTest.NothingIsEscaped). In words of such marks alone nothing is left, and the
// key is that of an empty text.
[[nodiscard]] std::string StoreSearchAddress(std::string_view root, std::string_view words);

// The longest name of a package that a link may give, in bytes.
inline constexpr std::size_t kLongestLinkedPackage = 255;

// The package that a private link names: its text without ".apk", of which the first is cut out
// wherever it stands, kept on purpose (StoreLinkTest.TheFirstEndingIsCutOutWhereverItStands).
// Nothing for a text that holds none, which is no link to a package. Texts are ANSI.
[[nodiscard]] std::optional<std::string> PackageOfStoreLink(std::string_view text);

}  // namespace quorvi
