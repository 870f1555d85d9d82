// The words of the agent's protocol. All integers on the wire are big-endian; strings are UTF-8
// behind a u32 that counts their bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quorvi {

// A request, or any other run of bytes that is built up.
using Bytes = std::vector<std::byte>;

// TCP port of the agent on the phone, and of the forward to it on 127.0.0.1.
inline constexpr std::uint16_t AgentPort = 50505;

// In place of a reply's length word: there is nothing to return, no payload follows.
inline constexpr std::uint32_t NoDataMark = 0x075BCD17;

// In place of a field's length word inside a payload: the field has no value, no bytes follow.
inline constexpr std::uint32_t AbsentMark = 0x0DF0ADBA;

// The value of an acknowledged reply.
using AcknowledgeWord = std::uint32_t;

// Where the first field of a payload stands: the word in front of it is counted and never looked
// at.
inline constexpr std::size_t kPayloadStart = 4;

// Bytes of a framed request in front of its items: code, total length, item count.
inline constexpr std::size_t kFrameHeaderBytes = 12;

// Write value to out[0..3] or out[0..7], most significant byte first.
void PackUInt32(std::uint32_t value, std::byte* out);
void PackUInt64(std::uint64_t value, std::byte* out);

// The value of in[0..3] or in[0..7], most significant byte first.
[[nodiscard]] std::uint32_t ReadUInt32(const std::byte* in);
[[nodiscard]] std::uint64_t ReadUInt64(const std::byte* in);

}  // namespace quorvi
