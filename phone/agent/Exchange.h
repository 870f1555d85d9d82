// What a command's handler is given: the request to read, the reply to write.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "agent/Request.h"
#include "agent/Wire.h"

namespace quorvi::phone {

// Reads a request's fields, big-endian, bounded by the frame. Past the end everything reads as zero
// or empty and Overran() is true from then on.
class RequestReader {
  public:
    explicit RequestReader(std::span<const std::byte> fields) : rest_(fields) {}

    [[nodiscard]] std::uint8_t Byte();
    [[nodiscard]] std::uint32_t UInt32();
    [[nodiscard]] std::uint64_t UInt64();
    [[nodiscard]] std::string Text();

    [[nodiscard]] bool Overran() const { return overran_; }
    [[nodiscard]] std::size_t Left() const { return rest_.size(); }
    // Passes over the fields that a handler knows of and does not need.
    void SkipRest() { rest_ = {}; }

  private:
    [[nodiscard]] std::span<const std::byte> Take(std::size_t count);

    std::span<const std::byte> rest_;
    bool overran_ = false;
};

// Where a string's length word stands in a reply, and the length it states.
struct StringField {
    std::size_t offset;
    std::uint32_t length;
};

// A whole reply as it goes out, its length word (or its one word) in front.
struct AgentReply {
    Bytes bytes;
    bool hasPayload = false;
    std::vector<StringField> strings;
};

// Writes a reply: either a payload, or one word. A reply to which nothing was added is NoDataMark.
class ReplyWriter {
  public:
    ReplyWriter& UInt32(std::uint32_t value);
    ReplyWriter& UInt64(std::uint64_t value);
    ReplyWriter& Text(std::string_view utf8);
    ReplyWriter& AbsentText();
    // A u32 length and the bytes, or the bytes alone.
    ReplyWriter& Blob(std::span<const std::byte> bytes);
    ReplyWriter& Raw(std::span<const std::byte> bytes);

    // The AcknowledgeWord; no payload then.
    void Word(std::uint32_t value) { word_ = value; }

    // Whether nothing was added yet.
    [[nodiscard]] bool IsEmpty() const { return !word_ && !reply_.hasPayload; }

    void Reserve(std::size_t bytes) { reply_.bytes.reserve(bytes); }
    // The whole reply. The writer is used up.
    [[nodiscard]] AgentReply Take();

  private:
    void BeginPayload();

    AgentReply reply_;
    std::optional<std::uint32_t> word_;
};

class AgentData;

struct Exchange {
    AgentData& data;
    RequestReader& request;
    // The item count of a frame that has one.
    std::uint32_t items = 0;
    ReplyWriter& reply;
    // What the log says of it beside its frame.
    std::vector<std::string> deviations;
    std::string note;

    void Deviate(std::string what) { deviations.push_back(std::move(what)); }
    // Names any item count but 1.
    void ExpectOneItem();
};

}  // namespace quorvi::phone
