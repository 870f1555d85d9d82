// The services that the test of a page hands to it.
#pragma once

#include <memory>

#include "link/DeviceContext.h"
#include "pages/kit/Services.h"
#include "tests/support/FakeDesktop.h"

namespace quorvi {

struct TestServices {
    DeviceContext device;
    std::shared_ptr<FakeDesktop> desktop = std::make_shared<FakeDesktop>();
    AttributionOf attribution = MakeNumberAttribution();
    PackageInstaller installer;

    // Where the site is; as delivered it is nowhere.
    Deployment deployment;

    // Those of a page whose agent stands there.
    [[nodiscard]] Services At(AgentAddress agent) {
        return {.agent = agent,
                .attribution = attribution,
                .device = device,
                .desktop = desktop,
                .installer = installer,
                .deployment = deployment};
    }
};

}  // namespace quorvi
