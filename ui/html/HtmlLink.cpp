#include "ui/html/HtmlLink.h"

#include "base/Text.h"

namespace quorvi {
namespace {

bool StartsWithNoCase(std::string_view text, std::string_view start) {
    return EqualsNoCase(text.substr(0, start.size()), start);
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::string DecodePercent(std::string_view text) {
    std::string decoded;
    decoded.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '%' && i + 2 < text.size() ? HexDigit(text[i + 1]) : -1;
        const int low = high >= 0 ? HexDigit(text[i + 2]) : -1;
        if (low < 0) {
            decoded += text[i];
            continue;
        }
        decoded += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return decoded;
}

}  // namespace

std::optional<std::string> PrivateLinkText(std::string_view url) {
    if (!StartsWithNoCase(url, kPrivateLinkPrefix)) {
        return std::nullopt;
    }
    return ToAnsi(DecodePercent(url.substr(kPrivateLinkPrefix.size())));
}

bool IsWebLink(std::string_view url) {
    return StartsWithNoCase(url, "http:") || StartsWithNoCase(url, "https:");
}

}  // namespace quorvi
