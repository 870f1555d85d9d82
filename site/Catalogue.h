// The applications of the sample store. All of them are made up.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi::site {

enum class Category { tools, life, reading, photo, travel, games };

struct StoreApp {
    int number = 0;               // of its page
    std::uint32_t kilobytes = 0;  // of its package, exactly
    std::string_view package = {};
    std::u8string_view name = {};
    Category category = Category::tools;
    int stars = 0;  // 1 to 5
    std::string_view version = {};
    std::string_view picture = {};  // the file's name
    std::string_view colour = {};   // of its screens
    std::u8string_view summary = {};
    std::u8string_view story = {};
};

// In the order in which the store lists them. The first six have the numbers to which the suite's
// dashboard leads; the last five are on the simulated phone, too.
[[nodiscard]] std::span<const StoreApp> StoreApps();
// Null where the store has none.
[[nodiscard]] const StoreApp* AppOfNumber(int number);
[[nodiscard]] const StoreApp* AppOfPackage(std::string_view package);

[[nodiscard]] std::u8string_view CategoryName(Category category);

// "5.8 MB", "920 KB".
[[nodiscard]] std::string SizeText(const StoreApp& app);

// Applications that are shown together, on a page of their own.
struct Shelf {
    std::string_view word;     // of its page
    std::u8string_view chip;   // empty: it is not among the chips
    std::u8string_view title;  // over its cards
    std::vector<const StoreApp*> apps;
};
// Beginning with the recommended ones.
[[nodiscard]] const std::vector<Shelf>& Shelves();
[[nodiscard]] const Shelf* ShelfOfWord(std::string_view word);

// Those whose name, category, summary or package holds the text, whatever its case; texts UTF-8.
// None for an empty text.
[[nodiscard]] std::vector<const StoreApp*> FindApps(std::string_view text);

}  // namespace quorvi::site
