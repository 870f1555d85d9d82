// The release of the system's kernel.
#pragma once

#include <string_view>

namespace quorvi {

// Major and minor of a release as one number, major × 10 + minor: 61 for "6.1.0-13-amd64", 65 for
// "5.15.2". 0 for a text that does not begin with two numbers.
[[nodiscard]] int ReleaseNumber(std::string_view release);

// That of the running kernel. Any thread.
[[nodiscard]] int KernelReleaseNumber();

}  // namespace quorvi
