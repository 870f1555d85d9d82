#include <gmock/gmock.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <thread>
#include <vector>

#include "base/os/FileLock.h"
#include "log/EventLog.h"
#include "tests/support/Await.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;

constexpr std::chrono::seconds kPatience{60};

class EventLogTest : public testing::Test {
  protected:
    [[nodiscard]] LogFile File() const { return LogFile(Path()); }
    [[nodiscard]] std::filesystem::path Path() const { return folder_.Path() / "quorvi.log"; }

    TemporaryFolder folder_;
};

std::size_t LinesOf(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

TEST_F(EventLogTest, WritesWhatItIsToldInItsOrder) {
    EventLog log(File(), "quorvi");
    log.Add("start", {{"version", LogValue::Version("1.0")}});
    log.Add("end", {});
    ASSERT_TRUE(log.Flush(kPatience));
    EXPECT_THAT(File().Read(), MatchesRegex("[0-9TZ:.-]+ quorvi.[0-9]+. start version=1.0\n"
                                            "[0-9TZ:.-]+ quorvi.[0-9]+. end\n"));
}

TEST_F(EventLogTest, ItsEndWritesTheLastLines) {
    { EventLog(File(), "quorvi").Add("end", {}); }
    EXPECT_THAT(File().Read(), HasSubstr("] end\n"));
}

TEST_F(EventLogTest, OneThatIsToldNothingMakesNoFile) {
    {
        EventLog log(File(), "quorvi");
        EXPECT_TRUE(log.Flush(kPatience));
    }
    EXPECT_FALSE(std::filesystem::exists(Path()));
}

TEST_F(EventLogTest, ThreadsAndTwoLogsOnOneFileLoseNothing) {
    {
        EventLog window(File(), "quorvi");
        EventLog command(File(), "quorvictl");
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&log = i % 2 == 0 ? window : command] {
                for (int line = 0; line < 100; ++line) {
                    log.Add("event", {{"line", LogValue::Count(line)}});
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    }
    const std::string text = File().Read();
    EXPECT_EQ(LinesOf(text), 400U);
    EXPECT_THAT(text, HasSubstr(" quorvi["));
    EXPECT_THAT(text, HasSubstr(" quorvictl["));
}

TEST_F(EventLogTest, AWriterThatIsHeldUpHoldsNobodyElseUp) {
    constexpr std::size_t kWaiting = 10;
    std::size_t told = 0;
    {
        EventLog log(File(), "quorvi", kWaiting);
        {
            // What a hanging disk is to the writer.
            const FileLock held(folder_.Path() / "quorvi.log.lock");
            ASSERT_TRUE(held.IsHeld());
            for (; told < 5 * kWaiting; ++told) {
                log.Add("event", {});
            }
            EXPECT_FALSE(log.Flush(std::chrono::milliseconds(1)));
        }
        EXPECT_TRUE(log.Flush(kPatience));
    }
    // What was dropped is told.
    const std::string text = File().Read();
    EXPECT_LE(LinesOf(text), 2 * kWaiting + 1);
    EXPECT_THAT(text, HasSubstr("log.dropped lines="));
}

TEST_F(EventLogTest, AFolderThatCannotBeWrittenDisturbsNobody) {
    std::ofstream(folder_.Path() / "file") << "x";
    EventLog log(LogFile(folder_.Path() / "file" / "quorvi.log"), "quorvi");
    log.Add("start", {});
    EXPECT_TRUE(log.Flush(kPatience));
    log.Add("end", {});
    EXPECT_TRUE(log.Flush(kPatience));
}

// Who listens for a signal has it blocked on the threads that it knows; the writer must not take
// it.
TEST_F(EventLogTest, ItsThreadTakesNoSignal) {
    EventLog log(File(), "quorvi");
    log.Add("start", {});
    ASSERT_TRUE(log.Flush(kPatience));
    sigset_t end;
    sigemptyset(&end);
    sigaddset(&end, SIGTERM);
    sigset_t before;
    ASSERT_EQ(pthread_sigmask(SIG_BLOCK, &end, &before), 0);
    ASSERT_EQ(kill(getpid(), SIGTERM), 0);  // would end the process on any other thread
    int taken = 0;
    EXPECT_EQ(sigwait(&end, &taken), 0);
    EXPECT_EQ(taken, SIGTERM);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

TEST_F(EventLogTest, TheProcesssLogHoldsWhatIsToldAfterItsStart) {
    LogEvent("early");
    StartLog("quorvi", Path());
    LogEvent("late", {{"word", "yes"}});
    FlushLog();
    ASSERT_TRUE(Await([this] { return LinesOf(File().Read()) > 0; }));
    EXPECT_THAT(File().Read(), HasSubstr("] late word=yes\n"));
    EXPECT_EQ(LinesOf(File().Read()), 1U);
}

}  // namespace
}  // namespace quorvi
