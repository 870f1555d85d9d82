// The checksum that each request to the site carries, cut out of MD5 digests of its fields. It has
// no key: it tells a broken request from a whole one, and proves nothing.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace quorvi {

// Of a request for the store's link of a package: 4 digits.
[[nodiscard]] std::string StoreLinkCheckSum(std::string_view package);
// Of a search in the store, in UTF-8: 8 digits of the digest of 4 digits.
[[nodiscard]] std::string StoreSearchKey(std::string_view keywords);
// Of a request for what the store knows of these packages: 6 digits.
[[nodiscard]] std::string StoreCheckCheckSum(std::span<const std::string> packages);
// Of a feedback; both texts in UTF-8. 16 digits.
[[nodiscard]] std::string FeedbackCheckSum(std::string_view platform, std::string_view content);

}  // namespace quorvi
