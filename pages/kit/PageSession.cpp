#include "pages/kit/PageSession.h"

#include <utility>

#include "ui/kit/QtText.h"
#include "ui/page/DisabledJob.h"

namespace quorvi {

namespace {

constexpr std::u8string_view kConnectError = u8"【X】连接错误";
constexpr std::u8string_view kUnacknowledged =
    u8"【X】手机没有确认，填写的内容保留在下次打开的窗口里";

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
    RunDisabled(
        controls,
        [agent, request = std::move(request)] {
            return AgentSession(agent).RunAcknowledged(request);
        },
        [&host, done = std::move(done)](const AcknowledgedReply& reply) {
            if (!reply.Connected()) {
                ShowConnectError(host);
            }
            done(reply);
        });
}

}  // namespace quorvi
