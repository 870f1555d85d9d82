// Downloads one file at a time by HTTP, on a thread of its own, and goes on where an earlier
// download has ended.
//
//   CHttpDownloader engine;
//   engine.SetSink(sink);
//   engine.SetJob(url, target);
//   engine.Start();
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "download/DownloadSink.h"
#include "download/Transfer.h"

namespace quorvi {

// Any thread. Its runs share its state, so that it may go before they end.
class CHttpDownloader {
  public:
    explicit CHttpDownloader(TransferLimits limits = {});

    // Who hears the events of the runs that are started from now on; not owned: where there is
    // none, or it is gone, they are dropped.
    void SetSink(std::weak_ptr<IDownloadSink> sink);
    // What the next run downloads. A run that goes on keeps its own.
    void SetJob(std::string url, std::filesystem::path target);

    // Starts a run, which nobody waits for. It may be called while an event is told: the run that
    // tells it goes on to its end beside the new one. `held` is let go when the run has ended, its
    // move included.
    void Start(std::shared_ptr<const void> held = {});
    // Ends what runs, wherever it waits, and returns at once: the end comes as an event. What has
    // come stays in the part file. A run that is started later does not hear of it.
    void Stop();

    // The address of the job; the last one that a redirect has led to.
    [[nodiscard]] std::string Url() const;
    // What the run that told the latest event has met; to be asked while that is told.
    [[nodiscard]] DownloadFault Fault() const;
    // Whether no run goes on: behind `complete` it still moves its file.
    [[nodiscard]] bool IsIdle() const;
    // Waits until each run that has told `complete` of this file has moved it, too. Not to be
    // called while an event is told.
    void WaitForMove(const std::filesystem::path& target) const;

  private:
    struct Known;
    struct State;
    class Run;
    std::shared_ptr<State> state_;
};

}  // namespace quorvi
