#include "pages/phonesettings/PhoneSettingsForm.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <chrono>
#include <optional>

#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinChecks.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"
#include "ui/kit/SkinPanels.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;

// Control numbers.
constexpr int kGeneral = 1212;
constexpr int kSoundAndScreen = 1211;
constexpr int kDateAndTime = 1209;
constexpr int kPictureAndTone = 1210;
constexpr int kTime24 = 1204;
constexpr int kDateFormat = 1206;
constexpr int kWallpapers = 1207;
constexpr int kRingtones = 1208;

// A row of a group.
struct Row {
    PhoneSetting setting;
    int control;
    QStringView icon;
};

// From left to right and down, as they are read and as the Tab key goes.
constexpr Row kGeneralRows[] = {
    {PhoneSetting::wifi, 1280, u"wifi"},           {PhoneSetting::gps, 1281, u"gps"},
    {PhoneSetting::bluetooth, 1282, u"bluetooth"}, {PhoneSetting::gravity, 1283, u"gravity"},
    {PhoneSetting::airplane, 1284, u"airplane"},   {PhoneSetting::vibrate, 1255, u"vibrate"},
};
constexpr int kGeneralColumns = 2;

constexpr Row kSoundAndScreenRows[] = {
    {PhoneSetting::backlight, 1213, u"brightness"},
    {PhoneSetting::ringVolume, 1214, u"ringtones"},
    {PhoneSetting::musicVolume, 1215, u"volume"},
};

// After this time a form that is locked is drawn so.
constexpr std::chrono::milliseconds kLasting{100};

QString CaptionOf(PhoneSetting setting) {
    return ToQString(RowOf(setting).caption);
}

// Icon, caption and, at the right end, the control.
QHBoxLayout* Line(QStringView icon, PhoneSetting setting, QWidget* control, QWidget* parent) {
    auto* caption = new PlainLabel(CaptionOf(setting), look::Size::s13, look::Color::ink, parent);
    auto* line = new QHBoxLayout;
    line->setSpacing(0);
    line->addWidget(new IconLabel(icon.toString(), Metric::iconTab, look::Color::plum6, parent));
    line->addSpacing(Metric::gap3);
    line->addWidget(caption, 1);
    line->addWidget(control);
    return line;
}

}  // namespace

PhoneSettingsForm::PhoneSettingsForm(QWidget* parent) : QWidget(parent) {
    lasting_.setSingleShot(true);
    lasting_.setInterval(kLasting);
    connect(&lasting_, &QTimer::timeout, this, &PhoneSettingsForm::DrawAll);
    auto* groups = new QGridLayout(this);
    groups->setContentsMargins({});
    groups->setSpacing(Metric::gap3);
    groups->setColumnStretch(0, Metric::settingsSound);
    groups->setColumnStretch(1, Metric::settingsDate);
    AddGeneral();
    AddSoundAndScreen();
    AddDateAndTime();
    AddHidden();
}

// ---- the groups --------------------------------------------------------------------------------

CSkinGroupBox* PhoneSettingsForm::AddGroup(int number, std::u8string_view caption,
                                           QGridLayout*& rows) {
    auto* group =
        SetControlNumber(new CSkinGroupBox(ToQString(caption), this), number, ToQString(caption));
    group->setFixedHeight(Metric::settingsGroup);
    rows = new QGridLayout(group);
    rows->setContentsMargins({});
    rows->setVerticalSpacing(0);
    rows->setHorizontalSpacing(Metric::settingsColumnGap);
    for (int row = 0; row < Metric::settingsRows; ++row) {
        rows->setRowMinimumHeight(row, Metric::settingsRow);
    }
    rows->setRowStretch(Metric::settingsRows, 1);
    return group;
}

void PhoneSettingsForm::AddGeneral() {
    QGridLayout* rows = nullptr;
    CSkinGroupBox* group = AddGroup(kGeneral, u8"常规设置", rows);
    int place = 0;
    for (const Row& row : kGeneralRows) {
        rows->addLayout(Line(row.icon, row.setting, Make(row.setting, row.control), group),
                        place / kGeneralColumns, place % kGeneralColumns);
        rows->setColumnStretch(place % kGeneralColumns, 1);
        ++place;
    }
    static_cast<QGridLayout*>(layout())->addWidget(group, 0, 0, 1, 2);
}

void PhoneSettingsForm::AddSoundAndScreen() {
    QGridLayout* rows = nullptr;
    CSkinGroupBox* group = AddGroup(kSoundAndScreen, u8"声音和显示", rows);
    int place = 0;
    for (const Row& row : kSoundAndScreenRows) {
        QWidget* list = Make(row.setting, row.control);
        list->setFixedWidth(Metric::settingsList);
        rows->addLayout(Line(row.icon, row.setting, list, group), place++, 0);
    }
    static_cast<QGridLayout*>(layout())->addWidget(group, 1, 0);
}

void PhoneSettingsForm::AddDateAndTime() {
    QGridLayout* rows = nullptr;
    CSkinGroupBox* group = AddGroup(kDateAndTime, u8"日期和时间", rows);
    QWidget* list = Make(PhoneSetting::dateFormat, kDateFormat);
    list->setFixedWidth(Metric::settingsDateList);
    rows->addLayout(Line(u"calendar", PhoneSetting::dateFormat, list, group), 0, 0);
    auto* time = new QHBoxLayout;
    time->addSpacing(Metric::iconTab + Metric::gap3);  // under the caption above it
    time->addWidget(Make(PhoneSetting::time24, kTime24));
    time->addStretch(1);
    rows->addLayout(time, 1, 0);
    static_cast<QGridLayout*>(layout())->addWidget(group, 1, 1);
}

// Wallpapers and ringtones have pages of their own that are announced only: the group stays hidden.
void PhoneSettingsForm::AddHidden() {
    QGridLayout* rows = nullptr;
    CSkinGroupBox* group = AddGroup(kPictureAndTone, u8"壁纸和铃声", rows);
    const auto add = [&](int number, std::u8string_view caption, int row) {
        auto* button = SetControlNumber(new CSkinButton(ToQString(caption), group), number,
                                        ToQString(caption));
        rows->addWidget(button, row, 0);
        return button;
    };
    connect(add(kWallpapers, u8"壁纸管理", 0), &QAbstractButton::clicked, this,
            &PhoneSettingsForm::wallpapersAsked);
    connect(add(kRingtones, u8"铃声管理", 1), &QAbstractButton::clicked, this,
            &PhoneSettingsForm::ringtonesAsked);
    group->hide();
}

// ---- the controls ------------------------------------------------------------------------------

QWidget* PhoneSettingsForm::Make(PhoneSetting setting, int number) {
    QWidget* control = RowOf(setting).isToggle ? MakeSwitch(setting) : MakeList(setting);
    controls_[setting] = control;
    return SetControlNumber(control, number, CaptionOf(setting));
}

QWidget* PhoneSettingsForm::MakeSwitch(PhoneSetting setting) {
    QAbstractButton* button = nullptr;
    if (setting == PhoneSetting::time24) {
        button = new CSkinCheck(CaptionOf(setting), this);
    } else {
        button = new CSkinToggle(this);
    }
    connect(button, &QAbstractButton::clicked, this, [this, setting](bool on) {
        Q_EMIT chosen(setting, RowOf(setting).entries[on ? 1 : 0].value);
    });
    return button;
}

QWidget* PhoneSettingsForm::MakeList(PhoneSetting setting) {
    auto* list = new CSkinCombo(this);
    for (const SettingEntry& entry : RowOf(setting).entries) {
        list->addItem(ToQString(entry.text));
    }
    list->setCurrentIndex(-1);  // nothing has been read yet
    // Only what the user does is told as `activated`.
    connect(list, &QComboBox::activated, this, [this, setting](int entry) {
        Q_EMIT chosen(setting, RowOf(setting).entries[static_cast<std::size_t>(entry)].value);
    });
    return list;
}

void PhoneSettingsForm::Show(const PhoneSettingValues& values) {
    for (const auto& [setting, control] : controls_) {
        const std::uint32_t value = values.Of(setting);
        if (auto* list = qobject_cast<CSkinCombo*>(control)) {
            const std::optional<std::size_t> entry = EntryShown(setting, value);
            list->setCurrentIndex(entry ? static_cast<int>(*entry) : -1);
        } else {
            static_cast<QAbstractButton*>(control)->setChecked(IsSettingOn(value));
        }
    }
}

// ---- locked ------------------------------------------------------------------------------------

void PhoneSettingsForm::Lock() {
    for (const auto& [setting, control] : controls_) {
        control->setEnabled(false);
    }
}

void PhoneSettingsForm::LockAllBut(PhoneSetting used) {
    for (const auto& [setting, control] : controls_) {
        if (setting != used) {
            control->setUpdatesEnabled(false);
            control->setEnabled(false);
        }
    }
    lasting_.start();
}

void PhoneSettingsForm::Unlock() {
    lasting_.stop();
    for (const auto& [setting, control] : controls_) {
        control->setEnabled(true);
    }
    DrawAll();
}

void PhoneSettingsForm::DrawAll() {
    for (const auto& [setting, control] : controls_) {
        control->setUpdatesEnabled(true);
    }
}

}  // namespace quorvi
