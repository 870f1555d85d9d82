// What a package says of itself in its manifest.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace quorvi::phone {

struct PackageManifest {
    std::string package;
    std::uint32_t version = 0;
};

// Of a zip archive whose AndroidManifest.xml is stored as it is, as script/agent packs the agent's;
// nothing for a file that is none, or whose manifest is compressed, or names no package and
// version.
[[nodiscard]] std::optional<PackageManifest> ReadPackageManifest(std::span<const std::byte> file);

}  // namespace quorvi::phone
