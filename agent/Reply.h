// What a session brings back, and how it is read: never outside the bytes that came, whatever
// lengths the reply states.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "agent/Wire.h"
#include "base/os/MappedMemory.h"

namespace quorvi {

// The payload of a reply: Length() bytes, of which the first Received() came from the phone and the
// rest (a reply that was cut) are zero. The memory grows with the bytes that arrive, not with the
// length that the peer claims. Moves only; rows that keep parts of it share it: see SharedReply.
class ReplyBuffer {
  public:
    ReplyBuffer() = default;
    // A buffer for `length` bytes, of which none has come. Not valid (Length() 0) when the address
    // space cannot hold it.
    explicit ReplyBuffer(std::uint32_t length);
    ReplyBuffer(ReplyBuffer&& other) noexcept;
    ReplyBuffer& operator=(ReplyBuffer&& other) noexcept;
    // A buffer that holds these bytes: for tests and fuzzers.
    static ReplyBuffer Holding(std::span<const std::byte> bytes);

    [[nodiscard]] std::uint32_t Length() const { return length_; }
    [[nodiscard]] std::uint32_t Received() const { return received_; }
    [[nodiscard]] const std::byte* Data() const { return memory_.Bytes().data(); }

    // Room behind what has been received; Commit counts bytes written there.
    [[nodiscard]] std::span<std::byte> Room();
    void Commit(std::size_t count);

  private:
    MappedMemory memory_;
    std::uint32_t length_ = 0;
    std::uint32_t received_ = 0;
};

// A reply that rows keep parts of: none of its bytes is copied, and all are freed with the last
// row.
using SharedReply = std::shared_ptr<const ReplyBuffer>;
[[nodiscard]] inline SharedReply ShareReply(ReplyBuffer buffer) {
    return std::make_shared<const ReplyBuffer>(std::move(buffer));
}

// Bytes that lie in a reply, such as a photo or an icon. They are not copied: whoever holds them
// holds on to the whole reply.
//
//   if (const auto photo = cursor.TakeBlob()) record.photo = {reply, *photo};
class ReplyBytes {
  public:
    ReplyBytes() = default;
    // `bytes` lie in `reply`; of none, nothing is held.
    ReplyBytes(const SharedReply& reply, std::span<const std::byte> bytes);

    [[nodiscard]] std::span<const std::byte> Bytes() const { return {start_.get(), length_}; }
    [[nodiscard]] bool Empty() const { return length_ == 0; }

  private:
    std::shared_ptr<const std::byte> start_;
    std::uint32_t length_ = 0;
};

// An offset into a reply that moves through its fields, starting behind the leading word.
//
// Nothing is read outside the buffer: a field that would reach past its end reads as empty, the
// cursor goes to the end, and Overran() is true from then on, so that the record which asked for it
// is dropped like a run that is over.
class ReplyCursor {
  public:
    explicit ReplyCursor(const ReplyBuffer& reply);

    // Copy n bytes to dest and move on; move on only.
    void TakeBytes(void* dest, std::size_t n);
    void SkipBytes(std::size_t n);

    [[nodiscard]] std::uint32_t TakeUInt32();
    [[nodiscard]] std::int32_t TakeInt32() { return static_cast<std::int32_t>(TakeUInt32()); }
    [[nodiscard]] std::uint64_t TakeUInt64();
    // A flag: only 1 counts as set.
    [[nodiscard]] bool TakeFlag() { return TakeUInt32() == 1; }
    // The low 32 bits of an identifier of 64: what all commands name a thing by.
    [[nodiscard]] std::uint32_t TakeId() { return static_cast<std::uint32_t>(TakeUInt64()); }

    // A string as it came (UTF-8), shared with the buffer; nothing for AbsentMark.
    [[nodiscard]] std::optional<std::string_view> TakeUtf8();
    // A string in ANSI; nothing for AbsentMark.
    [[nodiscard]] std::optional<std::string> TakeText();
    // A string in ANSI; empty for AbsentMark.
    [[nodiscard]] std::string TakeTextOrEmpty() { return TakeText().value_or(std::string()); }
    // A blob, shared with the buffer; nothing for AbsentMark.
    [[nodiscard]] std::optional<std::span<const std::byte>> TakeBlob();
    // Move past a string or blob, absent ones included.
    void SkipText();

    // The end test of a run of records, made after each record and not before the first: true if
    // cursor + 1 is at least the length, as signed 32-bit numbers; also when the cursor has passed
    // the bytes that really came, or Overran().
    [[nodiscard]] bool AtEnd() const;
    [[nodiscard]] bool Overran() const { return overran_; }
    // True when the last field read is not all there: the reply was cut inside it or before it, or
    // Overran(). An id of which half came would name another thing.
    [[nodiscard]] bool IsCut() const { return overran_ || cursor_ > received_; }
    [[nodiscard]] std::size_t Offset() const { return cursor_; }

  private:
    [[nodiscard]] bool Has(std::size_t n);

    const std::byte* data_;
    std::size_t length_;
    std::size_t received_;
    std::size_t cursor_;
    bool overran_ = false;
};

}  // namespace quorvi
