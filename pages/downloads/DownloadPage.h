// The download page: what is being downloaded and installed, and what has been.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "download/DownloadDirectory.h"
#include "download/TaskQueue.h"
#include "pages/downloads/DownloadListCtrl.h"
#include "pages/downloads/DownloadRows.h"
#include "pages/downloads/EndedTasks.h"
#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "ui/page/Page.h"
#include "ui/page/PageLoad.h"

namespace quorvi {

class CSkinTree;
class DropInstall;
class TaskIntake;

// Page 5, dialog 543, without a load key: it is loaded when it is made, and from then on whenever
// the queue changes the table. What another program has changed there it shows when the user comes
// back to it. It watches the queue, whose events come to the window's thread in their order,
// and works on tables and disks on workers, its controls disabled meanwhile.
//
// What the user chooses in the tree is loaded once: each load that a change of the table leads to
// shows the unfinished tasks again, and the tree says so. Kept on purpose: what goes on is what
// counts (DownloadPage.AChangeOfTheTableLeadsBackToTheUnfinishedTasks).
class CDownloadPage : public Page {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kDownloadsPage;
    enum Command { commandStart, commandStop, commandRemove, commandSettings };
    enum MenuCommand { menuFind = 1, menuResume, menuPause, menuInstall, menuRemove };

    CDownloadPage(PageHost& host, const Services& services, QWidget* parent = nullptr,
                  DisksOf disks = FixedDisksOf(ThePlaces()));

    // Has the next waiting package looked up; see QueuePackage.
    void Load() override;
    // Of the files the packages are installed, after a question.
    void OnDropFiles(const QStringList& paths) override;

    void StartNext();
    void StopCurrent();
    // Removes the ticked rows without a question; says so where none is ticked.
    void RemoveChecked() { Remove(list_->TasksOf(list_->TickedRows())); }
    // The same with the ticked ones, or else the selected one.
    void RemoveChosen() { Remove(list_->TasksOf(list_->ChosenRows())); }
    void OpenSettings();

  protected:
    void RunCommand(int index) override;
    void showEvent(QShowEvent* event) override;

  private:
    void MakeTree();
    // Shows the tasks of a filter, as the table has them then.
    void LoadTaskList(TaskFilter filter);
    void LoadAgainIfAsked();
    void Show(LoadedTasks list);
    void LoadUnfinished();
    void OnNodeChosen();
    void OnEvent(const QueueEvent& event);
    void Say(const QueueEvent& event);
    void TellTheEnd(bool tasksLeft);
    void OpenMenu(int row, const QPoint& at);
    void OnMenuCommand(int command);
    void FindTarget(const CDownloadTask& task);
    // Runs `what` on a worker, the page disabled meanwhile.
    void Change(std::function<void()> what);
    void Remove(const std::vector<std::int32_t>& tasks);

    std::shared_ptr<TaskStore> store_;
    TaskQueue queue_;
    Observed<int> taskCount_;
    DisksOf disks_;
    CSkinTree* tree_;
    DownloadListCtrl* list_;
    TaskIntake* intake_;
    DropInstall* drops_;
    PageLoad load_;
    TaskFilter wanted_ = TaskFilter::unfinished;  // of the last load that was asked for
    bool loadAgain_ = false;  // the table has changed since the load that runs was started
    TaskNotes notes_;
    EndedTasks ended_;
    QString speed_;  // what the status was told last of the running download
    Subscription watch_;
};

}  // namespace quorvi
