#include "phone/PlainConnection.h"

#include <utility>

namespace quorvi::phone {

PlainConnection::PlainConnection(EventLoop& loop, TcpSocket socket, std::function<void()> gone)
    : channel_(loop, std::move(socket)), gone_(std::move(gone)) {}

void PlainConnection::Start(std::unique_ptr<Service> service) {
    service_ = std::move(service);
    channel_.Start({.bytes = [this](auto bytes) { service_->OnBytes(bytes); },
                    .drained = [this] { OnDrained(); },
                    .gone =
                        [this] {
                            service_->OnPeerClosed();
                            gone_();
                        }});
}

void PlainConnection::Write(SharedBytes bytes) {
    if (!closing_ && !bytes->empty()) {
        waiting_ = true;
        const std::size_t count = bytes->size();
        channel_.Write(std::move(bytes), 0, count);
    }
}

void PlainConnection::OnDrained() {
    waiting_ = false;
    if (closing_) {
        End();
    } else {
        service_->OnDrained();
    }
}

void PlainConnection::Close() {
    closing_ = true;
    if (!waiting_) {
        End();
    }
}

void PlainConnection::Abort() {
    if (channel_.IsOpen()) {
        channel_.Reset();
        gone_();
    }
}

void PlainConnection::End() {
    if (channel_.IsOpen()) {
        channel_.Close();
        gone_();
    }
}

}  // namespace quorvi::phone
