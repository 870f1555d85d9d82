#include "ui/look/FocusRing.h"

#include <QApplication>
#include <QFocusFrame>
#include <QKeyEvent>
#include <QPainter>

#include "ui/look/Look.h"

namespace quorvi {
namespace {

using look::Metric;

FocusRing*& TheRing() {
    static FocusRing* ring = nullptr;
    return ring;
}

// The frame of one window. It lies above the control, takes no mouse, and follows it.
class RingFrame : public QFocusFrame {
  public:
    explicit RingFrame(QWidget* window) : QFocusFrame(window) {
        setObjectName(QStringLiteral("focus ring"));
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        const auto* shape = dynamic_cast<const RingShape*>(widget());
        if (shape == nullptr) {
            return;
        }
        QPainter painter(this);
        const QPointF origin = mapFromGlobal(widget()->mapToGlobal(QPoint(0, 0)));
        const QRectF around = shape->RingRect().translated(origin) & Room();
        if (!around.isEmpty()) {
            look::outerRing(painter, around, shape->RingRadius());
        }
    }

  private:
    // Where a ring fits around: less than all in a page that scrolls, which cuts off what is beyond
    // its edge. There the ring lies on the control instead.
    [[nodiscard]] QRectF Room() const {
        constexpr int ring = Metric::ringGap + Metric::ringWidth;
        return parentWidget()->rect().translated(-pos()).adjusted(ring, ring, -ring, -ring);
    }
};

RingFrame* FrameOf(QWidget* window) {
    auto* frame = dynamic_cast<RingFrame*>(
        window->findChild<QFocusFrame*>(QStringLiteral("focus ring"), Qt::FindChildrenRecursively));
    return frame != nullptr ? frame : new RingFrame(window);
}

// What the ring goes around while `widget` has the focus: the widget itself, or what it is the
// inside of; null where the widget paints a ring of its own, or none.
QWidget* RingedOf(QWidget* widget) {
    for (QWidget* each = widget; each != nullptr; each = each->parentWidget()) {
        if (const auto* shape = dynamic_cast<const RingShape*>(each)) {
            return shape->RingRect().isEmpty() ? nullptr : each;
        }
    }
    return nullptr;
}

// The frame that was laid around a control last. It is not looked for again when that control loses
// the focus: it may be losing it because its window's parts are being deleted.
QPointer<RingFrame>& Worn() {
    static QPointer<RingFrame> frame;
    return frame;
}

bool IsModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt ||
           key == Qt::Key_Meta || key == Qt::Key_AltGr || key == Qt::Key_CapsLock;
}

}  // namespace

FocusRing::FocusRing(QObject* parent) : QObject(parent) {
    TheRing() = this;
    qApp->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, [this] { Update(); });
}

FocusRing::~FocusRing() {
    TheRing() = nullptr;
}

bool FocusRing::ShownOn(const QWidget* widget) {
    return TheRing() != nullptr && TheRing()->shown_ && widget->hasFocus();
}

void FocusRing::Show() {
    if (TheRing() != nullptr) {
        TheRing()->Set(true);
    }
}

bool FocusRing::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress && !IsModifier(static_cast<QKeyEvent*>(event)->key())) {
        Set(true);
    } else if (event->type() == QEvent::MouseButtonPress && object->isWidgetType()) {
        Set(false);
    }
    return QObject::eventFilter(object, event);
}

void FocusRing::Set(bool shown) {
    if (shown_ != shown) {
        shown_ = shown;
        Update();
    }
}

void FocusRing::Update() {
    QWidget* widget = QApplication::focusWidget();
    if (repainted_ && repainted_ != widget && Worn()) {
        Worn()->setWidget(nullptr);
    }
    repainted_ = widget;
    if (widget == nullptr) {
        return;
    }
    RingFrame* frame = FrameOf(widget->window());
    Worn() = frame;
    frame->setWidget(shown_ ? RingedOf(widget) : nullptr);
    if (frame->widget() != nullptr) {
        frame->show();
        frame->raise();
    }
    widget->update();
}

}  // namespace quorvi
