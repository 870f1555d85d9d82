// The window as the link procedure sees it.
#pragma once

#include <QPointer>

#include "link/LinkFace.h"

namespace quorvi {

class CMainDlg;

// Hands what the link tells over to the window's thread. Outlives the window: then it drops all.
class WindowLinkFace : public LinkFace {
  public:
    explicit WindowLinkFace(CMainDlg& window);

    void ShowBanner(std::string text, BannerState state) override;
    // Waits for the user's choice in the device manager dialog.
    void ChooseDevice(std::string_view title) override;
    void Searched(FindDeviceResult result) override;
    void LinkUp() override;
    void LinkEnded() override;

  private:
    QPointer<QObject> guard_;
    CMainDlg* window_;  // only used on the window's thread, while the guard stands
};

}  // namespace quorvi
