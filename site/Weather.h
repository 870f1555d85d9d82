// The sample site's weather service.
#pragma once

#include <optional>
#include <string>

namespace quorvi::site {

// What the service says of the city with this number, as JSON in UTF-8: made up, and the same each
// time. Nothing for a number that no city has. Any thread.
[[nodiscard]] std::optional<std::string> WeatherDocument(int cityNumber);

}  // namespace quorvi::site
