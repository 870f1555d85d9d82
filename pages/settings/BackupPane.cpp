#include "pages/settings/BackupPane.h"

#include <QButtonGroup>
#include <QFile>
#include <QGridLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <ctime>
#include <utility>

#include "backup/BackupTexts.h"
#include "base/Places.h"
#include "base/Text.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/FileDialogs.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinChecks.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"
#include "ui/kit/SkinPanels.h"
#include "ui/page/Job.h"
#include "ui/page/LatestPost.h"

namespace quorvi {

using look::Color;
using look::Metric;
using look::Size;

namespace {

// Values of the settings: the folder as text, 0 for a .zip and 1 for a folder, and a bit for each
// kind that is left out, by its place in kBackupKinds.
constexpr std::string_view kFolderName = "backup_folder";
constexpr std::string_view kFormName = "backup_form";
constexpr std::string_view kLeftOutName = "backup_left_out";
constexpr std::uint32_t kZip = 0;
constexpr std::uint32_t kFolder = 1;

constexpr std::u8string_view kDefaultFolder = u8"手机备份";

// The boxes in the order in which they are read.
struct KindBox {
    BackupKind kind;
    std::u8string_view caption;
};
constexpr std::array<KindBox, kBackupKinds.size()> kBoxes{{
    {BackupKind::contacts, u8"联系人"},
    {BackupKind::groups, u8"分组"},
    {BackupKind::messages, u8"短信"},
    {BackupKind::calls, u8"通话记录"},
    {BackupKind::alarms, u8"闹铃"},
    {BackupKind::bookmarks, u8"书签"},
    {BackupKind::phone, u8"手机信息"},
    {BackupKind::applications, u8"应用列表"},
}};
constexpr int kBoxesInARow = 4;
constexpr int kWhole = 100;

std::size_t PlaceOf(BackupKind kind) {
    return static_cast<std::size_t>(std::ranges::find(kBackupKinds, kind, &BackupKindName::kind) -
                                    kBackupKinds.begin());
}

QString PathText(const std::filesystem::path& path) {
    return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

template <typename Control>
Control* Named(Control* control, const char16_t* name, const QString& text) {
    control->setObjectName(QString::fromUtf16(name));
    control->setAccessibleName(text);
    return control;
}

}  // namespace

BackupPane::BackupPane(PageHost& host, AgentAddress agent, AttributionOf attribution,
                       QWidget* parent)
    : QWidget(parent),
      host_(host),
      agent_(agent),
      attribution_(std::move(attribution)),
      choices_(new QWidget),
      place_(Named(new CSkinEdit, u"backupFolder", ToQString(u8"保存到"))),
      choose_(Named(new CSkinButton(ToQString(u8"更改位置")), u"backupChoose",
                    ToQString(u8"更改备份的保存位置"))),
      zip_(Named(new SkinRadio(ToQString(u8"一个 .zip 文件")), u"backupZip",
                 ToQString(u8"一个 .zip 文件"))),
      plain_(Named(new SkinRadio(ToQString(u8"一个文件夹")), u"backupPlain",
                   ToQString(u8"一个文件夹"))),
      progress_(Named(new CSkinProgress, u"backupProgress", ToQString(u8"备份进度"))),
      start_(
          Named(new CSkinButton(ToQString(u8"开始备份")), u"backupStart", ToQString(u8"开始备份"))),
      end_(Named(new CSkinButton(ToQString(u8"停止")), u"backupStop", ToQString(u8"停止备份"))),
      state_(new CSkinStateLabel),
      detail_(new RemarkLabel),
      skipped_(Named(new SkinLink(ToQString(u8"查看")), u"backupSkipped",
                     ToQString(u8"查看没有备份的内容"))) {
    state_->setObjectName(QStringLiteral("backupState"));
    detail_->setObjectName(QStringLiteral("backupDetail"));
    LayOut();
    ReadChoices();
    SetRunning(nullptr);
    ShowWhetherToStart();

    for (CSkinCheck* box : kinds_) {
        connect(box, &QAbstractButton::clicked, this, [this] {
            KeepChoices();
            ShowWhetherToStart();
        });
    }
    for (SkinRadio* radio : {zip_, plain_}) {
        connect(radio, &QAbstractButton::clicked, this, &BackupPane::KeepChoices);
        // The Tab key comes to what is chosen.
        const auto takeTab = [radio](bool chosen) {
            radio->setFocusPolicy(chosen ? Qt::StrongFocus : Qt::ClickFocus);
        };
        connect(radio, &QAbstractButton::toggled, radio, takeTab);
        takeTab(radio->isChecked());
    }
    connect(choose_, &QAbstractButton::clicked, this, [this] {
        AskForFolder(*this, ToQString(u8"备份保存到"), PathText(folder_),
                     [this](const QString& path) { ChooseFolder(path); });
    });
    connect(start_, &QAbstractButton::clicked, this, &BackupPane::Start);
    connect(end_, &QAbstractButton::clicked, this, [this] {
        if (stop_) {
            stop_->Stop();
        }
    });
    connect(skipped_, &QAbstractButton::clicked, this, &BackupPane::ShowSkipped);
}

BackupPane::~BackupPane() {
    if (stop_) {
        stop_->Stop();
    }
}

QWidget* BackupPane::MakeKinds() {
    auto* boxes = new QWidget;
    auto* grid = new QGridLayout(boxes);
    grid->setContentsMargins({});
    grid->setSpacing(0);
    kinds_.resize(kBoxes.size());
    for (int i = 0; i < static_cast<int>(kBoxes.size()); ++i) {
        const KindBox& box = kBoxes.at(static_cast<std::size_t>(i));
        auto* check = new CSkinCheck(ToQString(box.caption));
        check->setObjectName(QStringLiteral("backupKind%1").arg(i));
        check->setAccessibleName(check->text());
        check->setFont(look::font(Size::s12));
        check->setFixedHeight(Metric::backupKind);
        kinds_[PlaceOf(box.kind)] = check;
        grid->addWidget(check, i / kBoxesInARow, i % kBoxesInARow);
        grid->setColumnStretch(i % kBoxesInARow, 1);
    }
    return boxes;
}

void BackupPane::LayOut() {
    auto* place = new QHBoxLayout;
    place->setSpacing(Metric::gap2);
    auto* caption = new RemarkLabel(ToQString(u8"保存到"));
    caption->setFixedWidth(Metric::backupCaption);
    place->addWidget(caption);
    place->addWidget(place_, 1);
    place->addWidget(choose_);
    place_->setReadOnly(true);
    choose_->SetSmall(true);

    auto* forms = new QHBoxLayout;
    forms->setSpacing(Metric::gap5);
    forms->addSpacing(Metric::backupCaption + Metric::gap2);
    forms->addWidget(zip_);
    forms->addWidget(plain_);
    forms->addStretch();
    for (SkinRadio* radio : {zip_, plain_}) {
        radio->setFont(look::font(Size::s12));
    }

    auto* choices = new QVBoxLayout(choices_);
    choices->setContentsMargins({});
    choices->setSpacing(Metric::gap1);
    choices->addWidget(MakeKinds());
    choices->addSpacing(Metric::gap1);
    choices->addLayout(place);
    choices->addLayout(forms);

    auto* action = new QHBoxLayout;
    action->setSpacing(Metric::gap3);
    action->addWidget(progress_, 1);
    action->addWidget(start_);
    action->addWidget(end_);
    start_->SetImage(QStringLiteral("backup"));
    end_->SetImage(QStringLiteral("stop"));
    end_->setMinimumWidth(start_->sizeHint().width());

    state_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    detail_->setWordWrap(true);
    auto* detail = new QHBoxLayout;
    detail->setSpacing(Metric::gap2);
    detail->addWidget(detail_, 1);
    detail->addWidget(skipped_, 0, Qt::AlignTop);
    skipped_->hide();

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(Metric::gap2);
    rows->addWidget(new GroupHead(ToQString(u8"备份")));
    rows->addWidget(choices_);
    rows->addLayout(action);
    rows->addWidget(state_);
    rows->addLayout(detail);
    rows->addStretch();
}

void BackupPane::ReadChoices() {
    const SettingsStore& settings = host_.Settings();
    const auto folder = settings.ReadText(kSettingsKey, kFolderName);
    folder_ = folder && !folder->empty() ? std::filesystem::path(ToUtf8(*folder))
                                         : ThePlaces().home / ToUtf8(Ansi(kDefaultFolder));
    place_->setText(PathText(folder_));
    place_->setCursorPosition(0);
    const bool plain = settings.ReadNumber(kSettingsKey, kFormName) == kFolder;
    (plain ? plain_ : zip_)->setChecked(true);
    const std::uint32_t leftOut = settings.ReadNumber(kSettingsKey, kLeftOutName).value_or(0);
    for (std::size_t i = 0; i < kinds_.size(); ++i) {
        kinds_[i]->setChecked((leftOut >> i & 1U) == 0);
    }
}

void BackupPane::ChooseFolder(const QString& path) {
    folder_ = QFile::encodeName(path).toStdString();
    place_->setText(path);
    place_->setCursorPosition(0);
    KeepChoices();
    Q_EMIT folderChanged();
}

// On a worker: the disk may be slow. One after the other, so that the last choice is the one kept.
void BackupPane::KeepChoices() {
    if (keeping_) {
        keepAgain_ = true;
        return;
    }
    keeping_ = true;
    std::uint32_t leftOut = 0;
    for (std::size_t i = 0; i < kinds_.size(); ++i) {
        leftOut |= kinds_[i]->isChecked() ? 0U : 1U << i;
    }
    RunJob(
        this,
        [&settings = host_.Settings(), folder = ToAnsi(folder_.string()), leftOut,
         form = plain_->isChecked() ? kFolder : kZip] {
            settings.WriteText(kSettingsKey, kFolderName, folder);
            settings.WriteNumber(kSettingsKey, kFormName, form);
            return settings.WriteNumber(kSettingsKey, kLeftOutName, leftOut);
        },
        [this](bool) {
            keeping_ = false;
            if (std::exchange(keepAgain_, false)) {
                KeepChoices();
            }
        });
}

std::vector<BackupKind> BackupPane::Kinds() const {
    std::vector<BackupKind> kinds;
    for (std::size_t i = 0; i < kinds_.size(); ++i) {
        if (kinds_[i]->isChecked()) {
            kinds.push_back(kBackupKinds.at(i).kind);
        }
    }
    return kinds;
}

void BackupPane::ShowWhetherToStart() {
    const bool any = !Kinds().empty();
    start_->setEnabled(any);
    start_->setToolTip(any ? QString() : ToQString(u8"请先勾选要备份的内容"));
    if (!any) {
        state_->SetState(CSkinStateLabel::kBlue, ToQString(u8"请先勾选要备份的内容"));
        detail_->clear();
        skipped_->hide();
    } else if (!Running() && progress_->value() == 0) {
        state_->SetState(CSkinStateLabel::kBlue, ToQString(u8"就绪"));
    }
}

void BackupPane::SetRunning(std::shared_ptr<StopSignal> stop) {
    const bool keys = start_->hasFocus() || end_->hasFocus();
    const bool changed = Running() != (stop != nullptr);
    stop_ = std::move(stop);
    end_->setVisible(Running());
    if (keys) {
        (Running() ? end_ : start_)->setFocus();
    }
    start_->setVisible(!Running());
    if (keys && !Running()) {
        start_->setFocus();
    }
    choices_->setEnabled(!Running());
    if (changed) {
        Q_EMIT runningChanged(Running());
    }
}

void BackupPane::Start() {
    SetRunning(std::make_shared<StopSignal>());
    progress_->setValue(0);
    detail_->clear();
    skipped_->hide();
    Show({ToQString(u8"正在连接手机"), 0});
    const LatestPost<Told> told(this, [this](const Told& now) {
        if (Running()) {
            Show(now);
        }
    });
    RunJob(
        this,
        [agent = agent_, attribution = attribution_, folder = folder_, kinds = Kinds(),
         stop = stop_, told, form = zip_->isChecked() ? BackupForm::zip : BackupForm::folder] {
            std::error_code unwritable;  // which the backup itself tells
            std::filesystem::create_directories(folder, unwritable);
            const std::int64_t now = std::time(nullptr);
            const BackupOrder order{NewBackupPath(folder, FetchModel(agent, *stop), now, form),
                                    kinds, now, attribution};
            return Result{
                RunBackup(
                    agent, order,
                    [&](const BackupProgress& progress) {
                        told({ToQString(SavingText(progress)), PercentSaved(progress, kinds)});
                    },
                    *stop),
                order.target};
        },
        [this](Result&& result) { End(result); });
}

void BackupPane::Show(const Told& told) {
    progress_->setValue(told.percent);
    state_->SetState(CSkinStateLabel::kBlue, told.text);
    status_ = ToQString(u8"正在备份 %1 %").arg(told.percent);
    host_.SetStatus(status_);
}

void BackupPane::End(const Result& result) {
    SetRunning(nullptr);
    host_.TakeBackStatus(status_);
    made_ = result.backup.manifest;
    if (result.backup.end != BackupEnd::whole) {
        state_->SetState(CSkinStateLabel::kRed, ToQString(result.backup.why));
        const std::string reached = ReachedText(result.backup);
        detail_->setText(reached.empty() ? ToQString(u8"没有留下备份")
                                         : ToQString(reached) + ToQString(u8"，没有留下备份"));
        return;
    }
    progress_->setValue(kWhole);
    state_->SetState(CSkinStateLabel::kGreen, ToQString(u8"备份完成：") + PathText(result.target));
    detail_->setText(made_.skippedCount == 0
                         ? ToQString(CountsText(made_))
                         : ToQString(u8"%1 项没有备份").arg(made_.skippedCount));
    skipped_->setVisible(made_.skippedCount > 0);
    Q_EMIT folderChanged();
}

void BackupPane::ShowSkipped() {
    auto* message = new QuestionDlg(0, ToQString(u8"提示 - Quorvi"), QuestionDlg::Kind::information,
                                    ToQString(u8"下面的内容没有备份，其他的都已保存。"), 0, this);
    message->Quote(ToQString(SkippedText(made_)), ToQString(u8"没有备份的内容"));
    message->SetDefault(message->AddEndButton(1, ToQString(u8"确定"), QDialog::Accepted,
                                              look::ButtonKind::primary));
    message->Open();
}

}  // namespace quorvi
