#include "pages/kit/PageSession.h"

#include <utility>

#include "ui/kit/QtText.h"

namespace quorvi {

namespace {

constexpr std::u8string_view kConnectError = u8"【X】连接错误";
constexpr std::u8string_view kUnacknowledged =
    u8"【X】手机没有确认，填写的内容保留在下次打开的窗口里";

// Disables controls. Meanwhile the window itself has the focus. When they are enabled again, the
// one of them that had the focus gets it back, unless the user has given it to another widget.
class FocusKeeper {
  public:
    explicit FocusKeeper(QWidget& controls) {
        QWidget* window = controls.window();
        if (QWidget* focus = window->focusWidget(); focus && controls.isAncestorOf(focus)) {
            had_ = focus;
            window->setFocus();
        }
        controls.setEnabled(false);
    }
    void Enable(QWidget& controls) const {
        controls.setEnabled(true);
        const QWidget* window = controls.window();
        if (had_ && had_->isVisible() && window->focusWidget() == window) {
            had_->setFocus();
        }
    }

  private:
    QPointer<QWidget> had_;
};

}  // namespace

void ShowConnectError(PageHost& host) {
    host.SetStatus(ToQString(kConnectError));
}

void ShowLoadOutcome(PageHost& host, SessionOutcome outcome) {
    switch (outcome) {
        case SessionOutcome::connectFailed:
            ShowConnectError(host);
            break;
        case SessionOutcome::complete:
        case SessionOutcome::noData:
            host.TakeBackStatus(ToQString(kConnectError));
            break;
        default:
            break;  // kept on purpose: nothing is shown for a reply that did not come whole
    }
}

void ShowAcknowledgement(PageHost& host, SessionOutcome outcome) {
    if (outcome == SessionOutcome::complete) {
        ForgetUnacknowledged(host);
    } else if (outcome != SessionOutcome::connectFailed) {
        host.SetStatus(ToQString(kUnacknowledged));
    }
}

void ForgetUnacknowledged(PageHost& host) {
    host.TakeBackStatus(ToQString(kUnacknowledged));
}

void SendChange(PageHost& host, QWidget& controls, AgentAddress agent, Bytes request,
                std::function<void(const AcknowledgedReply& reply)> done) {
    const FocusKeeper focus(controls);
    RunJob(
        &controls,
        [agent, request = std::move(request)] {
            return AgentSession(agent).RunAcknowledged(request);
        },
        [&host, &controls, focus, done = std::move(done)](AcknowledgedReply&& reply) {
            focus.Enable(controls);
            if (!reply.Connected()) {
                ShowConnectError(host);
            }
            done(reply);
        });
}

}  // namespace quorvi
