#include "pages/apps/StoreCheck.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "base/Json.h"

namespace quorvi {
namespace {

// A member's text in UTF-8, numbers as they are written; empty for one that has none.
std::string TextOf(const Json::Value& element, const char* member) {
    const Json::Value& value = element[member];
    return value.isArray() || value.isObject() ? std::string() : value.asString();
}

// The number that the text begins with; 0 for none, and the nearest there is for one that is too
// large.
std::int32_t NumberOf(const Json::Value& element, const char* member) {
    const long long number = std::strtoll(TextOf(element, member).c_str(), nullptr, 10);
    return static_cast<std::int32_t>(
        std::clamp<long long>(number, std::numeric_limits<std::int32_t>::min(),
                              std::numeric_limits<std::int32_t>::max()));
}

}  // namespace

StoreAnswers ParseStoreAnswers(std::string_view reply) {
    StoreAnswers answers;
    const auto document = ParseFirstJson(reply);
    if (!document || !(document->isArray() || document->isObject())) {
        return answers;
    }
    for (const Json::Value& element : *document) {
        if (!element.isObject()) {
            continue;
        }
        answers[ToAnsi(TextOf(element, "pkg"))] = {
            .rating = NumberOf(element, "level"),
            .storeId = NumberOf(element, "id"),
            .category = ToAnsi(TextOf(element, "category")),
            .description = ToAnsi(TextOf(element, "description"))};
    }
    return answers;
}

const StoreFacts* FactsOf(const StoreAnswers& answers, std::string_view package) {
    const auto found = answers.find(package);
    return found == answers.end() ? nullptr : &found->second;
}

bool MergeStoreAnswers(const StoreAnswers& answers, std::span<AppRecord> rows) {
    bool any = false;
    for (AppRecord& row : rows) {
        if (const StoreFacts* facts = FactsOf(answers, row.package)) {
            row.store = *facts;
            any = true;
        }
    }
    return any;
}

}  // namespace quorvi
