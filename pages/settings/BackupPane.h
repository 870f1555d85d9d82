// The half of the group in which a backup is made.
#pragma once

#include <QWidget>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "agent/AgentAddress.h"
#include "backup/Backup.h"
#include "backup/BackupPlace.h"
#include "refdata/NumberAttribution.h"
#include "ui/page/Page.h"

namespace quorvi {

class CSkinButton;
class CSkinCheck;
class CSkinEdit;
class CSkinProgress;
class CSkinStateLabel;
class RemarkLabel;
class SkinLink;
class SkinRadio;

// What was chosen stays in the user's settings. A backup goes on while other pages are shown.
class BackupPane : public QWidget {
    Q_OBJECT
  public:
    BackupPane(PageHost& host, AgentAddress agent, AttributionOf attribution,
               QWidget* parent = nullptr);
    ~BackupPane() override;

    // Where backups go, and are looked for.
    [[nodiscard]] const std::filesystem::path& Folder() const { return folder_; }
    [[nodiscard]] bool Running() const { return stop_ != nullptr; }

  Q_SIGNALS:
    // A backup has begun or ended.
    void runningChanged(bool running);
    // The folder holds other backups than before.
    void folderChanged();

  private:
    struct Result {
        BackupResult backup;
        std::filesystem::path target;
    };
    struct Told {
        QString text;
        int percent = 0;
    };

    void LayOut();
    [[nodiscard]] QWidget* MakeKinds();
    void ReadChoices();
    void ChooseFolder(const QString& path);
    void KeepChoices();
    [[nodiscard]] std::vector<BackupKind> Kinds() const;
    void ShowWhetherToStart();
    void Start();
    void Show(const Told& told);
    void End(const Result& result);
    void SetRunning(std::shared_ptr<StopSignal> stop);
    void ShowSkipped();

    PageHost& host_;
    AgentAddress agent_;
    AttributionOf attribution_;
    std::filesystem::path folder_;
    std::shared_ptr<StopSignal> stop_;  // of the backup that runs
    QString status_;                    // what the window's state label was given last
    Manifest made_;                     // of the backup that ended last
    bool keeping_ = false;              // the choices are on their way to the disk
    bool keepAgain_ = false;            // and have changed since

    QWidget* choices_;
    std::vector<CSkinCheck*> kinds_;  // in the order of kBackupKinds
    CSkinEdit* place_;
    CSkinButton* choose_;
    SkinRadio* zip_;
    SkinRadio* plain_;
    CSkinProgress* progress_;
    CSkinButton* start_;
    CSkinButton* end_;
    CSkinStateLabel* state_;
    RemarkLabel* detail_;
    SkinLink* skipped_;
};

}  // namespace quorvi
