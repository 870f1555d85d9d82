#include "pages/contacts/GroupEditDlg.h"

#include <QHBoxLayout>
#include <string>
#include <utility>

#include "pages/kit/FormEditor.h"
#include "pages/kit/SavedText.h"
#include "pages/kit/ShownNames.h"
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

CGroupEditDlg::CGroupEditDlg(PageHost& host, ContactGroup group, QWidget* parent,
                             AgentAddress agent)
    : SkinDialog(kDialog, ToQString(u8"修改分组 - Quorvi"), parent),
      host_(host),
      group_(std::move(group)),
      agent_(agent) {
    BuildControls();
    begun_ = ToQString(group_->title);
    title_->setText(begun_);
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
    notice_ = new CSkinStateLabel({}, this);
    AddToFooter(notice_);
    connect(title_, &QLineEdit::textChanged, this, &CGroupEditDlg::ShowNotice);
    title_->setFocus();
    AskBeforeEscape([this] { return title_->text() != begun_; });
    SetInnerSize({Metric::groupEditWidth, Metric::groupEditHeight});
}

void CGroupEditDlg::Resume(const QString& title) {
    resumed_ = true;
    title_->setText(title);
    title_->selectAll();
    ShowNotice();
    ForgetUnacknowledged(host_);
}

// The warning about what is being typed goes before what there is to say of the title.
void CGroupEditDlg::ShowNotice() {
    if (!FitsCodePage(title_->text())) {
        notice_->SetState(CSkinStateLabel::kRed, ToQString(kCharactersLost));
    } else {
        notice_->SetState(CSkinStateLabel::kBlue,
                          resumed_ ? ToQString(u8"上次的标题没有得到手机的确认") : QString());
    }
}

void CGroupEditDlg::Save() {
    const std::string title = FromQString(title_->text());
    if (title.empty()) {
        accept();
        return;
    }
    ok_->setEnabled(false);
    SendForm(
        *this, host_, agent_, group_ ? RenameGroupRequest(*group_, title) : AddGroupRequest(title),
        title_->text(), unsaved_,
        ToQString(group_ ? u8"已保存分组 %1" : u8"已添加分组 %1").arg(ShortName(title_->text())));
}

}  // namespace quorvi
