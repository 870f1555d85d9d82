#include "ui/kit/WindowFrame.h"

#include <xcb/xcb.h>

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>
#include <cstdlib>
#include <memory>
#include <string>

#include "ui/look/Look.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;

struct Freed {
    void operator()(void* reply) const { std::free(reply); }
};

// X11: a compositor owns the selection _NET_WM_CM_S0.
bool XcbHasCompositor() {
    auto* native = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (native == nullptr || native->connection() == nullptr) {
        return false;
    }
    xcb_connection_t* connection = native->connection();
    static const std::string name = "_NET_WM_CM_S0";
    const std::unique_ptr<xcb_intern_atom_reply_t, Freed> atom(xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str()),
        nullptr));
    if (!atom) {
        return false;
    }
    const std::unique_ptr<xcb_get_selection_owner_reply_t, Freed> owner(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, atom->atom),
                                      nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

bool Filled(const QWidget& window) {
    return (window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)) != 0;
}

int RadiusOf(const QWidget& window) {
    return Filled(window) ? 0 : Metric::radius;
}

// Keeps margins and mask in step with the window's size and state.
class EdgeKeeper : public QObject {
  public:
    EdgeKeeper(QWidget& window, bool masked) : QObject(&window), window_(window), masked_(masked) {
        window.installEventFilter(this);
        Keep();
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (object == &window_ &&
            (event->type() == QEvent::Resize || event->type() == QEvent::WindowStateChange)) {
            Keep();
        }
        return QObject::eventFilter(object, event);
    }

  private:
    void Keep() {
        const int line = Filled(window_) ? 0 : Metric::hairline;
        if (window_.contentsMargins().left() != line) {
            window_.setContentsMargins(line, line, line, line);
        }
        if (!masked_) {
            return;
        }
        if (const int radius = RadiusOf(window_); radius == 0) {
            window_.clearMask();
        } else {
            QPainterPath path;
            path.addRoundedRect(QRectF(window_.rect()), radius, radius);
            window_.setMask(QRegion(path.toFillPolygon().toPolygon()));
        }
    }

    QWidget& window_;
    bool masked_;
};

}  // namespace

bool WindowFrame::HasCompositor() {
    const QString platform = QGuiApplication::platformName();
    if (platform == QStringLiteral("xcb")) {
        return XcbHasCompositor();
    }
    return platform.startsWith(QStringLiteral("wayland"));
}

void WindowFrame::Attach(QWidget& window) {
    const bool composed = HasCompositor();
    if (composed) {
        window.setAttribute(Qt::WA_TranslucentBackground);
    }
    const bool masks = QGuiApplication::platformName() == QStringLiteral("xcb");
    new EdgeKeeper(window, masks && !composed);
}

void WindowFrame::Paint(QPainter& painter, const QWidget& window) {
    const int radius = RadiusOf(window);
    if (radius == 0) {
        return;
    }
    // The line is translucent: it darkens the page's colour, which is painted under it first.
    look::plate(painter, window.rect(), radius, look::color(Color::page), Qt::transparent);
    look::plate(painter, window.rect(), radius, Qt::transparent, look::color(Color::windowEdge));
    QPainterPath inside;
    inside.addRoundedRect(QRectF(window.contentsRect()), radius - Metric::hairline,
                          radius - Metric::hairline);
    painter.setClipPath(inside);
}

QSize WindowFrame::Around(const QWidget& window, QSize inner) {
    return inner.grownBy(window.contentsMargins());
}

}  // namespace quorvi
