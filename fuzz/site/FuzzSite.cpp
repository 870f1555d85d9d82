// What the sample site takes from whoever asks it: forms, addresses with their queries, ranges.
//
// Input: one byte that chooses among them; the form, or the address, or the ends of a range.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "site/Forms.h"
#include "site/Pages.h"
#include "site/SamplePackage.h"

namespace {

using namespace quorvi::site;

void Check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void ReadRange(std::string_view bytes) {
    constexpr std::size_t kFile = 1000;
    std::int64_t ends[2] = {};
    std::memcpy(ends, bytes.data(), std::min(bytes.size(), sizeof ends));
    const Part part = PartOf(ends[0], ends[1], kFile);
    Check(part.first <= kFile && part.length <= kFile - part.first);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    switch (data[0] % 5) {
        case 0:
            Check(!AnswerForm("android_info", bytes).body.empty());
            break;
        case 1:
            Check(!AnswerForm("apk_list", bytes).body.empty());
            break;
        case 2:
            Check(!AnswerForm("feedback", bytes).body.empty());
            break;
        case 3: {
            const std::size_t query = std::min(bytes.find('?'), bytes.size());
            const Answer answer =
                AnswerPage(bytes.substr(0, query), bytes.substr(std::min(query + 1, bytes.size())));
            Check(answer.status == 302 || !answer.body.empty());
            break;
        }
        default:
            ReadRange(bytes);
    }
    return 0;
}
