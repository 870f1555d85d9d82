// The five tabs along the top of the window.
#pragma once

#include <QTabBar>

namespace quorvi {

// Each choice by the user, of the selected tab too, is told; what the program selects is not. He
// chooses by a click or by the arrow keys: the wheel turns no tab, since a page that is shown in
// passing would load.
class TabStrip : public QTabBar {
    Q_OBJECT
  public:
    explicit TabStrip(QWidget* parent);

    // Moves the selection without telling.
    void Select(int tab);

  Q_SIGNALS:
    void chosen(int tab);

  protected:
    [[nodiscard]] QSize tabSizeHint(int index) const override;
    [[nodiscard]] QSize minimumTabSizeHint(int index) const override;
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void PaintTab(QPainter& painter, int index) const;

    int hovered_ = -1;
};

}  // namespace quorvi
