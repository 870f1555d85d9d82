// The phone's end of one connection to an adb server: the handshake and the streams.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "phone/Channel.h"
#include "phone/adb/Packet.h"
#include "phone/adb/Service.h"

namespace quorvi::phone {

// Streams that one server may hold open at once; further ones are refused.
inline constexpr std::size_t kMaxStreams = 1024;

// How a phone meets an adb server.
enum class Debugging {
    allowed,  // answers at once
    asks,     // knows none of the server's keys, and asks its user
    silent,   // does not answer
};

class Transport {
  public:
    struct Setup {
        // "device::ro.product.name=…;ro.product.model=…;ro.product.device=…;"
        std::string banner;
        // The newest version spoken, kVersionWithChecksum or kVersionWithoutChecksum.
        std::uint32_t version = kVersionWithoutChecksum;
        OpenService openService;
        Debugging debugging = Debugging::allowed;
        // The connection is over; the transport may be destroyed once this has returned and the
        // loop has come round.
        std::function<void()> gone;
    };

    Transport(EventLoop& loop, TcpSocket socket, Setup setup);
    ~Transport();
    Transport(const Transport&) = delete;
    Transport& operator=(const Transport&) = delete;

    // The user has allowed the server, or the phone has found its tongue: answers what it has not
    // answered yet.
    void Allow();

    // Ends the connection as a pulled cable does; `gone` is told.
    void Drop();

    [[nodiscard]] std::size_t StreamCount() const { return streams_.size(); }

  private:
    class Stream;

    void OnBytes(std::span<const std::byte> bytes);
    void OnPacket(const Packet& packet);
    void OnConnect(const Packet& packet);
    void OnAuth(const Packet& packet);
    void AskForSignature();
    void Greet();
    [[nodiscard]] std::uint32_t OwnMaxPayload() const {
        return setup_.version < kVersionWithoutChecksum ? kOldMaxPayload : kMaxPayload;
    }
    void OnOpen(const Packet& packet);
    void OnWrite(const Packet& packet);
    void OnGone();
    [[nodiscard]] Stream* Find(const Packet& packet);
    void Send(std::uint32_t command, std::uint32_t arg0, std::uint32_t arg1);
    void SendPiece(const Stream& stream, const SharedBytes& bytes, std::size_t offset,
                   std::size_t count);
    void Retire(std::uint32_t localId);

    EventLoop& loop_;
    Setup setup_;
    Channel channel_;
    PacketReader reader_;
    std::map<std::uint32_t, std::unique_ptr<Stream>> streams_;
    std::uint32_t lastLocalId_ = 0;
    std::uint32_t version_ = kVersionWithChecksum;
    std::uint32_t maxPayload_ = kOldMaxPayload;
    bool greeted_ = false;  // by the server
    bool connected_ = false;
    bool over_ = false;
    // Lets a task on the loop know that the transport is gone.
    std::shared_ptr<Transport*> self_ = std::make_shared<Transport*>(this);
};

}  // namespace quorvi::phone
