// The dashboard: the phone's name and state, and the ways to the rest of the suite.
#pragma once

#include <cstdint>

#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "pages/phoneinfo/SystemInfo.h"
#include "ui/html/HtmlCtrl.h"
#include "ui/page/Page.h"
#include "ui/page/PageLoad.h"

namespace quorvi {

// Page 0, dialog 130. Refreshed when the link comes up and by its own link; PageLoadState knows
// nothing of it. It holds the state it was given last, also when the phone is gone. Before the
// first it says how a phone is connected, or what keeps one that is there from being used.
class CHomePage : public Page, private HtmlListener {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kDashboardPage;

    CHomePage(PageHost& host, const Services& services, QWidget* parent = nullptr);

    // Fetches the phone's state and shows it. One that is asked for while another runs follows it.
    void Refresh();
    // A link was clicked; `text` is what follows the scheme's colon.
    void OnLink(const std::string& text);

    void Load() override { Refresh(); }
    // Message::dashboardLink: `first` is a DashboardAction, `second` the number of a store item.
    void OnMessage(Message message, int first, int second) override;

  private:
    void OnAppCmd(const std::string& text) override;
    void ShowGuide();
    void Show(const SystemInfoReply& reply);
    void ShowTrouble(LinkTrouble trouble);

    AgentAddress agent_;
    PageLoad load_{*this};
    bool again_ = false;
    Subscription trouble_;
    CHtmlCtrlFix* view_;
};

}  // namespace quorvi
