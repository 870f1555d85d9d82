// The focus ring: seen after a key, not after a click.
#pragma once

#include <QObject>
#include <QPointer>
#include <QRectF>

class QWidget;

namespace quorvi {

// What a control tells of the ring around it while it, or what is in it, has the focus. A control
// whose ring lies inside itself paints it when FocusRing::ShownOn says so, and is no RingShape or
// gives an empty rectangle.
class RingShape {
  public:
    virtual ~RingShape() = default;
    // What the ring goes around, in the control's coordinates.
    [[nodiscard]] virtual QRectF RingRect() const = 0;
    [[nodiscard]] virtual qreal RingRadius() const = 0;
};

// Watches the application's keys, clicks and focus, and lays one frame a window around the control
// that has the focus. Made once by ApplyLook.
class FocusRing : public QObject {
    Q_OBJECT
  public:
    explicit FocusRing(QObject* parent);
    ~FocusRing() override;

    // Whether `widget` has the focus and the ring is to be seen.
    [[nodiscard]] static bool ShownOn(const QWidget* widget);
    // Shows the ring from now on, as after a key: what a question calls when it opens, so that its
    // default answer can be seen.
    static void Show();

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void Set(bool shown);
    void Update();

    bool shown_ = false;
    QPointer<QWidget> repainted_;
};

}  // namespace quorvi
