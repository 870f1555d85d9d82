// Brings a backup back: shows first what it is going to do, then does it.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "agent/AgentAddress.h"
#include "backup/PlanRows.h"
#include "backup/Restore.h"
#include "ui/kit/SkinDialog.h"

namespace quorvi {

class CSkinProgress;
class ElidedLabel;
class PlanCounter;
class PlanListCtrl;

// Dialog 690. It reads the backup and the phone when it opens. Closing it while it writes stops the
// writing, and leaves it open with the result. What was stopped, or lost its link, goes on in it.
class RestorePlanDlg : public SkinDialog {
    Q_OBJECT
  public:
    RestorePlanDlg(AgentAddress agent, std::filesystem::path backup, QWidget* parent = nullptr);
    ~RestorePlanDlg() override;

    void done(int result) override;

    // What the workers of one try share, each in its turn.
    struct Try;
    // A plan, or why there is none.
    struct Prepared {
        RestoreStatus status;
        std::string title;  // of the backup, ANSI
        std::string phone;  // the model of the one that it goes to, ANSI
        std::vector<PlanRow> rows;
    };

  Q_SIGNALS:
    // A writing has ended, well or not: the phone may have what it had not before.
    void phoneChanged();

  private:
    enum class Stage {
        reading,
        unread,   // the backup or the phone could not be read
        ready,    // the plan is there
        writing,  // it is being done
        broken,   // stopped, or failed: can go on
        whole,    // all is done, or there was nothing to do
    };

    void AddCounters(QLayout& rows);
    // Makes the plan, and starts on it at once where `goOn` says so.
    void Prepare(bool goOn);
    void ShowPrepared(Prepared prepared, bool goOn);
    void Write();
    void ShowDone(std::size_t done);
    void ShowEnd(const RestoreStatus& status, std::size_t done);
    void Filter(const PlanCounter& pressed);
    // Shows the buttons of a stage, and its text in the footer.
    void Enter(Stage stage, int state, const QString& text);
    void StopWork();

    AgentAddress agent_;
    std::filesystem::path backup_;
    std::shared_ptr<Try> try_;
    Stage stage_ = Stage::reading;
    std::vector<std::string> todo_;  // names of what is added or changed, in its order; ANSI

    ElidedLabel* note_;
    CSkinProgress* progress_;
    std::vector<PlanCounter*> counters_;
    PlanListCtrl* list_;
    CSkinStateLabel* state_;
    CSkinButton* go_;
    CSkinButton* stop_;
    CSkinButton* close_;
};

}  // namespace quorvi
