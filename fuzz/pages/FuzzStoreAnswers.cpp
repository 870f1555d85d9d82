// Reads any text as the site's answer to a store check, and merges it into a list.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "pages/apps/StoreCheck.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto answers = quorvi::ParseStoreAnswers({reinterpret_cast<const char*>(data), size});
    std::vector<quorvi::AppRecord> rows;
    for (const auto& [package, facts] : answers) {
        rows.emplace_back().package = package;
    }
    if (quorvi::MergeStoreAnswers(answers, rows) != !answers.empty()) {
        std::abort();
    }
    return 0;
}
