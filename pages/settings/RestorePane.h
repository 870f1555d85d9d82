// The half of the group in which a backup is chosen that is to be restored.
#pragma once

#include <QWidget>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "backup/BackupPlace.h"

namespace quorvi {

class CSkinButton;
class CSkinCombo;
class CSkinStateLabel;
class RemarkLabel;

class RestorePane : public QWidget {
    Q_OBJECT
  public:
    explicit RestorePane(QWidget* parent = nullptr);
    ~RestorePane() override;

    // Looks for the backups in `folder` on a worker; what was chosen by hand stays among them.
    void LookFor(const std::filesystem::path& folder);
    // While a backup is made, nothing is restored.
    void SetHeld(bool held);
    // Whether something is being read from the disk.
    [[nodiscard]] bool IsAtWork() const { return looking_ || checking_; }

  Q_SIGNALS:
    void planAsked(const std::filesystem::path& backup);

  private:
    struct Opened {
        FoundBackup backup;
        std::string why;
    };

    void LayOut();
    void Browse();
    void Take(Opened opened);
    void ShowFound(std::vector<FoundBackup> found);
    void Fill(const std::filesystem::path& chosen);
    // The one that is chosen is shown, and each of its files looked at.
    void ShowChosen();
    void ShowWhetherToAsk();
    [[nodiscard]] const FoundBackup* Chosen() const;

    std::filesystem::path folder_;
    std::vector<FoundBackup> byHand_;  // from elsewhere
    std::vector<FoundBackup> found_;
    std::vector<FoundBackup> shown_;  // entry by entry
    std::shared_ptr<StopSignal> check_ = std::make_shared<StopSignal>();
    int look_ = 0;  // counts the looks, of which the last one's result is shown
    bool looking_ = false;
    bool checking_ = false;
    bool held_ = false;

    CSkinCombo* backups_;
    CSkinButton* browse_;
    RemarkLabel* counts_;
    CSkinStateLabel* state_;
    CSkinButton* ask_;
    RemarkLabel* whyNot_;
};

}  // namespace quorvi
