#include "pages/settings/DeletedPane.h"

#include <QVBoxLayout>
#include <array>
#include <ctime>
#include <utility>
#include <vector>

#include "backup/DeletedRows.h"
#include "base/Places.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinPanels.h"
#include "ui/list/RecordListCtrl.h"
#include "ui/page/Job.h"

namespace quorvi {

using look::Color;
using look::Metric;

namespace {

enum Column { columnTime, columnKind, columnWhat, columnLeft, columnAction };

constexpr std::array<ListColumn, 5> kColumns{{
    {u8"删除时间", Metric::deletedTime},
    {u8"类型", Metric::deletedKind, CellKind::text, CellAlign::left},
    {.caption = u8"内容", .width = Metric::deletedWhat, .align = CellAlign::left, .name = true},
    {u8"还剩", Metric::deletedLeft},
    {u8"操作", Metric::deletedAction, CellKind::link},
}};

}  // namespace

class DeletedListCtrl : public RecordListCtrl<DeletedRow> {
  public:
    explicit DeletedListCtrl(QWidget* parent)
        : RecordListCtrl(kColumns, Metric::rowCompact, parent) {}

  protected:
    [[nodiscard]] Cell CellOf(const DeletedRow& row, int column) const override {
        switch (column) {
            case columnTime:
                return {.text = ToQString(row.time)};
            case columnKind:
                return {.text = ToQString(row.kind)};
            case columnWhat:
                return {.text = ToShownQString(row.what)};
            case columnLeft:
                return {.text = ToQString(row.left)};
            default:
                return row.canGoBack ? Cell{.text = ToQString(u8"恢复"), .ink = Color::blue}
                                     : Cell{.text = ToQString(u8"查看文件"),
                                            .ink = Color::blue,
                                            .note = ToQString(u8"手机不接收短信和通话记录的恢复，"
                                                              u8"打开文件夹可以查看删除的内容")};
        }
    }
};

DeletedPane::DeletedPane(QWidget* parent) : QWidget(parent), list_(new DeletedListCtrl(this)) {
    list_->setObjectName(QStringLiteral("deletedList"));
    list_->setAccessibleName(ToQString(u8"最近删除"));
    list_->setFixedHeight(Metric::header + Metric::deletedRows * Metric::rowCompact +
                          2 * Metric::hairline);
    list_->SetObserver(this);
    list_->SetEmptyText(ToQString(u8"最近没有删除内容"),
                        ToQString(u8"从手机里删除的内容会先在电脑里留一份，30 天内可以在这里恢复"));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(Metric::gap2);
    rows->addWidget(
        new GroupHead(ToQString(u8"最近删除"), ToQString(u8"删除的内容在电脑里保留 30 天")));
    rows->addWidget(list_);
    connect(list_, &CSkinListCtrl::rowOpened, this, &DeletedPane::OpenRow);
}

void DeletedPane::Refresh() {
    if (reading_) {
        again_ = true;
        return;
    }
    reading_ = true;
    RunJob(
        this,
        [] {
            const std::int64_t now = std::time(nullptr);
            return DeletedRowsOf(DeletedItems(ThePlaces().DeletedItems()).List(now), now);
        },
        [this](std::vector<DeletedRow>&& rows) {
            reading_ = false;
            if (rows != list_->Records()) {
                list_->SetRecords(std::move(rows));
            }
            if (std::exchange(again_, false)) {
                Refresh();
            }
        });
}

void DeletedPane::SetHeld(bool held) {
    held_ = held;
    list_->setEnabled(!held);
}

void DeletedPane::OnLinkClicked(int /*kind*/, int row) {
    OpenRow(row);
}

void DeletedPane::OpenRow(int row) {
    const DeletedRow& opened = list_->At(row);
    if (!opened.canGoBack) {
        Q_EMIT filesAsked(opened.backup);
    } else if (!held_) {
        Q_EMIT planAsked(opened.backup);
    }
}

}  // namespace quorvi
