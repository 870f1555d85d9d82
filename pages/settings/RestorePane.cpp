#include "pages/settings/RestorePane.h"

#include <QFile>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "backup/Backup.h"
#include "backup/BackupReader.h"
#include "base/Text.h"
#include "ui/kit/FileDialogs.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"
#include "ui/kit/SkinPanels.h"
#include "ui/page/Job.h"

namespace quorvi {

using look::Metric;

RestorePane::RestorePane(QWidget* parent)
    : QWidget(parent),
      backups_(new CSkinCombo),
      browse_(new CSkinButton(ToQString(u8"浏览..."))),
      counts_(new RemarkLabel),
      state_(new CSkinStateLabel),
      ask_(new CSkinButton(ToQString(u8"查看恢复计划"))),
      whyNot_(new RemarkLabel) {
    backups_->setObjectName(QStringLiteral("restoreBackup"));
    backups_->setAccessibleName(ToQString(u8"选择备份"));
    browse_->setObjectName(QStringLiteral("restoreBrowse"));
    browse_->setAccessibleName(ToQString(u8"浏览其他位置的备份"));
    browse_->SetSmall(true);
    counts_->setObjectName(QStringLiteral("restoreCounts"));
    counts_->setWordWrap(true);
    state_->setObjectName(QStringLiteral("restoreState"));
    state_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    ask_->setObjectName(QStringLiteral("restoreAsk"));
    ask_->setAccessibleName(ask_->text());
    ask_->SetImage(QStringLiteral("restore"));
    whyNot_->setObjectName(QStringLiteral("restoreWhyNot"));
    LayOut();
    ShowChosen();
    connect(backups_, &QComboBox::currentIndexChanged, this, &RestorePane::ShowChosen);
    connect(browse_, &QAbstractButton::clicked, this, &RestorePane::Browse);
    connect(ask_, &QAbstractButton::clicked, this, [this] {
        if (const FoundBackup* chosen = Chosen()) {
            Q_EMIT planAsked(chosen->path);
        }
    });
}

RestorePane::~RestorePane() {
    check_->Stop();
}

void RestorePane::LayOut() {
    auto* choice = new QHBoxLayout;
    choice->setSpacing(Metric::gap2);
    choice->addWidget(backups_, 1);
    choice->addWidget(browse_);
    backups_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* action = new QHBoxLayout;
    action->setSpacing(Metric::gap3);
    action->addWidget(ask_);
    action->addWidget(whyNot_, 1);

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(Metric::gap2);
    rows->addWidget(new GroupHead(ToQString(u8"恢复")));
    rows->addWidget(new RemarkLabel(ToQString(u8"选择备份")));
    rows->addLayout(choice);
    rows->addWidget(counts_);
    rows->addWidget(state_);
    rows->addLayout(action);
    rows->addStretch();
}

void RestorePane::LookFor(const std::filesystem::path& folder) {
    if (folder != folder_) {
        found_.clear();
    }
    folder_ = folder;
    looking_ = true;
    RunJob(
        this, [folder] { return FindBackups(folder); },
        [this, look = ++look_](std::vector<FoundBackup>&& found) {
            if (look == look_) {
                looking_ = false;
                ShowFound(std::move(found));
            }
        });
}

void RestorePane::ShowFound(std::vector<FoundBackup> found) {
    // A new one is what its user has just made: it is chosen. Otherwise what was chosen stays.
    const bool grew =
        !found_.empty() && !found.empty() &&
        std::ranges::find(found_, found.front().path, &FoundBackup::path) == found_.end();
    const FoundBackup* chosen = Chosen();
    const std::filesystem::path path =
        grew || chosen == nullptr ? std::filesystem::path() : chosen->path;
    found_ = std::move(found);
    Fill(path.empty() && !found_.empty() ? found_.front().path : path);
}

void RestorePane::Browse() {
    // A backup that is a folder is chosen by the file in it that describes it.
    AskOpenFile(*this,
                {.title = ToQString(u8"选择备份"),
                 .filters = {ToQString(u8"手机备份 (*.zip manifest.json)")},
                 .folder = QFile::decodeName(QByteArray::fromStdString(folder_.string()))},
                [this](const QString& path) {
                    checking_ = true;
                    RunJob(
                        this,
                        [chosen = ChosenBackup(QFile::encodeName(path).toStdString())] {
                            OpenedBackup opened = BackupReader::Open(chosen);
                            return Opened{
                                {chosen, opened.reader ? opened.reader->TheManifest() : Manifest()},
                                opened.why};
                        },
                        [this](Opened&& opened) { Take(std::move(opened)); });
                });
}

void RestorePane::Take(Opened opened) {
    checking_ = false;
    if (!opened.why.empty()) {
        state_->SetState(CSkinStateLabel::kRed, ToQString(opened.why));
        return;
    }
    const std::filesystem::path path = opened.backup.path;
    std::erase_if(byHand_, [&](const FoundBackup& backup) { return backup.path == path; });
    byHand_.insert(byHand_.begin(), std::move(opened.backup));
    Fill(path);
}

void RestorePane::Fill(const std::filesystem::path& chosen) {
    const QSignalBlocker quiet(backups_);
    shown_ = found_;
    for (const FoundBackup& backup : byHand_) {
        if (std::ranges::find(found_, backup.path, &FoundBackup::path) == found_.end()) {
            shown_.push_back(backup);
        }
    }
    backups_->clear();
    int index = shown_.empty() ? -1 : 0;
    for (std::size_t i = 0; i < shown_.size(); ++i) {
        backups_->addItem(ToShownQString(BackupTitle(shown_[i].manifest)));
        if (shown_[i].path == chosen) {
            index = static_cast<int>(i);
        }
    }
    backups_->setCurrentIndex(index);
    ShowChosen();
}

const FoundBackup* RestorePane::Chosen() const {
    const int index = backups_->currentIndex();
    return index < 0 || index >= static_cast<int>(shown_.size())
               ? nullptr
               : &shown_[static_cast<std::size_t>(index)];
}

void RestorePane::ShowChosen() {
    check_->Stop();
    check_ = std::make_shared<StopSignal>();
    checking_ = false;
    const FoundBackup* chosen = Chosen();
    backups_->setEnabled(chosen != nullptr);
    ShowWhetherToAsk();
    if (chosen == nullptr) {
        counts_->setText(ToQString(u8"左边保存备份的位置里还没有备份，可以浏览其他位置"));
        state_->SetState(CSkinStateLabel::kBlue, ToQString(u8"还没有备份"));
        return;
    }
    counts_->setText(ToShownQString(CountsText(chosen->manifest)));
    state_->SetState(CSkinStateLabel::kBlue, ToQString(u8"正在校验文件"));
    checking_ = true;
    RunJob(
        this,
        [path = chosen->path, stop = check_] {
            const OpenedBackup opened = BackupReader::Open(path);
            return opened.reader ? opened.reader->Verify(*stop) : opened.why;
        },
        [this, stop = check_](std::string&& why) {
            if (stop != check_) {
                return;
            }
            checking_ = false;
            if (why.empty()) {
                state_->SetState(CSkinStateLabel::kGreen, ToQString(u8"文件完整，校验通过"));
            } else {
                state_->SetState(CSkinStateLabel::kRed, ToQString(why));
            }
        });
}

void RestorePane::SetHeld(bool held) {
    held_ = held;
    ShowWhetherToAsk();
}

void RestorePane::ShowWhetherToAsk() {
    ask_->setEnabled(!held_ && Chosen() != nullptr);
    whyNot_->setText(held_ ? ToQString(u8"备份进行中，请稍候") : QString());
}

}  // namespace quorvi
