// The seven items at the left of the window.
#pragma once

#include <QListWidget>

#include "base/Observed.h"

namespace quorvi {

// Shows the items of one tab. Each choice by the user, of the selected item too, is told; what the
// program selects is not.
class NavigationBar : public QListWidget {
    Q_OBJECT
  public:
    explicit NavigationBar(QWidget* parent);

    // Loads the captions and images of a tab, and highlights an item.
    void Show(int tab, int item);
    // From now on shows the number beside the item of the download page, on the tab that has it;
    // none at 0.
    void WatchTasks(const Observed<int>& count);

  Q_SIGNALS:
    void chosen(int item);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    void SetTaskCount(int tasks);

    int tab_ = -1;
    int item_ = 0;  // highlighted
    int tasks_ = 0;
    bool welcome_ = true;  // the tab whose bar carries a picture at its foot
    Subscription taskWatch_;
};

}  // namespace quorvi
