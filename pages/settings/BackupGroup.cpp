#include "pages/settings/BackupGroup.h"

#include <QFile>
#include <QHBoxLayout>
#include <QUrl>
#include <QVBoxLayout>
#include <utility>

#include "pages/kit/KeptColumns.h"
#include "pages/kit/PageNumbers.h"
#include "pages/settings/BackupPane.h"
#include "pages/settings/DeletedPane.h"
#include "pages/settings/RestorePane.h"
#include "pages/settings/RestorePlanDlg.h"
#include "ui/kit/QtText.h"
#include "ui/page/OpenOnDesktop.h"

namespace quorvi {

using look::Metric;

BackupGroup::BackupGroup(PageHost& host, AgentAddress agent, AttributionOf attribution,
                         QWidget* parent)
    : CSkinGroupBox(ToQString(u8"备份与恢复"), parent),
      host_(host),
      agent_(agent),
      backup_(new BackupPane(host, agent, std::move(attribution))),
      restore_(new RestorePane),
      deleted_(new DeletedPane) {
    auto* panes = new QHBoxLayout;
    panes->setSpacing(Metric::backupPaneGap);
    backup_->setMinimumWidth(Metric::backupPane);
    panes->addWidget(backup_, 1);
    panes->addWidget(restore_, 1);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(Metric::gap3);
    rows->addLayout(panes);
    rows->addWidget(deleted_);

    connect(backup_, &BackupPane::runningChanged, this, [this](bool running) {
        restore_->SetHeld(running);
        deleted_->SetHeld(running);
    });
    connect(backup_, &BackupPane::folderChanged, this,
            [this] { restore_->LookFor(backup_->Folder()); });
    connect(restore_, &RestorePane::planAsked, this, &BackupGroup::ShowPlan);
    connect(deleted_, &DeletedPane::planAsked, this, &BackupGroup::ShowPlan);
    connect(deleted_, &DeletedPane::filesAsked, this, &BackupGroup::ShowFiles);
}

void BackupGroup::Refresh() {
    restore_->LookFor(backup_->Folder());
    deleted_->Refresh();
}

bool BackupGroup::IsAtWork() const {
    return backup_->Running() || restore_->IsAtWork() || deleted_->IsAtWork();
}

void BackupGroup::ShowFiles(const std::filesystem::path& backup) {
    const QString folder = QFile::decodeName(QByteArray::fromStdString(backup.string()));
    if (!OpenOnDesktop(QUrl::fromLocalFile(folder).toString(QUrl::FullyEncoded))) {
        host_.SetStatus(ToQString(u8"【X】桌面没有打开这个文件夹，请自己到 %1 查看").arg(folder));
    }
}

void BackupGroup::ShowPlan(const std::filesystem::path& backup) {
    auto* plan = new RestorePlanDlg(agent_, backup, this);
    KeepColumnsOf(*plan, host_.Settings());
    // The pages show what was there before.
    connect(plan, &RestorePlanDlg::phoneChanged, this, [this] {
        for (const PageNumbers& page : {kContactsPage, kAlarmsPage, kBookmarksPage}) {
            host_.LoadState().Forget(page.loadKey);
        }
    });
    plan->Open();
}

}  // namespace quorvi
