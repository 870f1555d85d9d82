// Sites that do not answer as they should.
#pragma once

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <chrono>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "online/HttpTransfer.h"
#include "tests/support/LoopbackAgent.h"

namespace quorvi {

// A whole answer with this status line and body.
inline std::string HttpAnswer(std::string_view status, std::string_view body) {
    return fmt::format("HTTP/1.1 {}\r\nContent-Length: {}\r\n\r\n{}", status, body.size(), body);
}

struct SiteFault {
    std::string name;
    std::string answer;
    Answer::End end = Answer::End::close;
    HttpLimits limits{};
};

inline void PrintTo(const SiteFault& fault, std::ostream* out) {
    *out << fault.name;
}
inline std::string NameOfFault(const testing::TestParamInfo<SiteFault>& info) {
    return info.param.name;
}

// Each with a part of `good`, which is what the site would say.
inline std::vector<SiteFault> SiteFaults(const std::string& good) {
    using namespace std::chrono_literals;
    const std::string half = good.substr(0, good.size() / 2);
    const std::string head =
        fmt::format("HTTP/1.1 200 OK\r\nContent-Length: {}\r\n\r\n", good.size());
    return {
        {"ClosesWithoutAWord", ""},
        {"Resets", "", Answer::End::reset},
        {"HangsBeforeItsHead", "", Answer::End::wait, {.total = 100ms}},
        {"HangsInItsBody", head + half, Answer::End::wait, {.total = 300ms}},
        {"StopsInItsBody", head + half},
        {"SaysHalf", HttpAnswer("200 OK", half)},
        {"SaysNothing", HttpAnswer("200 OK", "")},
        {"SaysTooMuch",
         HttpAnswer("200 OK", std::string(1 << 20, ' ') + good),
         Answer::End::close,
         {.reply = 1 << 20}},
        {"SaysWords", HttpAnswer("200 OK", "It works!")},
        {"SaysBytes", HttpAnswer("200 OK", std::string("\x00\xFF\xFE<{\x80", 6))},
        {"LeadsInACircle", "HTTP/1.1 302 Found\r\nLocation: /again\r\nContent-Length: 0\r\n\r\n"},
        {"LeadsToAFile",
         "HTTP/1.1 302 Found\r\nLocation: file:///etc/hostname\r\nContent-Length: 0\r\n\r\n"},
    };
}

}  // namespace quorvi
