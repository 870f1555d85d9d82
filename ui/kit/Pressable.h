// A stock button whose presses go through the kit's state machine.
#pragma once

#include <QAbstractButton>
#include <QEnterEvent>
#include <QMouseEvent>

#include "ui/kit/PressMachine.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Look.h"

namespace quorvi {

// `Base` is a QAbstractButton: it keeps the keyboard, the focus, the check state and the
// accessibility; the mouse is the machine's. A click flips the check state first and is told to the
// parent (`clicked`) second.
template <typename Base>
class Pressable : public Base, public RingShape {
  public:
    explicit Pressable(QWidget* parent) : Base(parent) {
        this->setMouseTracking(true);
        this->setCursor(Qt::PointingHandCursor);
    }

    [[nodiscard]] QRectF RingRect() const override { return this->rect(); }
    [[nodiscard]] qreal RingRadius() const override { return look::Metric::radius; }

  protected:
    [[nodiscard]] look::ButtonState LookState() const {
        using Stage = look::ButtonState::Stage;
        auto stage = static_cast<Stage>(machine_.Current());
        if (this->isDown()) {
            stage = Stage::pressed;  // by key as well
        }
        return {stage, this->isEnabled(), FocusRing::ShownOn(this)};
    }

    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() != Qt::LeftButton || !Inside(event)) {
            event->ignore();
            return;
        }
        machine_.Down();
        Follow();
        event->accept();
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void mouseMoveEvent(QMouseEvent* event) override {
        machine_.Move(Inside(event));
        Follow();
        event->accept();
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() != Qt::LeftButton) {
            event->ignore();
            return;
        }
        const bool click = machine_.Up(Inside(event));
        Follow();
        event->accept();
        if (click) {
            this->click();
        }
    }
    void enterEvent(QEnterEvent* event) override {
        machine_.Move(this->rect().contains(event->position().toPoint()));
        Follow();
    }
    void leaveEvent(QEvent* event) override {
        End();
        Base::leaveEvent(event);
    }
    void hideEvent(QHideEvent* event) override {
        End();
        Base::hideEvent(event);
    }
    void changeEvent(QEvent* event) override {
        if (event->type() == QEvent::EnabledChange && !this->isEnabled()) {
            End();
        }
        Base::changeEvent(event);
    }

  private:
    [[nodiscard]] bool Inside(const QMouseEvent* event) const {
        return this->rect().contains(event->position().toPoint());
    }
    void End() {
        machine_.Leave();
        Follow();
    }
    void Follow() {
        this->setDown(machine_.Current() == PressMachine::State::pressed);
        this->update();
    }

    PressMachine machine_;
};

}  // namespace quorvi
