#include "tests/support/SeenScreen.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QCoreApplication>
#include <QEvent>
#include <QProcess>
#include <cstdlib>

#include "tests/support/WaitFor.h"

namespace quorvi {
namespace {

// The background that tests/support/on-wayland gives the desktop.
constexpr QRgb kBackground = qRgb(0, 255, 0);
// The strip below the desktop that it leaves free.
constexpr int kStrip = 40;
constexpr int kSteps = 4;

struct Freed {
    void operator()(void* reply) const { std::free(reply); }
};

// Counts the presses of a mouse button that reach the program.
class Presses : public QObject {
  public:
    int count = 0;

    Presses() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress && object->isWindowType()) {
            ++count;
        }
        return false;
    }
};

template <typename Holds>
QRect BoundsOf(const QImage& picture, Holds holds) {
    QRect bounds;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            if (holds(line[x] | 0xff000000U)) {
                bounds |= QRect(x, y, 1, 1);
            }
        }
    }
    return bounds;
}

}  // namespace

SeenScreen::SeenScreen() : display_(xcb_connect(nullptr, nullptr)) {}

bool SeenScreen::IsThere() const {
    return xcb_connection_has_error(display_.get()) == 0;
}

QImage SeenScreen::Picture() const {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(display_.get())).data;
    const std::unique_ptr<xcb_get_image_reply_t, Freed> reply(xcb_get_image_reply(
        display_.get(),
        xcb_get_image(display_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, screen->root, 0, 0,
                      screen->width_in_pixels, screen->height_in_pixels, ~0U),
        nullptr));
    if (!reply) {
        return {};
    }
    const QImage whole(xcb_get_image_data(reply.get()), screen->width_in_pixels,
                       screen->height_in_pixels, QImage::Format_RGB32);
    return whole.copy(whole.rect().adjusted(0, 0, 0, -kStrip));
}

QRect SeenScreen::Standing() const {
    const QImage picture = Picture();
    const QRect bounds = BoundsOf(picture, [](QRgb pixel) { return pixel != kBackground; });
    return bounds == picture.rect() ? QRect() : bounds;
}

QRect SeenScreen::Around(const QColor& colour) const {
    return BoundsOf(Picture(), [rgb = colour.rgb()](QRgb pixel) { return pixel == rgb; });
}

void SeenScreen::Mouse(const QStringList& words) {
    QProcess tool;
    tool.start(QStringLiteral("xdotool"), words);
    EXPECT_TRUE(tool.waitForFinished(kPatience));
    EXPECT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().toStdString();
}

void SeenScreen::MoveTo(QPoint place) {
    Mouse({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())});
}

void SeenScreen::EnterAt(QPoint place) const {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(display_.get())).data;
    MoveTo({place.x(), screen->height_in_pixels - kStrip / 2});
    MoveTo(place);
}

void SeenScreen::Press(int button) {
    Mouse({QStringLiteral("mousedown"), QString::number(button)});
}

void SeenScreen::Release(int button) {
    Mouse({QStringLiteral("mouseup"), QString::number(button)});
}

// The program asks for a drag while the press arrives there: the pointer waits for that.
void SeenScreen::Drag(QPoint from, QPoint by, const std::function<bool()>& dragged) {
    const Presses presses;
    MoveTo(from);
    Press();
    EXPECT_TRUE(WaitFor([&presses] { return presses.count > 0; }));
    for (int step = 1; step <= kSteps; ++step) {
        MoveTo(from + by * step / kSteps);
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(WaitFor(dragged));
    Release();
}

void SeenScreen::Click(QPoint place, int button) {
    MoveTo(place);
    Press(button);
    Release(button);
}

}  // namespace quorvi
