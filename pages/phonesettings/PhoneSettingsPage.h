// The phone settings page: what the phone is set to, and each setting written the moment the user
// changes it.
#pragma once

#include <cstdint>
#include <deque>

#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "pages/phonesettings/PhoneSettings.h"
#include "ui/page/Page.h"
#include "ui/page/PageLoad.h"

namespace quorvi {

class CSkinStateLabel;
class PhoneSettingsForm;

// Page 41, dialog 420, key 11 in PageLoadState. One exchange with the phone at a time: while it
// runs the controls are disabled, but for the one that was changed. That one may be changed on, and
// each change goes out, in its order; a refresh that is asked for meanwhile comes behind them. What
// the phone says to a change is not looked at: the control keeps what the user chose.
class CPhoneSettingsPage : public Page {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kPhoneSettingsPage;

    CPhoneSettingsPage(PageHost& host, const Services& services, QWidget* parent = nullptr);

    // Reads the settings; dropped while they are being read.
    void Refresh();

    void Load() override { Refresh(); }
    [[nodiscard]] bool IsAtWork() const override { return load_.Running() || !changes_.empty(); }

  private:
    struct Change {
        PhoneSetting setting;
        std::uint32_t value;
    };

    void Take(const Change& change);
    void WriteNext();
    void Written(SessionOutcome outcome);
    void Show(const PhoneSettingsReply& reply);
    // Says below the controls why they may not show what the phone is set to.
    void Say(int state, const QString& text);

    AgentAddress agent_;
    PageLoad load_;
    PhoneSettingsForm* form_;
    CSkinStateLabel* state_;
    std::deque<Change> changes_;  // the first of them is on its way
    bool refreshAsked_ = false;   // while changes were on their way
};

}  // namespace quorvi
