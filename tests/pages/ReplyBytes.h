// Replies for the tests of the pages, written field by field.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "agent/Reply.h"
#include "agent/Request.h"
#include "agent/Wire.h"

namespace quorvi {

// The bytes of a reply, field by field.
class ReplyBytes {
  public:
    ReplyBytes() { Word(0); }  // the leading word that no reader looks at

    ReplyBytes& Word(std::uint32_t value) {
        std::byte out[4];
        PackUInt32(value, out);
        bytes_.insert(bytes_.end(), out, out + sizeof out);
        return *this;
    }
    ReplyBytes& Long(std::uint64_t value) {
        std::byte out[8];
        PackUInt64(value, out);
        bytes_.insert(bytes_.end(), out, out + sizeof out);
        return *this;
    }
    ReplyBytes& Text(std::string_view utf8) {
        Word(static_cast<std::uint32_t>(utf8.size()));
        const auto raw = std::as_bytes(std::span(utf8));
        bytes_.insert(bytes_.end(), raw.begin(), raw.end());
        return *this;
    }
    ReplyBytes& Absent() { return Word(AbsentMark); }

    [[nodiscard]] ReplyBuffer Buffer() const { return ReplyBuffer::Holding(bytes_); }
    [[nodiscard]] Bytes Raw() const { return bytes_; }

  private:
    Bytes bytes_;
};

}  // namespace quorvi
