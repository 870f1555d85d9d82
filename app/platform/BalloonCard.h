// A balloon that the suite paints itself: at its tray icon, or inside the window where the desktop
// has no place for one.
#pragma once

#include <QTimer>
#include <QWidget>

class QVariantAnimation;

namespace quorvi {

// With a parent it stands at the parent's lower right, without one it is a window of its own. Fades
// in, goes by itself or at a click.
class BalloonCard : public QWidget {
    Q_OBJECT
  public:
    explicit BalloonCard(QWidget* parent);

    void Show(const QString& title, const QString& text);
    // For a card without a parent: beside `icon`, in screen coordinates, before it is shown.
    void PointAt(const QRect& icon) { icon_ = icon; }
    [[nodiscard]] const QString& Title() const { return title_; }
    [[nodiscard]] const QString& Text() const { return text_; }

    bool eventFilter(QObject* object, QEvent* event) override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    [[nodiscard]] QPoint Corner(QSize size) const;
    void Place();
    void FadeTo(double opacity);

    const int margin_;  // room around the card for its shadow
    QRect icon_;
    QString title_;
    QString text_;
    double opacity_ = 0;
    QTimer goes_;
    QVariantAnimation* fade_;
};

}  // namespace quorvi
