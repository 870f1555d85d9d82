// The settings of the suite: the start with the desktop, the repair of what ties the program to the
// desktop, the backups of the phone and the way back, how the window looks, the code page, and
// the report for whoever helps.
#pragma once

#include <memory>
#include <optional>

#include "base/Text.h"
#include "desktop/DesktopIntegration.h"
#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "ui/page/FocusKeeper.h"
#include "ui/page/Page.h"
#include "ui/page/PageLoad.h"

class QAbstractButton;

namespace quorvi {

class BackupGroup;
class DiagnosisGroup;
class LookGroup;
class CSkinButton;
class CSkinCheck;
class CSkinProgress;
class SkinRadio;
class CSkinStateLabel;

// Page 3, dialog 202. No failure of it is reported: the box shows what is there afterwards.
//
// Controls 1017, 1018 and 1019 are never shown. They stay, and so does the stored choice
// `exit_mode` behind two of them, which nothing else looks at.
class SettingsPage : public Page {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kSettingsPage;

    SettingsPage(PageHost& host, const Services& services, QWidget* parent = nullptr);

    [[nodiscard]] bool IsAtWork() const override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void OnInitDialog();
    // Shows what is written: whether the desktop starts the program, `exit_mode`, and the code page
    // of the next start.
    void LoadSettings();
    void OnAutoRun();
    void OnExitHide();
    void OnExitQuit();
    void OnRepair();
    void OnCodePage(CodePage codePage);

    // Runs `work(desktop)` on a worker and then `done` on the window's thread; the page's controls
    // are disabled meanwhile.
    template <typename Work, typename Done>
    void Run(Work work, Done done);
    void SetBusy(bool busy);

    std::shared_ptr<DesktopIntegration> desktop_;
    PageLoad job_{*this};
    std::optional<FocusKeeper> focus_;  // of the work that goes on, or went on last

    CSkinCheck* autoRun_;
    CSkinCheck* autoRunOnUsb_;
    SkinRadio* exitHide_;
    SkinRadio* exitQuit_;
    CSkinButton* repair_;
    CSkinProgress* progress_;
    CSkinStateLabel* repairText_;
    SkinRadio* gb18030_;
    SkinRadio* gbk_;
    BackupGroup* backup_;
    LookGroup* look_;
    DiagnosisGroup* diagnosis_;
};

}  // namespace quorvi
