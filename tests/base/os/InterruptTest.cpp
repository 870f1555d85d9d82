#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <thread>

#include "base/os/Interrupt.h"

namespace quorvi {
namespace {

// How a child ended that did `work`: its signal, or 1,000 and what it exited with.
template <typename Work>
int EndOf(const Work& work) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(work());
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFSIGNALED(status) ? WTERMSIG(status) : 1000 + WEXITSTATUS(status);
}

TEST(Interrupt, TheFirstOneIsKeptForWhoAsks) {
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        const Interrupt interrupt;
        EXPECT_FALSE(interrupt.HasCome());
        raise(number);
        EXPECT_TRUE(interrupt.HasCome());
        EXPECT_TRUE(interrupt.Signal().IsStopped());
    }
}

TEST(Interrupt, TheSecondOneEndsTheProcess) {
    EXPECT_EQ(EndOf([] {
                  const Interrupt interrupt;
                  raise(SIGINT);
                  raise(SIGINT);
                  return 0;
              }),
              SIGINT);
}

TEST(Interrupt, OneThatTheProcessWasStartedToIgnoreStaysIgnored) {
    EXPECT_EQ(EndOf([] {
                  signal(SIGINT, SIG_IGN);
                  const Interrupt interrupt;
                  raise(SIGINT);
                  raise(SIGTERM);
                  raise(SIGINT);
                  return interrupt.HasCome() ? 7 : 8;
              }),
              1007);
}

TEST(Interrupt, EndsWithItsObject) {
    EXPECT_EQ(EndOf([] {
                  { const Interrupt interrupt; }
                  raise(SIGTERM);
                  return 0;
              }),
              SIGTERM);
}

TEST(Interrupt, WhoWaitsIsWokenByItAndByAnotherThread) {
    const Interrupt interrupt;
    std::thread([&interrupt] { interrupt.Wake(); }).join();
    interrupt.WaitFor(std::chrono::hours(1));
    EXPECT_FALSE(interrupt.HasCome());
    const pid_t self = getpid();
    std::thread sender([self] { kill(self, SIGTERM); });
    while (!interrupt.HasCome()) {
        interrupt.WaitFor(std::chrono::hours(1));
    }
    sender.join();
}

}  // namespace
}  // namespace quorvi
