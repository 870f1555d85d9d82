// What the engine makes of answers, byte for byte.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "download/HttpDownloader.h"
#include "tests/download/EngineTest.h"
#include "tests/download/ScriptedPeer.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using HttpDownloader = EngineTest;

const Told kRangeRefused = Bare(DownloadEvent::rangeRefused);
const Told kClosedEarly = Bare(DownloadEvent::closedEarly);
const Told kReceiveFailed = Bare(DownloadEvent::receiveFailed);
const Told kRefused = Bare(DownloadEvent::refused);

TEST_F(HttpDownloader, AsksForAFreshFileWithoutARange) {
    ScriptedPeer site(AnswerOf("200 OK", "whole"));
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    EXPECT_EQ(site.Asked(),
              "GET /a.apk HTTP/1.1\r\n"
              "Host:127.0.0.1\r\n"
              "Accept:*/*\r\n"
              "User-Agent:Mozilla/4.0 (compatible; QVH 1987; Quorvi Downloader)\r\n"
              "Connection:Keep-Alive\r\n"
              "\r\n");
    EXPECT_EQ(ContentOf(target_), "whole");
    EXPECT_FALSE(HasPart());
}

TEST_F(HttpDownloader, APartOf1000BytesAsksForTheRestOfTheFile) {
    ScriptedPeer site(AnswerOf("206 Partial Content", "rest"));
    PutPart(std::string(1000, 'a'));
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    EXPECT_THAT(site.Asked(), testing::EndsWith("Connection:Keep-Alive\r\n"
                                                "Range: bytes=1000-\r\n"
                                                "\r\n"));
    EXPECT_EQ(ContentOf(target_), std::string(1000, 'a') + "rest");
}

TEST_F(HttpDownloader, ALengthOfZeroIsCompleteAtOnce) {
    ScriptedPeer site(AnswerOf("200 OK", ""));
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    ASSERT_TRUE(HasTarget());
    EXPECT_EQ(ContentOf(target_), "");
}

TEST_F(HttpDownloader, ALengthOfZeroBehindAPartIsCompleteAtOnce) {
    ScriptedPeer site(AnswerOf("206 Partial Content", ""));
    PutPart("part");
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), "part");
    EXPECT_FALSE(HasPart());
}

TEST_F(HttpDownloader, AnAbsentLengthIsZero) {
    ScriptedPeer site("HTTP/1.1 200 OK\r\n\r\nbody");
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), "");
}

TEST_F(HttpDownloader, ALengthInLowerCaseIsNotFound) {
    ScriptedPeer site("HTTP/1.1 200 OK\r\ncontent-length: 4\r\n\r\nbody");
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), "");
}

TEST_F(HttpDownloader, ALengthWithoutItsBlankLosesADigit) {
    ScriptedPeer site("HTTP/1.1 200 OK\r\nContent-Length:15\r\n\r\n12345 and more..");
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), "12345");
}

TEST_F(HttpDownloader, ALengthBelowZeroIsNoBodysLength) {
    ScriptedPeer site("HTTP/1.1 200 OK\r\nContent-Length: -5\r\n\r\nbody");
    PutPart("part");
    EXPECT_THAT(Download(site.Url()), ElementsAre(kReceiveFailed));
    EXPECT_EQ(ContentOf(part_), "part");
}

TEST_F(HttpDownloader, ALengthBeyond32BitsIsNotCut) {
    ScriptedPeer site("HTTP/1.1 200 OK\r\nContent-Length: 4294967300\r\n\r\n1234");
    EXPECT_THAT(Download(site.Url()), ElementsAre(kClosedEarly));
    EXPECT_EQ(ContentOf(part_), "1234");
}

TEST_F(HttpDownloader, APartBeyond32BitsIsResumedAtItsEnd) {
    constexpr std::uintmax_t kPart = 5'000'000'000;
    ScriptedPeer site(AnswerOf("206 Partial Content", "rest"));
    PutPart("");
    std::filesystem::resize_file(part_, kPart);  // takes no room
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    EXPECT_THAT(site.Asked(), testing::HasSubstr("\r\nRange: bytes=5000000000-\r\n"));
    EXPECT_EQ(std::filesystem::file_size(target_), kPart + 4);
}

TEST_F(HttpDownloader, WhatComesBehindTheLengthIsNotTaken) {
    ScriptedPeer site("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nbody and more");
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), "body");
}

TEST_F(HttpDownloader, AHeadOfMoreThan1024BytesEndsThere) {
    std::string head = "HTTP/1.1 200 OK\r\nContent-Length: 29\r\nX: ";
    head += std::string(1024 - head.size(), 'x');
    ScriptedPeer site(head + "12345\r\n\r\nbody of twenty bytes and more");
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), "12345\r\n\r\nbody of twenty bytes");
}

TEST_F(HttpDownloader, ARefusalsBodyIsWrittenAndMoved) {
    const std::string page(200, 'p');
    ScriptedPeer site(AnswerOf("404 Not Found", page));
    EXPECT_THAT(Download(site.Url()), ElementsAre(kRefused, kComplete));
    EXPECT_EQ(ContentOf(target_), page);
}

TEST_F(HttpDownloader, AWholeAnswerToARangeIsTakenLikeAPart) {
    ScriptedPeer site(AnswerOf("200 OK", "whole"));
    PutPart("part");
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), "partwhole");
}

TEST_F(HttpDownloader, ARefusedRangeIsToldTwiceAndItsBodyWritten) {
    ScriptedPeer site(AnswerOf("416 Range", "page"));
    PutPart("part");
    EXPECT_THAT(Download(site.Url()), ElementsAre(kRangeRefused, kRefused, kComplete));
    EXPECT_EQ(ContentOf(target_), "partpage");
}

TEST_F(HttpDownloader, APartThatTheServerCallsWholeIsMovedAsItIs) {
    ScriptedPeer site(
        "HTTP/1.1 416 Range\r\nContent-Length: 4\r\nContent-Range: bytes */5\r\n"
        "\r\npage");
    PutPart("whole");
    EXPECT_THAT(Download(site.Url()), ElementsAre(kRangeRefused, kRefused, kComplete));
    EXPECT_EQ(ContentOf(target_), "whole");
}

TEST_F(HttpDownloader, AnAnswerThatIsNoneIsRefused) {
    ScriptedPeer site("220 ftp.example ready\r\n\r\n", Answer::End::wait);
    EXPECT_THAT(Download(site.Url()), ElementsAre(kRefused, kComplete));
    EXPECT_EQ(ContentOf(target_), "");
}

TEST_F(HttpDownloader, APeerThatClosesWithoutAWordIsRefused) {
    ScriptedPeer site("");
    EXPECT_THAT(Download(site.Url()), ElementsAre(kRefused, kComplete));
}

TEST_F(HttpDownloader, AnEarlyCloseKeepsThePartForTheNextRun) {
    {
        ScriptedPeer site("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n1234");
        EXPECT_THAT(Download(site.Url()), ElementsAre(kClosedEarly));
        EXPECT_EQ(ContentOf(part_), "1234");
        EXPECT_FALSE(HasTarget());
    }
    ScriptedPeer site(AnswerOf("206 Partial Content", "567890"));
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    EXPECT_THAT(site.Asked(), testing::HasSubstr("\r\nRange: bytes=4-\r\n"));
    EXPECT_EQ(ContentOf(target_), "1234567890");
}

TEST_F(HttpDownloader, AConnectionThatIsBrokenFails) {
    ScriptedPeer site("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n", Answer::End::reset);
    const auto ends = Download(site.Url());
    // A broken connection may lose the head, too, which is then cut anywhere.
    ASSERT_FALSE(ends.empty());
    EXPECT_THAT(ends,
                testing::AnyOf(ElementsAre(kReceiveFailed), ElementsAre(kRefused, kComplete)));
}

TEST_F(HttpDownloader, ABodyThatStallsTimesOut) {
    EXPECT_EQ(TransferLimits{}.body, std::chrono::seconds(10));
    engine_ = CHttpDownloader({.body = std::chrono::milliseconds(50)});
    engine_.SetSink(sink_);
    ScriptedPeer site("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n1234", Answer::End::wait);
    EXPECT_THAT(Download(site.Url()), ElementsAre(kReceiveFailed));
    EXPECT_EQ(ContentOf(part_), "1234");
}

TEST_F(HttpDownloader, ARedirectIsFollowedAndKept) {
    ScriptedPeer site(AnswerOf("200 OK", "whole"));
    ScriptedPeer first(MovedTo(site.Url()));
    EXPECT_THAT(Download(first.Url()), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), "whole");
    EXPECT_EQ(engine_.Url(), site.Url());
}

TEST_F(HttpDownloader, ARedirectKeepsTheRange) {
    ScriptedPeer site(AnswerOf("206 Partial Content", "rest"));
    ScriptedPeer first(MovedTo(site.Url()));
    PutPart("part");
    EXPECT_THAT(Download(first.Url()), ElementsAre(kComplete));
    EXPECT_THAT(site.Asked(), testing::HasSubstr("\r\nRange: bytes=4-\r\n"));
    EXPECT_EQ(ContentOf(target_), "partrest");
}

TEST_F(HttpDownloader, TheFirstLocationInAHeadIsTheOneFollowed) {
    ScriptedPeer site(AnswerOf("200 OK", "whole"));
    ScriptedPeer first("HTTP/1.1 302 Found\r\nContent-Location: " + site.Url() +
                       "\r\nLocation: http://127.0.0.1:1/\r\n\r\n");
    EXPECT_THAT(Download(first.Url()), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), "whole");
}

TEST_F(HttpDownloader, ARedirectThatLeadsNowhereIsRefused) {
    PutPart("part");
    for (const char* location :
         {"https://127.0.0.1/a.apk", "/elsewhere", "", "file:///etc/passwd"}) {
        ScriptedPeer site(MovedTo(location));
        EXPECT_THAT(Download(site.Url()), ElementsAre(kRefused, kClosedEarly)) << location;
        EXPECT_EQ(engine_.Fault(), DownloadFault::noConnection);
    }
    ScriptedPeer site("HTTP/1.1 304 Not Modified\r\n\r\n");
    EXPECT_THAT(Download(site.Url()), ElementsAre(kRefused, kClosedEarly));
    EXPECT_EQ(ContentOf(part_), "part");
    EXPECT_FALSE(HasTarget());
}

TEST_F(HttpDownloader, WithoutAConnectionThePartStays) {
    PutPart("part");
    for (const std::string& url :
         {fmt::format("http://127.0.0.1:{}/a", UnusedPort()), std::string("http://host.invalid/a"),
          std::string("https://127.0.0.1/a"), std::string()}) {
        EXPECT_THAT(Download(url), ElementsAre(kRefused, kClosedEarly)) << url;
        EXPECT_EQ(engine_.Fault(), DownloadFault::noConnection) << url;
    }
    EXPECT_EQ(ContentOf(part_), "part");
    EXPECT_FALSE(HasTarget());
}

TEST_F(HttpDownloader, ARunWithoutAConnectionReadsTheOldHead) {
    const std::string nobody = fmt::format("http://127.0.0.1:{}/a", UnusedPort());
    {
        ScriptedPeer site(AnswerOf("200 OK", "whole"));
        ASSERT_THAT(Download(site.Url()), ElementsAre(kComplete));
    }
    EXPECT_THAT(Download(nobody), ElementsAre(kClosedEarly));
    {
        ScriptedPeer site(AnswerOf("200 OK", ""));
        ASSERT_THAT(Download(site.Url()), ElementsAre(kComplete));
    }
    EXPECT_THAT(Download(nobody), ElementsAre(kComplete));
}

TEST_F(HttpDownloader, ANewFileTakesThePlaceOfAnOldOne) {
    std::ofstream(target_) << "old and longer";
    ScriptedPeer site(AnswerOf("200 OK", "new"));
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), "new");
}

TEST_F(HttpDownloader, TheMoveComesBehindItsEvent) {
    std::string part;
    bool moved = true;
    sink_->onEvent = [&](DownloadEvent) {
        part = ContentOf(part_);
        moved = HasTarget();
    };
    ScriptedPeer site(AnswerOf("200 OK", "whole"));
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    EXPECT_EQ(part, "whole");
    EXPECT_FALSE(moved);
    EXPECT_TRUE(HasTarget());
}

// Whether a thread of this process waits for something.
bool IsAsleep(pid_t thread) {
    std::ifstream stat(fmt::format("/proc/self/task/{}/stat", thread));
    std::string text;
    std::getline(stat, text);
    return text.find(") S ") != std::string::npos;
}

TEST_F(HttpDownloader, WhoWaitsForTheMoveFindsTheFile) {
    std::thread waiter;
    std::atomic<pid_t> number = 0;
    std::atomic<bool> over = false;
    bool moved = false;
    sink_->onEvent = [&](DownloadEvent) {
        waiter = std::thread([&] {
            number = gettid();
            engine_.WaitForMove(target_);
            moved = HasTarget();
            over = true;
        });
        // The move comes when this returns: it waits by now, or never will.
        EXPECT_TRUE(Await([&] { return over || (number != 0 && IsAsleep(number)); }));
    };
    ScriptedPeer site(AnswerOf("200 OK", "whole"));
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    waiter.join();
    EXPECT_TRUE(moved);
    engine_.WaitForMove(target_);  // nothing more to wait for
}

TEST_F(HttpDownloader, AFileThatArrivesWithinASecondTellsNoProgress) {
    const std::string body(300'000, 'b');
    ScriptedPeer site(AnswerOf("200 OK", body));
    engine_.SetJob(site.Url(), target_);
    const auto start = std::chrono::steady_clock::now();
    engine_.Start();
    ASSERT_TRUE(Await([this] { return engine_.IsIdle(); }));
    if (std::chrono::steady_clock::now() - start < std::chrono::seconds(1)) {
        EXPECT_THAT(sink_->All(), ElementsAre(kComplete));
    }
    EXPECT_EQ(ContentOf(target_), body);
}

TEST_F(HttpDownloader, WithoutASinkItDownloadsAllTheSame) {
    sink_.reset();
    ScriptedPeer site(AnswerOf("200 OK", "whole"));
    engine_.SetJob(site.Url(), target_);
    engine_.Start();
    ASSERT_TRUE(Await([this] { return engine_.IsIdle(); }));
    EXPECT_EQ(ContentOf(target_), "whole");
    sink_ = std::make_shared<KeepingSink>();
}

TEST_F(HttpDownloader, ANewRunMayStartWhileAnEventIsTold) {
    ScriptedPeer next(AnswerOf("200 OK", "next"));
    const auto other = folder_.Path() / "com.example.b.apk";
    sink_->onEvent = [&](DownloadEvent event) {
        if (event == DownloadEvent::refused) {
            engine_.SetJob(next.Url(), other);
            engine_.Start();
        }
    };
    ScriptedPeer site(AnswerOf("404 Not Found", "page"));
    engine_.SetJob(site.Url(), target_);
    engine_.Start();
    ASSERT_TRUE(Await([this] { return engine_.IsIdle(); }));
    EXPECT_THAT(sink_->All(), ElementsAre(kRefused, kComplete, kComplete));
    EXPECT_EQ(ContentOf(target_), "page");
    EXPECT_EQ(ContentOf(other), "next");
}

}  // namespace
}  // namespace quorvi
