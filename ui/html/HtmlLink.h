// Links in HTML views: which of them speak to the program instead of the browser.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

// What stands in front of a private link's text; compared without regard to the case of letters,
// and only against the start of a URL.
inline constexpr std::string_view kPrivateLinkPrefix = "qvh:";

// The text of a private link, ANSI; nothing for any other URL. `url` is as the browser writes it:
// in UTF-8, what is not printable ASCII as "%XX", which is decoded once. An escape that is cut or
// malformed stays as it is. An empty rest is an empty text.
[[nodiscard]] std::optional<std::string> PrivateLinkText(std::string_view url);

// Whether a URL leads to a web site ("http:" or "https:").
[[nodiscard]] bool IsWebLink(std::string_view url);

}  // namespace quorvi
