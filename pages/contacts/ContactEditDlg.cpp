#include "pages/contacts/ContactEditDlg.h"

#include <QGridLayout>
#include <utility>

#include "agent/AgentSession.h"
#include "pages/kit/FormEditor.h"
#include "pages/kit/SavedText.h"
#include "pages/kit/ShownNames.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinChecks.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"
#include "ui/look/Theme.h"
#include "ui/page/Job.h"

namespace quorvi {

using look::ButtonKind;
using look::Color;
using look::Metric;

namespace {

// Numbers of the dialog and its controls.
constexpr int kDialog = 540;
constexpr int kName = 1149;
constexpr int kNickname = 1152;
struct TypedNumbers {
    int type;
    int text;
};
constexpr std::array<TypedNumbers, kContactFormPhones> kPhones{
    {{1380, 1150}, {1382, 1151}, {1383, 1240}}};
constexpr TypedNumbers kIm{1235, 1236};
constexpr TypedNumbers kEmail{1385, 1242};
constexpr int kNote = 1381;
constexpr int kAddress = 1243;
constexpr int kOrganisation = 1244;
constexpr int kWebsite = 1245;
constexpr int kFavourite = 1224;
constexpr int kSave = 1020;
constexpr int kCancel = 1021;
constexpr int kState = 1109;

// The form's grid: a column of captions, of combos and of fields at the left, of captions and of
// fields at the right.
enum Column {
    columnLeftCaption,
    columnCombo,
    columnLeftField,
    columnBetween,
    columnRightCaption,
    columnRightField
};
constexpr std::u8string_view kContactUnacknowledged = u8"上次填写的联系人没有得到手机的确认";

constexpr int kWebsiteRows = 2;
constexpr int kNoteRows = 3;

}  // namespace

CContactEditDlg::CContactEditDlg(PageHost& host, QWidget* parent, AgentAddress agent)
    : SkinDialog(kDialog, ToQString(u8"添加联系人 - Quorvi"), parent),
      host_(host),
      adds_(true),
      agent_(agent) {
    BuildControls();
}

CContactEditDlg::CContactEditDlg(PageHost& host, std::uint32_t contactId, QWidget* parent,
                                 AgentAddress agent)
    : SkinDialog(kDialog, ToQString(u8"修改联系人 - Quorvi"), parent),
      host_(host),
      adds_(false),
      contactId_(contactId),
      agent_(agent) {
    BuildControls();
    Load();
}

CSkinEdit* CContactEditDlg::Edit(int number, const QString& name) {
    auto* field = SetControlNumber(new CSkinEdit({}, Body()), number, name);
    connect(field, &QLineEdit::textChanged, this,
            [this, field](const QString& text) { Follow(field, text); });
    return field;
}

SkinTextEdit* CContactEditDlg::TextEdit(int number, const QString& name) {
    auto* field = SetControlNumber(new SkinTextEdit({}, Body()), number, name);
    connect(field, &QPlainTextEdit::textChanged, this,
            [this, field] { Follow(field, field->toPlainText()); });
    return field;
}

CContactEditDlg::TypedField CContactEditDlg::Typed(int typeNumber, int textNumber,
                                                   const QString& name,
                                                   const ContactTypeTable& types) {
    auto* type = SetControlNumber(new CSkinCombo(Body()), typeNumber, name + ToQString(u8"的类型"));
    for (const std::u8string_view caption : types.Captions()) {
        type->addItem(ToQString(caption));
    }
    type->setFixedWidth(Metric::editorCombo);
    return {type, Edit(textNumber, name)};
}

void CContactEditDlg::BuildControls() {
    auto* grid = new QGridLayout(Body());
    Body()->setContentsMargins(Metric::gap3, Metric::formPadding, Metric::formPadding, 0);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(Metric::gap2);
    grid->setVerticalSpacing(Metric::formGap);
    // The left fields with their combos are a little wider than the right ones.
    grid->setColumnStretch(columnLeftField, Metric::editorLeftField);
    grid->setColumnStretch(columnRightField, Metric::editorRightField);
    const auto caption = [&](int row, int column, std::u8string_view text) {
        grid->addWidget(new FormCaption(ToQString(text), Body()), row, column, Qt::AlignTop);
    };

    // Created in the order of the Tab key.
    int row = 0;
    caption(row, columnLeftCaption, u8"姓名");
    grid->addWidget(name_ = Edit(kName, ToQString(u8"姓名")), row++, columnCombo, 1, 2);
    caption(row, columnLeftCaption, u8"昵称");
    grid->addWidget(nickname_ = Edit(kNickname, ToQString(u8"昵称")), row++, columnCombo, 1, 2);
    const auto typed = [&](TypedNumbers numbers, const QString& name,
                           const ContactTypeTable& types) {
        const TypedField field = Typed(numbers.type, numbers.text, name, types);
        grid->addWidget(field.type, row, columnCombo);
        grid->addWidget(field.text, row++, columnLeftField);
        return field;
    };
    auto* phone = new FormCaption({}, Body());
    const auto showPhone = [phone] {
        phone->setPixmap(
            look::icon(u"call", Metric::iconButton, Color::ink2, phone->devicePixelRatioF()));
    };
    showPhone();
    connect(&look::TheThemeNotice(), &look::ThemeNotice::changed, phone, showPhone);
    phone->setAccessibleName(ToQString(u8"电话"));
    grid->addWidget(phone, row, columnLeftCaption);
    for (std::size_t i = 0; i < phones_.size(); ++i) {
        phones_[i] = typed(kPhones[i], ToQString(u8"电话 %1").arg(i + 1), kPhoneTypes);
    }
    caption(row, columnLeftCaption, u8"IM通讯");
    im_ = typed(kIm, ToQString(u8"IM通讯"), kImTypes);
    caption(row, columnLeftCaption, u8"电子邮件");
    email_ = typed(kEmail, ToQString(u8"电子邮件"), kEmailTypes);

    row = 0;
    caption(row, columnRightCaption, u8"联系地址");
    grid->addWidget(address_ = Edit(kAddress, ToQString(u8"联系地址")), row++, columnRightField);
    caption(row, columnRightCaption, u8"公司组织");
    grid->addWidget(organisation_ = Edit(kOrganisation, ToQString(u8"公司组织")), row++,
                    columnRightField);
    caption(row, columnRightCaption, u8"网站微博");
    grid->addWidget(website_ = TextEdit(kWebsite, ToQString(u8"网站微博")), row, columnRightField,
                    kWebsiteRows, 1);
    row += kWebsiteRows;
    caption(row, columnRightCaption, u8"备注");
    grid->addWidget(note_ = TextEdit(kNote, ToQString(u8"备注")), row, columnRightField, kNoteRows,
                    1);
    for (SkinTextEdit* area : {website_, note_}) {
        area->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    }
    for (int line = 0; line < grid->rowCount(); ++line) {
        grid->setRowMinimumHeight(line, Metric::fieldHeight);
    }
    grid->setRowStretch(grid->rowCount(), 1);

    // The state takes all the room that is left, so that whatever it says, nothing else moves.
    state_ = AddState(kState, ToQString(u8"就绪"));
    favourite_ = SetControlNumber(new CSkinCheck(ToQString(u8"设为收藏"), this), kFavourite,
                                  ToQString(u8"设为收藏"));
    AddToFooter(favourite_);
    save_ = AddButton(kSave, ToQString(u8"保存"), ButtonKind::primary);
    save_->SetImage(QStringLiteral("save"));
    connect(save_, &QAbstractButton::clicked, this, &CContactEditDlg::Save);
    AddEndButton(kCancel, ToQString(u8"取消"), QDialog::Rejected);
    save_->setDefault(true);
    name_->setFocus();

    SetInnerSize({Metric::editorWidth, Metric::editorHeight});
    Begin({});
    AskBeforeEscape([this] { return WouldLose(); });
}

ContactForm CContactEditDlg::Form() const {
    const auto text = [this](const CSkinEdit* field) { return texts_.Text(*field); };
    const auto typed = [&](const TypedField& field, const ContactTypeTable& types) {
        return ContactTypedField{types.Code(field.type->currentIndex()), text(field.text)};
    };
    ContactForm form;
    form.favourite = favourite_->GetCheck() == 1;
    form.name = text(name_);
    form.nickname = text(nickname_);
    form.note = texts_.Text(*note_);
    for (std::size_t i = 0; i < phones_.size(); ++i) {
        form.phones[i] = typed(phones_[i], kPhoneTypes);
    }
    form.im = typed(im_, kImTypes);
    form.email = typed(email_, kEmailTypes);
    form.website = texts_.Text(*website_);
    form.organisation = text(organisation_);
    form.address = text(address_);
    return form;
}

void CContactEditDlg::SetForm(const ContactForm& form) {
    // A long text shows its start.
    const auto show = [this](CSkinEdit* field, const std::string& text) {
        texts_.Set(*field, text);
        field->home(false);
    };
    const auto typed = [&show](const TypedField& field, const ContactTypedField& value,
                               const ContactTypeTable& types) {
        field.type->setCurrentIndex(types.ComboIndex(value.type));
        show(field.text, value.text);
    };
    favourite_->SetCheck(form.favourite ? 1 : 0);
    texts_.Set(*name_, form.name);
    show(nickname_, form.nickname);
    texts_.Set(*note_, form.note);
    for (std::size_t i = 0; i < phones_.size(); ++i) {
        typed(phones_[i], form.phones[i], kPhoneTypes);
    }
    typed(im_, form.im, kImTypes);
    typed(email_, form.email, kEmailTypes);
    texts_.Set(*website_, form.website);
    show(organisation_, form.organisation);
    show(address_, form.address);
}

void CContactEditDlg::Begin(const ContactForm& form) {
    SetForm(form);
    begun_ = Form();
}

void CContactEditDlg::BeginWithNumber(const std::string& number) {
    ContactForm form;
    form.phones[0].text = number;
    Begin(form);
}

bool CContactEditDlg::WouldLose() const {
    return Form() != begun_;
}

void CContactEditDlg::SetBusy(bool busy) {
    Body()->setEnabled(!busy);
    favourite_->setEnabled(!busy);
    save_->setEnabled(!busy);
}

void CContactEditDlg::Load() {
    record_ = {};
    // When the phone gave no record, a save goes to this contact all the same.
    record_.id = contactId_;
    SetBusy(true);
    RunJob(
        this, [agent = agent_, id = contactId_] { return FetchContact(AgentSession(agent), id); },
        [this](ContactReply&& reply) { ShowLoaded(std::move(reply)); });
}

void CContactEditDlg::ShowLoaded(ContactReply&& reply) {
    SetBusy(false);
    const std::u8string_view risk = RiskOfSaving(reply);
    Notice(CSkinStateLabel::kRed, risk);
    ShowLoadOutcome(host_, reply.outcome);
    if (reply.record) {
        record_ = *std::move(reply.record);
        Begin(FormOf(record_));
    }
    if (resumed_ && *resumed_ != FormOf(record_)) {
        SetForm(*resumed_);
        if (risk.empty()) {
            Notice(CSkinStateLabel::kBlue, kContactUnacknowledged);
        }
    }
    resumed_.reset();
    unsaved_.reset();
    name_->setFocus();
}

void CContactEditDlg::Follow(const QWidget* field, const QString& text) {
    if (FitsCodePage(text)) {
        lossy_.erase(field);
    } else {
        lossy_.insert(field);
    }
    refused_ = refused_ && name_->text().isEmpty();
    ShowNotice();
}

void CContactEditDlg::Notice(int state, std::u8string_view text) {
    noticeState_ = state;
    noticeText_ = ToQString(text);
    ShowNotice();
}

// Why nothing was saved goes before the warning about what is being typed, and that before what
// there is to say of the contact.
void CContactEditDlg::ShowNotice() {
    if (refused_) {
        state_->SetState(CSkinStateLabel::kRed, ToQString(kEmptyContactName));
    } else if (!lossy_.empty()) {
        state_->SetState(CSkinStateLabel::kRed, ToQString(kCharactersLost));
    } else if (!noticeText_.isEmpty()) {
        state_->SetState(noticeState_, noticeText_);
    } else {
        state_->SetState(CSkinStateLabel::kBlue, ToQString(u8"就绪"));
    }
}

void CContactEditDlg::Resume(const ContactForm& form) {
    SetForm(form);
    Notice(CSkinStateLabel::kBlue, kContactUnacknowledged);
    ForgetUnacknowledged(host_);
    if (!adds_) {
        resumed_ = form;
        unsaved_ = form;  // until it stands over what was loaded, a closed dialog loses nothing
    }
}

void CContactEditDlg::Save() {
    refused_ = false;
    Notice(CSkinStateLabel::kBlue, {});
    if (!adds_) {
        Send(UpdateContactRequest(RecordToUpdate(record_, Form())));
        return;
    }
    const auto record = RecordToAdd(Form());
    if (!record) {
        refused_ = true;
        ShowNotice();
        name_->setFocus();
        return;
    }
    Send(AddContactRequest(*record));
}

void CContactEditDlg::Send(Bytes request) {
    SetBusy(true);
    SendForm(
        *this, host_, agent_, std::move(request), Form(), unsaved_,
        ToQString(adds_ ? u8"已添加联系人 %1" : u8"已保存联系人 %1").arg(ShortName(name_->text())));
}

}  // namespace quorvi
