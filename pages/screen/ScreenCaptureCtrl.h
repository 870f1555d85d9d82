// The picture of the phone's screen, on its ground.
#pragma once

#include <QBasicTimer>
#include <QPixmap>
#include <QPointer>
#include <QWidget>
#include <optional>

#include "pages/screen/ScreenPicture.h"
#include "pages/screen/ShowSize.h"
#include "ui/kit/ViewStatus.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Look.h"

namespace quorvi {

// Holds the latest capture and shows it in the middle of its ground, at the show size or, where
// there is less room, scaled down to fit. With no picture it says so in words. Reads nothing by
// itself: its page does. The window's thread.
class ScreenCaptureCtrl : public QWidget, public RingShape {
    Q_OBJECT
  public:
    // Who hears of the size of the phone's screen.
    class Observer {
      public:
        virtual ~Observer() = default;
        // In pixels, before any turn; called before the picture is replaced.
        virtual void OnScreenSize(int width, int height) = 0;
    };

    explicit ScreenCaptureCtrl(QWidget* parent = nullptr);

    // `observer` outlives this, or is taken away with null.
    void SetObserver(Observer* observer) { observer_ = observer; }
    // The page has finished its initialisation: pictures are shown 300 wide from now on.
    void SetReady() { ready_ = true; }

    // The picture in the place of the one before, which is let go.
    void Show(ScreenPicture picture);
    [[nodiscard]] const std::optional<ScreenPicture>& Picture() const { return picture_; }
    [[nodiscard]] Rotation ShownRotation() const { return rotation_; }
    [[nodiscard]] Rotation PreviousRotation() const { return previousRotation_; }
    [[nodiscard]] const ShowSize& Size() const { return showSize_; }
    // The most that a picture turned so is painted in.
    [[nodiscard]] PaintRoom RoomFor(Rotation rotation) const;
    // Where the picture is drawn; empty without one.
    [[nodiscard]] QRect PictureRect() const;

    // Every picture that is shown asks for the next one 100 ms later.
    void SetAutoRefresh(bool on) { autoRefresh_ = on; }
    [[nodiscard]] bool AutoRefresh() const { return autoRefresh_; }

    // What it says and shows beside the picture, or where there is none. Above a picture the bar of
    // `loading` appears only where that lasts: it would flicker at each capture, and painting it
    // takes time from the capture.
    void SetState(ListState state);
    [[nodiscard]] ListState State() const {
        return lasting_.isActive() ? ListState::loading : status_->Get();
    }
    // Why nothing was captured, shown in the place of a picture that never came.
    void SetFailedText(const QString& sentence);

    // The picture in the size in which it follows the mouse.
    [[nodiscard]] QPixmap DragPixmap() const;
    // Puts the picture on the clipboard; nothing without one.
    void Copy() const;

    [[nodiscard]] QRectF RingRect() const override { return rect(); }
    [[nodiscard]] qreal RingRadius() const override { return look::Metric::radiusPanel; }
    [[nodiscard]] QSize sizeHint() const override;

  Q_SIGNALS:
    // Auto refresh wants the next picture, turned as the one on show.
    void refreshDue(quorvi::Rotation rotation);
    // The mouse has taken the picture and moves on: it wants to be dragged.
    void dragged();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void PaintPicture(QPainter& painter);
    [[nodiscard]] QPixmap ScaledTo(const QSize& pixels) const;
    [[nodiscard]] QRect Ground() const;
    [[nodiscard]] QRect Fitted(const ShowSize& size) const;
    void Describe();

    Observer* observer_ = nullptr;
    ViewStatus* status_;
    bool ready_ = false;
    bool autoRefresh_ = false;
    Rotation rotation_ = quorvi::Rotation::none;
    Rotation previousRotation_ = quorvi::Rotation::none;
    ShowSize showSize_;
    std::optional<ScreenPicture> picture_;
    QPixmap scaled_;  // the picture as it was painted last
    QBasicTimer next_;
    QBasicTimer lasting_;  // until the bar appears
    std::optional<QPoint> pressed_;
};

}  // namespace quorvi
