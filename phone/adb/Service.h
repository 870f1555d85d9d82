// What a stream of adb's transport carries: a service on the phone's side, and where its output
// goes.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "phone/Channel.h"

namespace quorvi::phone {

// The way out of a service to whoever opened it: a stream of the transport, or a plain TCP
// connection. Bytes wait inside until the peer takes them.
class Sink {
  public:
    virtual ~Sink() = default;
    virtual void Write(SharedBytes bytes) = 0;
    void Write(Bytes bytes) { Write(Share(std::move(bytes))); }
    // Ends the stream once all that was written is out.
    virtual void Close() = 0;
    // Ends the stream at once, dropping what waits; on a plain connection the peer sees a reset.
    virtual void Abort() = 0;
    // Pulls the cable: drops the whole transport, or does as Abort on a plain connection.
    virtual void DropTransport() = 0;
};

class Service {
  public:
    virtual ~Service() = default;
    // Bytes from the peer.
    virtual void OnBytes(std::span<const std::byte> bytes) = 0;
    // All that was written has gone out.
    virtual void OnDrained() {}
    // The peer has closed; the sink takes nothing any more and the service is destroyed soon.
    virtual void OnPeerClosed() {}
};

// Makes the service of that name ("shell:getprop"); nothing when the phone has none.
using OpenService = std::function<std::unique_ptr<Service>(std::string_view name, Sink& sink)>;

}  // namespace quorvi::phone
