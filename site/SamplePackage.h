// The packages that the sample site hands out: zip archives, which the simulated phone installs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace quorvi::site {

// A zip archive of exactly so many bytes: a text that says what it is, and a filler that differs
// from package to package. `bytes` is at least kLeastPackageBytes.
inline constexpr std::size_t kLeastPackageBytes = 4096;
[[nodiscard]] std::string MakeSamplePackage(std::string_view package, std::size_t bytes);

// The archive of an application of the store; null where it has none by this name. Each is made at
// the first call, and kept. Any thread.
[[nodiscard]] std::shared_ptr<const std::string> SamplePackage(std::string_view package);

// From which byte a download goes, and how far.
struct Part {
    std::size_t first = 0;
    std::size_t length = 0;
};
// What a range asks for of a file, with -1 for what it does not say: "bytes=5-" is 5 and -1,
// "bytes=-5", the last five, is -1 and 5. Length 0 where the file has nothing of it.
[[nodiscard]] Part PartOf(std::int64_t first, std::int64_t last, std::size_t fileBytes);

}  // namespace quorvi::site
