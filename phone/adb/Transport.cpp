#include "phone/adb/Transport.h"

#include <algorithm>
#include <deque>
#include <utility>

#include "base/ByteText.h"

namespace quorvi::phone {

// One stream. The peer must say OKAY to each message before the next one goes out.
class Transport::Stream : public Sink {
  public:
    Stream(Transport& transport, std::uint32_t localId, std::uint32_t remoteId)
        : transport_(transport), localId_(localId), remoteId_(remoteId) {}

    void SetService(std::unique_ptr<Service> service) { service_ = std::move(service); }
    [[nodiscard]] std::uint32_t LocalId() const { return localId_; }
    [[nodiscard]] std::uint32_t RemoteId() const { return remoteId_; }

    using Sink::Write;
    void Write(SharedBytes bytes) override {
        if (!closing_ && !over_ && !bytes->empty()) {
            waiting_.push_back({std::move(bytes), 0});
            Pump();
        }
    }

    void Close() override {
        closing_ = true;
        Pump();
    }

    void Abort() override {
        waiting_.clear();
        Finish();
    }

    void DropTransport() override { transport_.Drop(); }

    void OnOkay() {
        if (!ready_) {
            ready_ = true;
            Pump();
        }
    }

    void OnBytes(std::span<const std::byte> bytes) {
        if (service_ && !over_) {
            service_->OnBytes(bytes);
        }
    }

    // The peer has closed, or the transport is over.
    void OnPeerClosed() {
        if (!std::exchange(over_, true)) {
            waiting_.clear();
            if (service_) {
                service_->OnPeerClosed();
            }
        }
    }

  private:
    struct Piece {
        SharedBytes bytes;
        std::size_t offset;
    };

    void Pump() {
        if (over_ || !ready_) {
            return;
        }
        if (waiting_.empty()) {
            if (closing_) {
                Finish();
            }
            return;
        }
        Piece& piece = waiting_.front();
        const std::size_t count =
            std::min<std::size_t>(piece.bytes->size() - piece.offset, transport_.maxPayload_);
        ready_ = false;
        transport_.SendPiece(*this, piece.bytes, piece.offset, count);
        piece.offset += count;
        if (piece.offset == piece.bytes->size()) {
            waiting_.pop_front();
            if (waiting_.empty() && !closing_ && service_) {
                service_->OnDrained();
            }
        }
    }

    void Finish() {
        if (!std::exchange(over_, true)) {
            transport_.Send(kClose, localId_, remoteId_);
            transport_.Retire(localId_);
        }
    }

    Transport& transport_;
    std::uint32_t localId_;
    std::uint32_t remoteId_;
    std::unique_ptr<Service> service_;
    std::deque<Piece> waiting_;
    bool ready_ = false;
    bool closing_ = false;
    bool over_ = false;
};

Transport::Transport(EventLoop& loop, TcpSocket socket, Setup setup)
    : loop_(loop), setup_(std::move(setup)), channel_(loop, std::move(socket)) {
    channel_.Start({.bytes = [this](auto bytes) { OnBytes(bytes); }, .gone = [this] { OnGone(); }});
}

Transport::~Transport() {
    *self_ = nullptr;
}

void Transport::Drop() {
    if (!over_) {
        channel_.Close();
        OnGone();
    }
}

void Transport::OnGone() {
    if (std::exchange(over_, true)) {
        return;
    }
    for (const auto& [id, stream] : streams_) {
        stream->OnPeerClosed();
    }
    setup_.gone();
}

void Transport::OnBytes(std::span<const std::byte> bytes) {
    reader_.Feed(bytes);
    while (!over_) {
        const auto packet = reader_.Take();
        if (!packet) {
            break;
        }
        OnPacket(*packet);
    }
    if (reader_.Fault() != PacketFault::none) {
        Drop();
    }
}

void Transport::OnPacket(const Packet& packet) {
    if (packet.command == kConnect) {
        OnConnect(packet);
    } else if (packet.command == kAuth) {
        OnAuth(packet);
    } else if (!connected_) {
        return;
    } else if (packet.command == kOpen) {
        OnOpen(packet);
    } else if (packet.command == kWrite) {
        OnWrite(packet);
    } else if (packet.command == kOkay) {
        if (Stream* stream = Find(packet)) {
            stream->OnOkay();
        }
    } else if (packet.command == kClose) {
        if (Stream* stream = Find(packet)) {
            stream->OnPeerClosed();
            Retire(stream->LocalId());
        }
    }
    // Anything else (the server's offer to encrypt) needs no answer.
}

void Transport::OnConnect(const Packet& packet) {
    version_ = std::min(setup_.version, packet.arg0);
    maxPayload_ = std::clamp(packet.arg1, std::uint32_t{1}, OwnMaxPayload());
    reader_.SetVersion(version_);
    greeted_ = true;
    if (setup_.debugging == Debugging::allowed) {
        Greet();
    } else if (setup_.debugging == Debugging::asks) {
        AskForSignature();
    }
}

// Each signature is of a key that the phone does not know; behind the last one comes the public
// key, about which it asks its user.
void Transport::OnAuth(const Packet& packet) {
    if (setup_.debugging == Debugging::asks && packet.arg0 == kAuthSignature) {
        AskForSignature();
    }
}

void Transport::AskForSignature() {
    channel_.Write(EncodePacket({kAuth, kAuthToken, 0, Bytes(kAuthTokenBytes, std::byte{0x5a})},
                                kVersionWithChecksum));
}

void Transport::Allow() {
    setup_.debugging = Debugging::allowed;
    if (greeted_ && !connected_ && !over_) {
        Greet();
    }
}

void Transport::Greet() {
    connected_ = true;
    // The answer always carries its sum, as the server does not know our version yet.
    channel_.Write(EncodePacket({kConnect, setup_.version, OwnMaxPayload(), ToBytes(setup_.banner)},
                                kVersionWithChecksum));
}

void Transport::OnOpen(const Packet& packet) {
    const std::uint32_t remoteId = packet.arg0;
    std::string_view name = AsText(packet.payload);
    name = name.substr(0, name.find('\0'));
    if (remoteId == 0 || streams_.size() >= kMaxStreams) {
        Send(kClose, 0, remoteId);
        return;
    }
    const std::uint32_t localId = ++lastLocalId_;
    auto stream = std::make_unique<Stream>(*this, localId, remoteId);
    auto service = setup_.openService(name, *stream);
    if (!service) {
        Send(kClose, 0, remoteId);
        return;
    }
    stream->SetService(std::move(service));
    Stream& opened = *stream;
    streams_.emplace(localId, std::move(stream));
    Send(kOkay, localId, remoteId);
    opened.OnOkay();
}

void Transport::OnWrite(const Packet& packet) {
    if (Stream* stream = Find(packet)) {
        const std::uint32_t localId = stream->LocalId();
        const std::uint32_t remoteId = stream->RemoteId();
        stream->OnBytes(packet.payload);
        if (!over_) {
            Send(kOkay, localId, remoteId);
        }
    } else {
        Send(kClose, 0, packet.arg0);
    }
}

Transport::Stream* Transport::Find(const Packet& packet) {
    const auto found = streams_.find(packet.arg1);
    return found != streams_.end() && found->second->RemoteId() == packet.arg0 ? found->second.get()
                                                                               : nullptr;
}

void Transport::Send(std::uint32_t command, std::uint32_t arg0, std::uint32_t arg1) {
    channel_.Write(PacketHeader(command, arg0, arg1, {}, version_));
}

void Transport::SendPiece(const Stream& stream, const SharedBytes& bytes, std::size_t offset,
                          std::size_t count) {
    channel_.Write(PacketHeader(kWrite, stream.LocalId(), stream.RemoteId(),
                                std::span(*bytes).subspan(offset, count), version_));
    channel_.Write(bytes, offset, count);
}

void Transport::Retire(std::uint32_t localId) {
    // Not at once: the stream may be what is calling.
    loop_.Post([self = self_, localId] {
        if (Transport* transport = *self) {
            transport->streams_.erase(localId);
        }
    });
}

}  // namespace quorvi::phone
