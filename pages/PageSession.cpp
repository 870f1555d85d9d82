#include "pages/PageSession.h"

#include <utility>

#include "ui/QtText.h"

namespace quorvi {

void ShowConnectError(PageHost& host) {
    host.SetStatus(ToQString(u8"【X】连接错误"));
}

bool EndsEarly(SessionOutcome outcome) {
    switch (outcome) {
        case SessionOutcome::noData:
        case SessionOutcome::noReply:
        case SessionOutcome::receiveFailed:
            return true;
        default:
            return false;
    }
}

void SendChange(PageHost& host, QWidget& controls, std::uint16_t agentPort, Bytes request,
                std::function<void(const AcknowledgedReply& reply)> done) {
    controls.setEnabled(false);
    RunJob(
        &controls,
        [agentPort, request = std::move(request)] {
            return AgentSession(agentPort).RunAcknowledged(request);
        },
        [&host, &controls, done = std::move(done)](AcknowledgedReply&& reply) {
            controls.setEnabled(true);
            if (!reply.Connected()) {
                ShowConnectError(host);
            }
            done(reply);
        });
}

}  // namespace quorvi
