// Reads any bytes as a URL that a view would follow, and the text of a private link as each page
// that shows links reads it.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "pages/messages/Conversations.h"
#include "pages/phoneinfo/DashboardLink.h"
#include "pages/store/StoreAddress.h"
#include "ui/html/HtmlLink.h"

namespace {

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

// A private link whose text is written in escapes throughout.
std::string Escaped(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789aBCdeF";
    std::string url(quorvi::kPrivateLinkPrefix);
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        url += '%';
        url += kDigits[byte >> 4];
        url += kDigits[byte & 0xF];
    }
    return url;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto text = quorvi::PrivateLinkText(bytes);
    Require(!text || !quorvi::IsWebLink(bytes));
    Require(quorvi::PrivateLinkText(Escaped(bytes)) == quorvi::ToAnsi(bytes));
    if (text) {
        static_cast<void>(quorvi::DashboardActionOf(*text));
        static_cast<void>(quorvi::ToInt(*text));
        static_cast<void>(quorvi::ReadConversationLink(*text));
        const auto package = quorvi::PackageOfStoreLink(*text);
        Require(!package || package->size() + std::string_view(".apk").size() == text->size());
    }
    return 0;
}
