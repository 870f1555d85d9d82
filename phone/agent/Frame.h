// Where a request ends, told from its first bytes.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include "phone/agent/Commands.h"

namespace quorvi::phone {

// Largest request taken, in bytes.
inline constexpr std::size_t kMaxRequestBytes = 32 * 1024 * 1024;

struct FrameLength {
    // Bytes of the whole request; at least those that say so.
    std::size_t bytes = 0;
    // Why the stated length cannot be one; empty when it can.
    std::string deviation;
};

// Nothing while the bytes that tell are not there. The first four bytes are the code.
[[nodiscard]] std::optional<FrameLength> LengthOf(RequestForm form,
                                                  std::span<const std::byte> received);

// Bytes in front of the items, and where the item count stands (nothing where there is none).
[[nodiscard]] std::size_t HeaderBytes(RequestForm form);
[[nodiscard]] std::optional<std::size_t> CountOffset(RequestForm form);

}  // namespace quorvi::phone
