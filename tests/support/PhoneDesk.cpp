#include "tests/support/PhoneDesk.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <utility>

#include "pages/devices/DeviceManagerDlg.h"
#include "tests/support/BuildPlaces.h"
#include "tests/support/WaitFor.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

LinkEnvironment WithTheTestsAgent() {
    LinkEnvironment environment;
    environment.packageFile = std::filesystem::path(QUORVI_BIN_DIR) / kAgentPackageFile;
    return environment;
}

}  // namespace

PhoneDesk::PhoneDesk(std::size_t phones, PageMakers makers,
                     const std::filesystem::path& taskDatabase)
    : rig_(phones) {
    if (!Error().empty()) {
        return;
    }
    services_.taskStore = std::make_shared<TaskStore>([taskDatabase] { return taskDatabase; });
    services_.taskQueue = TaskQueue(services_.taskStore, PackageInstaller(WithTheTestsAgent()),
                                    [this] { return device_.Serial(); });
    connectPhone_ = [this](bool delay) {
        face_->ended = false;
        link_->ConnectPhone(delay);
    };
    openDeviceManager_ = [this](QWidget* parent, const QString& title, std::function<void()> done) {
        auto* dialog = new CDeviceManagerDlg(
            device_, [this](const QString& text) { window_->SetStatus(text); }, title, parent,
            WithTheTestsAgent());
        dialog->Open([done = std::move(done)](int) { done(); });
    };
    MakeWindowOf(std::move(makers), false, [this](CMainDlg& window) {
        face_ = std::make_unique<NotedFace>(window);
        link_ = std::make_unique<PhoneLink>(device_, *face_, clock_,
                                            PackageInstaller(WithTheTestsAgent()), AgentPort,
                                            WithTheTestsAgent());
    });
}

bool PhoneDesk::FollowDevices() {
    tracker_ = std::make_unique<DeviceTracker>(rig_.AdbServerPort());
    const auto isTold = std::make_shared<bool>(false);
    const bool follows = tracker_->Start(
        [this, isTold, guard = QPointer<QObject>(window_.get())](const TrackedDevices& devices) {
            PostToWindow(guard, [this, isTold, devices] {
                window_->Link().OnDevices(devices);
                *isTold = true;
            });
        });
    return follows && WaitFor([&] { return *isTold; });
}

// No worker of the link may outlive what it stands on.
PhoneDesk::~PhoneDesk() {
    tracker_.reset();
    if (link_) {
        EXPECT_TRUE(WaitForLink());
    }
}

bool PhoneDesk::WaitForLink() {
    const bool ended = WaitFor([this] { return face_->ended.load(); });
    QTest::qWait(0);
    return ended;
}

}  // namespace quorvi
