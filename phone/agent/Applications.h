// The applications of the phone.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace quorvi::phone {

struct Application {
    std::u8string_view name;
    std::string_view package;
    std::string_view version;
    std::uint64_t kilobytes = 0;
    std::string_view installed;  // local time; empty: nobody knows
    bool system = false;         // came with the phone
    bool hasIcon = true;
};

// Those that the phone has as it is delivered, which pm lists too.
[[nodiscard]] std::span<const Application> DeliveredApplications();

// By the name of its package, which must be one of them.
[[nodiscard]] const Application& ApplicationOf(std::string_view package);

}  // namespace quorvi::phone
