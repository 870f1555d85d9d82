// The icon in the desktop's tray.
#pragma once

#include <QString>
#include <functional>

namespace quorvi {

// What arrives from the icon as the last argument of Message::tray, by the numbers of the mouse
// messages. Other numbers mean nothing.
enum class TrayMouse : int { leftDown = 513, leftDouble = 515, rightDown = 516 };

// Commands of the tray menu.
enum class TrayCommand : int {
    exit = 32771,
    showWindow = 32772,
    showDownloads = 32773,
    showSettings = 32774,
};

// What the icon tells. Called on the window's thread.
struct TrayEvents {
    std::function<void(TrayMouse)> mouse;
    std::function<void(TrayCommand)> command;  // chosen in a menu that the desktop itself draws
    std::function<void()> recreated;  // a tray has come (back): the icon is to be added again
};

// The window's thread.
class Tray {
  public:
    virtual ~Tray() = default;
    virtual void Listen(TrayEvents events) = 0;
    // Whether the desktop has a tray at the moment.
    [[nodiscard]] virtual bool Available() const = 0;
    virtual void Add(const QString& tip) = 0;
    // False when this tray cannot show one.
    virtual bool ShowBalloon(const QString& title, const QString& text) = 0;
    virtual void Remove() = 0;
};

}  // namespace quorvi
