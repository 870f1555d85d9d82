#include "download/HttpUrl.h"

#include <algorithm>
#include <charconv>

#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::string_view kScheme = "http://";
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

bool IsPlain(char c) {
    return c > ' ' && c < '\x7F';  // a char beyond ASCII is negative, or above
}

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (IsPlain(c)) {
            escaped += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        escaped.append({'%', kHexDigits[byte >> 4], kHexDigits[byte & 0xF]});
    }
    return escaped;
}

// A port as text; false where it is none.
bool ReadPort(std::string_view text, std::uint16_t& port) {
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, port);
    return error == std::errc() && stop == end && port != 0;
}

}  // namespace

HttpUrl ParseHttpUrl(std::string_view url) {
    HttpUrl parts;
    if (!EqualsNoCase(url.substr(0, kScheme.size()), kScheme)) {
        return parts;
    }
    url.remove_prefix(kScheme.size());
    url = url.substr(0, url.find('#'));
    const std::size_t end = std::min(url.find_first_of("/?"), url.size());
    std::string_view server = url.substr(0, end);
    server = server.substr(server.rfind('@') + 1);  // from the start where there is no '@'
    const std::size_t colon = server.rfind(':');
    if (colon != std::string_view::npos && server.find(']', colon) == std::string_view::npos) {
        const std::string_view port = server.substr(colon + 1);
        if (!port.empty() && !ReadPort(port, parts.port)) {
            return parts;
        }
        server = server.substr(0, colon);
    }
    if (!std::ranges::all_of(server, &IsPlain)) {
        return parts;
    }
    parts.server = server;
    parts.object = Escaped(url.substr(end));
    if (!parts.object.starts_with('/')) {
        parts.object.insert(0, 1, '/');
    }
    return parts;
}

}  // namespace quorvi
