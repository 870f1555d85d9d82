// A process that is killed in the middle of a download leaves a part from which the next run makes
// the right file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <thread>

#include "tests/download/EngineTest.h"
#include "tests/support/SiteServer.h"

namespace quorvi {
namespace {

using HttpDownloaderKill = EngineTest;

TEST_F(HttpDownloaderKill, LeavesAPartOfWhichTheNextRunMakesTheFile) {
    constexpr int kRounds = 15;
    std::string content;
    for (int i = 0; content.size() < 2'000'000; ++i) {
        content += std::to_string(i);
    }
    const SiteServer site("location /files/ { alias FILES/; limit_rate 20m; }");
    site.Serve("a.apk", content);
    const std::string url = site.Root() + "files/a.apk";
    std::mt19937 random(20261122);
    for (int round = 0; round < kRounds; ++round) {
        const pid_t worker = fork();
        if (worker == 0) {
            CHttpDownloader engine;
            engine.SetJob(url, target_);
            engine.Start();
            for (;;) {
                pause();
            }
        }
        // As soon as there is something of a file, and a random moment later.
        ASSERT_TRUE(Await([this] { return HasPart() || HasTarget(); }));
        std::this_thread::sleep_for(
            std::chrono::microseconds(std::uniform_int_distribution<int>(0, 60'000)(random)));
        kill(worker, SIGKILL);
        ASSERT_EQ(waitpid(worker, nullptr, 0), worker);
        if (HasTarget()) {
            EXPECT_EQ(ContentOf(target_), content) << round;
            std::filesystem::remove(target_);
        }
        EXPECT_TRUE(content.starts_with(ContentOf(part_))) << round;
    }
    EXPECT_EQ(Download(url).back(), kComplete);
    EXPECT_EQ(ContentOf(target_), content);
}

}  // namespace
}  // namespace quorvi
