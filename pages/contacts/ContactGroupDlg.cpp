#include "pages/contacts/ContactGroupDlg.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <array>
#include <utility>

#include "pages/contacts/GroupEditDlg.h"
#include "pages/kit/FormEditor.h"
#include "pages/kit/KeptColumns.h"
#include "pages/kit/PhoneListCtrl.h"
#include "pages/kit/ViewSentences.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/page/PageKeys.h"

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
    {.caption = u8"标题", .width = 200, .name = true},
    {u8"所属账户", 180},
    {u8"可见", 70},
    {u8"选择", 80, CellKind::check},
}};

}  // namespace

class ContactGroupListCtrl : public PhoneListCtrl<ContactGroup> {
  public:
    explicit ContactGroupListCtrl(QWidget* parent)
        : PhoneListCtrl(kColumns, Metric::rowCompact, parent) {}

  protected:
    [[nodiscard]] Cell CellOf(const ContactGroup& group, int column) const override {
        switch (column) {
            case columnTitle:
                return {.text = ToShownQString(group.title)};
            case columnAccount:
                return {.text = ToShownQString(group.account)};
            case columnVisible:
                return {.text = ToQString(GroupVisibleText(group.visible))};
            default:
                return {};
        }
    }
};

CContactGroupDlg::CContactGroupDlg(PageHost& host, QWidget* parent, AgentAddress agent)
    : SkinDialog(kDialog, ToQString(u8"联系人分组 - Quorvi"), parent), host_(host), agent_(agent) {
    BuildControls();
    road_.emplace(ListPlace{.host = host_,
                            .window = *this,
                            .controls = *Body(),
                            .agent = agent_,
                            .afterFailedChange = AfterFailedChange::stay},
                  list_, &FetchContactGroups);
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
    list_->EnableFind();
    SayWhenEmpty(*list_, u8"手机上没有联系人分组，可以点“新建分组”");
    SayWhenFailed(*list_, u8"刷新");

    auto* count = new RemarkLabel({}, Body());
    count->setObjectName(QStringLiteral("count"));
    top->insertWidget(1, count);
    connect(list_, &CSkinListCtrl::countChanged, this,
            [this, count] { count->setText(list_->CountText()); });

    HeedKeys(*Body(), {.refresh = [this] { Refresh(); },
                       .add = [this] { Add(); },
                       .list = list_,
                       .erase = [this] { Delete(list_->ChosenRows()); }});
    auto* column = new QVBoxLayout(Body());
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metric::gap3);
    column->addLayout(top);
    column->addWidget(list_, 1);
    SetDefault(AddEndButton(kOk, ToQString(u8"确定"), QDialog::Accepted, ButtonKind::primary));
    SetInnerSize({Metric::groupsWidth, Metric::groupsHeight});
    KeepColumnsOf(*this, host_.Settings());
}

void CContactGroupDlg::Refresh() {
    road_->Refresh();
}

void CContactGroupDlg::Add() {
    auto* editor = new CGroupEditDlg(host_, this, agent_);
    if (const auto title = std::exchange(unsaved_.added, std::nullopt)) {
        editor->Resume(*title);
    }
    RunEditor(editor, [this](const QString& title) { unsaved_.added = title; });
}

void CContactGroupDlg::Rename() {
    if (const ContactGroup* group = list_->Current()) {
        auto* editor = new CGroupEditDlg(host_, *group, this, agent_);
        if (const auto title = unsaved_.renamed.extract(group->id)) {
            editor->Resume(title.mapped());
        }
        RunEditor(editor,
                  [this, id = group->id](const QString& title) { unsaved_.renamed[id] = title; });
    }
}

void CContactGroupDlg::RunEditor(CGroupEditDlg* editor,
                                 std::function<void(const QString& title)> keep) {
    OpenEditor(editor, std::move(keep), [this] { Refresh(); });
}

void CContactGroupDlg::DeleteTicked() {
    Delete(list_->TickedRows());
}

void CContactGroupDlg::Delete(const std::vector<int>& rows) {
    road_->Delete({.ids = list_->OfRows(rows, &ContactGroup::id, MarkedRow::counts),
                   .rows = list_->RecordsOf(rows),
                   .names = list_->NamesOf(rows, MarkedRow::counts),
                   .question = u8"您真的要删除选择的【 %1 】条联系人分组吗？",
                   .said = u8"已删除 %1 个分组",
                   .request = &DeleteGroupsRequest});
}

}  // namespace quorvi
