#include "pages/screen/ScreenCaptureCtrl.h"

#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTimerEvent>
#include <algorithm>
#include <utility>

#include "pages/screen/AccessiblePicture.h"
#include "ui/kit/PlainTip.h"
#include "ui/kit/QtText.h"

namespace quorvi {

using look::Color;
using look::Metric;

namespace {

constexpr int kNextCapture = 100;  // ms, of auto refresh
constexpr int kLasting = 100;      // ms

constexpr std::u8string_view kFailed = u8"没有截到手机的屏幕";

}  // namespace

ScreenCaptureCtrl::ScreenCaptureCtrl(QWidget* parent)
    : QWidget(parent), status_(new ViewStatus(this)) {
    InstallAccessiblePicture();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    status_->SetEmptyText(ToQString(u8"还没有截图"), ToQString(u8"连上手机，然后点“刷新屏幕”"));
    Describe();
}

void ScreenCaptureCtrl::Show(ScreenPicture picture) {
    if (observer_ != nullptr) {
        observer_->OnScreenSize(picture.frame.width, picture.frame.height);
    }
    const QRect before = PictureRect();
    showSize_ =
        ShowSizeOf(showSize_, ready_, picture.frame.width, picture.frame.height, picture.rotation);
    previousRotation_ = std::exchange(rotation_, picture.rotation);
    picture_ = std::move(picture);
    scaled_ = {};
    Describe();
    if (const QRect place = PictureRect(); place == before) {
        update(place.adjusted(-1, -1, 1, 1));  // with the line around it
    } else {
        update();
    }
    if (autoRefresh_) {
        next_.start(kNextCapture, this);
    }
}

void ScreenCaptureCtrl::SetState(ListState state) {
    if (state == ListState::loading && picture_) {
        if (State() != ListState::loading) {
            lasting_.start(kLasting, this);
        }
        return;
    }
    lasting_.stop();
    if (state != status_->Get()) {
        status_->Set(state);
        Describe();
    }
}

void ScreenCaptureCtrl::SetFailedText(const QString& sentence) {
    status_->SetFailedText(ToQString(kFailed), sentence);
}

// What a screen reader says of it.
void ScreenCaptureCtrl::Describe() {
    QString name = ToQString(u8"手机屏幕截图");
    if (picture_) {
        name += ToQString(u8"，宽 %1 像素，高 %2 像素")
                    .arg(picture_->image.width())
                    .arg(picture_->image.height());
    } else if (State() == ListState::failed) {
        name += ToQString(u8"，没有截到");
    } else {
        name += ToQString(u8"，还没有");
    }
    if (accessibleName() != name) {
        setAccessibleName(name);
    }
}

void ScreenCaptureCtrl::timerEvent(QTimerEvent* event) {
    if (event->timerId() == next_.timerId()) {
        next_.stop();
        Q_EMIT refreshDue(rotation_);
    } else if (event->timerId() == lasting_.timerId()) {
        lasting_.stop();
        status_->Set(ListState::loading);
    } else {
        QWidget::timerEvent(event);
    }
}

// ---- painting ----------------------------------------------------------------------------------

QSize ScreenCaptureCtrl::sizeHint() const {
    return {Metric::screenGround, Metric::contentHeight};
}

QRect ScreenCaptureCtrl::Ground() const {
    return rect().adjusted(Metric::screenPadding, Metric::screenPadding, -Metric::screenPadding,
                           -Metric::screenPadding);
}

PaintRoom ScreenCaptureCtrl::RoomFor(Rotation rotation) const {
    QSizeF room = Ground().size();
    room *= devicePixelRatioF();
    if (SwapsSides(rotation)) {
        room.transpose();
    }
    return {static_cast<int>(room.width()), static_cast<int>(room.height())};
}

// In the middle, scaled down where there is less room than it wants, never up.
QRect ScreenCaptureCtrl::Fitted(const ShowSize& size) const {
    const QRect room = Ground();
    const double scale = std::min({1.0, static_cast<double>(room.width()) / std::max(size.width, 1),
                                   static_cast<double>(room.height()) / std::max(size.height, 1)});
    QRect fitted(0, 0, std::max(1, static_cast<int>(size.width * scale)),
                 std::max(1, static_cast<int>(size.height * scale)));
    fitted.moveCenter(rect().center());
    return fitted;
}

QRect ScreenCaptureCtrl::PictureRect() const {
    return picture_ ? Fitted(showSize_) : QRect();
}

// Each painting begins with the ground, which wipes what a picture that stood the other way has
// left (ScreenCaptureCtrl.NothingIsLeftOfAPictureThatStoodTheOtherWay).
void ScreenCaptureCtrl::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (Ground().contains(event->rect())) {
        painter.fillRect(event->rect(), look::color(Color::fieldOff));
    } else {
        look::plate(painter, rect(), Metric::radiusPanel, look::color(Color::fieldOff),
                    look::color(Color::line));
    }
    const bool loading = status_->Get() == ListState::loading;
    if (picture_) {
        PaintPicture(painter);
    } else if (loading) {
        ViewStatus::PaintBlock(painter, Fitted({}));
    } else {
        status_->PaintVoid(painter);
    }
    if (loading) {
        QPainterPath ground;
        ground.addRoundedRect(rect(), Metric::radiusPanel, Metric::radiusPanel);
        painter.setClipPath(ground);
        status_->PaintBar(painter);
    }
}

// The reduced picture is little larger than what is painted: there it is enough, and takes a fifth
// of the time, to blend the four pixels that lie next.
QPixmap ScreenCaptureCtrl::ScaledTo(const QSize& pixels) const {
    const QImage& reduced = picture_->reduced;
    if (reduced.width() < pixels.width() || reduced.height() < pixels.height()) {
        return QPixmap::fromImage(
            picture_->image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    QImage scaled(pixels, QImage::Format_RGB32);
    QPainter painter(&scaled);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(scaled.rect(), reduced);
    painter.end();
    return QPixmap::fromImage(std::move(scaled));
}

// The picture, and a line of one device pixel around it.
void ScreenCaptureCtrl::PaintPicture(QPainter& painter) {
    const qreal scale = look::scaleOf(painter);
    const QRectF place = look::snapped(painter, PictureRect());
    const QSize pixels = (place.size() * scale).toSize().expandedTo({1, 1});
    if (scaled_.size() != pixels) {
        scaled_ = ScaledTo(pixels);
        scaled_.setDevicePixelRatio(scale);
    }
    painter.drawPixmap(place.topLeft(), scaled_);
    const qreal line = 1 / scale;
    const QColor frame = look::color(Color::frame);
    const QRectF around = place.adjusted(-line, -line, line, line);
    painter.fillRect(QRectF(around.left(), around.top(), around.width(), line), frame);
    painter.fillRect(QRectF(around.left(), place.bottom(), around.width(), line), frame);
    painter.fillRect(QRectF(around.left(), place.top(), line, place.height()), frame);
    painter.fillRect(QRectF(place.right(), place.top(), line, place.height()), frame);
}

// ---- copied, dragged ---------------------------------------------------------------------------

void ScreenCaptureCtrl::Copy() const {
    if (picture_) {
        QApplication::clipboard()->setImage(picture_->image);
    }
}

QPixmap ScreenCaptureCtrl::DragPixmap() const {
    QPixmap pixmap = scaled_.scaled(scaled_.size() / Metric::screenDragPart, Qt::KeepAspectRatio,
                                    Qt::SmoothTransformation);
    pixmap.setDevicePixelRatio(scaled_.devicePixelRatio());
    return pixmap;
}

void ScreenCaptureCtrl::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && PictureRect().contains(event->position().toPoint())) {
        pressed_ = event->position().toPoint();
    }
    QWidget::mousePressEvent(event);
}

void ScreenCaptureCtrl::mouseMoveEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    if (PictureRect().contains(at)) {
        setCursor(Qt::OpenHandCursor);
    } else {
        unsetCursor();
    }
    if (pressed_ && event->buttons().testFlag(Qt::LeftButton) &&
        (at - *pressed_).manhattanLength() >= QApplication::startDragDistance()) {
        pressed_.reset();
        Q_EMIT dragged();
    }
}

void ScreenCaptureCtrl::mouseReleaseEvent(QMouseEvent* event) {
    pressed_.reset();
    QWidget::mouseReleaseEvent(event);
}

bool ScreenCaptureCtrl::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<const QHelpEvent*>(event);
        if (PictureRect().contains(help->pos())) {
            ShowPlainTip(help->globalPos(),
                         ToQString(u8"按 Ctrl+C 复制图片，或者把图片拖到文件夹里"), this,
                         PictureRect());
        } else {
            QToolTip::hideText();
        }
        return true;
    }
    return QWidget::event(event);
}

}  // namespace quorvi
