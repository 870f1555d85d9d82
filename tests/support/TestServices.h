// The services that the test of a page hands to it.
#pragma once

#include <filesystem>
#include <memory>

#include "link/DeviceContext.h"
#include "pages/kit/Services.h"
#include "tests/support/FakeDesktop.h"

namespace quorvi {

// A table that cannot be opened.
[[nodiscard]] inline std::shared_ptr<TaskStore> NoTaskStore() {
    return std::make_shared<TaskStore>([] { return std::filesystem::path(); });
}

struct TestServices {
    DeviceContext device;
    std::shared_ptr<FakeDesktop> desktop = std::make_shared<FakeDesktop>();
    AttributionOf attribution = MakeNumberAttribution();
    PackageInstaller installer;
    // The downloads' table: there is none, unless a test makes one.
    std::shared_ptr<TaskStore> taskStore = NoTaskStore();

    Observed<LinkTrouble> linkTrouble;

    // Where the site is; as delivered it is nowhere.
    Deployment deployment;

    // Those of a page whose agent stands there.
    [[nodiscard]] Services At(AgentAddress agent) {
        return {.agent = agent,
                .attribution = attribution,
                .device = device,
                .desktop = desktop,
                .installer = installer,
                .deployment = deployment,
                .taskStore = taskStore,
                .taskQueue = TaskQueue(taskStore, installer, [this] { return device.Serial(); }),
                .linkTrouble = linkTrouble};
    }
};

}  // namespace quorvi
