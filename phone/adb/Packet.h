// The messages of adb's transport protocol, as pure functions over bytes. All words are
// little-endian: command, first argument, second argument, payload length, checksum, and the
// command's complement; then the payload.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "agent/Request.h"

namespace quorvi::phone {

// A command is its four letters, the first one lowest.
[[nodiscard]] constexpr std::uint32_t FourLetters(std::string_view letters) {
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        word |= static_cast<std::uint32_t>(static_cast<unsigned char>(letters[i])) << (8 * i);
    }
    return word;
}

inline constexpr std::uint32_t kConnect = FourLetters("CNXN");
inline constexpr std::uint32_t kAuth = FourLetters("AUTH");
inline constexpr std::uint32_t kOpen = FourLetters("OPEN");
inline constexpr std::uint32_t kOkay = FourLetters("OKAY");
inline constexpr std::uint32_t kWrite = FourLetters("WRTE");
inline constexpr std::uint32_t kClose = FourLetters("CLSE");

// What an AUTH carries, by its first argument: the phone's token, the server's signature of it, and
// the server's public key, which the phone shows to its user.
inline constexpr std::uint32_t kAuthToken = 1;
inline constexpr std::uint32_t kAuthSignature = 2;
inline constexpr std::uint32_t kAuthPublicKey = 3;
inline constexpr std::size_t kAuthTokenBytes = 20;

inline constexpr std::size_t kPacketHeaderBytes = 24;

// The version whose messages carry the sum of their payload's bytes, and the one that leaves it 0.
inline constexpr std::uint32_t kVersionWithChecksum = 0x01000000;
inline constexpr std::uint32_t kVersionWithoutChecksum = 0x01000001;

// Largest payload of either version.
inline constexpr std::uint32_t kOldMaxPayload = 4096;
inline constexpr std::uint32_t kMaxPayload = 1024 * 1024;

struct Packet {
    std::uint32_t command = 0;
    std::uint32_t arg0 = 0;
    std::uint32_t arg1 = 0;
    Bytes payload;
};

// The sum of the bytes, modulo 2^32.
[[nodiscard]] std::uint32_t PayloadChecksum(std::span<const std::byte> payload);

// The 24 bytes in front of a payload.
[[nodiscard]] Bytes PacketHeader(std::uint32_t command, std::uint32_t arg0, std::uint32_t arg1,
                                 std::span<const std::byte> payload, std::uint32_t version);

// Header and payload.
[[nodiscard]] Bytes EncodePacket(const Packet& packet, std::uint32_t version);

enum class PacketFault { none, badMagic, payloadTooLong, badChecksum };

// Takes packets off a stream of bytes that may be cut anywhere. After a fault nothing more is read.
class PacketReader {
  public:
    void Feed(std::span<const std::byte> bytes);
    // Nothing when the bytes of the next packet are not all there, or after a fault.
    [[nodiscard]] std::optional<Packet> Take();
    [[nodiscard]] PacketFault Fault() const { return fault_; }
    // Whether payloads are held against their sums.
    void SetVersion(std::uint32_t version) { version_ = version; }

  private:
    Bytes pending_;
    std::size_t taken_ = 0;
    PacketFault fault_ = PacketFault::none;
    std::uint32_t version_ = kVersionWithoutChecksum;
};

// Little-endian words, for the services that adb defines on top.
void AppendLittleEndian(Bytes& out, std::uint32_t word);
[[nodiscard]] std::uint32_t ReadLittleEndian(const std::byte* in);

}  // namespace quorvi::phone
