#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "link/AdbPipe.h"
#include "tests/support/FakeAdb.h"

namespace quorvi {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;
using testing::ElementsAre;
using testing::Le;
using testing::SizeIs;

// Joins the pieces and waits for the end.
class Recorder : public CAdbPipeListener {
  public:
    void OnOutput(std::string_view text, AdbOutputKind kind) override {
        if (react) {
            react(kind);
        }
        const std::lock_guard lock(mutex_);
        kinds_.push_back(kind);
        pieces_.emplace_back(text);
        changed_.notify_all();
    }

    // Whether a call of this kind came in time.
    bool Heard(AdbOutputKind kind, std::chrono::milliseconds time = 10s) {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(
            lock, time, [&] { return std::count(kinds_.begin(), kinds_.end(), kind) > 0; });
    }
    std::vector<std::string> Pieces() {
        const std::lock_guard lock(mutex_);
        return pieces_;
    }
    std::vector<AdbOutputKind> Kinds() {
        const std::lock_guard lock(mutex_);
        return kinds_;
    }
    std::string Text() {
        std::string text;
        for (const std::string& piece : Pieces()) {
            text += piece;
        }
        return text;
    }

    // Run on the reader thread before the call is recorded.
    std::function<void(AdbOutputKind)> react;

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<AdbOutputKind> kinds_;
    std::vector<std::string> pieces_;
};

TEST(CAdbPipe, StreamsOutputAndTellsTheEndOnce) {
    const FakeAdb adb("echo one; echo two >&2");
    Recorder listener;
    CAdbPipe pipe(listener);
    ASSERT_TRUE(pipe.Start(adb.Path()));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::finished));
    pipe.Stop();
    EXPECT_EQ(listener.Text(), "one\ntwo\n");
    EXPECT_EQ(listener.Kinds().back(), AdbOutputKind::finished);
    EXPECT_EQ(listener.Pieces().back(), "");
    const auto kinds = listener.Kinds();
    EXPECT_EQ(std::count(kinds.begin(), kinds.end(), AdbOutputKind::finished), 1);
}

TEST(CAdbPipe, PiecesHaveAtMost255Bytes) {
    const FakeAdb adb("head -c 100000 /dev/zero | tr '\\0' a");
    Recorder listener;
    CAdbPipe pipe(listener);
    ASSERT_TRUE(pipe.Start(adb.Path()));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::finished));
    EXPECT_EQ(listener.Text(), std::string(100000, 'a'));
    EXPECT_THAT(listener.Pieces(), testing::Each(SizeIs(Le(255U))));
}

TEST(CAdbPipe, LineMayBeCutAtAnyByte) {
    const FakeAdb adb("for c in p a c k a g e; do printf $c; sleep 0.02; done; echo");
    Recorder listener;
    CAdbPipe pipe(listener);
    ASSERT_TRUE(pipe.Start(adb.Path()));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::finished));
    EXPECT_EQ(listener.Text(), "package\n");
    EXPECT_GT(listener.Pieces().size(), 2U);
}

TEST(CAdbPipe, CommandWithoutOutputOnlyFinishes) {
    Recorder listener;
    CAdbPipe pipe(listener);
    ASSERT_TRUE(pipe.Start("true"));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::finished));
    EXPECT_THAT(listener.Kinds(), ElementsAre(AdbOutputKind::finished));
}

TEST(CAdbPipe, MissingExecutableIsTold) {
    Recorder listener;
    CAdbPipe pipe(listener);
    EXPECT_FALSE(pipe.Start("/nonexistent/adb shell pm list package"));
    EXPECT_FALSE(listener.Heard(AdbOutputKind::finished, 50ms));
}

TEST(CAdbPipe, ServerThatInheritedThePipeDoesNotKeepTheEnd) {
    const FakeAdb adb("sleep 20 & echo $! > \"$dir/pid\"; echo started");
    Recorder listener;
    CAdbPipe pipe(listener);
    ASSERT_TRUE(pipe.Start(adb.Path()));
    EXPECT_TRUE(listener.Heard(AdbOutputKind::finished));
    EXPECT_EQ(listener.Text(), "started\n");
}

TEST(CAdbPipe, ChildThatClosedItsOutputHasFinished) {
    const FakeAdb adb("echo x; exec >&- 2>&-; sleep 2");
    Recorder listener;
    CAdbPipe pipe(listener);
    const auto begin = steady_clock::now();
    ASSERT_TRUE(pipe.Start(adb.Path()));
    EXPECT_TRUE(listener.Heard(AdbOutputKind::finished));
    EXPECT_LT(steady_clock::now() - begin, 1500ms);
}

TEST(CAdbPipe, StopEndsAChildThatNeverEnds) {
    const FakeAdb adb("echo up; exec sleep 1000");
    Recorder listener;
    CAdbPipe pipe(listener);
    ASSERT_TRUE(pipe.Start(adb.Path()));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::data));
    const auto begin = steady_clock::now();
    pipe.Stop();
    EXPECT_LT(steady_clock::now() - begin, 1s);
    EXPECT_EQ(ZombieChildren(), 0);
    EXPECT_FALSE(listener.Heard(AdbOutputKind::finished, 50ms));
}

TEST(CAdbPipe, StopEndsAChildThatWritesWithoutEnd) {
    Recorder listener;
    CAdbPipe pipe(listener);
    ASSERT_TRUE(pipe.Start("yes"));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::data));
    pipe.Stop();
    const std::size_t heard = listener.Kinds().size();
    std::this_thread::sleep_for(50ms);
    EXPECT_EQ(listener.Kinds().size(), heard);
}

TEST(CAdbPipe, StopFromTheListenerAtTheEndDoesNotDeadlock) {
    Recorder listener;
    CAdbPipe pipe(listener);
    std::atomic<bool> waited{true};
    listener.react = [&](AdbOutputKind kind) {
        if (kind == AdbOutputKind::finished) {
            const auto begin = steady_clock::now();
            pipe.Stop();
            waited = steady_clock::now() - begin > 1s;
        }
    };
    ASSERT_TRUE(pipe.Start("echo x"));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::finished));
    EXPECT_FALSE(waited);
    // And the pipe can be used again. Nothing stops it from inside now: the Stop below waits.
    listener.react = nullptr;
    ASSERT_TRUE(pipe.Start("echo y"));
    pipe.Stop();
}

TEST(CAdbPipe, StopFromTheListenerOnAPieceIsTheLastCall) {
    Recorder listener;
    CAdbPipe pipe(listener);
    listener.react = [&](AdbOutputKind) { pipe.Stop(); };
    ASSERT_TRUE(pipe.Start("yes"));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::data));
    std::this_thread::sleep_for(50ms);
    EXPECT_THAT(listener.Kinds(), ElementsAre(AdbOutputKind::data));
}

TEST(CAdbPipe, StartFromTheListenerRunsTheNextCommand) {
    Recorder listener;
    CAdbPipe pipe(listener);
    std::atomic<int> ends{0};
    listener.react = [&](AdbOutputKind kind) {
        if (kind == AdbOutputKind::finished && ++ends == 1) {
            EXPECT_TRUE(pipe.Start("printf second"));
        }
    };
    ASSERT_TRUE(pipe.Start("printf first"));
    for (const auto end = steady_clock::now() + 10s; ends < 2 && steady_clock::now() < end;) {
        std::this_thread::sleep_for(5ms);
    }
    pipe.Stop();
    EXPECT_NE(listener.Text().find("second"), std::string::npos);
}

TEST(CAdbPipe, StartStopsWhatRanBefore) {
    const FakeAdb adb("echo first; exec sleep 1000");
    Recorder listener;
    CAdbPipe pipe(listener);
    ASSERT_TRUE(pipe.Start(adb.Path()));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::data));
    ASSERT_TRUE(pipe.Start("echo second"));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::finished));
    EXPECT_EQ(listener.Text(), "first\nsecond\n");
}

// The grace is shorter than the real one, which is the only difference.
TEST(CAdbPipe, ListenerThatOutlastsTheGraceIsLeftToItself) {
    Recorder listener;
    std::atomic<bool> go{false};
    listener.react = [&](AdbOutputKind) {
        while (!go) {
            std::this_thread::sleep_for(1ms);
        }
    };
    const int threads = SettledThreads();
    {
        CAdbPipe pipe(listener, 100ms);
        ASSERT_TRUE(pipe.Start("yes"));
        std::this_thread::sleep_for(50ms);  // the listener is in its first call
        const auto begin = steady_clock::now();
        pipe.Stop();
        EXPECT_GE(steady_clock::now() - begin, 100ms);
        EXPECT_LT(steady_clock::now() - begin, 3s);
    }
    go = true;
    ASSERT_TRUE(listener.Heard(AdbOutputKind::data));
    for (const auto end = steady_clock::now() + 10s;
         RunningThreads() > threads && steady_clock::now() < end;) {
        std::this_thread::sleep_for(5ms);
    }
    EXPECT_THAT(listener.Kinds(), ElementsAre(AdbOutputKind::data));
    EXPECT_EQ(ZombieChildren(), 0);
}

TEST(CAdbPipe, StopOnAnIdlePipeDoesNothing) {
    Recorder listener;
    CAdbPipe pipe(listener);
    pipe.Stop();
    pipe.Stop();
}

TEST(CAdbPipe, ThousandRunsLeaveNothingBehind) {
    const int descriptors = OpenDescriptors();
    const int threads = SettledThreads();
    {
        Recorder listener;
        CAdbPipe pipe(listener);
        for (int run = 0; run < 1000; ++run) {
            ASSERT_TRUE(pipe.Start("echo x"));
        }
    }
    for (const auto end = steady_clock::now() + 30s;
         (RunningThreads() > threads || ZombieChildren() > 0) && steady_clock::now() < end;) {
        std::this_thread::sleep_for(5ms);
    }
    EXPECT_LE(RunningThreads(), threads);
    EXPECT_EQ(ZombieChildren(), 0);
    EXPECT_EQ(OpenDescriptors(), descriptors);
}

}  // namespace
}  // namespace quorvi
