// One window for a user and display: how a second start finds the first.
#pragma once

#include <QLocalServer>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

#include "base/Places.h"

namespace quorvi {

class RunningInstance {
  public:
    virtual ~RunningInstance() = default;
    // Has the instance that runs show its window; false when none runs. Nothing is handed over, the
    // command line neither.
    [[nodiscard]] virtual bool ShowOther() = 0;
    // From here on a second start finds this one. `show` is called on the window's thread at each.
    virtual void Announce(std::function<void()> show) = 0;
    // A second start no longer finds this one.
    virtual void Withdraw() = 0;
};

// Full paths of the sockets of a user's displays, in the user's runtime folder: one for the Wayland
// display and one for the X display that the environment names, as a session has both, and what is
// started in it may know only one of them. The screen of an X display (".0") does not count.
// Without a display there is one socket.
[[nodiscard]] QStringList SocketsOfDisplays(const Environment& environment);

// By local sockets. A connection is the whole message: no byte is sent. Two starts at the same
// instant can both run: the second's sockets are not made then.
class LocalSocketInstance : public RunningInstance {
  public:
    // By the sockets of this user's displays.
    LocalSocketInstance();
    // `sockets`: full paths. An instance is found by any of them.
    explicit LocalSocketInstance(QStringList sockets);

    [[nodiscard]] bool ShowOther() override;
    void Announce(std::function<void()> show) override;
    void Withdraw() override;

  private:
    void Listen(const QString& socket);

    QStringList sockets_;
    std::vector<std::unique_ptr<QLocalServer>> servers_;
    std::function<void()> show_;
};

}  // namespace quorvi
