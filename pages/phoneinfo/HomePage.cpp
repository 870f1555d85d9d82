#include "pages/phoneinfo/HomePage.h"

#include <QVBoxLayout>

#include "base/Text.h"
#include "pages/kit/PageSession.h"
#include "pages/phoneinfo/DashboardLink.h"
#include "pages/phoneinfo/NoPhone.h"
#include "ui/html/HtmlTemplate.h"
#include "ui/kit/QtText.h"
#include "ui/page/OpenGuide.h"

namespace quorvi {
namespace {

constexpr int kView = 1360;

void GoTo(PageHost& host, const PageNumbers& target) {
    host.Post(Message::goToPage, TabOf(target), target.page);
}

void Command(PageHost& host, PageCommand command, int argument = 0) {
    host.Post(Message::pageCommand, static_cast<int>(command), argument);
}

}  // namespace

CHomePage::CHomePage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      agent_(services.agent),
      view_(new CHtmlCtrlFix(kView, HtmlContent::local, *this, this)) {
    view_->setAccessibleName(ToQString(u8"我的手机"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(view_);
    view_->LoadFromResource(kDashboardTemplate);
    trouble_ =
        services.linkTrouble.Observe([this, guard = QPointer<QObject>(this)](LinkTrouble trouble) {
            PostToWindow(guard, [this, trouble] { ShowTrouble(trouble); });
        });
    if (const LinkTrouble trouble = services.linkTrouble.Get(); trouble != LinkTrouble::none) {
        ShowTrouble(trouble);
    }
}

void CHomePage::ShowTrouble(LinkTrouble trouble) {
    view_->SetInnerHtml(kNoPhoneElement, NoPhoneFragment(trouble));
}

void CHomePage::Refresh() {
    const bool started =
        load_.Start([agent = agent_] { return FetchSystemInfo(AgentSession(agent)); },
                    [this](SystemInfoReply&& reply) { Show(reply); });
    again_ = !started;
}

void CHomePage::Show(const SystemInfoReply& reply) {
    ShowLoadOutcome(Host(), reply.outcome);
    if (reply.info) {
        view_->SetInnerHtml("manufacturer", DashboardHeader(*reply.info));
        view_->SetInnerHtml("info_ul", DashboardList(*reply.info));
    }
    if (again_) {
        PostToWindow(this, [this] { Refresh(); });
    }
}

// The guide's link is none of the phone's, and stands only where there is no phone.
void CHomePage::OnAppCmd(const std::string& text) {
    if (text == kGuideLink) {
        ShowGuide();
    } else {
        OnLink(text);
    }
}

void CHomePage::ShowGuide() {
    OpenGuide(this, [this] { Host().SetStatus(ToQString(kGuideNotOpened)); });
}

void CHomePage::OnLink(const std::string& text) {
    OnMessage(Message::dashboardLink, static_cast<int>(DashboardActionOf(text)), ToInt(text));
}

void CHomePage::OnMessage(Message message, int first, int second) {
    if (message != Message::dashboardLink) {
        return;
    }
    switch (static_cast<DashboardAction>(first)) {
        case DashboardAction::deviceManager:
            Command(Host(), PageCommand::openDeviceManager);
            break;
        case DashboardAction::appStore:
            GoTo(Host(), kStorePage);
            break;
        case DashboardAction::refresh:
            Refresh();
            break;
        case DashboardAction::screenshot:
            break;
        case DashboardAction::capture:
            Command(Host(), PageCommand::captureScreen);
            break;
        case DashboardAction::systemInformation:
            GoTo(Host(), kSystemInfoPage);
            break;
        case DashboardAction::phoneSettings:
            GoTo(Host(), kPhoneSettingsPage);
            break;
        case DashboardAction::storeItem:
            Command(Host(), PageCommand::openStoreItem, second);
            break;
    }
}

}  // namespace quorvi
