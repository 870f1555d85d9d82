// Asks what is to be done with a package that is in the task list already.
#pragma once

#include "download/TaskStore.h"
#include "ui/kit/SkinDialog.h"

namespace quorvi {

// Dialog 686. Ends with one of the results; any other one, Escape's included, is its way out.
class DuplicateTaskDlg : public SkinDialog {
    Q_OBJECT
  public:
    static constexpr int kDownloadAgain = 1;
    static constexpr int kInstallAgain = 3;

    // `fileThere`: the task's file exists, so that it can be installed as it is.
    DuplicateTaskDlg(const FoundTask& task, bool fileThere, QWidget* parent = nullptr);

  protected:
    void showEvent(QShowEvent* event) override;
};

}  // namespace quorvi
