#include "phone/adb/Packet.h"

#include <numeric>

namespace quorvi::phone {
namespace {

constexpr std::size_t kLengthOffset = 12;
constexpr std::size_t kChecksumOffset = 16;
constexpr std::size_t kMagicOffset = 20;

}  // namespace

void AppendLittleEndian(Bytes& out, std::uint32_t word) {
    for (int shift = 0; shift < 32; shift += 8) {
        out.push_back(static_cast<std::byte>(word >> shift));
    }
}

std::uint32_t ReadLittleEndian(const std::byte* in) {
    std::uint32_t word = 0;
    for (int i = 3; i >= 0; --i) {
        word = (word << 8) | static_cast<std::uint32_t>(in[i]);
    }
    return word;
}

std::uint32_t PayloadChecksum(std::span<const std::byte> payload) {
    return std::accumulate(
        payload.begin(), payload.end(), std::uint32_t{0},
        [](std::uint32_t sum, std::byte b) { return sum + std::to_integer<std::uint32_t>(b); });
}

Bytes PacketHeader(std::uint32_t command, std::uint32_t arg0, std::uint32_t arg1,
                   std::span<const std::byte> payload, std::uint32_t version) {
    Bytes out;
    AppendLittleEndian(out, command);
    AppendLittleEndian(out, arg0);
    AppendLittleEndian(out, arg1);
    AppendLittleEndian(out, static_cast<std::uint32_t>(payload.size()));
    AppendLittleEndian(out, version < kVersionWithoutChecksum ? PayloadChecksum(payload) : 0);
    AppendLittleEndian(out, ~command);
    return out;
}

Bytes EncodePacket(const Packet& packet, std::uint32_t version) {
    Bytes out = PacketHeader(packet.command, packet.arg0, packet.arg1, packet.payload, version);
    out.insert(out.end(), packet.payload.begin(), packet.payload.end());
    return out;
}

void PacketReader::Feed(std::span<const std::byte> bytes) {
    if (fault_ != PacketFault::none) {
        return;
    }
    pending_.erase(pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(taken_));
    taken_ = 0;
    pending_.insert(pending_.end(), bytes.begin(), bytes.end());
}

std::optional<Packet> PacketReader::Take() {
    const auto rest = std::span(pending_).subspan(taken_);
    if (fault_ != PacketFault::none || rest.size() < kPacketHeaderBytes) {
        return std::nullopt;
    }
    Packet packet;
    packet.command = ReadLittleEndian(rest.data());
    packet.arg0 = ReadLittleEndian(rest.data() + 4);
    packet.arg1 = ReadLittleEndian(rest.data() + 8);
    const std::uint32_t length = ReadLittleEndian(rest.data() + kLengthOffset);
    if (ReadLittleEndian(rest.data() + kMagicOffset) != ~packet.command) {
        fault_ = PacketFault::badMagic;
        return std::nullopt;
    }
    if (length > kMaxPayload) {
        fault_ = PacketFault::payloadTooLong;
        return std::nullopt;
    }
    if (rest.size() - kPacketHeaderBytes < length) {
        return std::nullopt;
    }
    const auto payload = rest.subspan(kPacketHeaderBytes, length);
    // Whether messages carry sums is agreed on by the connect message, so its own is not checked.
    if (version_ < kVersionWithoutChecksum && packet.command != kConnect &&
        ReadLittleEndian(rest.data() + kChecksumOffset) != PayloadChecksum(payload)) {
        fault_ = PacketFault::badChecksum;
        return std::nullopt;
    }
    packet.payload.assign(payload.begin(), payload.end());
    taken_ += kPacketHeaderBytes + length;
    return packet;
}

}  // namespace quorvi::phone
