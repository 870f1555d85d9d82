#include "pages/numbers/NumberQueryDlg.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinLabels.h"
#include "ui/look/Look.h"
#include "ui/page/Job.h"
#include "ui/page/OpenOnDesktop.h"

namespace quorvi {

using look::Metric;
using look::Size;

namespace {

constexpr int kDialog = 433;
constexpr int kNumberBox = 1123;
constexpr int kQueryButton = 1124;
constexpr int kPlaceLink = 1127;
constexpr int kAreaCodeLabel = 1128;
constexpr int kPostalCodeLabel = 1129;
constexpr int kHeadingLabel = 1138;

QLabel* MakeLabel(std::u8string_view text, look::Color color = look::Color::ink) {
    return new PlainLabel(ToQString(text), Size::s13, color);
}

}  // namespace

NumberQueryDlg::NumberQueryDlg(QWidget* parent)
    : NumberQueryDlg([] { return CPhoneDb(); },
                     [](const QString& address) { OpenOnDesktop(address); }, parent) {}

NumberQueryDlg::NumberQueryDlg(MakePhoneDb makeDb, OpenAddress open, QWidget* parent)
    : SkinDialog(kDialog, ToQString(u8"号码查询"), parent),
      makeDb_(std::move(makeDb)),
      open_(std::move(open)),
      number_(SetControlNumber(new CSkinEdit, kNumberBox, ToQString(u8"手机号码"))),
      query_(SetControlNumber(new CSkinButton(ToQString(u8"立即查询")), kQueryButton,
                              ToQString(u8"立即查询"))),
      heading_(SetControlNumber(MakeLabel(u8""), kHeadingLabel)),
      place_(SetControlNumber(new SkinLink(QString()), kPlaceLink)),
      areaCode_(SetControlNumber(MakeLabel(u8""), kAreaCodeLabel)),
      postalCode_(SetControlNumber(MakeLabel(u8""), kPostalCodeLabel)) {
    auto* group = new CSkinGroupBox(ToQString(u8"手机号码归属地"), Body());
    auto* inside = new QVBoxLayout(group);
    inside->setSpacing(Metric::formGap);
    inside->addWidget(MakeLabel(u8"请输入手机号前 7 位即可", look::Color::ink2));
    inside->addWidget(MakeQuestion());
    inside->addWidget(MakeAnswer());
    auto* layout = new QVBoxLayout(Body());
    layout->addWidget(group);
    setFixedWidth(Metric::questionWidth);

    connect(number_, &QLineEdit::textChanged, this, &NumberQueryDlg::CutText);
    connect(query_, &QAbstractButton::clicked, this, &NumberQueryDlg::Query);
    connect(place_, &QAbstractButton::clicked, this, &NumberQueryDlg::SearchPlace);
    place_->setEnabled(false);  // there is nothing to click on yet
    SetDefault(query_);
}

QWidget* NumberQueryDlg::MakeQuestion() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Metric::gap2);
    layout->addWidget(number_, 1);
    layout->addWidget(query_);
    return row;
}

QWidget* NumberQueryDlg::MakeAnswer() {
    answer_ = new QWidget;
    auto* layout = new QVBoxLayout(answer_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Metric::gap1);
    const auto addRow = [&](QWidget* left, QWidget* right) {
        auto* row = new QHBoxLayout;
        row->setSpacing(Metric::gap2);
        row->addWidget(left);
        row->addWidget(right);
        row->addStretch(1);
        layout->addLayout(row);
    };
    addRow(heading_, place_);
    addRow(MakeLabel(u8"区号", look::Color::ink2), areaCode_);
    addRow(MakeLabel(u8"邮编", look::Color::ink2), postalCode_);
    return answer_;
}

// Cuts the text to its first eleven characters, wherever in it new ones were typed.
void NumberQueryDlg::CutText() {
    const QString text = number_->text();
    if (text.size() > kQueryLength) {
        const int cursor = number_->cursorPosition();
        number_->setText(text.left(kQueryLength));
        number_->setCursorPosition(std::min(cursor, kQueryLength));
    }
}

// The database writes its file: not on the window's thread.
void NumberQueryDlg::Query() {
    query_->setEnabled(false);
    RunJob(
        this,
        [makeDb = makeDb_, text = FromQString(number_->text())] {
            return QueryNumber(text, makeDb());
        },
        [this](const NumberAnswer& answer) { Show(answer); });
}

void NumberQueryDlg::Show(const NumberAnswer& answer) {
    heading_->setText(ToQString(answer.heading));
    place_->setText(ToQString(answer.place));
    place_->setAccessibleName(place_->text());
    place_->setEnabled(!place_->text().isEmpty());
    place_->updateGeometry();
    areaCode_->setText(ToQString(answer.areaCode));
    postalCode_->setText(ToQString(answer.postalCode));
    answer_->update();
    query_->setEnabled(true);
}

void NumberQueryDlg::SearchPlace() {
    if (!place_->text().isEmpty()) {
        open_(WebSearchAddress(place_->text()));
    }
}

}  // namespace quorvi
