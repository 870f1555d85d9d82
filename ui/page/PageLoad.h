// The common form of a page's load, from the press to the rows.
#pragma once

#include <concepts>
#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

#include "ui/page/Job.h"
#include "ui/page/Page.h"

namespace quorvi {

// What a load's hand-over leaves behind, where a page does not end it in the common way.
enum class LoadEnd {
    ended,       // the busy flag falls, the key becomes 1
    keyRunning,  // the busy flag falls, the key stays 0
};

// Given to a worker: runs something on the window's thread while the load goes on, in the order of
// the calls and before the hand-over of the result, unless the page is gone.
class LoadProgress {
  public:
    explicit LoadProgress(QPointer<QObject> page) : page_(std::move(page)) {}
    void operator()(std::function<void()> what) const { PostToWindow(page_, std::move(what)); }

  private:
    QPointer<QObject> page_;
};

// One loader of a page: a busy flag and, where the page has one, its key in PageLoadState. A member
// of the page. A page with several workers has one of these for each.
//
//     load_.Start([this] { list_->Clear(); list_->SetRedraw(false); },   // window's thread, at
//     once
//                 [] { return LoadContacts(); },                         // the worker
//                 [this](ContactReply&& reply) { Show(std::move(reply)); });  // window's thread
//
// The worker takes no argument or a LoadProgress. It must not touch the page, and must own or share
// all that it uses. `show` returns nothing or a LoadEnd. The busy flag falls and the key becomes 1
// after `show`, in the same turn of the window's thread. Used on the window's thread.
class PageLoad {
  public:
    // A loader that `PageLoadState` knows nothing of.
    explicit PageLoad(QObject& page) : page_(&page) {}
    PageLoad(QObject& page, const PageLoadState& state, int key)
        : page_(&page), state_(state), key_(key) {}
    PageLoad(const PageLoad&) = delete;
    PageLoad& operator=(const PageLoad&) = delete;

    [[nodiscard]] bool Running() const { return running_; }

    // Starts the worker and returns at once; false, and nothing done, while one runs.
    template <std::invocable Begin, typename Work, typename Show>
    bool Start(Begin begin, Work work, Show show) {
        if (running_) {
            return false;
        }
        running_ = true;
        begin();
        RunJob(
            page_,
            [state = state_, key = key_, progress = LoadProgress(page_),
             work = std::move(work)]() mutable {
                if (key) {
                    state.Set(*key, PageLoadState::kRunning);
                }
                if constexpr (std::invocable<Work&, const LoadProgress&>) {
                    return work(std::as_const(progress));
                } else {
                    return work();
                }
            },
            [this, show = std::move(show)](auto&& result) mutable {
                using Result = std::remove_cvref_t<decltype(result)>;
                if constexpr (std::same_as<std::invoke_result_t<Show&, Result&&>, LoadEnd>) {
                    End(show(std::forward<Result>(result)));
                } else {
                    show(std::forward<Result>(result));
                    End(LoadEnd::ended);
                }
            });
        return true;
    }

    // Without a begin hook.
    template <typename Work, typename Show>
    bool Start(Work work, Show show) {
        return Start([] {}, std::move(work), std::move(show));
    }

  private:
    void End(LoadEnd end) {
        running_ = false;
        if (key_ && end == LoadEnd::ended) {
            state_.Set(*key_, PageLoadState::kEnded);
        }
    }

    QObject* page_;
    PageLoadState state_;
    std::optional<int> key_;
    bool running_ = false;
};

}  // namespace quorvi
