#include "app/WindowShape.h"

#include <xcb/xcb.h>

#include <QBitmap>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>
#include <cstdlib>
#include <memory>

#include "ui/Look.h"

namespace quorvi {
namespace {

using look::Metric;

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using ReplyPtr = std::unique_ptr<Reply, FreeReply>;

// X11 tells by the owner of a selection; every other platform composes its windows.
bool IsComposed() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr || x11->connection() == nullptr) {
        return true;
    }
    xcb_connection_t* connection = x11->connection();
    constexpr std::string_view name = "_NET_WM_CM_S0";
    const ReplyPtr<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 1, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    if (!atom || atom->atom == XCB_ATOM_NONE) {
        return false;
    }
    const ReplyPtr<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

bool IsWhole(const QWidget& window) {
    return (window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)) != 0;
}

}  // namespace

QPainterPath RoundShape(const QWidget& window) {
    QPainterPath path;
    const qreal radius = IsWhole(window) ? 0 : Metric::radius;
    path.addRoundedRect(QRectF(window.rect()), radius, radius);
    return path;
}

void PrepareRoundCorners(QWidget& window) {
    window.setAttribute(Qt::WA_TranslucentBackground, IsComposed());
}

void ShapeRoundCorners(QWidget& window) {
    if (window.testAttribute(Qt::WA_TranslucentBackground)) {
        window.update();
        return;
    }
    if (IsWhole(window)) {
        window.clearMask();
        return;
    }
    QBitmap mask(window.size());
    mask.clear();
    QPainter painter(&mask);
    painter.fillPath(RoundShape(window), Qt::color1);
    painter.end();
    window.setMask(mask);
}

}  // namespace quorvi
