// Where downloads are kept.
#pragma once

#include <QPointer>
#include <filesystem>

#include "base/SettingsStore.h"
#include "download/DownloadDirectory.h"
#include "ui/kit/SkinDialog.h"

class QLabel;

namespace quorvi {

class CSkinEdit;

// Dialog 685. It begins with the folder of new tasks, which is chosen where there is none yet; the
// disk is looked at on workers. 确定 makes the folder that stands in the field, and where it can't
// the dialog stays. That installation follows a download is a fact, which is shown and can't be
// changed.
class DownloadSettingsDlg : public SkinDialog {
    Q_OBJECT
  public:
    // Both outlive the dialog's workers.
    DownloadSettingsDlg(SettingsStore& settings, DisksOf disks, QWidget* parent = nullptr);

  private:
    void BuildControls();
    void ShowFreeSpace();
    void ChooseFolder();
    void OpenFolder();
    void Keep();
    [[nodiscard]] std::filesystem::path Folder() const;

    SettingsStore& settings_;
    DisksOf disks_;
    CSkinEdit* folder_ = nullptr;
    QLabel* free_ = nullptr;
    CSkinStateLabel* state_ = nullptr;
    CSkinButton* ok_ = nullptr;
    int asked_ = 0;  // questions about the free space; the answer to the last one counts
};

}  // namespace quorvi
