#include "download/HttpHead.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::string_view kBegin = "HTTP";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kBlankLine = "\r\n\r\n";
constexpr std::size_t kStatusAt = 9;
constexpr std::size_t kStatusDigits = 3;

bool BeginsLikeHttp(std::string_view bytes) {
    for (std::size_t i = 0; i < kBegin.size(); ++i) {
        if (bytes[i] == kBegin[i]) {
            return true;
        }
    }
    return false;
}

}  // namespace

std::string BuildRequest(const HttpRequest& request) {
    std::string text = fmt::format("GET {} HTTP/1.1\r\nHost:{}\r\n", request.object, request.host);
    if (!request.referer.empty()) {
        text += fmt::format("Referer:{}\r\n", request.referer);
    }
    text +=
        "Accept:*/*\r\n"
        "User-Agent:Mozilla/4.0 (compatible; QVH 1987; Quorvi Downloader)\r\n"
        "Connection:Keep-Alive\r\n";
    if (!request.cookie.empty()) {
        text += fmt::format("Set Cookie:0{}\r\n", request.cookie);
    }
    if (request.rangeStart > 0) {
        text += fmt::format("Range: bytes={}-", request.rangeStart);
        if (request.rangeEnd > request.rangeStart) {
            text += fmt::format("{}", request.rangeEnd);
        }
        text += kLineEnd;
    }
    return text.append(kLineEnd);
}

ResponseHead::Next ResponseHead::Take(char byte) {
    bytes_ += byte;
    if (bytes_.size() == kBegin.size() && !BeginsLikeHttp(bytes_)) {
        return Next::rejected;
    }
    return bytes_.size() >= kMostBytes || bytes_.ends_with(kBlankLine) ? Next::whole : Next::more;
}

int ResponseHead::GetStatusCode() const {
    if (!valid_) {
        return -1;
    }
    return bytes_.size() <= kStatusAt
               ? 0
               : ToInt(std::string_view(bytes_).substr(kStatusAt, kStatusDigits));
}

std::optional<std::string_view> ResponseHead::GetHeaderValue(std::string_view name) const {
    if (!valid_) {
        return std::nullopt;
    }
    // It is a text, which a zero byte ends.
    const std::string_view text = std::string_view(bytes_).substr(0, bytes_.find('\0'));
    const std::size_t at = text.find(name);
    if (at == std::string_view::npos) {
        return std::nullopt;
    }
    const std::size_t begin = std::min(at + name.size() + 2, text.size());
    const std::size_t end = std::min(text.find(kLineEnd, begin), text.size());
    return text.substr(begin, end - begin);
}

std::int64_t ToLength(std::string_view value) {
    value.remove_prefix(std::min(value.find_first_not_of(" \t\n\v\f\r"), value.size()));
    const bool negative = value.starts_with('-');
    if (negative || value.starts_with('+')) {
        value.remove_prefix(1);
    }
    std::int64_t number = 0;
    for (const char c : value) {
        if (c < '0' || c > '9') {
            break;
        }
        number = std::min(number * 10 + (c - '0'), kMostLength);
    }
    return negative ? -number : number;
}

}  // namespace quorvi
