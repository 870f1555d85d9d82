#include "ui/kit/ResizeEdges.h"

#include <QEvent>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <array>
#include <optional>

#include "ui/look/Look.h"

namespace quorvi {
namespace {

using look::Metric;

struct GripRow {
    const char* name;
    Qt::Edges edges;
    Qt::CursorShape cursor;
};

// The corners come last: they lie over the ends of the edges.
constexpr std::array<GripRow, 8> kGrips = {{
    {"resize left", Qt::LeftEdge, Qt::SizeHorCursor},
    {"resize right", Qt::RightEdge, Qt::SizeHorCursor},
    {"resize top", Qt::TopEdge, Qt::SizeVerCursor},
    {"resize bottom", Qt::BottomEdge, Qt::SizeVerCursor},
    {"resize top left", Qt::TopEdge | Qt::LeftEdge, Qt::SizeFDiagCursor},
    {"resize bottom right", Qt::BottomEdge | Qt::RightEdge, Qt::SizeFDiagCursor},
    {"resize top right", Qt::TopEdge | Qt::RightEdge, Qt::SizeBDiagCursor},
    {"resize bottom left", Qt::BottomEdge | Qt::LeftEdge, Qt::SizeBDiagCursor},
}};

// The strip of `window` that lies along these edges; a square where they meet.
QRect StripAt(const QRect& window, Qt::Edges edges) {
    const bool corner = (edges & (Qt::LeftEdge | Qt::RightEdge)) != 0 &&
                        (edges & (Qt::TopEdge | Qt::BottomEdge)) != 0;
    const int width = corner ? Metric::resizeCorner : Metric::resizeEdge;
    QRect strip = window;
    if (edges.testFlag(Qt::LeftEdge)) {
        strip.setWidth(width);
    }
    if (edges.testFlag(Qt::RightEdge)) {
        strip.setLeft(window.left() + window.width() - width);
    }
    if (edges.testFlag(Qt::TopEdge)) {
        strip.setHeight(width);
    }
    if (edges.testFlag(Qt::BottomEdge)) {
        strip.setTop(window.top() + window.height() - width);
    }
    return strip;
}

class Grip : public QWidget {
  public:
    Grip(QWidget& window, const GripRow& row) : QWidget(&window), edges_(row.edges) {
        setObjectName(QLatin1StringView(row.name));
        setCursor(row.cursor);
        setFocusPolicy(Qt::NoFocus);
        window.installEventFilter(this);
        Lay();
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Resize || event->type() == QEvent::WindowStateChange) {
            Lay();
        }
        return QWidget::eventFilter(object, event);
    }

  protected:
    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() != Qt::LeftButton) {
            return;
        }
        QWindow* const handle = window()->windowHandle();
        if (handle == nullptr || !handle->startSystemResize(edges_)) {
            from_ = {event->globalPosition().toPoint(), window()->geometry()};
        }
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        if (from_) {
            window()->setGeometry(ResizeEdges::Dragged(
                from_->place, edges_, event->globalPosition().toPoint() - from_->pointer,
                window()->minimumSize()));
        }
    }
    void mouseReleaseEvent(QMouseEvent*) override { from_.reset(); }

  private:
    // Where the pointer and the window were at the press.
    struct Start {
        QPoint pointer;
        QRect place;
    };

    void Lay() {
        setGeometry(StripAt(parentWidget()->rect(), edges_));
        setVisible((parentWidget()->windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)) ==
                   0);
    }

    Qt::Edges edges_;
    std::optional<Start> from_;  // while the grip itself resizes the window
};

}  // namespace

void ResizeEdges::Attach(QWidget& window) {
    for (const GripRow& row : kGrips) {
        new Grip(window, row);
    }
}

QRect ResizeEdges::Dragged(const QRect& place, Qt::Edges edges, QPoint by, QSize least) {
    const int mostX = place.width() - least.width();
    const int mostY = place.height() - least.height();
    QRect dragged = place;
    if (edges.testFlag(Qt::LeftEdge)) {
        dragged.setLeft(place.left() + std::min(by.x(), mostX));
    }
    if (edges.testFlag(Qt::RightEdge)) {
        dragged.setRight(place.right() + std::max(by.x(), -mostX));
    }
    if (edges.testFlag(Qt::TopEdge)) {
        dragged.setTop(place.top() + std::min(by.y(), mostY));
    }
    if (edges.testFlag(Qt::BottomEdge)) {
        dragged.setBottom(place.bottom() + std::max(by.y(), -mostY));
    }
    return dragged;
}

}  // namespace quorvi
