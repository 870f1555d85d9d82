// Finding in texts that the phone sent: the first half of the bytes is what was typed, the second
// the text, in units of UTF-16 and as it is in UTF-8.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "find/FindIndex.h"
#include "find/FindQuery.h"

namespace {

std::u16string Units(const std::uint8_t* data, std::size_t size) {
    std::u16string units(size / sizeof(char16_t), u'\0');
    std::memcpy(units.data(), data, units.size() * sizeof(char16_t));
    return units;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvi;
    const FindQuery query(Units(data, size / 2));
    const std::u16string text = Units(data + size / 2, size - size / 2);
    const std::u16string folded = Folded(text);
    if (folded.size() != text.size()) {
        std::abort();
    }
    for (const FindKind kind : {FindKind::name, FindKind::number, FindKind::text}) {
        const auto part = query.In(folded, kind);
        if (part && (part->length == 0 || part->begin > text.size() ||
                     part->length > text.size() - part->begin)) {
            std::abort();
        }
    }
    FindIndex index;
    index.AddRow();
    index.AddUtf8({reinterpret_cast<const char*>(data + size / 2), size - size / 2},
                  FindKind::name);
    if (index.Find(query).size() > 1) {
        std::abort();
    }
    return 0;
}
