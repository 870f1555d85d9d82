#include "ui/look/RoundCorners.h"

#include <QEvent>
#include <QFrame>
#include <QPainter>
#include <QPainterPath>
#include <array>

#include "ui/look/Look.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;

class Patch : public QWidget {
  public:
    Patch(QFrame& frame, bool right, bool bottom)
        : QWidget(&frame), frame_(frame), right_(right), bottom_(bottom) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFixedSize(Metric::radius, Metric::radius);
    }

    void Place() {
        move(right_ ? frame_.width() - width() : 0, bottom_ ? frame_.height() - height() : 0);
        raise();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QRectF whole = QRectF(frame_.rect()).translated(-pos());
        painter.setRenderHint(QPainter::Antialiasing);
        QPainterPath outside;
        outside.addRect(rect());
        QPainterPath inside;
        inside.addRoundedRect(whole, Metric::radius, Metric::radius);
        const QWidget* below = frame_.parentWidget();
        const QPalette& palette = below == nullptr ? frame_.palette() : below->palette();
        painter.fillPath(outside.subtracted(inside), palette.color(QPalette::Window));
        look::plate(painter, whole, Metric::radius, Qt::transparent, look::color(Color::frame));
    }

  private:
    QFrame& frame_;
    bool right_;
    bool bottom_;
};

class Corners : public QObject {
  public:
    explicit Corners(QFrame& frame) : QObject(&frame) {
        for (std::size_t i = 0; i < patches_.size(); ++i) {
            patches_[i] = new Patch(frame, i % 2 == 1, i >= 2);
        }
        frame.installEventFilter(this);
        Place();
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Resize || event->type() == QEvent::Show) {
            Place();
        }
        return QObject::eventFilter(object, event);
    }

  private:
    void Place() {
        for (Patch* patch : patches_) {
            patch->Place();
        }
    }

    std::array<Patch*, 4> patches_{};
};

}  // namespace

void RoundCorners::Attach(QFrame& frame) {
    new Corners(frame);
}

}  // namespace quorvi
