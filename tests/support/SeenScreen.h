// The X display of the test's own as its user has it: what stands on it, and the mouse. For
// programs on another platform, which under Wayland do not know where their windows are.
#pragma once

#include <xcb/xcb.h>

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QStringList>
#include <functional>
#include <memory>

namespace quorvi {

// All places are pixels of the display. The window's thread.
class SeenScreen {
  public:
    SeenScreen();

    // Whether there is a display; nothing below may be called without.
    [[nodiscard]] bool IsThere() const;
    // A picture of the desktop with all that stands on it.
    [[nodiscard]] QImage Picture() const;
    // The smallest rectangle that holds all that is not the desktop's background; empty where there
    // is nothing, or the desktop has not been painted yet.
    [[nodiscard]] QRect Standing() const;
    // The smallest rectangle around the pixels of this colour.
    [[nodiscard]] QRect Around(const QColor& colour) const;

    // Moves the pointer there, from outside the desktop.
    void EnterAt(QPoint place) const;
    // What a hand does with the mouse. A drag is made of steps, with the first button down: they
    // begin when the program has the press, and the button stays down until it was `dragged`.
    static void MoveTo(QPoint place);
    static void Press(int button = 1);
    static void Release(int button = 1);
    static void Drag(QPoint from, QPoint by, const std::function<bool()>& dragged);
    static void Click(QPoint place, int button = 1);

  private:
    struct Closed {
        void operator()(xcb_connection_t* display) const { xcb_disconnect(display); }
    };
    static void Mouse(const QStringList& words);

    std::unique_ptr<xcb_connection_t, Closed> display_;
};

}  // namespace quorvi
