// How packages that links have named become tasks.
#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <string>

#include "base/Deployment.h"
#include "download/DownloadDirectory.h"
#include "download/TaskQueue.h"
#include "download/TaskStore.h"
#include "download/WaitingPackages.h"
#include "pages/kit/Services.h"
#include "ui/page/Page.h"

namespace quorvi {

// A part of the download page. Of a package that is in the table already its user is asked, any
// other one is resolved through the site. One is looked up at a time, and none while a question
// stands; one is resolved at a time, and a second one is lost. Kept on purpose: two links in one
// breath are mostly the same one (TaskIntakeTest.ASecondLinkDuringAResolveIsLost). The window's
// thread.
class TaskIntake : public QObject {
    Q_OBJECT
  public:
    // `changed` is called when rows of the table have changed.
    TaskIntake(Page& page, PageHost& host, const Services& services, DisksOf disks,
               std::function<void()> changed);

    // Looks the package up that has waited longest; nothing where none waits.
    void TakeNextPackage();

  private:
    struct Known;

    void Ask(const Known& known);
    void ResolvePackage(const std::string& package);
    // Runs `what` on a worker, and tells of the change.
    void Change(std::function<void()> what);

    Page& page_;
    PageHost& host_;
    std::shared_ptr<TaskStore> store_;
    TaskQueue queue_;
    WaitingPackages waiting_;
    Deployment deployment_;
    DisksOf disks_;
    std::function<void()> changed_;
    bool lookingUp_ = false;  // or asking
    bool resolving_ = false;
};

}  // namespace quorvi
