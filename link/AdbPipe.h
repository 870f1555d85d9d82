// Runs one adb command and streams its output to a listener, on a thread of its own.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <mutex>
#include <string_view>

#include "link/AdbCommand.h"

namespace quorvi {

enum class AdbOutputKind {
    data = 0,      // a piece of the child's output; it may end in the middle of a line
    finished = 1,  // no text: the pipe broke or the child has ended
    failed = 2,    // no text: a read failed with another error
};

class CAdbPipeListener {
  public:
    virtual ~CAdbPipeListener() = default;
    // Called on the reader thread, which it may keep for as long as it likes. Pieces are to be
    // joined and read at `finished`: a line can be cut at any byte.
    virtual void OnOutput(std::string_view text, AdbOutputKind kind) = 0;
};

// Bytes of the largest piece.
inline constexpr std::size_t kAdbPieceBytes = 255;
// How long Stop waits for the reader.
inline constexpr std::chrono::milliseconds kAdbStopGrace{5000};

// Idle, running, stopping, idle. Start and Stop from one thread at a time, or from the listener.
class CAdbPipe {
  public:
    // The listener is not owned and outlives every run.
    explicit CAdbPipe(CAdbPipeListener& listener, std::chrono::milliseconds grace = kAdbStopGrace);
    virtual ~CAdbPipe();
    CAdbPipe(const CAdbPipe&) = delete;
    CAdbPipe& operator=(const CAdbPipe&) = delete;

    // Stops any earlier run, then starts a command and its reader. False if the pipes, the process
    // or the thread could not be made.
    virtual bool Start(AdbCommand command);

    // Ends the reader and the child; the listener is not called any more. From the listener it does
    // not wait. Otherwise it waits for the reader, up to the grace time; a listener that keeps it
    // longer is left to itself (a thread cannot be ended from outside without breaking what it
    // holds), with its child ended, and hears nothing more.
    virtual void Stop();

  private:
    struct Run;
    static void Read(const std::shared_ptr<Run>& run);

    CAdbPipeListener& listener_;
    std::chrono::milliseconds grace_;
    std::chrono::milliseconds pollInterval_{100};
    std::mutex mutex_;
    std::shared_ptr<Run> run_;
};

}  // namespace quorvi
