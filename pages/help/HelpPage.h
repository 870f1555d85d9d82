// Where the makers of the suite are reached, and a form that goes to them.
#pragma once

#include <cstdint>
#include <optional>

#include "base/Deployment.h"
#include "online/DeviceIdentity.h"
#include "online/Feedback.h"
#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "ui/page/FocusKeeper.h"
#include "ui/page/Page.h"
#include "ui/page/PageLoad.h"

namespace quorvi {

class CSkinButton;
class CSkinCombo;
class CSkinEdit;
class CSkinStateLabel;
class SkinTextEdit;

// Page 6, dialog 268. Its load asks the phone for model and version, and fills them in where the
// user has not. A form may be on its way while another page is shown; one run of the program sends
// kMostFeedbacks of them.
class HelpPage : public Page {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kHelpPage;
    static constexpr int kPlatform = 1004;
    static constexpr int kModel = 1082;
    static constexpr int kFirmware = 1084;
    static constexpr int kContent = 1076;
    static constexpr int kEmail = 1080;
    static constexpr int kQq = 1081;
    static constexpr int kSend = 1030;
    static constexpr int kState = 1109;
    static constexpr int kMailLink = 1087;
    static constexpr int kForumLink = 1088;
    static constexpr int kSocialLink = 1340;
    static constexpr int kHelpLink = 1221;

    HelpPage(PageHost& host, const Services& services, QWidget* parent = nullptr);

    void Load() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    [[nodiscard]] QWidget* MakeLinks();
    [[nodiscard]] QWidget* MakeForm();
    void FillIn(const DeviceIdentity& identity);
    [[nodiscard]] FeedbackForm Form() const;
    void Send();
    void Show(FeedbackOutcome outcome);

    AgentAddress agent_;
    Deployment site_;
    PageLoad load_;
    PageLoad sending_{*this};
    std::optional<FocusKeeper> focus_;  // of the form that is on its way, or was last
    std::int32_t client_ = 0;           // the version of the phone's agent, 0 where none answered
    int sent_ = 0;

    CSkinCombo* platform_;
    CSkinEdit* model_;
    CSkinEdit* firmware_;
    SkinTextEdit* content_;
    CSkinEdit* email_;
    CSkinEdit* qq_;
    CSkinStateLabel* state_;
    CSkinButton* send_;
};

}  // namespace quorvi
