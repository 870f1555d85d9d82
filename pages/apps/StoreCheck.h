// What the site says of the applications of a list, merged into it.
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>

#include "pages/apps/AppList.h"

namespace quorvi {

// By package. Where the site names a package twice, the later one stands.
using StoreAnswers = std::map<std::string, StoreFacts, std::less<>>;

// Reads the site's reply, UTF-8: an array, or an object, of objects. What follows the first value
// is not looked at; a reply of any other form says nothing. Members that are missing are empty
// texts, and a number is read from the beginning of its text. Any thread.
[[nodiscard]] StoreAnswers ParseStoreAnswers(std::string_view reply);

// What the site says of a package; null for one that it does not name.
[[nodiscard]] const StoreFacts* FactsOf(const StoreAnswers& answers, std::string_view package);

// Gives each row whose package the site knows what it says of it; true if there is such a row.
bool MergeStoreAnswers(const StoreAnswers& answers, std::span<AppRecord> rows);

}  // namespace quorvi
