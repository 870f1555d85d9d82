// Reads any bytes as the head of an answer, and any text as the address that a redirect leads to.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "download/HttpHead.h"
#include "download/HttpUrl.h"

namespace {

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using quorvi::ResponseHead;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    ResponseHead head;
    for (const char byte : bytes) {
        if (head.Take(byte) != ResponseHead::Next::more) {
            break;
        }
    }
    Require(head.Bytes().size() <= ResponseHead::kMostBytes && bytes.starts_with(head.Bytes()));
    Require(head.GetStatusCode() == -1);
    head.End();
    Require(head.GetStatusCode() > -100 && head.GetStatusCode() < 1000);

    const std::int64_t length =
        quorvi::ToLength(head.GetHeaderValue("Content-Length").value_or(""));
    Require(length >= -quorvi::kMostLength && length <= quorvi::kMostLength);

    for (const std::string_view url : {head.GetHeaderValue("Location").value_or(""), bytes}) {
        const quorvi::HttpUrl parts = quorvi::ParseHttpUrl(url);
        if (parts.server.empty()) {
            continue;
        }
        // Four lines, a blank one, and no others, whatever the address holds.
        const std::string request =
            quorvi::BuildRequest({.host = parts.server, .object = parts.object});
        std::size_t lines = 0;
        for (const char c : request) {
            lines += c == '\n' ? 1 : 0;
        }
        Require(lines == 6 && parts.port != 0 && parts.object.starts_with('/'));
    }
    return 0;
}
