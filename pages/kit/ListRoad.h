// The road of every list of what the phone keeps: fetch it, tick rows, ask, change the phone, fetch
// the list again.
#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "agent/AgentAddress.h"
#include "pages/kit/KeptDelete.h"
#include "pages/kit/ListReply.h"
#include "pages/kit/PageNumbers.h"
#include "pages/kit/PageSession.h"
#include "ui/page/PageLoad.h"

namespace quorvi {

class CConfirmDeleteDlg;

// What becomes of the list when the phone was not reached for a change.
enum class AfterFailedChange {
    refresh,  // it is fetched again all the same
    stay,     // it stays as it is
};

// Where a list stands.
struct ListPlace {
    PageHost& host;
    QWidget& window;    // the page or dialog: what is asked is asked over it
    QWidget& controls;  // of it, disabled while a change is on its way
    AgentAddress agent;
    int loadKey = PageNumbers::kNoKey;
    AfterFailedChange afterFailedChange = AfterFailedChange::refresh;
};

// A delete of some of a list's things.
struct ListDelete {
    std::vector<std::uint32_t> ids;
    GoingRows rows;               // what the list shows of them
    QStringList names;            // what they are called there, as many as ids
    std::u8string_view question;  // in which %1 stands for their number
    // What the status says once the phone has acknowledged it, %1 as above; nothing where empty.
    std::u8string_view said = {};
    Bytes (*request)(std::span<const std::uint32_t> ids);
};

// A member of a page or dialog, behind the list. The window's thread.
class ListRoad {
  public:
    // `fetch(session, progress)` runs on a worker and gives the ListReply that `list`, a
    // PhoneListCtrl, shows; `shown` follows a load after which the list is drawn again.
    template <typename List, typename Fetch>
    ListRoad(const ListPlace& place, List* list, Fetch fetch, std::function<void()> shown = {})
        : place_(place),
          load_(place.loadKey == PageNumbers::kNoKey
                    ? PageLoad(place.window)
                    : PageLoad(place.window, place.host.LoadState(), place.loadKey)),
          refresh_([this, list, fetch = std::move(fetch), shown = std::move(shown)] {
              Load(list, fetch, shown);
          }) {}
    ListRoad(const ListRoad&) = delete;
    ListRoad& operator=(const ListRoad&) = delete;

    // Empties the list, without redraw and marked as loading, and fetches it on a worker; dropped
    // while a load runs. A reply that is not whole although the agent was reached leaves the list
    // as it came, empty or incomplete, and without redraw until a later load gets further: kept on
    // purpose, so that nothing repaints it half-done (test
    // CallLogPageEarlyEnd.LeavesRedrawOffUntilALaterLoadGetsFurther).
    void Refresh() { refresh_(); }

    // Asks, keeps what the list shows of them, sends the request (see SendKeptDelete), says what
    // was done, and fetches the list again. Without an id it says that nothing is ticked.
    void Delete(const ListDelete& deletion);
    // Asks, keeps what `find` gives, sends, says `said` in the status, and fetches the list again.
    void AskAndDelete(const QString& question, FindGoing find, Bytes request,
                      const QString& said = {});

  private:
    void Ask(CConfirmDeleteDlg* dialog, FindGoing find, Bytes request, const QString& said);
    template <typename List, typename Fetch>
    void Load(List* list, const Fetch& fetch, const std::function<void()>& shown);

    ListPlace place_;
    PageLoad load_;
    std::function<void()> refresh_;
};

template <typename List, typename Fetch>
void ListRoad::Load(List* list, const Fetch& fetch, const std::function<void()>& shown) {
    load_.Start(
        [list] {
            list->Clear();
            list->SetRedraw(false);
            list->SetState(ListState::loading);
        },
        [list, fetch, agent = place_.agent](const LoadProgress& progress) {
            return fetch(AgentSession(agent), ProgressTo(progress, list));
        },
        [&host = place_.host, list, shown](auto&& reply) {
            ShowLoadOutcome(host, reply.outcome);
            const bool endsEarly = reply.Connected() && !reply.IsWhole();
            list->SetState(reply.Connected() ? ListState::idle : ListState::failed);
            list->Show(std::move(reply.list));
            if (!endsEarly) {
                list->SetRedraw(true);
                if (shown) {
                    shown();
                }
            }
        });
}

}  // namespace quorvi
