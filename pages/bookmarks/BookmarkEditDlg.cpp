#include "pages/bookmarks/BookmarkEditDlg.h"

#include <QGridLayout>
#include <QRegularExpressionValidator>

#include "pages/kit/FormEditor.h"
#include "pages/kit/SavedText.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"

namespace quorvi {

using look::ButtonKind;
using look::Metric;

namespace {

// Numbers of the dialog and its controls.
constexpr int kDialog = 553;
constexpr int kTitle = 1257;
constexpr int kUrl = 1261;
constexpr int kStore = 1260;
constexpr int kVisits = 1262;
constexpr int kOk = 1215;
constexpr int kCancel = 1021;

// The lines of a group box.
class GroupForm {
  public:
    explicit GroupForm(CSkinGroupBox* group) : group_(group), grid_(new QGridLayout(group)) {
        group_->setContentsMargins(Metric::gap2, Metric::groupCaption + Metric::groupFoot,
                                   Metric::groupPadding, Metric::groupFoot);
        grid_->setContentsMargins(0, 0, 0, 0);
        grid_->setHorizontalSpacing(Metric::formGap);
        grid_->setVerticalSpacing(Metric::formGap);
        grid_->setColumnStretch(1, 1);
    }

    void Add(std::u8string_view caption, QWidget* field, Qt::Alignment alignment = {}) {
        const int row = grid_->rowCount();
        grid_->addWidget(new FormCaption(ToQString(caption), group_), row, 0);
        grid_->addWidget(field, row, 1, alignment);
    }

  private:
    CSkinGroupBox* group_;
    QGridLayout* grid_;
};

}  // namespace

CBookmarkEditDlg::CBookmarkEditDlg(PageHost& host, QWidget* parent, AgentAddress agent)
    : SkinDialog(kDialog, ToQString(u8"新建书签 - Quorvi"), parent), host_(host), agent_(agent) {
    BuildControls();
    Begin({});
}

CBookmarkEditDlg::CBookmarkEditDlg(PageHost& host, std::uint32_t id, const BookmarkForm& form,
                                   QWidget* parent, AgentAddress agent)
    : SkinDialog(kDialog, ToQString(u8"修改书签 - Quorvi"), parent),
      host_(host),
      id_(id),
      agent_(agent) {
    BuildControls();
    Begin(form);
}

CSkinEdit* CBookmarkEditDlg::Edit(int number, std::u8string_view name) {
    return SetControlNumber(new CSkinEdit({}, Body()), number, ToQString(name));
}

void CBookmarkEditDlg::BuildControls() {
    auto* column = new QVBoxLayout(Body());
    Body()->setContentsMargins(Metric::dialogPadding, Metric::dialogPadding, Metric::dialogPadding,
                               Metric::gap3);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metric::gap3);
    const auto group = [&](std::u8string_view caption) {
        auto* box = new CSkinGroupBox(ToQString(caption), Body());
        column->addWidget(box);
        return GroupForm(box);
    };

    // Created in the order of the Tab key.
    GroupForm needed = group(u8"必填内容");
    needed.Add(u8"标题", title_ = Edit(kTitle, u8"标题"));
    needed.Add(u8"网址", url_ = Edit(kUrl, u8"网址"));
    GroupForm optional = group(u8"选填内容");
    store_ = SetControlNumber(new CSkinCombo(Body()), kStore, ToQString(u8"存储位置"));
    store_->addItem(ToQString(kPhoneBookmarkStore));
    store_->setFixedWidth(Metric::bookmarkStore);
    optional.Add(u8"存储位置", store_, Qt::AlignLeft);
    visits_ = Edit(kVisits, u8"访问次数");
    visits_->setFixedWidth(Metric::editorCombo);
    visits_->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), visits_));
    optional.Add(u8"访问次数", visits_, Qt::AlignLeft);

    state_ = AddState({});
    ok_ = AddButton(kOk, ToQString(u8"确定"), ButtonKind::primary);
    connect(ok_, &QAbstractButton::clicked, this, &CBookmarkEditDlg::Save);
    AddEndButton(kCancel, ToQString(u8"取消"), QDialog::Rejected);
    ok_->setDefault(true);
    title_->setFocus();
    SetInnerSize({Metric::bookmarkEditWidth, Metric::bookmarkEditHeight});
    AskBeforeEscape([this] { return Form() != begun_; });
    for (const QLineEdit* field : {title_, url_}) {
        connect(field, &QLineEdit::textChanged, this, &CBookmarkEditDlg::ShowNotice);
    }
}

BookmarkForm CBookmarkEditDlg::Form() const {
    return {texts_.Text(*title_), texts_.Text(*url_), texts_.Text(*visits_)};
}

void CBookmarkEditDlg::SetForm(const BookmarkForm& form) {
    texts_.Set(*title_, form.title);
    texts_.Set(*url_, form.url);
    url_->home(false);  // a long address shows its start
    texts_.Set(*visits_, form.visits);
}

void CBookmarkEditDlg::Begin(const BookmarkForm& form) {
    SetForm(form);
    begun_ = Form();
    ShowNotice();
}

void CBookmarkEditDlg::Resume(const BookmarkForm& form) {
    SetForm(form);
    resumed_ = true;
    ShowNotice();
    ForgetUnacknowledged(host_);
}

// The warning about what is being typed goes before what there is to say of the bookmark.
void CBookmarkEditDlg::ShowNotice() {
    if (!FitsCodePage(title_->text()) || !FitsCodePage(url_->text())) {
        state_->SetState(CSkinStateLabel::kRed, ToQString(kCharactersLost));
    } else {
        state_->SetState(CSkinStateLabel::kBlue,
                         ToQString(resumed_ ? u8"上次填写的书签没有得到手机的确认" : u8"就绪"));
    }
}

void CBookmarkEditDlg::Save() {
    ok_->setEnabled(false);
    const BookmarkForm form = Form();
    const BookmarkSettings settings = SettingsOf(form);
    SendForm(*this, host_, agent_,
             id_ ? UpdateBookmarkRequest(*id_, settings) : AddBookmarkRequest(settings), form,
             unsaved_, ToQString(id_ ? u8"已保存书签" : u8"已添加书签"));
}

}  // namespace quorvi
