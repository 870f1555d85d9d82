// Stop ends a run wherever it waits.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/ByteText.h"
#include "tests/download/EngineTest.h"
#include "tests/download/ScriptedPeer.h"
#include "tests/support/StuckListener.h"

namespace quorvi {
namespace {

using testing::ElementsAre;

const Told kStopped = Bare(DownloadEvent::stopped);

class HttpDownloaderStop : public EngineTest {
  protected:
    // Nothing but Stop ends its waits.
    HttpDownloaderStop() {
        engine_ = CHttpDownloader({.body = std::chrono::hours(1)});
        engine_.SetSink(sink_);
    }

    // Starts, and stops once it has come so far.
    void StopWhen(const std::string& url, const std::function<bool()>& reached) {
        engine_.SetJob(url, target_);
        engine_.Start();
        ASSERT_TRUE(Await(reached));
        engine_.Stop();
        ASSERT_TRUE(Await([this] { return engine_.IsIdle(); }));
    }
};

TEST_F(HttpDownloaderStop, EndsABodyAndKeepsWhatHasCome) {
    ScriptedPeer site("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n1234", Answer::End::wait);
    StopWhen(site.Url(), [this] { return ContentOf(part_) == "1234"; });
    EXPECT_THAT(sink_->All(), ElementsAre(kStopped));
    EXPECT_EQ(ContentOf(part_), "1234");
    EXPECT_FALSE(HasTarget());
}

TEST_F(HttpDownloaderStop, EndsAHeadThatDoesNotEnd) {
    ScriptedPeer site("HTTP/1.1 200 OK\r\nContent-", Answer::End::wait);
    PutPart("part");
    StopWhen(site.Url(), [&site] { return site.Agent().Accepted() > 0; });
    EXPECT_THAT(sink_->All(), ElementsAre(kStopped));
    EXPECT_EQ(ContentOf(part_), "part");
}

TEST_F(HttpDownloaderStop, EndsAConnectThatNobodyAnswers) {
    const StuckListener listener;
    StopWhen(fmt::format("http://127.0.0.1:{}/a", listener.Port()),
             [&listener] { return listener.IsKnockedAt(); });
    EXPECT_THAT(sink_->All(), ElementsAre(kStopped));
    EXPECT_FALSE(HasPart());
}

TEST_F(HttpDownloaderStop, EndsACircleOfRedirects) {
    // Its own address is known before it listens there: it is asked for again and again.
    const std::uint16_t port = PortOf(ListenOn(0));
    const std::string url = fmt::format("http://127.0.0.1:{}/a", port);
    LoopbackAgent site({.bytes = ToBytes(MovedTo(url)), .end = Answer::End::close}, port);
    ASSERT_EQ(site.Port(), port);
    StopWhen(url, [&site] { return site.Accepted() > 20; });
    EXPECT_THAT(sink_->All(), ElementsAre(kStopped));
}

TEST_F(HttpDownloaderStop, OfAnEarlierRunIsNotHeardByTheNext) {
    engine_.Stop();
    ScriptedPeer site(AnswerOf("200 OK", "whole"));
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
}

TEST_F(HttpDownloaderStop, TheNextRunGoesOn) {
    {
        ScriptedPeer site("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n1234", Answer::End::wait);
        StopWhen(site.Url(), [this] { return ContentOf(part_) == "1234"; });
    }
    ScriptedPeer site(AnswerOf("206 Partial Content", "567890"));
    EXPECT_THAT(Download(site.Url()), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), "1234567890");
}

}  // namespace
}  // namespace quorvi
