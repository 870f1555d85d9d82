// The suite's download engine at the sample site.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "site/SamplePackage.h"
#include "site/SampleServer.h"
#include "tests/download/EngineTest.h"

namespace quorvi::site {
namespace {

using testing::ElementsAre;

class SiteDownload : public EngineTest {
  protected:
    void SetUp() override { ASSERT_EQ(site_.Start(), ""); }
    [[nodiscard]] std::string Url(std::string_view package) const {
        return site_.Told({}).downloadRoot + std::string(package) + ".apk";
    }

    const std::shared_ptr<const std::string> file_ = SamplePackage("com.example.dict");
    SampleServer site_;
};

TEST_F(SiteDownload, APackageArrivesByteForByte) {
    EXPECT_THAT(Download(Url("com.example.dict")), ElementsAre(kComplete));
    EXPECT_TRUE(ContentOf(target_) == *file_);
    EXPECT_FALSE(HasPart());
}

TEST_F(SiteDownload, AHalfIsResumed) {
    PutPart(std::string_view(*file_).substr(0, 3'000'001));
    EXPECT_THAT(Download(Url("com.example.dict")), ElementsAre(kComplete));
    EXPECT_TRUE(ContentOf(target_) == *file_);
}

TEST_F(SiteDownload, APartThatIsTheWholeIsRefusedAndKept) {
    PutPart(*file_);
    EXPECT_THAT(
        Download(Url("com.example.dict")),
        ElementsAre(Bare(DownloadEvent::rangeRefused), Bare(DownloadEvent::refused), kComplete));
    EXPECT_TRUE(ContentOf(target_) == *file_);
}

TEST_F(SiteDownload, AnUnknownPackageIsRefused) {
    EXPECT_THAT(Download(Url("com.example.unknown")),
                testing::Contains(Bare(DownloadEvent::refused)));
}

TEST(SiteDownloadRate, AStoppedDownloadIsResumed) {
    SampleServer site({.kilobytesASecond = 4096});
    ASSERT_EQ(site.Start(), "");
    const TemporaryFolder folder;
    const auto target = folder.Path() / "a.apk";
    const auto sink = std::make_shared<KeepingSink>();
    CHttpDownloader engine;
    engine.SetSink(sink);
    engine.SetJob(site.Told({}).downloadRoot + "com.example.dict.apk", target);
    engine.Start();
    // Progress is told once a second has gone.
    EXPECT_TRUE(Await([&] { return sink->HasHeard(DownloadEvent::progress); }));
    engine.Stop();
    EXPECT_TRUE(Await([&] { return engine.IsIdle(); }));
    EXPECT_TRUE(sink->HasHeard(DownloadEvent::stopped));
    EXPECT_FALSE(std::filesystem::exists(target));
    EXPECT_GT(std::filesystem::file_size(folder.Path() / "a.tmp"), 10'240u);
    engine.Start();
    EXPECT_TRUE(Await([&] { return engine.IsIdle(); }));
    EXPECT_TRUE(ContentOf(target) == *SamplePackage("com.example.dict"));
}

}  // namespace
}  // namespace quorvi::site
