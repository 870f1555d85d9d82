#include "tour/Tour.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <algorithm>
#include <cstdio>
#include <utility>

#include "app/window/MainDlg.h"
#include "ui/html/HtmlCtrl.h"
#include "ui/html/HtmlFrame.h"

namespace quorvi {
namespace {

constexpr int kTickMs = 50;

// Draws what `over` shows into the picture of the window, where it stands over the window.
void DrawOver(QPainter& painter, const CMainDlg& window, QWidget& over) {
    painter.drawPixmap(over.mapToGlobal(QPoint()) - window.mapToGlobal(QPoint()), over.grab());
}

// Whether a view, its frame left out, is painted in one colour: the browser paints a document a
// while after it is there.
bool IsBlank(QWidget& view) {
    constexpr int frame = 4;
    const QRect inner = view.rect().adjusted(frame, frame, -frame, -frame);
    const QImage image = view.grab(inner).toImage().convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != image.pixel(0, 0)) {
                return false;
            }
        }
    }
    return true;
}

// The views of a window, those in frames with what lies over them.
QWidgetList ViewsIn(const QWidget& window) {
    QWidgetList views;
    for (HtmlFrame* frame : window.findChildren<HtmlFrame*>()) {
        views.append(frame);
    }
    for (CHtmlCtrlBase* view : window.findChildren<CHtmlCtrlBase*>()) {
        if (qobject_cast<HtmlFrame*>(view->parentWidget()) == nullptr) {
            views.append(view);
        }
    }
    return views;
}

// Closes the widget that `top` gives, and the one that it gives then, until it gives none, or the
// same one again because that does not close.
void CloseAll(QWidget* (*top)()) {
    QWidget* last = nullptr;
    for (QWidget* widget = top(); widget != nullptr && widget != last; widget = top()) {
        last = widget;
        widget->close();
    }
}

}  // namespace

std::vector<TourStop> StopsOf(std::vector<TourStop> stops, const std::vector<std::string>& names) {
    if (names.empty()) {
        return stops;
    }
    const auto isOther = [&names](const TourStop& stop) {
        return std::ranges::find(names, stop.name) == names.end();
    };
    std::erase_if(stops, isOther);
    return stops.size() == names.size() ? std::move(stops) : std::vector<TourStop>{};
}

Tour::Tour(CMainDlg& window, const QString& folder, std::vector<TourStop> stops,
           std::function<void(int)> done, TourPatience patience)
    : window_(window),
      folder_(folder),
      stops_(std::move(stops)),
      done_(std::move(done)),
      patience_(patience) {
    tick_.setInterval(kTickMs);
}

void Tour::Start() {
    folder_.mkpath(QStringLiteral("."));
    since_.start();
    connect(&tick_, &QTimer::timeout, this, &Tour::Wait);
    tick_.start();
}

bool Tour::Exceeds(std::chrono::milliseconds limit) const {
    return std::chrono::milliseconds(since_.elapsed()) > limit;
}

// The banner is no sign of the end: the link procedure may try again after a green or a red one.
void Tour::Wait() {
    if (!window_.Link().HasEnded()) {
        // The link may ask which of several phones it shall take. Nobody answers here, so the tour
        // does not wait for its end.
        const bool asks = QApplication::activeModalWidget() != nullptr;
        if (!asks && !Exceeds(patience_.link)) {
            return;
        }
        std::fprintf(stderr, "tour: the link procedure has not ended\n");
    }
    tick_.disconnect();
    connect(&tick_, &QTimer::timeout, this, &Tour::Look);
    Open();
}

void Tour::Open() {
    if (at_ == stops_.size()) {
        tick_.stop();
        done_(failed_);
        return;
    }
    since_.restart();
    window_.HideBalloon();
    // Called by a timer: a stop may run a dialog and return when that is closed, and the tour must
    // go on meanwhile.
    QTimer::singleShot(0, &window_, [this] { stops_[at_].open(window_); });
}

void Tour::Look() {
    if (at_ == stops_.size() || !Exceeds(patience_.settle)) {
        return;
    }
    const TourStop& stop = stops_[at_];
    const bool ready = (stop.endless || IsQuiet()) && (!stop.ready || stop.ready());
    if (ready || Exceeds(patience_.load)) {
        Take();
        ++at_;
        Open();
    }
}

// Whether the load of the page that is shown, if it has one, is over, and no view waits for its
// document or for its paint.
bool Tour::IsQuiet() const {
    const auto frames = window_.findChildren<HtmlFrame*>();
    if (std::ranges::any_of(frames, [](const HtmlFrame* frame) {
            return frame->isVisible() && frame->State() == ListState::loading;
        })) {
        return false;
    }
    const QWidgetList views = ViewsIn(window_);
    if (std::ranges::any_of(views,
                            [](QWidget* view) { return view->isVisible() && IsBlank(*view); })) {
        return false;
    }
    const PageRow* row = FindPage(window_.MainPage());
    return row == nullptr || row->loadKey == PageRow::kNoKey ||
           window_.LoadState().Value(row->loadKey) != PageLoadState::kRunning;
}

QPixmap Tour::Picture() const {
    QPixmap picture = window_.grab();
    QPainter painter(&picture);
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget* widget : widgets) {
        if (widget != &window_ && widget->isVisible() &&
            (widget->windowType() == Qt::Dialog || widget->windowType() == Qt::Popup ||
             widget->windowType() == Qt::ToolTip)) {
            DrawOver(painter, window_, *widget);
        }
    }
    return picture;
}

void Tour::Take() {
    const QString path =
        folder_.filePath(QString::fromStdString(stops_[at_].name) + QStringLiteral(".png"));
    if (!Picture().save(path)) {
        ++failed_;
        std::fprintf(stderr, "tour: %s could not be written\n", qUtf8Printable(path));
    }
    CloseAll(&QApplication::activePopupWidget);
    CloseAll(&QApplication::activeModalWidget);
    if (stops_[at_].leave) {
        stops_[at_].leave(window_);
    }
}

}  // namespace quorvi
