// The row above a page: its command buttons, or its heading.
#pragma once

#include <QWidget>
#include <array>

#include "app/window/PageTable.h"

class QLabel;

namespace quorvi {

class CSkinStripButton;
class Page;
class RemarkLabel;

// Four buttons in fixed places; a place whose button has no caption stays empty. A page without any
// button, and one that is not built yet, shows its heading instead.
class CommandRow : public QWidget {
    Q_OBJECT
  public:
    // Control numbers, in the order of the buttons.
    static constexpr std::array<int, kCommandCount> kButtons = {1013, 1014, 1015, 1050};

    explicit CommandRow(QWidget* parent);

    // `page` is the row's page, whose count line is shown at the right end from now on, and which
    // may give a button the focus.
    void Show(const PageRow& row, bool built, const Page& page);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  Q_SIGNALS:
    // A button was pressed; the checked state of the other three is cleared by then.
    void pressed(int index);

  private:
    std::array<CSkinStripButton*, kCommandCount> buttons_;
    QLabel* heading_;
    RemarkLabel* count_;
    QMetaObject::Connection counted_;  // to the page whose count is shown
    QMetaObject::Connection offered_;  // to the same page
};

}  // namespace quorvi
