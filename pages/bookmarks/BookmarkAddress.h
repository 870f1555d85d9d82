// Whether the address of a bookmark, which comes from a phone, is opened on the PC.
#pragma once

#include <string_view>

namespace quorvi {

enum class AddressOpening {
    nothing,   // there is no address: nothing is started
    atOnce,    // a web page
    askFirst,  // any other scheme, or none: the user is asked, with the address in full
};

// `url` in ANSI or UTF-8. A web page's address begins with http:// or https://, in letters of
// either case, with something behind it.
[[nodiscard]] AddressOpening OpeningOf(std::string_view url);

}  // namespace quorvi
