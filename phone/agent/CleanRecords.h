// What can be cleaned on the phone: the caches of its applications, and what its browser and its
// market remember.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "agent/FixedCleanItems.h"
#include "phone/Channel.h"

namespace quorvi::phone {

struct Cache {
    std::string name;  // of its application
    std::string package;
    std::uint64_t bytes = 0;
    SharedBytes icon;  // nothing: it has none
};

class CleanRecords {
  public:
    std::vector<Cache> caches;
    // What each of the fixed items remembers, in the order of their table: searches, or addresses.
    std::array<std::vector<std::string>, kFixedCleanItems.size()> remembered;

    // Empties all caches of the package: they are listed no more. How many there were.
    std::size_t Clean(std::string_view package);
    // Forgets what a fixed item remembers. How much that was.
    std::size_t Forget(std::size_t fixedItem);
};

// What has gathered on the owner's phone.
[[nodiscard]] CleanRecords DeliveredCleanRecords();

// `count` caches whose applications have an icon of so many bytes each, or none for 0.
[[nodiscard]] CleanRecords LargeCleanRecords(std::uint32_t count, std::uint32_t iconBytes);

// Caches whose names, sizes and icons mean harm to whoever shows them.
void AddHostileCaches(CleanRecords& records);

}  // namespace quorvi::phone
