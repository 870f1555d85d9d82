// The screen capture page: a still picture of the phone's screen, turned and saved.
#pragma once

#include <chrono>

#include "base/Places.h"
#include "link/AdbHostClient.h"
#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "pages/screen/PictureDrag.h"
#include "pages/screen/PictureSaves.h"
#include "pages/screen/SaidStatus.h"
#include "pages/screen/ScreenCapture.h"
#include "pages/screen/ScreenCaptureCtrl.h"
#include "ui/page/Page.h"
#include "ui/page/PageLoad.h"

namespace quorvi {

class ScreenOptions;

// What a capture page works with; a test hands in its own.
struct ScreenMeans {
    AdbHostClient adb{};
    std::chrono::milliseconds stall = kCaptureStall;  // how long the phone may say nothing
    Places places = ThePlaces();
    PictureSaves::LocalTime now{};  // that of the machine, where none is told
};

// Page 44, dialog 602, key 14 in PageLoadState. Speaks with the adb server and not with the agent.
// Every capture reads the whole screen again, one of another rotation too; the picture before stays
// until the next one is there, and when there is none. Ctrl+C copies it, and the mouse drags it out
// as a PNG file.
class CScreenshotPage : public Page, private ScreenCaptureCtrl::Observer {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kScreenshotPage;
    static constexpr int kPicture = 1353;  // number of the picture's control
    enum Command : int { commandRefresh, commandSave, commandChooseFolder, commandOpenFolder };

    CScreenshotPage(PageHost& host, const Services& services, QWidget* parent = nullptr)
        : CScreenshotPage(host, services, ScreenMeans(), parent) {}
    CScreenshotPage(PageHost& host, const Services& services, ScreenMeans means,
                    QWidget* parent = nullptr);
    ~CScreenshotPage() override;

    // Captures with the chosen rotation; dropped while such a capture runs.
    void Refresh();

    void Load() override { Refresh(); }
    void OnMessage(Message message, int first, int second) override;
    [[nodiscard]] bool IsAtWork() const override;

  private:
    struct Captured {
        CaptureFault fault;
        std::optional<ScreenPicture> picture;
    };

    void RunCommand(int index) override;
    void OnScreenSize(int width, int height) override;
    void CaptureForAutoRefresh(Rotation rotation);
    [[nodiscard]] std::function<Captured()> CaptureOf(Rotation rotation) const;
    // Shows what a capture came to, the picture or why there is none; the state it leaves.
    [[nodiscard]] ListState Show(Captured&& captured);
    void Save();
    void Copy();
    void Drag();

    AdbHostClient adb_;
    std::chrono::milliseconds stall_;
    Places places_;
    PictureSaves::LocalTime now_;
    DeviceContext& device_;
    PageLoad load_;
    PageLoad autoLoad_;
    SaidStatus said_;
    ScreenCaptureCtrl* picture_;
    ScreenOptions* options_;
    PictureSaves* saves_;
    std::optional<PictureCopy> copy_;  // of the picture on show, once it was dragged
};

}  // namespace quorvi
