#include "app/window/WindowPlace.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <array>
#include <chrono>
#include <utility>

#include "ui/kit/FreeArea.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

constexpr std::chrono::milliseconds kRest{300};
// How long the end of the program may wait for the store.
constexpr std::chrono::milliseconds kStorePatience{1000};

std::optional<QRect> PlaceOf(const std::string& text) {
    std::array<int, 4> numbers = {};
    const QStringList parts = QString::fromLatin1(text.c_str()).split(QLatin1Char(' '));
    if (parts.size() != static_cast<qsizetype>(numbers.size())) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        bool isNumber = false;
        numbers[i] = parts[static_cast<qsizetype>(i)].toShort(&isNumber);
        if (!isNumber) {
            return std::nullopt;
        }
    }
    const auto [x, y, width, height] = numbers;
    return width > 0 && height > 0 ? std::optional(QRect(x, y, width, height)) : std::nullopt;
}

std::string TextOf(const QRect& place) {
    return QStringLiteral("%1 %2 %3 %4")
        .arg(place.x())
        .arg(place.y())
        .arg(place.width())
        .arg(place.height())
        .toStdString();
}

// Under Wayland no window hears where it stands.
bool TellsPlaces() {
    return !QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
}

}  // namespace

WindowPlace::WindowPlace(QWidget& window, SettingsStore& settings, Sizes sizes)
    : QObject(&window), window_(window), settings_(settings), sizes_(sizes) {
    rest_.setSingleShot(true);
    rest_.setInterval(kRest);
    connect(&rest_, &QTimer::timeout, this, &WindowPlace::Store);
    // Queued: while a screen goes, it may still be among the screens.
    connect(qApp, &QGuiApplication::screenRemoved, this, &WindowPlace::BringIntoView,
            Qt::QueuedConnection);
    connect(qApp, &QGuiApplication::screenAdded, this, &WindowPlace::Follow);
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (QScreen* screen : screens) {
        Follow(screen);
    }
    window.installEventFilter(this);
}

void WindowPlace::Follow(QScreen* screen) {
    connect(screen, &QScreen::availableGeometryChanged, this, &WindowPlace::BringIntoView,
            Qt::QueuedConnection);
}

void WindowPlace::Restore() {
    const QList<QRect> areas = FreeAreas();
    QRect place(QPoint(), sizes_.usual);
    if (!areas.isEmpty()) {
        place.moveCenter(areas.constFirst().center());
    }
    SetPlace(Stored().value_or(place));
}

void WindowPlace::BringIntoView() {
    if (Stands()) {
        SetPlace(window_.geometry());
    }
}

void WindowPlace::SetPlace(const QRect& wished) {
    const QRect area = AreaFor(wished, FreeAreas());
    window_.setMinimumSize(sizes_.least.boundedTo(area.size()));
    known_ = BroughtInto({wished.topLeft(), wished.size().expandedTo(window_.minimumSize())}, area);
    window_.setGeometry(known_);
}

// Neither minimised nor filling its screen: then its geometry is the user's wish.
bool WindowPlace::Stands() const {
    return (window_.windowState() &
            (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen)) == 0;
}

bool WindowPlace::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize) {
        rest_.start();
    }
    return QObject::eventFilter(object, event);
}

QRect WindowPlace::Place() const {
    QRect place = window_.geometry();
    if (!TellsPlaces()) {
        place.moveTopLeft(known_.topLeft());
    }
    return place;
}

void WindowPlace::StoreThen(std::function<void()> then) {
    then_ = std::move(then);
    rest_.stop();
    QTimer::singleShot(kStorePatience, this, &WindowPlace::GoOn);
    Store();
}

// One worker at a time: what changed while it wrote is written by the next.
void WindowPlace::Store() {
    if (storing_) {
        return;
    }
    if (!Stands() || Place() == known_) {
        GoOn();
        return;
    }
    storing_ = true;
    known_ = Place();
    RunJob(
        this,
        [&settings = settings_, text = TextOf(known_)] {
            return settings.WriteText(kSettingsKey, kWindowPlace, text);
        },
        [this](bool) {
            storing_ = false;
            if (!rest_.isActive()) {
                Store();
            }
        });
}

void WindowPlace::GoOn() {
    if (const auto then = std::exchange(then_, nullptr)) {
        then();
    }
}

std::optional<QRect> WindowPlace::Stored() const {
    const auto text = settings_.ReadText(kSettingsKey, kWindowPlace);
    return text ? PlaceOf(*text) : std::nullopt;
}

}  // namespace quorvi
