// The engine against a real server, and against the faults that one can have.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "tests/download/EngineTest.h"
#include "tests/support/SiteServer.h"

namespace quorvi {
namespace {

using testing::ElementsAre;

const std::string kLocations = R"(
    location /files/ { alias FILES/; }
    location /slow/ { alias FILES/; limit_rate 40k; }
    location /whole/ { alias FILES/; max_ranges 0; }
    location /nolength/ { alias FILES/; ssi on; ssi_types *; }
    location /longhead/ { alias FILES/; add_header X-Long ")" +
                               std::string(1000, 'x') + R"("; }
    location = /moved { return 301 /moved/again; }
    location = /moved/again { return 302 /files/a.apk; }
    location = /circle { return 301 /circle; }
    location = /broken { return 500 "an error"; }
    location = /silent { return 444; }
)";

class HttpDownloaderSite : public EngineTest {
  protected:
    HttpDownloaderSite() {
        for (int i = 0; content_.size() < 300'000; ++i) {
            content_ += std::to_string(i);
        }
        site_.emplace(kLocations);
        site_->Serve("a.apk", content_);
    }
    [[nodiscard]] std::string Url(std::string_view path) const {
        return site_->Root() + std::string(path);
    }

    std::string content_;
    std::optional<SiteServer> site_;
};

TEST_F(HttpDownloaderSite, AFileArrivesByteForByte) {
    EXPECT_THAT(Download(Url("files/a.apk")), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), content_);
    EXPECT_FALSE(HasPart());
}

TEST_F(HttpDownloaderSite, AHalfIsResumed) {
    PutPart(content_.substr(0, 150'000));
    EXPECT_THAT(Download(Url("files/a.apk")), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), content_);
    const auto requests = site_->Requests(1);
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].line, "GET /files/a.apk HTTP/1.1");
    EXPECT_EQ(requests[0].range, "bytes=150000-");
}

TEST_F(HttpDownloaderSite, AWholePartIsMovedAsItIs) {
    PutPart(content_);
    EXPECT_THAT(Download(Url("files/a.apk")), ElementsAre(Bare(DownloadEvent::rangeRefused),
                                                          Bare(DownloadEvent::refused), kComplete));
    EXPECT_EQ(ContentOf(target_), content_);
}

TEST_F(HttpDownloaderSite, APartThatIsTooLongIsToldAndGetsThePageOfTheRefusal) {
    PutPart(content_ + "too long");
    EXPECT_THAT(Download(Url("files/a.apk")), ElementsAre(Bare(DownloadEvent::rangeRefused),
                                                          Bare(DownloadEvent::refused), kComplete));
    EXPECT_THAT(ContentOf(target_), testing::StartsWith(content_ + "too long<html>"));
}

TEST_F(HttpDownloaderSite, AServerWithoutRangesGivesTheWholeBehindThePart) {
    PutPart(content_.substr(0, 1000));
    EXPECT_THAT(Download(Url("whole/a.apk")), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), content_.substr(0, 1000) + content_);
}

TEST_F(HttpDownloaderSite, AChainOfRedirectsIsFollowed) {
    EXPECT_THAT(Download(Url("moved")), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), content_);
    EXPECT_EQ(engine_.Url(), Url("files/a.apk"));
    EXPECT_EQ(site_->Requests(3).size(), 3U);
}

TEST_F(HttpDownloaderSite, ARedirectToItselfIsFollowedUntilStop) {
    engine_.SetJob(Url("circle"), target_);
    engine_.Start();
    EXPECT_GE(site_->Requests(15).size(), 15U);
    EXPECT_FALSE(engine_.IsIdle());
    engine_.Stop();
    ASSERT_TRUE(Await([this] { return engine_.IsIdle(); }));
    EXPECT_THAT(sink_->All(), ElementsAre(Bare(DownloadEvent::stopped)));
}

TEST_F(HttpDownloaderSite, ABodyWithoutALengthIsAnEmptyFile) {
    EXPECT_THAT(Download(Url("nolength/a.apk")), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), "");
}

TEST_F(HttpDownloaderSite, TheRestOfALongHeadBeginsTheFile) {
    EXPECT_THAT(Download(Url("longhead/a.apk")), ElementsAre(kComplete));
    const std::string file = ContentOf(target_);
    EXPECT_EQ(file.size(), content_.size());
    EXPECT_NE(file, content_);
    const std::size_t blank = file.find("\r\n\r\n");
    ASSERT_NE(blank, std::string::npos);
    EXPECT_EQ(file.substr(blank + 4), content_.substr(0, file.size() - blank - 4));
}

TEST_F(HttpDownloaderSite, AMissingFileIsRefusedAndItsPageMoved) {
    EXPECT_THAT(Download(Url("files/none.apk")),
                ElementsAre(Bare(DownloadEvent::refused), kComplete));
    EXPECT_THAT(ContentOf(target_), testing::HasSubstr("404 Not Found"));
}

TEST_F(HttpDownloaderSite, AServersErrorIsRefused) {
    EXPECT_THAT(Download(Url("broken")), ElementsAre(Bare(DownloadEvent::refused), kComplete));
    EXPECT_EQ(ContentOf(target_), "an error");
}

TEST_F(HttpDownloaderSite, AServerThatHangsUpIsRefused) {
    EXPECT_THAT(Download(Url("silent")), ElementsAre(Bare(DownloadEvent::refused), kComplete));
}

TEST_F(HttpDownloaderSite, ASlowFileTellsItsProgressAndStops) {
    engine_.SetJob(Url("slow/a.apk"), target_);
    engine_.Start();
    ASSERT_TRUE(Await([this] { return sink_->HasHeard(DownloadEvent::progress); }));
    engine_.Stop();
    ASSERT_TRUE(Await([this] { return engine_.IsIdle(); }));
    const auto all = sink_->All();
    EXPECT_EQ(all.back(), Bare(DownloadEvent::stopped));
    EXPECT_GT(all.front().speed, 10'240);
    EXPECT_LT(all.front().speed, 300'000);
    EXPECT_GT(all.front().percent, 0);
    EXPECT_LT(all.front().percent, 100);
    const std::string part = ContentOf(part_);
    EXPECT_GT(part.size(), 10'240U);
    EXPECT_TRUE(content_.starts_with(part));

    EXPECT_THAT(Download(Url("files/a.apk")), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), content_);
}

TEST_F(HttpDownloaderSite, AServerThatEndsInTheMiddleLeavesAPartForTheNextOne) {
    engine_.SetJob(Url("slow/a.apk"), target_);
    engine_.Start();
    ASSERT_TRUE(Await([this] { return HasPart() && std::filesystem::file_size(part_) > 0; }));
    site_.reset();
    ASSERT_TRUE(Await([this] { return engine_.IsIdle(); }));
    EXPECT_THAT(sink_->Ends(), testing::AnyOf(ElementsAre(Bare(DownloadEvent::closedEarly)),
                                              ElementsAre(Bare(DownloadEvent::receiveFailed))));
    EXPECT_FALSE(HasTarget());

    site_.emplace(kLocations);
    site_->Serve("a.apk", content_);
    EXPECT_THAT(Download(Url("files/a.apk")), ElementsAre(kComplete));
    EXPECT_EQ(ContentOf(target_), content_);
}

}  // namespace
}  // namespace quorvi
