// Pictures inside the records of a reply: photos, thumbnails and icons.
#pragma once

#include <cstddef>
#include <cstdint>

#include "agent/Reply.h"

namespace quorvi {

// A longer picture is dropped. Bytes.
inline constexpr std::size_t kPictureCapacity = 262'244;

// Moves past a picture behind its length of 64 bits, of which only the low 32 count, and gives that
// length.
inline std::uint32_t SkipPicture(ReplyCursor& cursor) {
    const auto length = static_cast<std::uint32_t>(cursor.TakeUInt64());
    cursor.SkipBytes(length);
    return length;
}

// The same, and takes it: an image file in any format, whose bytes are not copied. Nothing for a
// picture that is too long or not all there.
[[nodiscard]] inline ReplyBytes TakePicture(ReplyCursor& cursor, const SharedReply& reply) {
    const std::uint32_t length = SkipPicture(cursor);
    if (cursor.IsCut() || length > kPictureCapacity) {
        return {};
    }
    return {reply, {reply->Data() + (cursor.Offset() - length), length}};
}

}  // namespace quorvi
