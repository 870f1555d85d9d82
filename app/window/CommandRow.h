// The row above a page: its command buttons, or its heading.
#pragma once

#include <QWidget>
#include <array>

#include "app/window/PageTable.h"

class QLabel;

namespace quorvi {

class CSkinStripButton;

// Four buttons in fixed places; a place whose button has no caption stays empty. A page without any
// button, and one that is not built yet, shows its heading instead.
class CommandRow : public QWidget {
    Q_OBJECT
  public:
    // Control numbers, in the order of the buttons.
    static constexpr std::array<int, kCommandCount> kButtons = {1013, 1014, 1015, 1050};

    explicit CommandRow(QWidget* parent);

    void Show(const PageRow& row, bool built);

  Q_SIGNALS:
    // A button was pressed; the checked state of the other three is cleared by then.
    void pressed(int index);

  private:
    std::array<CSkinStripButton*, kCommandCount> buttons_;
    QLabel* heading_;
};

}  // namespace quorvi
