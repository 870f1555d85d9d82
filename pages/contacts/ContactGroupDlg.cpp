#include "pages/contacts/ContactGroupDlg.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <array>
#include <utility>
#include <vector>

#include "pages/contacts/GroupEditDlg.h"
#include "pages/kit/PageSession.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"
#include "ui/list/RecordListCtrl.h"

namespace quorvi {

using look::ButtonKind;
using look::Metric;

namespace {

constexpr int kDialog = 679;
constexpr int kList = 1372;
constexpr int kRefresh = 1047;
constexpr int kAdd = 1154;
constexpr int kRename = 1155;
constexpr int kDelete = 1049;
constexpr int kOk = 1215;

enum Column { columnNothing, columnTitle, columnAccount, columnVisible, columnTick };

constexpr std::array<ListColumn, 5> kColumns{{
    {u8"", 25},
    {u8"标题", 200},
    {u8"所属账户", 180},
    {u8"可见", 70},
    {u8"选择", 80, CellKind::check},
}};

struct GroupRow {
    ContactGroup group;
    bool whole = true;  // false for the empty row behind a list that the mark ended
};

}  // namespace

class ContactGroupListCtrl : public RecordListCtrl<GroupRow> {
  public:
    explicit ContactGroupListCtrl(QWidget* parent)
        : RecordListCtrl(kColumns, Metric::rowCompact, parent) {}

    void Show(ContactGroups groups) {
        std::vector<GroupRow> rows;
        rows.reserve(groups.rows.size() + 1);
        for (ContactGroup& group : groups.rows) {
            rows.push_back({std::move(group)});
        }
        if (groups.endedByMark) {
            rows.push_back({{.id = groups.markedId, .title = {}, .account = {}}, false});
        }
        SetRecords(std::move(rows));
    }

  protected:
    [[nodiscard]] Cell CellOf(const GroupRow& row, int column) const override {
        switch (column) {
            case columnTitle:
                return {.text = ToShownQString(row.group.title)};
            case columnAccount:
                return {.text = ToShownQString(row.group.account)};
            case columnVisible:
                return row.whole ? Cell{.text = ToQString(GroupVisibleText(row.group.visible))}
                                 : Cell{};
            default:
                return {};
        }
    }
};

CContactGroupDlg::CContactGroupDlg(PageHost& host, QWidget* parent, AgentAddress agent)
    : SkinDialog(kDialog, ToQString(u8"联系人分组 - Quorvi"), parent), host_(host), agent_(agent) {
    BuildControls();
    Refresh();
}

void CContactGroupDlg::BuildControls() {
    auto* top = new QHBoxLayout;
    top->setSpacing(Metric::gap2);
    const auto button = [&](int number, std::u8string_view text, const QString& icon,
                            void (CContactGroupDlg::*pressed)()) {
        const QString caption = ToQString(text);
        auto* made = SetControlNumber(new CSkinButton(caption, Body()), number, caption);
        made->SetImage(icon);
        made->setAutoDefault(false);
        connect(made, &QAbstractButton::clicked, this, pressed);
        top->addWidget(made);
    };
    button(kRefresh, u8"刷新", QStringLiteral("refresh"), &CContactGroupDlg::Refresh);
    top->addStretch(1);
    button(kAdd, u8"新建分组", QStringLiteral("add"), &CContactGroupDlg::Add);
    button(kRename, u8"修改分组", QStringLiteral("edit"), &CContactGroupDlg::Rename);
    button(kDelete, u8"删除选择", QStringLiteral("delete"), &CContactGroupDlg::DeleteTicked);

    list_ = SetControlNumber(new ContactGroupListCtrl(Body()), kList, ToQString(u8"联系人分组"));
    list_->SetEmptyText(ToQString(u8"列表是空的"),
                        ToQString(u8"手机上没有联系人分组，可以点“新建分组”"));
    list_->SetFailedText(ToQString(u8"没有连上手机"), ToQString(u8"请检查数据线，然后点“刷新”"));

    auto* column = new QVBoxLayout(Body());
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metric::gap3);
    column->addLayout(top);
    column->addWidget(list_, 1);
    SetDefault(AddEndButton(kOk, ToQString(u8"确定"), QDialog::Accepted, ButtonKind::primary));
    SetInnerSize({Metric::groupsWidth, Metric::groupsHeight});
}

void CContactGroupDlg::Refresh() {
    LoadList(load_, host_, list_, [agent = agent_](const AgentSession::Progress& progress) {
        return FetchContactGroups(AgentSession(agent), progress);
    });
}

void CContactGroupDlg::Add() {
    RunEditor(new CGroupEditDlg(host_, this, agent_));
}

void CContactGroupDlg::Rename() {
    if (const GroupRow* row = list_->Current()) {
        RunEditor(new CGroupEditDlg(host_, row->group.id, row->group.title, this, agent_));
    }
}

void CContactGroupDlg::RunEditor(SkinDialog* editor) {
    editor->Open([this](int result) {
        if (result == QDialog::Accepted) {
            Refresh();
        }
    });
}

void CContactGroupDlg::DeleteTicked() {
    std::vector<std::uint32_t> ids;
    for (const int row : list_->TickedRows()) {
        ids.push_back(list_->At(row).group.id);
    }
    if (ids.empty()) {
        (new CNothingCheckedDlg(this))->Open();
        return;
    }
    const QString question =
        ToQString(u8"您真的要删除选择的【 %1 】条联系人分组吗？").arg(ids.size());
    (new CConfirmDeleteDlg(question, this))
        ->Open([this, request = DeleteGroupsRequest(ids)](int result) {
            if (result != QDialog::Accepted) {
                return;
            }
            SendChange(host_, *Body(), agent_, request, [this](const AcknowledgedReply& reply) {
                // Unlike on the pages, a failed connect fetches nothing anew.
                if (reply.Connected()) {
                    Refresh();
                }
            });
        });
}

}  // namespace quorvi
