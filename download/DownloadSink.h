// What a download tells, and whom.
#pragma once

#include <cstdint>

namespace quorvi {

// The events, with what stands for speed and percentage.
enum class DownloadEvent : std::int32_t {
    started = 0,        // -1, -1; told by the queue, never by the engine
    progress = 1,       // bytes a second; 0 to 100
    complete = 2,       // 0, 100
    stopped = 3,        // -1, -1; at the request of Stop
    rangeRefused = 4,   // -1, -1; the server answered 416; `refused` follows
    closedEarly = 5,    // -1, -1; the peer closed the connection, or there was none
    receiveFailed = 6,  // -1, -1; an error, or a time-out, or a file that can't be written
    refused = 7,        // -1, -1; a status outside 200 to 399, or no answer
};

class IDownloadSink {
  public:
    virtual ~IDownloadSink() = default;
    // Called on the thread of the download, which goes on when it returns.
    virtual void OnDownloadEvent(DownloadEvent event, std::int32_t speed, std::int32_t percent) = 0;
};

}  // namespace quorvi
