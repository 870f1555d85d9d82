// A reply of any bytes, whole or cut, as a page's reader gets it.
#pragma once

#include <cstdint>
#include <cstring>
#include <optional>
#include <span>

#include "agent/Reply.h"

namespace quorvi::fuzz {

// Input: one byte whose lowest bit says that the reply is cut, two bytes that say how many more had
// been claimed then (high byte first), the bytes that came. Nothing for an input without a payload.
[[nodiscard]] inline std::optional<ReplyBuffer> ReplyOf(std::span<const std::uint8_t> input) {
    constexpr std::size_t kHeader = 3;
    if (input.size() <= kHeader) {
        return std::nullopt;
    }
    const auto came = input.subspan(kHeader);
    const std::size_t missing = (input[0] & 1) != 0 ? (std::size_t{input[1]} << 8 | input[2]) : 0;
    ReplyBuffer reply(static_cast<std::uint32_t>(came.size() + missing));
    if (reply.Length() == 0) {
        return std::nullopt;
    }
    std::memcpy(reply.Room().data(), came.data(), came.size());
    reply.Commit(came.size());
    return reply;
}

}  // namespace quorvi::fuzz
