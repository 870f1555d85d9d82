// A balloon inside the window, where the desktop has no place for one.
#pragma once

#include <QTimer>
#include <QWidget>

class QVariantAnimation;

namespace quorvi {

// Stands at the lower right of its parent, fades in, goes by itself or at a click.
class BalloonCard : public QWidget {
    Q_OBJECT
  public:
    explicit BalloonCard(QWidget* parent);

    void Show(const QString& title, const QString& text);
    [[nodiscard]] const QString& Title() const { return title_; }
    [[nodiscard]] const QString& Text() const { return text_; }

    bool eventFilter(QObject* object, QEvent* event) override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    void Place();
    void FadeTo(double opacity);

    QString title_;
    QString text_;
    double opacity_ = 0;
    QTimer goes_;
    QVariantAnimation* fade_;
};

}  // namespace quorvi
