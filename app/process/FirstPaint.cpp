#include "app/process/FirstPaint.h"

#include <QEvent>

#include "ui/page/Job.h"

namespace quorvi {
namespace {

class PaintWatch : public QObject {
  public:
    PaintWatch(QWidget& window, std::function<void()> then)
        : QObject(&window), then_(std::move(then)) {
        window.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            watched->removeEventFilter(this);
            // The window goes to the screen when all in it has been painted, before the next turn.
            PostToWindow(this, [this] {
                deleteLater();
                then_();
            });
        }
        return false;
    }

  private:
    std::function<void()> then_;
};

}  // namespace

void AfterFirstPaint(QWidget& window, std::function<void()> then) {
    new PaintWatch(window, std::move(then));
}

}  // namespace quorvi
