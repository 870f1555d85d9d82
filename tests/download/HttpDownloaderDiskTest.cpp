// The engine and the places that it writes to.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/download/EngineTest.h"
#include "tests/download/ScriptedPeer.h"
#include "tests/support/SmallDisk.h"

namespace quorvi {
namespace {

using testing::ElementsAre;

const Told kReceiveFailed = Bare(DownloadEvent::receiveFailed);

using HttpDownloaderDisk = EngineTest;

TEST_F(HttpDownloaderDisk, APartThatIsALinkIsNotFollowed) {
    const auto secret = folder_.Path() / "secret";
    std::ofstream(secret) << "of the user";
    std::filesystem::create_symlink(secret, part_);
    ScriptedPeer site(AnswerOf("200 OK", "evil"));
    EXPECT_THAT(Download(site.Url()), ElementsAre(kReceiveFailed));
    EXPECT_EQ(engine_.Fault(), DownloadFault::cannotWrite);
    EXPECT_EQ(ContentOf(secret), "of the user");
    EXPECT_THAT(site.Asked(), testing::Not(testing::HasSubstr("Range")));
    EXPECT_FALSE(HasTarget());
}

TEST_F(HttpDownloaderDisk, ATargetThatIsALinkIsReplacedAndNotFollowed) {
    const auto secret = folder_.Path() / "secret";
    std::ofstream(secret) << "of the user";
    std::filesystem::create_symlink(secret, target_);
    ScriptedPeer site(AnswerOf("200 OK", "whole"));
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(secret), "of the user");
    EXPECT_FALSE(std::filesystem::is_symlink(target_));
    EXPECT_EQ(ContentOf(target_), "whole");
}

TEST_F(HttpDownloaderDisk, APartThatIsNoPlainFileIsNotWritten) {
    ScriptedPeer site(AnswerOf("200 OK", "whole"));
    ASSERT_EQ(mkfifo(part_.c_str(), 0600), 0);
    EXPECT_THAT(Download(site.Url()), ElementsAre(kReceiveFailed));
    std::filesystem::remove(part_);
    std::filesystem::create_directory(part_);
    EXPECT_THAT(Download(site.Url()), ElementsAre(kReceiveFailed));
    EXPECT_EQ(engine_.Fault(), DownloadFault::cannotWrite);
}

TEST_F(HttpDownloaderDisk, AMissingFolderEndsTheRun) {
    ScriptedPeer site(AnswerOf("200 OK", "whole"));
    target_ = folder_.Path() / "gone" / "com.example.a.apk";
    EXPECT_THAT(Download(site.Url()), ElementsAre(kReceiveFailed));
    EXPECT_EQ(engine_.Fault(), DownloadFault::cannotWrite);
}

TEST_F(HttpDownloaderDisk, ATargetThatCannotBeReplacedLeavesThePart) {
    std::filesystem::create_directory(target_);
    ScriptedPeer site(AnswerOf("200 OK", "whole"));
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(part_), "whole");
}

TEST(HttpDownloaderFullDisk, EndsTheRunAndLeavesAPartThatIsResumed) {
    const SmallDisk disk(256 << 10);
    if (!disk.IsThere()) {
        GTEST_SKIP() << "no namespace to mount in";
    }
    const auto target = disk.Path() / "com.example.a.apk";
    const auto part = disk.Path() / "com.example.a.tmp";
    std::string body;
    for (int i = 0; body.size() < 100'000; ++i) {
        body += std::to_string(i);
    }
    const auto sink = std::make_shared<KeepingSink>();
    CHttpDownloader engine;
    engine.SetSink(sink);
    std::ofstream(part) << body.substr(0, 10);
    disk.Fill();
    {
        ScriptedPeer site(AnswerOf("206 Partial Content", body.substr(10)));
        engine.SetJob(site.Url(), target);
        engine.Start();
        ASSERT_TRUE(Await([&engine] { return engine.IsIdle(); }));
    }
    EXPECT_THAT(sink->Ends(), ElementsAre(kReceiveFailed));
    EXPECT_EQ(engine.Fault(), DownloadFault::diskFull);
    const auto length = std::filesystem::file_size(part);
    ASSERT_LT(length, body.size());
    disk.Empty();
    ScriptedPeer site(AnswerOf("206 Partial Content", body.substr(length)));
    engine.SetJob(site.Url(), target);
    engine.Start();
    ASSERT_TRUE(Await([&engine] { return engine.IsIdle(); }));
    EXPECT_THAT(sink->Ends(), ElementsAre(kReceiveFailed, kComplete));
    EXPECT_EQ(engine.Fault(), DownloadFault::none);
    EXPECT_EQ(ContentOf(target), body);
}

}  // namespace
}  // namespace quorvi
