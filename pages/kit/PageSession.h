// What all pages do alike with a session of theirs: its progress, its failure in words, and a
// change on the phone.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <utility>

#include "agent/AgentSession.h"
#include "ui/kit/ViewStatus.h"
#include "ui/page/PageLoad.h"

namespace quorvi {

// Tells the user that no connection to the agent was to be had. The window's thread.
void ShowConnectError(PageHost& host);

// What the status says of a load that has ended: a connection that was not to be had, and 就绪 in
// the place of such a failure once a load has worked, that is, once a whole reply has come. The
// window's thread.
void ShowLoadOutcome(PageHost& host, SessionOutcome outcome);

// What the status says of the answer to something that the user has filled in and told to save or
// send: that the phone has not acknowledged it, so that it stands in the next editor; and 就绪 in
// the place of that once something has been acknowledged. A failed connect is told by SendChange.
// The window's thread.
void ShowAcknowledgement(PageHost& host, SessionOutcome outcome);
// 就绪 in the place of a word about something that was not acknowledged: it stands before the user
// again. The window's thread.
void ForgetUnacknowledged(PageHost& host);

// How often the window hears how far a load has come.
inline constexpr std::chrono::milliseconds kProgressPause{50};

// Hands the session's progress on to a view with SetLoadProgress, at a pace that a window can
// follow.
template <typename View>
[[nodiscard]] AgentSession::Progress ProgressTo(const LoadProgress& progress, View* view) {
    using Clock = std::chrono::steady_clock;
    return [progress, view, last = Clock::time_point{}](std::uint32_t received,
                                                        std::uint32_t length) mutable {
        if (const auto now = Clock::now(); now - last >= kProgressPause) {
            last = now;
            progress([view, received, length] { view->SetLoadProgress(received, length); });
        }
    };
}

// Sends a command that changes something on the phone, off the window's thread. `controls` is
// disabled meanwhile, and has the keyboard again behind it; a failed connect is shown in the
// status; then `done` follows, unless `controls` is gone. The window's thread.
void SendChange(PageHost& host, QWidget& controls, AgentAddress agent, Bytes request,
                std::function<void(const AcknowledgedReply& reply)> done);

}  // namespace quorvi
