#include "pages/alarms/AlarmEditDlg.h"

#include <QGridLayout>
#include <utility>

#include "pages/alarms/AlarmList.h"
#include "pages/kit/FormEditor.h"
#include "pages/kit/SavedText.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinChecks.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"

namespace quorvi {

using look::ButtonKind;
using look::Metric;

namespace {

// Numbers of the dialog and its controls.
constexpr int kDialog = 551;
constexpr int kLabel = 1257;
constexpr int kHour = 1229;
constexpr int kMinute = 1268;
constexpr int kHalfDay = 1231;
constexpr int kFirstDay = 1248;  // 周一; the other days follow
constexpr int kVibrate = 1255;
constexpr int kEnabled = 1256;
constexpr int kAlert = 1368;
constexpr int kOk = 1215;
constexpr int kCancel = 1021;

constexpr std::u8string_view kIncomplete = u8"标题和音乐都填了才会保存";
constexpr std::u8string_view kAlarmUnacknowledged = u8"上次填写的闹铃没有得到手机的确认";

}  // namespace

CAlarmEditDlg::CAlarmEditDlg(PageHost& host, QWidget* parent, AgentAddress agent)
    : SkinDialog(kDialog, ToQString(u8"添加闹铃提醒"), parent), host_(host), agent_(agent) {
    BuildControls();
    Begin({});
}

CAlarmEditDlg::CAlarmEditDlg(PageHost& host, std::uint32_t id, const AlarmForm& form,
                             QWidget* parent, AgentAddress agent)
    : SkinDialog(kDialog, ToQString(u8"修改闹铃提醒"), parent),
      host_(host),
      id_(id),
      agent_(agent) {
    BuildControls();
    Begin(form);
}

CSkinEdit* CAlarmEditDlg::Edit(int number, std::u8string_view name) {
    return SetControlNumber(new CSkinEdit({}, Body()), number, ToQString(name));
}

CSkinCombo* CAlarmEditDlg::Combo(int number, std::u8string_view name, int width) {
    auto* box = SetControlNumber(new CSkinCombo(Body()), number, ToQString(name));
    box->setFixedWidth(width);
    return box;
}

CSkinCheck* CAlarmEditDlg::Check(int number, std::u8string_view name) {
    return SetControlNumber(new CSkinCheck(ToQString(name), Body()), number, ToQString(name));
}

void CAlarmEditDlg::BuildTime(QHBoxLayout& row) {
    row.addWidget(halfDay_ = Combo(kHalfDay, u8"上午或下午", Metric::editorCombo));
    for (const std::u8string_view half : kAlarmHalfDays) {
        halfDay_->addItem(ToQString(half));
    }
    row.addWidget(hour_ = Combo(kHour, u8"时", Metric::alarmCombo));
    for (int hour = 1; hour <= kAlarmHourEntries; ++hour) {
        hour_->addItem(QString::number(hour));
    }
    auto* colon = new FormCaption(QStringLiteral(":"), Body());
    colon->setFixedWidth(colon->fontMetrics().horizontalAdvance(colon->text()));
    row.addWidget(colon);
    row.addWidget(minute_ = Combo(kMinute, u8"分", Metric::alarmCombo));
    for (int minute = 0; minute < kAlarmMinuteEntries; ++minute) {
        minute_->addItem(QStringLiteral("%1").arg(minute, 2, 10, QLatin1Char('0')));
    }
}

void CAlarmEditDlg::BuildControls() {
    Body()->setContentsMargins(Metric::gap3, Metric::formPadding, Metric::formPadding, 0);
    auto* grid = new QGridLayout(Body());
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(Metric::formGap);
    grid->setVerticalSpacing(Metric::formGap);
    grid->setColumnStretch(1, 1);
    // A line of the form; what stands in it keeps to its left.
    const auto line = [&](std::u8string_view caption, int gap) {
        const int row = grid->rowCount();
        grid->setRowMinimumHeight(row, Metric::fieldHeight);
        grid->addWidget(new FormCaption(ToQString(caption), Body()), row, 0, Qt::AlignTop);
        auto* fields = new QHBoxLayout;
        fields->setSpacing(gap);
        grid->addLayout(fields, row, 1);
        return fields;
    };

    // Created in the order of the Tab key.
    line(u8"标题", 0)->addWidget(label_ = Edit(kLabel, u8"标题"));
    auto* time = line(u8"时间", Metric::gap2);
    BuildTime(*time);
    time->addStretch(1);
    auto* days = line(u8"闹铃周期", Metric::gap3);
    for (std::size_t day = 0; day < kAlarmDays.size(); ++day) {
        days_[day] = Check(kFirstDay + static_cast<int>(day), kAlarmDays[day].tick);
        days->addWidget(days_[day]);
    }
    days->addStretch(1);
    line(u8"音乐", 0)->addWidget(alert_ = Edit(kAlert, u8"音乐"));
    auto* switches = line(u8"状态", Metric::gap5 + Metric::gap1);
    switches->addWidget(enabled_ = Check(kEnabled, u8"启用"));
    switches->addWidget(vibrate_ = Check(kVibrate, u8"振动提醒"));
    const auto caption = [this](bool on) { vibrate_->setText(ToQString(AlarmVibrateText(on))); };
    caption(false);
    connect(vibrate_, &QAbstractButton::toggled, this, caption);
    switches->addStretch(1);
    grid->setRowStretch(grid->rowCount(), 1);

    state_ = AddState({});
    ok_ = AddButton(kOk, ToQString(u8"确定"), ButtonKind::primary);
    connect(ok_, &QAbstractButton::clicked, this, &CAlarmEditDlg::Save);
    AddEndButton(kCancel, ToQString(u8"取消"), QDialog::Rejected);
    ok_->setDefault(true);
    label_->setFocus();
    SetInnerSize({Metric::alarmEditWidth, Metric::alarmEditHeight});
    AskBeforeEscape([this] { return WouldLose(); });

    for (const QLineEdit* field : {label_, alert_}) {
        connect(field, &QLineEdit::textChanged, this, &CAlarmEditDlg::ShowNotice);
    }
    for (const QComboBox* box : {halfDay_, hour_, minute_}) {
        connect(box, &QComboBox::currentIndexChanged, this, &CAlarmEditDlg::ShowNotice);
    }
    const auto checks = Body()->findChildren<CSkinCheck*>();
    for (const CSkinCheck* check : checks) {
        connect(check, &QAbstractButton::toggled, this, &CAlarmEditDlg::ShowNotice);
    }
}

AlarmForm CAlarmEditDlg::Form() const {
    AlarmForm form{
        .hourEntry = hour_->currentIndex(),
        .minuteEntry = minute_->currentIndex(),
        .halfDay = halfDay_->currentIndex(),
        .enabled = enabled_->isChecked(),
        .vibrate = vibrate_->isChecked(),
        .label = texts_.Text(*label_),
        .alert = texts_.Text(*alert_),
    };
    for (std::size_t day = 0; day < days_.size(); ++day) {
        form.days |= static_cast<std::uint32_t>(days_[day]->GetCheck()) << day;
    }
    return form;
}

void CAlarmEditDlg::SetForm(const AlarmForm& form) {
    texts_.Set(*label_, form.label);
    texts_.Set(*alert_, form.alert);
    alert_->home(false);  // a long text shows its start
    halfDay_->setCurrentIndex(form.halfDay);
    hour_->setCurrentIndex(form.hourEntry);
    minute_->setCurrentIndex(form.minuteEntry);
    for (std::size_t day = 0; day < days_.size(); ++day) {
        days_[day]->SetCheck(static_cast<int>(form.days >> day & 1));
    }
    enabled_->SetCheck(form.enabled ? 1 : 0);
    vibrate_->SetCheck(form.vibrate ? 1 : 0);
}

void CAlarmEditDlg::Begin(const AlarmForm& form) {
    SetForm(form);
    begun_ = Form();
    ShowNotice();
}

void CAlarmEditDlg::Resume(const AlarmForm& form) {
    SetForm(form);
    resumed_ = true;
    ShowNotice();
    ForgetUnacknowledged(host_);
}

// That nothing would be saved goes before the warning about what is being typed, and that before
// what there is to say of the alarm.
void CAlarmEditDlg::ShowNotice() {
    if (!CanBeSent(SettingsOf(Form())) && WouldLose()) {
        state_->SetState(CSkinStateLabel::kRed, ToQString(kIncomplete));
    } else if (!FitsCodePage(label_->text()) || !FitsCodePage(alert_->text())) {
        state_->SetState(CSkinStateLabel::kRed, ToQString(kCharactersLost));
    } else {
        state_->SetState(CSkinStateLabel::kBlue,
                         ToQString(resumed_ ? kAlarmUnacknowledged : u8"就绪"));
    }
}

void CAlarmEditDlg::Save() {
    const AlarmForm form = Form();
    const AlarmSettings settings = SettingsOf(form);
    if (!CanBeSent(settings)) {
        // Kept on purpose: the dialog ends as if it had been saved (test
        // AlarmEditor.WithoutALabelOrARingToneNothingIsSentAndItEndsWithOk).
        if (WouldLose()) {
            unsaved_ = form;
        }
        accept();
        return;
    }
    ok_->setEnabled(false);
    SendForm(*this, host_, agent_,
             id_ ? UpdateAlarmRequest(*id_, settings) : AddAlarmRequest(settings), form, unsaved_,
             ToQString(id_ ? u8"已保存闹铃" : u8"已添加闹铃"));
}

}  // namespace quorvi
