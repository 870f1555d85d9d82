// A page that is one picture.
#pragma once

#include "ui/page/Page.h"

namespace quorvi {

// The picture, a headline and a line of text under it.
class PlaceholderPage : public Page {
    Q_OBJECT
  public:
    PlaceholderPage(PageHost& host, int dialog, QString headline, QString line, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString headline_;
    QString line_;
};

// The announcement of a feature that is not there.
[[nodiscard]] Page* MakeAnnouncement(PageHost& host, int dialog, QWidget* parent);

}  // namespace quorvi
