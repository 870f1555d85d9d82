// The agent without adb in between: a TCP connection straight to it, for tests.
#pragma once

#include <functional>
#include <memory>

#include "phone/adb/Service.h"

namespace quorvi::phone {

class PlainConnection : public Sink {
  public:
    PlainConnection(EventLoop& loop, TcpSocket socket, std::function<void()> gone);
    void Start(std::unique_ptr<Service> service);

    using Sink::Write;
    void Write(SharedBytes bytes) override;
    void Close() override;
    void Abort() override;
    void DropTransport() override { Abort(); }

  private:
    void OnDrained();
    void End();

    Channel channel_;
    std::function<void()> gone_;
    std::unique_ptr<Service> service_;
    bool closing_ = false;
    bool waiting_ = false;
};

}  // namespace quorvi::phone
