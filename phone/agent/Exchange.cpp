#include "phone/agent/Exchange.h"

#include <fmt/format.h>

#include "base/ByteText.h"
#include "phone/adb/Packet.h"

namespace quorvi::phone {
namespace {

// The word in front of a payload's fields, which no reader looks at.
constexpr std::uint32_t kLeadingWord = 0x51564C57;

constexpr std::size_t kWordBytes = 4;

}  // namespace

void Exchange::ExpectOneItem() {
    if (items != 1) {
        Deviate(fmt::format("item count {} for a single object", items));
    }
}

std::span<const std::byte> RequestReader::Take(std::size_t count) {
    if (count > rest_.size()) {
        overran_ = true;
        rest_ = {};
        return {};
    }
    const auto taken = rest_.first(count);
    rest_ = rest_.subspan(count);
    return taken;
}

std::uint8_t RequestReader::Byte() {
    const auto bytes = Take(1);
    return bytes.empty() ? std::uint8_t{0} : std::to_integer<std::uint8_t>(bytes[0]);
}

std::uint32_t RequestReader::UInt32() {
    const auto bytes = Take(sizeof(std::uint32_t));
    return bytes.empty() ? 0 : ReadUInt32(bytes.data());
}

std::uint64_t RequestReader::UInt64() {
    const auto bytes = Take(sizeof(std::uint64_t));
    return bytes.empty() ? 0 : ReadUInt64(bytes.data());
}

std::string RequestReader::Text() {
    return std::string(AsText(Take(UInt32())));
}

void ReplyWriter::BeginPayload() {
    if (reply_.bytes.empty()) {
        reply_.hasPayload = true;
        reply_.bytes.resize(2 * kWordBytes);
        PackUInt32(kLeadingWord, reply_.bytes.data() + kWordBytes);
    }
}

ReplyWriter& ReplyWriter::UInt32(std::uint32_t value) {
    BeginPayload();
    const std::size_t at = reply_.bytes.size();
    reply_.bytes.resize(at + sizeof value);
    PackUInt32(value, reply_.bytes.data() + at);
    return *this;
}

ReplyWriter& ReplyWriter::UInt64(std::uint64_t value) {
    BeginPayload();
    const std::size_t at = reply_.bytes.size();
    reply_.bytes.resize(at + sizeof value);
    PackUInt64(value, reply_.bytes.data() + at);
    return *this;
}

ReplyWriter& ReplyWriter::Text(std::string_view utf8) {
    BeginPayload();
    reply_.strings.push_back({reply_.bytes.size(), static_cast<std::uint32_t>(utf8.size())});
    return Blob(std::as_bytes(std::span(utf8)));
}

ReplyWriter& ReplyWriter::AbsentText() {
    return UInt32(AbsentMark);
}

ReplyWriter& ReplyWriter::Blob(std::span<const std::byte> bytes) {
    UInt32(static_cast<std::uint32_t>(bytes.size()));
    return Raw(bytes);
}

ReplyWriter& ReplyWriter::Raw(std::span<const std::byte> bytes) {
    BeginPayload();
    reply_.bytes.insert(reply_.bytes.end(), bytes.begin(), bytes.end());
    return *this;
}

AgentReply ReplyWriter::Take() {
    if (word_) {
        reply_ = {Bytes(kWordBytes), false, {}};
        PackUInt32(*word_, reply_.bytes.data());
    } else if (!reply_.hasPayload) {
        reply_ = {Bytes(kWordBytes), false, {}};
        PackUInt32(NoDataMark, reply_.bytes.data());
    } else {
        PackUInt32(static_cast<std::uint32_t>(reply_.bytes.size() - kWordBytes),
                   reply_.bytes.data());
    }
    return std::move(reply_);
}

}  // namespace quorvi::phone
