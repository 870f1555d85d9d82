// One run of the engine: a file from its address to its place.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>

#include "download/DownloadSink.h"
#include "download/HttpSocket.h"
#include "download/PartFile.h"
#include "download/ProgressMeter.h"

namespace quorvi {

// Why a run ended without its file, where the event alone does not tell.
enum class DownloadFault {
    none,
    noConnection,  // the host is unknown, or nobody answers there
    diskFull,
    cannotWrite,  // the folder is missing or may not be written, or the part file is a link
};

// How a run waits. Differs from the defaults in tests only.
struct TransferLimits {
    std::chrono::milliseconds body = std::chrono::seconds(10);  // without a byte of the body
    // The pause before each redirect but the first twenty, so that a chain without an end keeps
    // nobody busy.
    std::chrono::milliseconds redirectPause = std::chrono::seconds(1);
};

// What a run tells while it goes, on its own thread.
class TransferFace {
  public:
    virtual ~TransferFace() = default;
    virtual void Tell(DownloadEvent event, std::int32_t speed, std::int32_t percent) = 0;
    // Told in front of the event.
    virtual void Fail(DownloadFault fault) = 0;
    // The address is another one from now on.
    virtual void Redirected(const std::string& url) = 0;
    // A head was read.
    virtual void Answered(const ResponseHead& head) = 0;
};

// Used once, on one thread; `face` and `stop` outlive it.
class Transfer {
  public:
    // `lastHead` is the last head that any run has read: a run that gets no connection judges by
    // it. Kept on purpose: the engine has one head for all its runs
    // (HttpDownloader.ARunWithoutAConnectionReadsTheOldHead).
    Transfer(TransferFace& face, const StopSignal& stop, TransferLimits limits, std::string url,
             std::filesystem::path target, ResponseHead lastHead);

    // Asks for what the part file lacks, writes it, and moves the whole file to its place. The last
    // event but `complete` is the end; behind `complete` comes the move.
    void Run();

  private:
    bool Ask();
    bool FollowRedirects();
    [[nodiscard]] bool HasHead() const;
    [[nodiscard]] int Status() const;
    [[nodiscard]] std::optional<std::int64_t> ContentLength() const;
    [[nodiscard]] bool IsWholeAlready() const;
    void ReadBody();
    bool ReceiveBody(std::int64_t length);
    bool Keep(PartFile::Written written);
    void Tell(DownloadEvent event);

    TransferFace& face_;
    const StopSignal& stop_;
    const TransferLimits limits_;
    std::string url_;
    const std::filesystem::path target_;
    PartFile part_;
    CHttpSocket connection_;
    std::int64_t resumed_ = 0;
    bool answered_ = false;  // the last question got an answer of its own
};

}  // namespace quorvi
