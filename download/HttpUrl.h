// The address of a file to download, in its parts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvi {

struct HttpUrl {
    std::string server;  // empty where the text is no address that the engine could ask
    std::string object;  // what is asked of the server, from its slash on
    std::uint16_t port = 80;
};

// Reads an address in UTF-8. Only http is spoken: any other scheme, and a text that is no address,
// has an empty server. The part behind '#' and a user's name are left out, and what would break the
// request's lines (blanks, control characters) or is not ASCII goes out as %XX.
[[nodiscard]] HttpUrl ParseHttpUrl(std::string_view url);

}  // namespace quorvi
