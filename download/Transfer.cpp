#include "download/Transfer.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "download/HttpUrl.h"

namespace quorvi {
namespace {

constexpr std::size_t kBufferBytes = 256 << 10;
constexpr int kHastyRedirects = 20;
constexpr int kRangeRefused = 416;

bool IsRedirect(int status) {
    return status >= 300 && status < 400;
}

}  // namespace

Transfer::Transfer(TransferFace& face, const StopSignal& stop, TransferLimits limits,
                   std::string url, std::filesystem::path target, ResponseHead lastHead)
    : face_(face),
      stop_(stop),
      limits_(limits),
      url_(std::move(url)),
      target_(std::move(target)),
      part_(target_),
      connection_(stop, std::move(lastHead)) {}

void Transfer::Tell(DownloadEvent event) {
    face_.Tell(event, -1, -1);
}

// One question at the present address; false where it got no answer.
bool Transfer::Ask() {
    const HttpUrl url = ParseHttpUrl(url_);
    connection_.BuildRequest({.host = url.server, .object = url.object, .rangeStart = resumed_});
    answered_ = connection_.Connect(url.server, url.port);
    if (!answered_) {
        face_.Fail(DownloadFault::noConnection);
        return false;
    }
    connection_.SendRequest();
    face_.Answered(connection_.Head());
    // Only now: the head may take its time, Stop ends the wait for it.
    connection_.SetTimeout(limits_.body, CHttpSocket::Direction::receive);
    return true;
}

// Asks on until the answer is none that leads to another address. There is no limit to a chain;
// false where Stop has ended it.
bool Transfer::FollowRedirects() {
    for (int redirects = 0; Ask() && IsRedirect(Status()) && !stop_.IsStopped(); ++redirects) {
        url_ = connection_.GetHeaderValue("Location").value_or("");
        face_.Redirected(url_);
        connection_.Close();
        if (redirects >= kHastyRedirects) {
            stop_.WaitFor(limits_.redirectPause);
        }
    }
    return !stop_.IsStopped();
}

// Whether there is a head to judge by: one of an earlier run is, too, but for a redirect, which
// would be followed in a circle.
bool Transfer::HasHead() const {
    return connection_.Head().IsValid() && (answered_ || !IsRedirect(connection_.GetStatusCode()));
}

int Transfer::Status() const {
    return HasHead() ? connection_.GetStatusCode() : -1;
}

// How long the body is said to be; 0 where the head does not tell. Nothing where there is no head.
std::optional<std::int64_t> Transfer::ContentLength() const {
    if (!HasHead()) {
        return std::nullopt;
    }
    return ToLength(connection_.GetHeaderValue("Content-Length").value_or(""));
}

// Whether the server says that the part file, of which it has nothing more to give, is the whole: a
// run was ended between its last byte and the move.
bool Transfer::IsWholeAlready() const {
    return Status() == kRangeRefused && resumed_ > 0 &&
           connection_.GetHeaderValue("Content-Range") == fmt::format("bytes */{}", resumed_);
}

void Transfer::Run() {
    resumed_ = std::min(part_.Length(), kMostLength);
    if (!FollowRedirects()) {
        Tell(DownloadEvent::stopped);
        return;
    }
    const int status = Status();
    if (status == kRangeRefused) {
        Tell(DownloadEvent::rangeRefused);
    }
    if (status < 200 || status >= 400) {
        Tell(DownloadEvent::refused);
    }
    // Kept on purpose: what a refusal has for a body is written like any other, and it is for who
    // hears the event to act (HttpDownloader.ARefusalsBodyIsWrittenAndMoved). A 200 is taken like
    // the 206 that was asked for (HttpDownloader.AWholeAnswerToARangeIsTakenLikeAPart).
    ReadBody();
}

void Transfer::ReadBody() {
    const std::optional<std::int64_t> length = ContentLength();
    if (!length) {
        Tell(DownloadEvent::closedEarly);
        return;
    }
    bool whole = *length == 0;
    if (!Keep(part_.Open(resumed_))) {
        return;
    }
    if (*length < 0) {
        Tell(DownloadEvent::receiveFailed);
    } else if (*length > 0) {
        whole = ReceiveBody(*length);
    }
    connection_.Close();
    if (!Keep(part_.Close()) || !whole) {
        return;
    }
    // The event comes first, on purpose: who hears it finds the part file, and the whole one soon
    // behind it (HttpDownloader.TheMoveComesBehindItsEvent).
    face_.Tell(DownloadEvent::complete, 0, 100);
    if (!part_.MoveOnto(target_)) {
        face_.Fail(DownloadFault::cannotWrite);
    }
}

// True when all of the body has come.
bool Transfer::ReceiveBody(std::int64_t length) {
    const bool dropped = IsWholeAlready();
    const auto start = std::chrono::steady_clock::now();
    ProgressMeter meter(resumed_, length);
    std::vector<std::byte> buffer(kBufferBytes);
    while (meter.Session() < length) {
        if (stop_.IsStopped()) {
            Tell(DownloadEvent::stopped);
            return false;
        }
        const auto wanted = static_cast<std::size_t>(
            std::min<std::int64_t>(kBufferBytes, length - meter.Session()));
        const std::ptrdiff_t count = connection_.Receive(std::span(buffer).first(wanted));
        if (count < 0 && stop_.IsStopped()) {
            continue;
        }
        if (count < 1) {
            Tell(count == 0 ? DownloadEvent::closedEarly : DownloadEvent::receiveFailed);
            return false;
        }
        const auto bytes = std::span(buffer).first(static_cast<std::size_t>(count));
        if (!dropped && !Keep(part_.Write(bytes))) {
            return false;
        }
        const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::steady_clock::now() - start);
        if (const auto progress = meter.Count(count, elapsed)) {
            face_.Tell(DownloadEvent::progress, progress->speed, progress->percent);
        }
    }
    return true;
}

// False, and the run's end, where the file could not take it.
bool Transfer::Keep(PartFile::Written written) {
    if (written == PartFile::Written::all) {
        return true;
    }
    face_.Fail(written == PartFile::Written::noRoom ? DownloadFault::diskFull
                                                    : DownloadFault::cannotWrite);
    Tell(DownloadEvent::receiveFailed);
    return false;
}

}  // namespace quorvi
