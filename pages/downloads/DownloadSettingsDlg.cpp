#include "pages/downloads/DownloadSettingsDlg.h"

#include <QHBoxLayout>
#include <QUrl>
#include <QVBoxLayout>
#include <cstdint>
#include <optional>
#include <utility>

#include "ui/kit/ControlNumber.h"
#include "ui/kit/FileDialogs.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinChecks.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"
#include "ui/kit/SkinPanels.h"
#include "ui/page/Job.h"
#include "ui/page/OpenOnDesktop.h"

namespace quorvi {

using look::ButtonKind;
using look::Color;
using look::Metric;

namespace {

// Numbers of the dialog and its controls.
constexpr int kDialog = 685;
constexpr int kFolder = 1383;
constexpr int kChange = 1216;
constexpr int kOpen = 1217;
constexpr int kFree = 1387;
constexpr int kInstalls = 1382;
constexpr int kOk = 1215;

constexpr std::u8string_view kCaption = u8"下载保存目录";

QString Shown(const std::filesystem::path& path) {
    return QString::fromStdString(path.native());
}

}  // namespace

DownloadSettingsDlg::DownloadSettingsDlg(SettingsStore& settings, DisksOf disks, QWidget* parent)
    : SkinDialog(kDialog, ToQString(u8"相关设置 - Quorvi"), parent),
      settings_(settings),
      disks_(std::move(disks)) {
    BuildControls();
    // Until it is known where the folder is, there is none that could be kept or opened.
    Body()->setEnabled(false);
    ok_->setEnabled(false);
    RunJob(
        this, [&store = settings_, choose = disks_] { return DownloadDirectory(store, choose); },
        [this](const std::filesystem::path& folder) {
            Body()->setEnabled(true);
            ok_->setEnabled(true);
            folder_->setText(Shown(folder));
            if (folder.empty()) {
                state_->SetState(CSkinStateLabel::kRed, ToQString(u8"请选择一个目录"));
            }
            SetDefault(ok_);
            ok_->setFocus();
        });
}

void DownloadSettingsDlg::BuildControls() {
    auto* column = new QVBoxLayout(Body());
    Body()->setContentsMargins(Metric::formPadding, Metric::formPadding, Metric::formPadding, 0);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metric::gap1);

    auto* caption = new RemarkLabel(ToQString(kCaption), Body());
    folder_ = SetControlNumber(new CSkinEdit({}, Body()), kFolder, ToQString(kCaption));
    caption->setBuddy(folder_);
    const auto button = [&](std::u8string_view text, int number) {
        return SetControlNumber(new CSkinButton(ToQString(text), Body()), number, ToQString(text));
    };
    auto* change = button(u8"更改位置", kChange);
    auto* open = button(u8"打开目录", kOpen);
    auto* place = new QHBoxLayout;
    place->setSpacing(Metric::gap2);
    place->addWidget(folder_, 1);
    place->addWidget(change);
    place->addWidget(open);

    free_ = SetControlNumber(new PlainLabel({}, look::Size::s12, Color::ink, Body()), kFree);
    auto* room = new QHBoxLayout;
    room->setSpacing(Metric::gap2);
    room->addWidget(new IconLabel(QStringLiteral("space"), Metric::rowIcon, Color::plum6, Body()));
    room->addWidget(new RemarkLabel(ToQString(u8"该分区可用空间"), Body()));
    room->addWidget(free_);
    room->addStretch(1);

    const QString installs = ToQString(u8"下载完成后，自动安装应用到手机");
    auto* fact = SetControlNumber(new CSkinCheck(installs, Body()), kInstalls, installs);
    fact->ShowFact(1);

    column->addWidget(caption);
    column->addLayout(place);
    column->addSpacing(Metric::gap2);
    column->addLayout(room);
    column->addSpacing(Metric::gap1);
    column->addWidget(fact);
    column->addStretch(1);

    state_ = AddState({});
    ok_ = AddButton(kOk, ToQString(u8"确定"), ButtonKind::primary);
    SetInnerSize({Metric::downloadSettingsWidth, Metric::downloadSettingsHeight});

    connect(folder_, &QLineEdit::textChanged, this, [this] {
        folder_->SetBad(false);
        state_->SetState(CSkinStateLabel::kBlue, {});
        ShowFreeSpace();
    });
    connect(change, &QAbstractButton::clicked, this, &DownloadSettingsDlg::ChooseFolder);
    connect(open, &QAbstractButton::clicked, this, &DownloadSettingsDlg::OpenFolder);
    connect(ok_, &QAbstractButton::clicked, this, &DownloadSettingsDlg::Keep);
}

std::filesystem::path DownloadSettingsDlg::Folder() const {
    return folder_->text().trimmed().toStdString();
}

void DownloadSettingsDlg::ShowFreeSpace() {
    RunJob(
        this, [folder = Folder()] { return FreeMegabytes(folder); },
        [this, question = ++asked_](const std::optional<std::uint64_t>& room) {
            if (question == asked_) {
                free_->setText(room ? QStringLiteral("%1 MB").arg(*room) : ToQString(u8"未知"));
            }
        });
}

void DownloadSettingsDlg::ChooseFolder() {
    AskForFolder(*this, ToQString(kCaption), Shown(Folder()),
                 [this](const QString& folder) { folder_->setText(folder); });
}

// The stored one, whatever stands in the field.
void DownloadSettingsDlg::OpenFolder() {
    RunJob(
        this,
        [&store = settings_] {
            std::filesystem::path stored = StoredDownloadDirectory(store);
            std::error_code unknown;
            return std::filesystem::is_directory(stored, unknown) ? stored
                                                                  : std::filesystem::path();
        },
        [this](const std::filesystem::path& folder) {
            if (folder.empty()) {
                state_->SetState(CSkinStateLabel::kRed, ToQString(u8"目录不在了，请选择另一个"));
            } else if (!OpenOnDesktop(
                           QUrl::fromLocalFile(Shown(folder)).toString(QUrl::FullyEncoded))) {
                state_->SetState(CSkinStateLabel::kRed, ToQString(u8"没有能打开目录的程序"));
            }
        });
}

void DownloadSettingsDlg::Keep() {
    Body()->setEnabled(false);
    ok_->setEnabled(false);
    RunJob(
        this,
        [&store = settings_, folder = Folder()] { return KeepDownloadDirectory(store, folder); },
        [this](bool kept) {
            if (kept) {
                accept();
                return;
            }
            Body()->setEnabled(true);
            ok_->setEnabled(true);
            folder_->SetBad(true);
            folder_->setFocus();
            state_->SetState(CSkinStateLabel::kRed, ToQString(u8"建立不了这个目录，请换一个"));
        });
}

}  // namespace quorvi
