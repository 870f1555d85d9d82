#include "pages/screen/ScreenOptions.h"

#include <QVBoxLayout>
#include <chrono>

#include "pages/screen/SaveFormats.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinChecks.h"
#include "ui/kit/SkinFields.h"
#include "ui/look/Look.h"

namespace quorvi {

using look::Metric;

namespace {

// After this time a list that is locked is disabled.
constexpr std::chrono::milliseconds kLasting{100};

}  // namespace

ScreenOptions::ScreenOptions(QWidget* parent)
    : CSkinGroupBox(ToQString(u8"截图选项"), parent),
      autoRefresh_(new CSkinCheck(ToQString(u8"自动刷新屏幕"))),
      batchSave_(new CSkinCheck(ToQString(u8"启用批量保存"))) {
    setFixedWidth(Metric::screenOptions);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(0);
    rotation_ = AddList(*rows, u8"屏幕旋转", kRotation);
    format_ = AddList(*rows, u8"保存格式", kFormat);
    quality_ = AddList(*rows, u8"保存画质", kQuality);
    size_ = AddList(*rows, u8"屏幕尺寸", kSize);
    for (const auto& [box, number] : std::initializer_list<std::pair<CSkinCheck*, int>>{
             {autoRefresh_, kAutoRefresh}, {batchSave_, kBatchSave}}) {
        rows->addWidget(SetControlNumber(box, number, box->text()), 0, Qt::AlignLeft);
    }
    autoRefresh_->hide();

    for (const std::u8string_view caption : kRotationCaptions) {
        rotation_->addItem(ToQString(caption));
    }
    for (const SaveFormatRow& format : kSaveFormats) {
        format_->addItem(ToQString(format.caption));
    }
    for (const SaveQualityRow& quality : kSaveQualities) {
        quality_->addItem(ToQString(quality.caption));
    }
    format_->setCurrentIndex(kFirstFormat);
    quality_->setCurrentIndex(kFirstQuality);
    lasting_.setSingleShot(true);
    lasting_.setInterval(kLasting);
    connect(&lasting_, &QTimer::timeout, this, &ScreenOptions::DisableRotation);
    connect(rotation_, &QComboBox::currentIndexChanged, this, &ScreenOptions::OnRotationChosen);
    connect(autoRefresh_, &QAbstractButton::clicked, this, &ScreenOptions::autoRefreshClicked);
}

// A caption over its list.
CSkinCombo* ScreenOptions::AddList(QVBoxLayout& rows, std::u8string_view caption, int number) {
    const QString text = ToQString(caption);
    auto* list = SetControlNumber(new CSkinCombo, number, text);
    rows.addWidget(new RemarkLabel(text));
    rows.addSpacing(Metric::gap1);
    rows.addWidget(list);
    rows.addSpacing(Metric::gap3);
    return list;
}

Rotation ScreenOptions::ChosenRotation() const {
    return RotationOf(rotation_->currentIndex());
}

int ScreenOptions::FormatIndex() const {
    return format_->currentIndex();
}

int ScreenOptions::QualityIndex() const {
    return quality_->currentIndex();
}

bool ScreenOptions::SavesWithoutAsking() const {
    return batchSave_->GetCheck() == 1;
}

void ScreenOptions::ShowScreenSize(int width, int height) {
    const QString size = QStringLiteral("%1x%2").arg(width).arg(height);
    if (size == size_->currentText()) {
        return;  // as at nearly every capture, and nothing to paint
    }
    size_->clear();
    size_->addItem(size);
    size_->setCurrentIndex(0);
}

void ScreenOptions::OnRotationChosen(int index) {
    if (!locked_) {
        Q_EMIT rotationChanged();
    } else if (index != *locked_) {
        rotation_->setCurrentIndex(*locked_);
    }
}

void ScreenOptions::LockRotation() {
    locked_ = rotation_->currentIndex();
    lasting_.start();
}

void ScreenOptions::DisableRotation() {
    if (rotation_->hasFocus()) {
        focus_.emplace(*this);
    }
    rotation_->setEnabled(false);
}

void ScreenOptions::UnlockRotation() {
    locked_.reset();
    lasting_.stop();
    rotation_->setEnabled(true);
    if (focus_) {
        focus_->GiveBack();
        focus_.reset();
    }
}

}  // namespace quorvi
