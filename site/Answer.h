// What the sample site answers to a request.
#pragma once

#include <string>
#include <string_view>

namespace quorvi::site {

inline constexpr std::string_view kHtml = "text/html; charset=utf-8";
inline constexpr std::string_view kText = "text/plain; charset=utf-8";
inline constexpr std::string_view kJson = "application/json; charset=utf-8";

// Bodies are UTF-8, or bytes of a file.
struct Answer {
    int status = 200;
    std::string_view type = kHtml;
    std::string body = {};
    std::string_view location = {};  // of a redirect
};

}  // namespace quorvi::site
