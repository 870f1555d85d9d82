#include "link/AdbPipe.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <system_error>
#include <thread>
#include <utility>

#include "base/os/ChildProcess.h"
#include "base/os/Wakeup.h"

namespace quorvi {

// One run, shared by the pipe and its reader, so that each may go first.
struct CAdbPipe::Run {
    Run(CAdbPipeListener& hears, std::chrono::milliseconds interval)
        : listener(hears), pollInterval(interval) {}

    CAdbPipeListener& listener;
    const std::chrono::milliseconds pollInterval;
    ChildProcess child;
    std::atomic<bool> stopping{false};
    std::atomic<std::thread::id> reader{};

    std::mutex mutex;
    Wakeup stop;  // closed by the reader when it is through
    std::condition_variable ended;
    bool done = false;

    void SignalStop() {
        stopping = true;
        const std::lock_guard lock(mutex);
        stop.Raise();
    }

    void Tell(std::string_view text, AdbOutputKind kind) {
        if (!stopping) {
            listener.OnOutput(text, kind);
        }
    }

    // The child closed its output or has ended: it is let go first, since the listener may take
    // long over this.
    void TellEnd(AdbOutputKind kind) {
        child.Release();
        Tell({}, kind);
    }

    enum class Drained { more, end };
    Drained DrainPiece(std::size_t most);
    void ReadAll();
};

CAdbPipe::Run::Drained CAdbPipe::Run::DrainPiece(std::size_t most) {
    std::array<char, kAdbPieceBytes> piece;
    const std::ptrdiff_t count =
        read(child.OutputDescriptor(), piece.data(), std::min(most, piece.size()));
    if (count > 0) {
        Tell({piece.data(), static_cast<std::size_t>(count)}, AdbOutputKind::data);
        return Drained::more;
    }
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) {
        return Drained::more;
    }
    TellEnd(count == 0 ? AdbOutputKind::finished : AdbOutputKind::failed);
    return Drained::end;
}

void CAdbPipe::Run::ReadAll() {
    while (!stopping) {
        // A process that the child left behind may hold the pipe open: the child's own end counts,
        // with what stands in the pipe then.
        if (child.HasEnded()) {
            std::size_t left = BytesWaiting(child.OutputDescriptor());
            for (; left > 0 && !stopping; left -= std::min(left, kAdbPieceBytes)) {
                if (DrainPiece(left) == Drained::end) {
                    return;
                }
            }
            TellEnd(AdbOutputKind::finished);
            return;
        }
        std::array<pollfd, 2> waits{
            {{child.OutputDescriptor(), POLLIN, 0}, {stop.Descriptor(), POLLIN, 0}}};
        const int ready = poll(waits.data(), waits.size(), static_cast<int>(pollInterval.count()));
        if (ready > 0 && waits[0].revents != 0 && !stopping &&
            DrainPiece(kAdbPieceBytes) == Drained::end) {
            return;
        }
    }
}

CAdbPipe::CAdbPipe(CAdbPipeListener& listener, std::chrono::milliseconds grace)
    : listener_(listener), grace_(grace) {}

CAdbPipe::~CAdbPipe() {
    CAdbPipe::Stop();
}

bool CAdbPipe::Start(AdbCommand command) {
    Stop();
    auto run = std::make_shared<Run>(listener_, pollInterval_);
    if (!run->stop.IsOpen() ||
        run->child.Start(std::move(command), ChildProcess::Input::pipe,
                         ChildProcess::Output::pipe) != RunOutcome::started) {
        return false;
    }
    // Held while the reader starts, so that a Stop from its first call finds the run.
    const std::lock_guard lock(mutex_);
    try {
        std::thread([run] { Read(run); }).detach();
    } catch (const std::system_error&) {
        run->child.Kill();
        return false;
    }
    run_ = std::move(run);
    return true;
}

void CAdbPipe::Read(const std::shared_ptr<Run>& run) {
    run->reader = std::this_thread::get_id();
    run->ReadAll();
    if (run->stopping) {
        run->child.Kill();
        run->child.WaitForEnd();
    }
    run->child.Release();
    {
        const std::lock_guard lock(run->mutex);
        run->stop.Close();
        run->done = true;
    }
    run->ended.notify_all();
}

void CAdbPipe::Stop() {
    std::shared_ptr<Run> run;
    {
        const std::lock_guard lock(mutex_);
        run = std::exchange(run_, nullptr);
    }
    if (!run) {
        return;
    }
    run->SignalStop();
    if (run->reader.load() == std::this_thread::get_id()) {
        return;
    }
    std::unique_lock lock(run->mutex);
    if (!run->ended.wait_for(lock, grace_, [&] { return run->done; })) {
        run->child.Kill();
    }
}

}  // namespace quorvi
