#include "pages/phonesettings/PhoneSettingsPage.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <utility>

#include "pages/kit/PageSession.h"
#include "pages/kit/ViewSentences.h"
#include "pages/phonesettings/PhoneSettingsForm.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinLabels.h"
#include "ui/page/FocusKeeper.h"
#include "ui/page/PageKeys.h"

namespace quorvi {
namespace {

constexpr std::u8string_view kRefresh = u8"刷新系统设置";

// The pages of wallpapers and ringtones, to which buttons of the hidden group lead.
void GoTo(PageHost& host, const PageNumbers& page) {
    host.Post(Message::goToPage, TabOf(page), page.page);
}

}  // namespace

CPhoneSettingsPage::CPhoneSettingsPage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      agent_(services.agent),
      load_(*this, host.LoadState(), kNumbers.loadKey),
      form_(new PhoneSettingsForm(this)),
      state_(new CSkinStateLabel({}, this)) {
    state_->setObjectName(QStringLiteral("settingsState"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(look::Metric::gap4);
    layout->addWidget(form_);
    auto* below = new QHBoxLayout;
    below->addSpacing(look::Metric::groupPadding);  // under what stands in the groups
    below->addWidget(state_);
    layout->addLayout(below);
    layout->addStretch(1);
    HeedKeys(*this, {.refresh = [this] { Refresh(); }});
    connect(form_, &PhoneSettingsForm::chosen, this,
            [this](PhoneSetting setting, std::uint32_t value) {
                Take({setting, value});
            });
    connect(form_, &PhoneSettingsForm::wallpapersAsked, this,
            [this] { GoTo(Host(), kDesktopPage); });
    connect(form_, &PhoneSettingsForm::ringtonesAsked, this,
            [this] { GoTo(Host(), kRingtonesPage); });
}

// ---- reading -----------------------------------------------------------------------------------

void CPhoneSettingsPage::Refresh() {
    if (!changes_.empty()) {
        refreshAsked_ = true;
        return;
    }
    if (load_.Running()) {
        return;
    }
    const FocusKeeper focus(*form_);
    load_.Start(
        [this] {
            form_->Lock();
            Say(CSkinStateLabel::kBlue, ToQString(u8"正在读取手机的设置…"));
        },
        [agent = agent_] { return FetchPhoneSettings(AgentSession(agent)); },
        [this, focus](PhoneSettingsReply&& reply) {
            form_->Unlock();
            focus.GiveBack();
            Show(reply);
        });
}

void CPhoneSettingsPage::Show(const PhoneSettingsReply& reply) {
    ShowLoadOutcome(Host(), reply.outcome);
    if (reply.values) {
        form_->Show(*reply.values);
    }
    if (reply.values && reply.outcome == SessionOutcome::complete) {
        Say(CSkinStateLabel::kBlue, {});
    } else if (reply.values) {
        // Kept on purpose: what did not come reads as zero, as in every reply that was cut (test
        // PhoneSettingsPage.AReplyThatIsCutShowsWhatCameAndZeroForTheRest).
        Say(CSkinStateLabel::kRed,
            ToQString(u8"手机的设置没有发完，上面显示的不一定是手机现在的设置。请点“%1”再读一次")
                .arg(ToQString(kRefresh)));
    } else if (reply.outcome == SessionOutcome::connectFailed) {
        Say(CSkinStateLabel::kRed, ToQString(u8"没有连上手机，上面显示的不一定是手机现在的设置。%1")
                                       .arg(CheckTheCable(kRefresh)));
    } else {
        Say(CSkinStateLabel::kRed,
            ToQString(u8"手机没有给出它的设置，上面显示的不一定是手机现在的设置。请点“%1”再读一次")
                .arg(ToQString(kRefresh)));
    }
}

void CPhoneSettingsPage::Say(int state, const QString& text) {
    state_->SetState(state, text);
}

// ---- writing -----------------------------------------------------------------------------------

void CPhoneSettingsPage::Take(const Change& change) {
    changes_.push_back(change);
    if (changes_.size() == 1) {
        form_->LockAllBut(change.setting);
        WriteNext();
    }
}

void CPhoneSettingsPage::WriteNext() {
    const Change& change = changes_.front();
    RunJob(
        this,
        [agent = agent_, request = WriteSettingRequest(change.setting, change.value)] {
            return AgentSession(agent).RunAcknowledged(request).outcome;
        },
        [this](SessionOutcome outcome) { Written(outcome); });
}

void CPhoneSettingsPage::Written(SessionOutcome outcome) {
    ShowLoadOutcome(Host(), outcome);
    changes_.pop_front();
    if (!changes_.empty()) {
        WriteNext();
        return;
    }
    form_->Unlock();
    if (std::exchange(refreshAsked_, false)) {
        Refresh();
    }
}

}  // namespace quorvi
