// One window for a user and display: how a second start finds the first.
#pragma once

#include <QLocalServer>
#include <QString>
#include <functional>

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

// By a local socket in the user's runtime folder. A connection is the whole message: no byte is
// sent. Two starts at the same instant can both run: the second socket is not made then.
class LocalSocketInstance : public RunningInstance {
  public:
    // The socket of this user and display.
    LocalSocketInstance();
    // `socketPath`: a full path.
    explicit LocalSocketInstance(QString socketPath);

    [[nodiscard]] bool ShowOther() override;
    void Announce(std::function<void()> show) override;
    void Withdraw() override;

  private:
    QString socketPath_;
    QLocalServer server_;
    std::function<void()> show_;
};

}  // namespace quorvi
