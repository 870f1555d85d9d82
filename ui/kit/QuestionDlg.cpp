#include "ui/kit/QuestionDlg.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinFields.h"

namespace quorvi {

using look::ButtonKind;
using look::Color;
using look::Metric;
using look::Size;

namespace {

// Numbers of dialogs and controls.
constexpr int kMessageBox = 0;
constexpr int kConfirmDelete = 548;
constexpr int kNothingChecked = 682;
constexpr int kQuestionText = 1378;
constexpr int kFixedText = 65535;
constexpr int kAffirm = 1215;
constexpr int kCancel = 1021;
constexpr int kHelp = 1199;
constexpr int kOk = 1;
constexpr int kStay = 2;
constexpr int kQuote = 3;
constexpr int kRemark = 4;

struct KindPicture {
    QuestionDlg::Kind kind;
    std::u16string_view icon;
    Color color;
};

constexpr std::array<KindPicture, 3> kKinds{
    {{QuestionDlg::Kind::information, u"info", Color::plum6},
     {QuestionDlg::Kind::warning, u"warning", Color::amber},
     {QuestionDlg::Kind::error, u"error", Color::red}}};

// The picture beside the sentence.
class KindMark : public QWidget {
  public:
    KindMark(QuestionDlg::Kind kind, QWidget* parent)
        : QWidget(parent), row_(kKinds[static_cast<std::size_t>(kind)]) {
        setFixedSize(Metric::iconMessage, Metric::iconMessage);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        look::drawIcon(painter, rect(), QStringView(row_.icon), Metric::iconMessage,
                       look::color(row_.color));
    }

  private:
    const KindPicture& row_;
};

}  // namespace

QuestionDlg::QuestionDlg(int number, const QString& title, Kind kind, const QString& text,
                         int textNumber, QWidget* parent)
    : SkinDialog(number, title, parent) {
    auto* sentence = SetControlNumber(new QLabel(text, Body()), textNumber);
    sentence->setTextFormat(Qt::PlainText);
    sentence->setFont(look::font(Size::s14));
    sentence->setWordWrap(true);
    auto* row = new QHBoxLayout(Body());
    row->setSpacing(Metric::gap4);
    Body()->setContentsMargins(Metric::questionPadding, Metric::dialogPadding,
                               Metric::questionPadding, Metric::dialogPadding);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(new KindMark(kind, Body()));
    column_ = new QVBoxLayout;
    column_->setSpacing(Metric::gap3);
    column_->addWidget(sentence);
    row->addLayout(column_, 1);

    FitHeight();
}

void QuestionDlg::FitHeight() {
    const int width =
        Metric::questionWidth - 2 * Metric::questionPadding - Metric::iconMessage - Metric::gap4;
    const int space = Metric::questionHeight - Metric::dialogCaption - Metric::dialogFooter -
                      2 * Metric::dialogPadding;
    const int extra = std::max(0, column_->totalHeightForWidth(width) - space);
    SetInnerSize({Metric::questionWidth, Metric::questionHeight + extra});
}

void QuestionDlg::Quote(const QString& text, const QString& name) {
    auto* quote = SetControlNumber(new SkinTextEdit({}, Body()), kQuote, name);
    quote->setReadOnly(true);
    // A text that is read from right to left must not turn round the rest of it.
    quote->setLayoutDirection(Qt::LeftToRight);
    quote->SetText(text);
    quote->setFixedHeight(Metric::questionQuote);
    column_->addWidget(quote);
    FitHeight();
}

void QuestionDlg::AddRemark(const QString& text) {
    if (text.isEmpty()) {
        return;
    }
    auto* remark = SetControlNumber(new RemarkLabel(text, Body()), kRemark);
    remark->setWordWrap(true);
    column_->addWidget(remark);
    FitHeight();
}

void QuestionDlg::showEvent(QShowEvent* event) {
    SkinDialog::showEvent(event);
    FocusRing::Show();  // the user sees which button Enter would press
}

CConfirmDeleteDlg::CConfirmDeleteDlg(const QString& text, QWidget* parent)
    : QuestionDlg(kConfirmDelete, ToQString(u8"删除确认 - Quorvi"), Kind::warning, text,
                  kQuestionText, parent) {
    AddEndButton(kAffirm, ToQString(u8"删除"), QDialog::Accepted, ButtonKind::erase);
    SetDefault(AddEndButton(kCancel, ToQString(u8"取消"), QDialog::Rejected));
}

CNothingCheckedDlg::CNothingCheckedDlg(QWidget* parent)
    : QuestionDlg(kNothingChecked, ToQString(u8"提示 - Quorvi"), Kind::information,
                  ToQString(u8"请先勾选每项最后的复选框后，再执行删除操作"), kFixedText, parent) {
    AddButton(kHelp, ToQString(u8"使用帮助"));
    SetDefault(AddEndButton(kAffirm, ToQString(u8"确定"), QDialog::Accepted, ButtonKind::primary));
}

ConsentDlg::ConsentDlg(const QString& text, const QString& affirm, const QString& stay,
                       ButtonKind affirmKind, QWidget* parent)
    : QuestionDlg(kMessageBox, ToQString(u8"提示 - Quorvi"), Kind::warning, text, kFixedText,
                  parent) {
    AddEndButton(kOk, affirm, QDialog::Accepted, affirmKind);
    SetDefault(AddEndButton(kStay, stay, QDialog::Rejected));
}

void AskForConsent(QWidget* parent, const QString& text, const QString& affirm, const QString& stay,
                   ButtonKind affirmKind, std::function<void()> yes) {
    (new ConsentDlg(text, affirm, stay, affirmKind, parent))
        ->Open([yes = std::move(yes)](int result) {
            if (result == QDialog::Accepted) {
                yes();
            }
        });
}

void ShowMessage(QWidget* parent, QuestionDlg::Kind kind, const QString& text,
                 std::function<void()> done) {
    auto* box =
        new QuestionDlg(kMessageBox, ToQString(u8"提示 - Quorvi"), kind, text, kFixedText, parent);
    box->SetDefault(
        box->AddEndButton(kOk, ToQString(u8"确定"), QDialog::Accepted, ButtonKind::primary));
    box->Open([done = std::move(done)](int) {
        if (done) {
            done();
        }
    });
}

}  // namespace quorvi
