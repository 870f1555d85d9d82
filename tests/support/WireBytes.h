// Bytes of the agent's protocol, field by field: replies for a reader, and what a request must be.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "agent/Reply.h"
#include "agent/Request.h"
#include "agent/Wire.h"

namespace quorvi {

class WireBytes {
  public:
    WireBytes& U32(std::uint32_t value) {
        std::byte out[4];
        PackUInt32(value, out);
        return Add(out);
    }
    WireBytes& U64(std::uint64_t value) {
        std::byte out[8];
        PackUInt64(value, out);
        return Add(out);
    }
    // A string field of these bytes.
    WireBytes& Text(std::string_view bytes) {
        return U32(static_cast<std::uint32_t>(bytes.size())).Raw(bytes);
    }
    WireBytes& Absent() { return U32(AbsentMark); }
    WireBytes& Raw(std::string_view bytes) { return Add(std::as_bytes(std::span(bytes))); }
    WireBytes& Add(std::span<const std::byte> bytes) {
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
        return *this;
    }

    [[nodiscard]] const Bytes& Get() const { return bytes_; }
    [[nodiscard]] ReplyBuffer Buffer() const { return ReplyBuffer::Holding(bytes_); }
    [[nodiscard]] std::shared_ptr<const ReplyBuffer> Shared() const {
        return std::make_shared<const ReplyBuffer>(Buffer());
    }
    // As a connection leaves it that was closed after `came` of the payload's bytes.
    [[nodiscard]] ReplyBuffer CutAfter(std::size_t came) const {
        ReplyBuffer reply(static_cast<std::uint32_t>(bytes_.size()));
        const auto first = std::span(bytes_).first(came);
        std::copy(first.begin(), first.end(), reply.Room().begin());
        reply.Commit(came);
        return reply;
    }

  private:
    Bytes bytes_;
};

}  // namespace quorvi
