#include "app/window/KeysDlg.h"

#include <QVBoxLayout>
#include <array>
#include <vector>

#include "app/window/KeyTable.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/list/RecordListCtrl.h"

namespace quorvi {

using look::ButtonKind;
using look::Metric;

namespace {

// Numbers of the dialog and its controls.
constexpr int kDialog = 695;
constexpr int kList = 1074;
constexpr int kClose = 1021;

enum Column { columnKeys, columnDeed };

constexpr std::array<ListColumn, 2> kColumns{{
    {u8"按键", 220, CellKind::text, CellAlign::left},
    {.caption = u8"作用", .width = 240, .align = CellAlign::left, .name = true},
}};

class KeyListCtrl : public RecordListCtrl<KeyRow> {
  public:
    explicit KeyListCtrl(QWidget* parent) : RecordListCtrl(kColumns, Metric::rowCompact, parent) {}

  protected:
    [[nodiscard]] Cell CellOf(const KeyRow& row, int column) const override {
        if (column == columnDeed) {
            return {.text = ToQString(row.deed)};
        }
        // Blanks between keys are made wide, so that they do not read as one.
        return {.text = ToQString(row.keys).replace(u' ', QStringLiteral("    ")),
                .ink = look::Color::plum7};
    }
};

}  // namespace

KeysDlg::KeysDlg(QWidget* parent) : SkinDialog(kDialog, ToQString(u8"键盘操作 - Quorvi"), parent) {
    auto* list = SetControlNumber(new KeyListCtrl(Body()), kList, ToQString(u8"按键"));
    list->SetRecords(std::vector<KeyRow>(kKeyTable.begin(), kKeyTable.end()));
    list->SelectRow(0);
    auto* rows = new QVBoxLayout(Body());
    rows->setContentsMargins({});
    rows->addWidget(list);
    SetDefault(AddEndButton(kClose, ToQString(u8"关闭"), QDialog::Rejected, ButtonKind::primary));
    const int all = Metric::header + static_cast<int>(kKeyTable.size()) * Metric::rowCompact +
                    2 * list->frameWidth();
    SetInnerSize({Metric::planWidth,
                  Metric::dialogCaption + all + 2 * Metric::dialogPadding + Metric::dialogFooter});
}

}  // namespace quorvi
