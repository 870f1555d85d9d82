// Press and click, the state machine of every toggle and button of the kit.
#pragma once

namespace quorvi {

// Knows nothing of widgets: it hears of the mouse and says what to show and when a click happened.
class PressMachine {
  public:
    enum class State { normal = 0, hover = 1, pressed = 2 };

    [[nodiscard]] State Current() const { return state_; }

    // Left button down; the mouse is captured until Up.
    void Down() {
        state_ = State::pressed;
        previous_ = State::pressed;
    }

    // The mouse moved. A press that leaves the control looks hovered, and pressed again when it
    // comes back; without a press, the inside is hovered and the outside leaves things unchanged.
    void Move(bool inside) {
        if (state_ == State::pressed) {
            if (!inside) {
                state_ = State::hover;
            }
        } else if (previous_ == State::pressed && state_ == State::hover) {
            if (inside) {
                state_ = State::pressed;
            }
        } else if (inside) {
            state_ = State::hover;
        }
    }

    // Left button up; the capture ends. True when this was a click: the press began here and the
    // cursor is inside. The state is normal afterwards, until the mouse moves again.
    [[nodiscard]] bool Up(bool inside) {
        const bool click = previous_ == State::pressed && inside;
        state_ = State::normal;
        previous_ = State::normal;
        return click;
    }

    // The mouse left, or the control went away under it: a press under way is over.
    void Leave() {
        state_ = State::normal;
        previous_ = State::normal;
    }

  private:
    State state_ = State::normal;
    State previous_ = State::normal;  // pressed from Down to Up, wherever the cursor goes
};

}  // namespace quorvi
