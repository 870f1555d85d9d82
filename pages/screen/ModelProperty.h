// What a saved picture says of the camera that took it: the name of the suite's site.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/Deployment.h"

namespace quorvi {

// Bytes of the property's text. A shorter name is filled up with zeros, a longer one is cut.
inline constexpr std::size_t kModelBytes = 18;

// "www.quorvi.example": the host of the site's root.
[[nodiscard]] std::string SiteName(const Deployment& deployment);

// A block of EXIF with one property in its first directory, 272, the camera's model: text of
// kModelBytes bytes. The mark "Exif" and two zeros stand in front. Nothing without memory.
[[nodiscard]] std::optional<std::string> ModelProperty(std::string_view model);

}  // namespace quorvi
