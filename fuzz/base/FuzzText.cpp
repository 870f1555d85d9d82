// Re-encodes any bytes between the code pages and UTF-8.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/Text.h"

namespace {

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) {
        return 0;
    }
    quorvi::SetCodePage(data[0] % 2 == 0 ? quorvi::CodePage::gbk : quorvi::CodePage::gb18030);
    const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);

    // A text that is in the code page comes back from UTF-8 as it was.
    const std::string ansi = quorvi::ToAnsi(text);
    const std::string utf8 = quorvi::ToUtf8(ansi);
    Require(quorvi::ToAnsi(utf8) == ansi);
    // What is once UTF-8 is well formed, and GB18030 loses nothing of it.
    const std::string outside = quorvi::ToUtf8(text);
    if (quorvi::ActiveCodePage() == quorvi::CodePage::gb18030) {
        Require(quorvi::ToUtf8(quorvi::ToAnsi(outside)) == outside);
    }
    return 0;
}
