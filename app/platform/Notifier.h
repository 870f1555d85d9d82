// Notices of the desktop itself, where there is no tray to show a balloon.
#pragma once

#include <QString>
#include <functional>

namespace quorvi {

// The window's thread.
class Notifier {
  public:
    virtual ~Notifier() = default;
    // Shows a notice, or calls `failed` on the window's thread when the desktop shows none. Returns
    // at once.
    virtual void Notify(const QString& title, const QString& text,
                        std::function<void()> failed) = 0;
    // `clicked` is called on the window's thread when the user clicks a notice.
    virtual void Listen(std::function<void()> clicked) = 0;
};

}  // namespace quorvi
