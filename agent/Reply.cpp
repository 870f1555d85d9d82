#include "agent/Reply.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "agent/Wire.h"
#include "base/ByteText.h"
#include "base/Text.h"

namespace quorvi {

ReplyBuffer::ReplyBuffer(std::uint32_t length)
    : memory_(MappedMemory::Zeroed(length)), length_(memory_.Empty() ? 0 : length) {}

ReplyBuffer::ReplyBuffer(ReplyBuffer&& other) noexcept
    : memory_(std::move(other.memory_)),
      length_(std::exchange(other.length_, 0)),
      received_(std::exchange(other.received_, 0)) {}

ReplyBuffer& ReplyBuffer::operator=(ReplyBuffer&& other) noexcept {
    memory_ = std::move(other.memory_);
    length_ = std::exchange(other.length_, 0);
    received_ = std::exchange(other.received_, 0);
    return *this;
}

ReplyBuffer ReplyBuffer::Holding(std::span<const std::byte> bytes) {
    ReplyBuffer reply(static_cast<std::uint32_t>(bytes.size()));
    if (reply.Length() == bytes.size()) {
        std::copy(bytes.begin(), bytes.end(), reply.Room().begin());
        reply.Commit(bytes.size());
    }
    return reply;
}

std::span<std::byte> ReplyBuffer::Room() {
    return memory_.Writable().subspan(received_);
}

void ReplyBuffer::Commit(std::size_t count) {
    received_ += static_cast<std::uint32_t>(std::min<std::size_t>(count, length_ - received_));
}

ReplyBytes::ReplyBytes(const SharedReply& reply, std::span<const std::byte> bytes)
    : start_(bytes.empty() ? nullptr : std::shared_ptr<const std::byte>(reply, bytes.data())),
      length_(static_cast<std::uint32_t>(bytes.size())) {}

ReplyCursor::ReplyCursor(const ReplyBuffer& reply)
    : data_(reply.Data()),
      length_(reply.Length()),
      received_(reply.Received()),
      cursor_(std::min<std::size_t>(kPayloadStart, length_)) {}

bool ReplyCursor::Has(std::size_t n) {
    if (overran_ || n > length_ - cursor_) {
        overran_ = true;
        cursor_ = length_;
        return false;
    }
    return true;
}

void ReplyCursor::TakeBytes(void* dest, std::size_t n) {
    if (n == 0) {
        return;  // there may be no place to copy nothing to
    }
    if (Has(n)) {
        std::memcpy(dest, data_ + cursor_, n);
        cursor_ += n;
    } else {
        std::memset(dest, 0, n);
    }
}

void ReplyCursor::SkipBytes(std::size_t n) {
    if (Has(n)) {
        cursor_ += n;
    }
}

std::uint32_t ReplyCursor::TakeUInt32() {
    std::byte word[4];
    TakeBytes(word, sizeof word);
    return ReadUInt32(word);
}

std::uint64_t ReplyCursor::TakeUInt64() {
    std::byte word[8];
    TakeBytes(word, sizeof word);
    return ReadUInt64(word);
}

std::optional<std::span<const std::byte>> ReplyCursor::TakeBlob() {
    const std::uint32_t size = TakeUInt32();
    if (size == AbsentMark) {
        return std::nullopt;
    }
    if (!Has(size)) {
        return std::span<const std::byte>{};
    }
    const std::size_t start = cursor_;
    cursor_ += size;
    // Of a field in which a cut reply ends, only the bytes that came are handed out.
    const std::size_t came = std::clamp(received_, start, cursor_) - start;
    return std::span(data_ + start, came);
}

std::optional<std::string_view> ReplyCursor::TakeUtf8() {
    const auto blob = TakeBlob();
    if (!blob) {
        return std::nullopt;
    }
    return AsText(*blob);
}

std::optional<std::string> ReplyCursor::TakeText() {
    const auto utf8 = TakeUtf8();
    if (!utf8) {
        return std::nullopt;
    }
    return ToAnsi(*utf8);
}

void ReplyCursor::SkipText() {
    static_cast<void>(TakeBlob());
}

bool ReplyCursor::AtEnd() const {
    return overran_ || cursor_ >= received_ ||
           static_cast<std::int32_t>(cursor_ + 1) >= static_cast<std::int32_t>(length_);
}

}  // namespace quorvi
