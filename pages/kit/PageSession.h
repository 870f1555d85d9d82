// What all pages do alike with a session of theirs: its progress, its failure in words, and what
// its outcome means for a list.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <utility>

#include "agent/AgentSession.h"
#include "pages/kit/ListReply.h"
#include "ui/kit/ViewStatus.h"
#include "ui/page/PageLoad.h"

namespace quorvi {

// Tells the user that no connection to the agent was to be had. The window's thread.
void ShowConnectError(PageHost& host);

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

// Loads a list of the kit: it is emptied, without redraw and marked as loading, while a worker runs
// `fetch(progress)`, which gives a ListReply; then the list takes what came by its Show, and says
// where there is no phone. A reply that is not whole although the agent was reached leaves the
// list as it came, empty or incomplete, and without redraw until a later load gets further: this is
// meant. Else redraw goes on and `shown()` follows. False, and nothing done, while a load runs.
template <typename List, typename Fetch, typename Shown>
bool LoadList(PageLoad& load, PageHost& host, List* list, Fetch fetch, Shown shown) {
    return load.Start(
        [list] {
            list->Clear();
            list->SetRedraw(false);
            list->SetState(ListState::loading);
        },
        [list, fetch = std::move(fetch)](const LoadProgress& progress) {
            return fetch(ProgressTo(progress, list));
        },
        [&host, list, shown = std::move(shown)](auto&& reply) {
            if (!reply.Connected()) {
                ShowConnectError(host);
            }
            const bool endsEarly = reply.Connected() && !reply.IsWhole();
            list->SetState(reply.Connected() ? ListState::idle : ListState::failed);
            list->Show(std::move(reply.list));
            if (!endsEarly) {
                list->SetRedraw(true);
                shown();
            }
        });
}
template <typename List, typename Fetch>
bool LoadList(PageLoad& load, PageHost& host, List* list, Fetch fetch) {
    return LoadList(load, host, list, std::move(fetch), [] {});
}

// Sends a command that changes something on the phone, off the window's thread. `controls` is
// disabled meanwhile, and has the keyboard again behind it; a failed connect is shown in the
// status; then `done` follows, unless `controls` is gone. The window's thread.
void SendChange(PageHost& host, QWidget& controls, AgentAddress agent, Bytes request,
                std::function<void(const AcknowledgedReply& reply)> done);

}  // namespace quorvi
