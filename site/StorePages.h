// The pages of the sample store, in UTF-8. They hold no script; what came with a request stands in
// them escaped.
#pragma once

#include <string>
#include <string_view>

#include "site/Catalogue.h"

namespace quorvi::site {

// Where the store is; its root is the first page.
inline constexpr std::string_view kStorePath = "/store/";

[[nodiscard]] std::string FirstPage();
[[nodiscard]] std::string ShelfPage(const Shelf& shelf);
// With the private link by which the suite downloads the application.
[[nodiscard]] std::string ItemPage(const StoreApp& app);
// What FindApps finds.
[[nodiscard]] std::string SearchPage(std::string_view keywords);
// Where the key of a search does not fit its keywords.
[[nodiscard]] std::string BrokenSearchPage();
[[nodiscard]] std::string LostPage();

}  // namespace quorvi::site
