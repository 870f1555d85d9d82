// A desk with phones on it: the main window, its link procedure without the long waits, the real
// adb server, and simulated phones. Nothing of it is left when it goes.
//
//   PhoneDesk desk(1, ThePageMakers());
//   ASSERT_EQ(desk.Error(), "");
//   ASSERT_TRUE(desk.WaitForLink());
#pragma once

#include <atomic>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "app/window/WindowLinkFace.h"
#include "link/DeviceTracker.h"
#include "link/PhoneLink.h"
#include "tests/support/LinkRun.h"
#include "tests/support/MainDoubles.h"
#include "tests/support/PhoneRig.h"

namespace quorvi {

class PhoneDesk : private MainDoubles {
  public:
    // Starts as the program does: with the window's pages made and the link on its way. Without a
    // file for the downloads' table there is none.
    PhoneDesk(std::size_t phones, PageMakers makers,
              const std::filesystem::path& taskDatabase = {});
    ~PhoneDesk();

    // Why the desk does not stand; empty when it does.
    [[nodiscard]] const std::string& Error() const { return rig_.Error(); }
    [[nodiscard]] e2e::PhoneRig& Rig() { return rig_; }
    [[nodiscard]] CMainDlg& Window() { return *window_; }
    [[nodiscard]] const DeviceContext& Device() const { return device_; }
    [[nodiscard]] MemorySettings& Settings() { return settings_; }
    [[nodiscard]] FakeTray& Tray() { return tray_; }
    [[nodiscard]] const std::vector<Sound>& Played() const { return sounds_.played; }
    // How often the window has asked for the end of the process.
    [[nodiscard]] int Ended() const { return ended_; }

    // Has the window follow adb's list of phones, as the program does from its start, and waits
    // until it has heard the first one.
    [[nodiscard]] bool FollowDevices();

    // Until nothing of the link procedure runs any more.
    [[nodiscard]] bool WaitForLink();

  private:
    // The window's face, which notes when the procedure has ended.
    class NotedFace : public WindowLinkFace {
      public:
        using WindowLinkFace::WindowLinkFace;
        std::atomic<bool> ended = false;
        void LinkEnded() override {
            WindowLinkFace::LinkEnded();
            ended = true;
        }
    };

    e2e::PhoneRig rig_;
    e2e::EagerClock clock_{rig_};
    std::unique_ptr<NotedFace> face_;
    std::unique_ptr<PhoneLink> link_;
    std::unique_ptr<DeviceTracker> tracker_;
};

}  // namespace quorvi
