#include "pages/contacts/GroupEditDlg.h"

#include <QHBoxLayout>
#include <string>

#include "pages/contacts/ContactGroups.h"
#include "pages/kit/PageSession.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"

namespace quorvi {

using look::ButtonKind;
using look::Metric;

namespace {

constexpr int kDialog = 681;
constexpr int kTitle = 1257;
constexpr int kOk = 1215;
constexpr int kCancel = 1021;

}  // namespace

CGroupEditDlg::CGroupEditDlg(PageHost& host, QWidget* parent, AgentAddress agent)
    : SkinDialog(kDialog, ToQString(u8"新建分组 - Quorvi"), parent), host_(host), agent_(agent) {
    BuildControls();
}

CGroupEditDlg::CGroupEditDlg(PageHost& host, std::uint32_t groupId, std::string_view title,
                             QWidget* parent, AgentAddress agent)
    : SkinDialog(kDialog, ToQString(u8"修改分组 - Quorvi"), parent),
      host_(host),
      groupId_(groupId),
      agent_(agent) {
    BuildControls();
    title_->setText(ToQString(title));
    title_->selectAll();
}

void CGroupEditDlg::BuildControls() {
    const QString caption = ToQString(u8"分组标题");
    title_ = SetControlNumber(new CSkinEdit({}, Body()), kTitle, caption);
    Body()->setContentsMargins(Metric::gap3, Metric::formPadding, Metric::formPadding,
                               Metric::gap3);
    auto* row = new QHBoxLayout(Body());
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Metric::formGap);
    row->addWidget(new FormCaption(caption, Body()), 0, Qt::AlignTop);
    row->addWidget(title_, 1, Qt::AlignTop);
    ok_ = AddButton(kOk, ToQString(u8"确定"), ButtonKind::primary);
    connect(ok_, &QAbstractButton::clicked, this, &CGroupEditDlg::Save);
    AddEndButton(kCancel, ToQString(u8"取消"), QDialog::Rejected);
    ok_->setDefault(true);
    title_->setFocus();
    SetInnerSize({Metric::groupEditWidth, Metric::groupEditHeight});
}

void CGroupEditDlg::Save() {
    const std::string title = FromQString(title_->text());
    if (title.empty()) {
        accept();
        return;
    }
    ok_->setEnabled(false);
    EndWithOk();
    SendChange(host_, *Body(), agent_,
               groupId_ ? RenameGroupRequest(*groupId_, title) : AddGroupRequest(title),
               [this](const AcknowledgedReply&) { accept(); });
}

}  // namespace quorvi
