#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <functional>
#include <future>
#include <string>
#include <vector>

#include "link/AdbPipe.h"
#include "tests/support/Await.h"
#include "tests/support/FakeAdb.h"

namespace quorvi {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Le;
using testing::SizeIs;

// For a Stop that is not to end by its grace: it would end the test by its time limit.
constexpr std::chrono::hours kNoGrace{1};

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

    // Whether calls of this kind came: waits for them.
    bool Heard(AdbOutputKind kind, std::ptrdiff_t times = 1) {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(
            lock, 60s, [&] { return std::count(kinds_.begin(), kinds_.end(), kind) >= times; });
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
    ASSERT_TRUE(pipe.Start({adb.Path()}));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::finished));
    pipe.Stop();
    EXPECT_EQ(listener.Text(), "one\ntwo\n");
    EXPECT_EQ(listener.Kinds().back(), AdbOutputKind::finished);
    EXPECT_EQ(listener.Pieces().back(), "");
    const auto kinds = listener.Kinds();
    EXPECT_EQ(std::count(kinds.begin(), kinds.end(), AdbOutputKind::finished), 1);
}

TEST(CAdbPipe, ArgumentsArriveAsAVector) {
    const FakeAdb adb("");
    Recorder listener;
    CAdbPipe pipe(listener);
    ASSERT_TRUE(pipe.Start({adb.Path(), "uninstall", "a -k --user 0", "it\"s", ""}));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::finished));
    EXPECT_THAT(adb.Calls(), ElementsAre(ElementsAre("uninstall", "a -k --user 0", "it\"s", "")));
}

TEST(CAdbPipe, PiecesHaveAtMost255Bytes) {
    const FakeAdb adb("head -c 100000 /dev/zero | tr '\\0' a");
    Recorder listener;
    CAdbPipe pipe(listener);
    ASSERT_TRUE(pipe.Start({adb.Path()}));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::finished));
    EXPECT_EQ(listener.Text(), std::string(100000, 'a'));
    EXPECT_THAT(listener.Pieces(), testing::Each(SizeIs(Le(255U))));
}

TEST(CAdbPipe, LineMayBeCutAtAnyByte) {
    const FakeAdb adb("printf pack; await heard; echo age");
    Recorder listener;
    CAdbPipe pipe(listener);
    ASSERT_TRUE(pipe.Start({adb.Path()}));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::data));
    adb.Put("heard");
    ASSERT_TRUE(listener.Heard(AdbOutputKind::finished));
    EXPECT_THAT(listener.Pieces(), ElementsAre("pack", "age\n", ""));
}

TEST(CAdbPipe, CommandWithoutOutputOnlyFinishes) {
    Recorder listener;
    CAdbPipe pipe(listener);
    ASSERT_TRUE(pipe.Start({"true"}));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::finished));
    EXPECT_THAT(listener.Kinds(), ElementsAre(AdbOutputKind::finished));
}

TEST(CAdbPipe, MissingExecutableIsTold) {
    const int threads = SettledThreads();
    Recorder listener;
    CAdbPipe pipe(listener);
    EXPECT_FALSE(pipe.Start({"/nonexistent/adb", "shell", "pm", "list", "package"}));
    EXPECT_EQ(RunningThreads(), threads);  // no reader is left that could say more
    EXPECT_THAT(listener.Kinds(), IsEmpty());
}

TEST(CAdbPipe, ServerThatInheritedThePipeDoesNotKeepTheEnd) {
    const FakeAdb adb("(await stop; touch \"$dir/stopped\") & echo started");
    Recorder listener;
    CAdbPipe pipe(listener);
    ASSERT_TRUE(pipe.Start({adb.Path()}));
    EXPECT_TRUE(listener.Heard(AdbOutputKind::finished));
    EXPECT_FALSE(adb.Has("stopped"));
    EXPECT_EQ(listener.Text(), "started\n");
    adb.Put("stop");
    EXPECT_TRUE(Await([&] { return adb.Has("stopped"); }));
}

TEST(CAdbPipe, ChildThatClosedItsOutputHasFinished) {
    const FakeAdb adb("echo x; exec >&- 2>&-; await stop; touch \"$dir/stopped\"");
    Recorder listener;
    CAdbPipe pipe(listener);
    ASSERT_TRUE(pipe.Start({adb.Path()}));
    EXPECT_TRUE(listener.Heard(AdbOutputKind::finished));
    EXPECT_FALSE(adb.Has("stopped"));
    adb.Put("stop");
    EXPECT_TRUE(Await([&] { return adb.Has("stopped"); }));
}

TEST(CAdbPipe, StopEndsAChildThatNeverEnds) {
    const FakeAdb adb("echo $$ > \"$dir/child\"; echo up; exec sleep 1000");
    Recorder listener;
    CAdbPipe pipe(listener, kNoGrace);
    ASSERT_TRUE(pipe.Start({adb.Path()}));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::data));
    pipe.Stop();
    EXPECT_FALSE(adb.IsRunning("child"));
    EXPECT_EQ(ZombieChildren(), 0);
    EXPECT_THAT(listener.Kinds(), ElementsAre(AdbOutputKind::data));
}

TEST(CAdbPipe, StopEndsAChildThatWritesWithoutEnd) {
    const FakeAdb adb("echo $$ > \"$dir/child\"; exec yes");
    const int threads = SettledThreads();
    Recorder listener;
    CAdbPipe pipe(listener, kNoGrace);
    ASSERT_TRUE(pipe.Start({adb.Path()}));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::data, 3));
    pipe.Stop();
    const std::size_t heard = listener.Kinds().size();
    EXPECT_FALSE(adb.IsRunning("child"));
    EXPECT_TRUE(Await([&] { return RunningThreads() <= threads; }));
    EXPECT_EQ(listener.Kinds().size(), heard);
}

TEST(CAdbPipe, StopFromTheListenerAtTheEndDoesNotDeadlock) {
    Recorder listener;
    CAdbPipe pipe(listener, kNoGrace);
    listener.react = [&](AdbOutputKind kind) {
        if (kind == AdbOutputKind::finished) {
            pipe.Stop();
        }
    };
    ASSERT_TRUE(pipe.Start({"echo", "x"}));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::finished));
    // And the pipe can be used again.
    ASSERT_TRUE(pipe.Start({"echo", "y"}));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::finished, 2));
    EXPECT_EQ(listener.Text(), "x\ny\n");
}

TEST(CAdbPipe, StopFromTheListenerOnAPieceIsTheLastCall) {
    const int threads = SettledThreads();
    Recorder listener;
    CAdbPipe pipe(listener, kNoGrace);
    listener.react = [&](AdbOutputKind) { pipe.Stop(); };
    ASSERT_TRUE(pipe.Start({"yes"}));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::data));
    EXPECT_TRUE(Await([&] { return RunningThreads() <= threads; }));
    EXPECT_THAT(listener.Kinds(), ElementsAre(AdbOutputKind::data));
}

TEST(CAdbPipe, StartFromTheListenerRunsTheNextCommand) {
    Recorder listener;
    CAdbPipe pipe(listener);
    std::atomic<int> ends{0};
    listener.react = [&](AdbOutputKind kind) {
        if (kind == AdbOutputKind::finished && ++ends == 1) {
            EXPECT_TRUE(pipe.Start({"printf", "second"}));
        }
    };
    ASSERT_TRUE(pipe.Start({"printf", "first"}));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::finished, 2));
    pipe.Stop();
    EXPECT_NE(listener.Text().find("second"), std::string::npos);
}

TEST(CAdbPipe, StartStopsWhatRanBefore) {
    const FakeAdb adb("echo $$ > \"$dir/child\"; echo first; exec sleep 1000");
    Recorder listener;
    CAdbPipe pipe(listener, kNoGrace);
    ASSERT_TRUE(pipe.Start({adb.Path()}));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::data));
    ASSERT_TRUE(pipe.Start({"echo", "second"}));
    EXPECT_FALSE(adb.IsRunning("child"));
    ASSERT_TRUE(listener.Heard(AdbOutputKind::finished));
    EXPECT_EQ(listener.Text(), "first\nsecond\n");
}

// The grace is shorter than the real one, which is the only difference.
TEST(CAdbPipe, ListenerThatOutlastsTheGraceIsLeftToItself) {
    const FakeAdb adb("echo $$ > \"$dir/child\"; exec yes");
    const int threads = SettledThreads();
    Recorder listener;
    std::promise<void> entered;
    std::promise<void> go;
    listener.react = [&](AdbOutputKind) {
        entered.set_value();
        go.get_future().wait();
    };
    {
        CAdbPipe pipe(listener, 100ms);
        ASSERT_TRUE(pipe.Start({adb.Path()}));
        entered.get_future().wait();
        pipe.Stop();  // comes back although the listener does not
        EXPECT_TRUE(Await([&] { return !adb.IsRunning("child") || ZombieChildren() > 0; }));
    }
    EXPECT_THAT(listener.Kinds(), IsEmpty());
    go.set_value();
    ASSERT_TRUE(listener.Heard(AdbOutputKind::data));
    EXPECT_TRUE(Await([&] { return RunningThreads() <= threads && ZombieChildren() == 0; }));
    EXPECT_FALSE(adb.IsRunning("child"));
    EXPECT_THAT(listener.Kinds(), ElementsAre(AdbOutputKind::data));
}

TEST(CAdbPipe, StopOnAnIdlePipeLeavesItUsable) {
    Recorder listener;
    CAdbPipe pipe(listener);
    pipe.Stop();
    pipe.Stop();
    ASSERT_TRUE(pipe.Start({"echo", "x"}));
    EXPECT_TRUE(listener.Heard(AdbOutputKind::finished));
}

TEST(CAdbPipe, ThousandRunsLeaveNothingBehind) {
    const int descriptors = OpenDescriptors();
    const int threads = SettledThreads();
    {
        Recorder listener;
        CAdbPipe pipe(listener);
        for (int run = 0; run < 1000; ++run) {
            ASSERT_TRUE(pipe.Start({"echo", "x"}));
        }
    }
    EXPECT_TRUE(Await([&] { return RunningThreads() <= threads && ZombieChildren() == 0; }));
    EXPECT_EQ(OpenDescriptors(), descriptors);
}

}  // namespace
}  // namespace quorvi
