// One exchange with a web server: what a request is sent with, and what comes back.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

// How long a site has, and how much it may say.
struct HttpLimits {
    std::chrono::milliseconds connect = std::chrono::seconds(15);
    std::chrono::milliseconds total = std::chrono::seconds(60);
    std::size_t reply = 4 << 20;  // bytes
};

struct HttpReply {
    long status = 0;     // 0: no server answered
    std::string body;    // of whatever status; what came until a limit was reached
    bool whole = false;  // the reply came to its end

    // A page that the server has, whole.
    [[nodiscard]] bool IsPage() const { return whole && status >= 200 && status < 300; }
};

// Both wait, go over the system's proxy, and speak http and https only. A failure is not told but
// by the reply. Any thread.

// A redirect is followed, at most five times.
[[nodiscard]] HttpReply HttpGet(const std::string& url, const HttpLimits& limits = {});

// Posts the body with these header lines ("Name: value"), and no content type but theirs. A
// redirect is not followed: what came with it is the reply.
[[nodiscard]] HttpReply HttpPost(const std::string& url, std::string_view body,
                                 const std::vector<std::string>& headers,
                                 const HttpLimits& limits = {});

}  // namespace quorvi
