// A peer that gives each connection one answer, byte for byte.
#pragma once

#include <fmt/format.h>

#include <string>
#include <string_view>

#include "base/ByteText.h"
#include "tests/support/LoopbackAgent.h"

namespace quorvi {

class ScriptedPeer {
  public:
    explicit ScriptedPeer(std::string_view answer, Answer::End end = Answer::End::close)
        : agent_({.bytes = ToBytes(answer), .end = end}) {}

    [[nodiscard]] std::string Url() const {
        return fmt::format("http://127.0.0.1:{}/a.apk", agent_.Port());
    }
    // What the n-th connection asked, once it is over.
    [[nodiscard]] std::string Asked(std::size_t n = 0) {
        const auto exchanges = agent_.Exchanges(n + 1);
        std::string text;
        for (const Bytes* part : {&exchanges.at(n).firstPiece, &exchanges.at(n).rest}) {
            text += AsText(*part);
        }
        return text;
    }
    LoopbackAgent& Agent() { return agent_; }

  private:
    LoopbackAgent agent_;
};

// An answer of this status with this body.
inline std::string AnswerOf(std::string_view status, std::string_view body) {
    return fmt::format("HTTP/1.1 {}\r\nContent-Length: {}\r\n\r\n{}", status, body.size(), body);
}

inline std::string MovedTo(std::string_view url) {
    return fmt::format("HTTP/1.1 301 Moved\r\nLocation: {}\r\nContent-Length: 0\r\n\r\n", url);
}

}  // namespace quorvi
