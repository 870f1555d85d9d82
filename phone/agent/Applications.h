// The applications of the phone.
#pragma once

#include <span>
#include <string_view>

namespace quorvi::phone {

struct Application {
    std::u8string_view name;
    std::string_view package;
    bool system = false;  // came with the phone
};

// Those that the phone has as it is delivered, which pm lists too.
[[nodiscard]] std::span<const Application> DeliveredApplications();

// By the name of its package, which must be one of them.
[[nodiscard]] const Application& ApplicationOf(std::string_view package);

}  // namespace quorvi::phone
