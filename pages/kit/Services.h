// The services: what works on while pages come and go, and belongs to none of them; and where the
// phone's agent and the site are.
#pragma once

#include <memory>

#include "agent/AgentAddress.h"
#include "base/Deployment.h"
#include "base/Observed.h"
#include "download/TaskQueue.h"
#include "download/TaskStore.h"
#include "download/WaitingPackages.h"
#include "link/PackageInstaller.h"
#include "link/PhonePresence.h"
#include "pages/kit/WaitingNumbers.h"
#include "refdata/NumberAttribution.h"

namespace quorvi {

class DesktopIntegration;
class DeviceContext;

// Made once at the program's start, handed by reference to every page that is made. A page keeps
// the parts that it uses, and gives its workers copies of them: each may be copied, and its copies
// share one state; what is a reference here outlives every worker.
struct Services {
    AgentAddress agent;
    AttributionOf attribution;
    DeviceContext& device;
    std::shared_ptr<DesktopIntegration> desktop;
    PackageInstaller installer;
    Deployment deployment{};
    // The table of the downloads, and the queue that works it off.
    std::shared_ptr<TaskStore> taskStore;
    TaskQueue taskQueue;
    Observed<int> taskCount{};          // rows of the download page at its last load
    WaitingPackages waitingPackages{};  // see QueuePackage
    // See NumberMenu.
    WaitingNumbers numbersToWriteTo{};
    WaitingNumbers numbersToAdd{};
    Observed<LinkTrouble> linkTrouble{};  // why a phone that is there cannot be used
};

}  // namespace quorvi
