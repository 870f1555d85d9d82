// A user's story with the store, through the window: a search, an item's page, a click on a
// package, and the package on the phone; with a real server as the site, the real engine, and adb.
#include <gmock/gmock.h>

#include "base/Text.h"
#include "tests/app/store/StoreDriver.h"
#include "tests/support/TemporaryFolder.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr const char* kPackage = "com.example.tingshu";

class StoreStory : public StoreDriver {
  public:
    static void SetUpTestSuite() {
        site_ = std::make_unique<SiteServer>(kStoreLocation);
        kept_ = std::make_unique<TemporaryFolder>();
        StandUp(MakersAt({.siteRoot = site_->Root(),
                          .storeRoot = site_->Root(),
                          .downloadRoot = site_->Root()}),
                kept_->Path() / "Config.db");
    }
    static void TearDownTestSuite() {
        PagesOnPhone::TearDownTestSuite();
        kept_.reset();
        site_.reset();
    }

  protected:
    void SetUp() override {
        PagesOnPhone::SetUp();
        const std::filesystem::path save = kept_->Path() / "save";
        std::filesystem::create_directories(save);
        Desk().Settings().WriteText("Software\\Quorvi", "DownloadPath", ToAnsi(save.native()));
        site_->Serve("index.html", "<h1>home</h1>");
        site_->Serve("search.php", "<h1>found</h1> <a id=item href='/archives/7.html'>x</a>");
        site_->Serve("archives/7.html",
                     "<h1>item</h1> <a id=get href='qvh:com.example.tingshu.apk'>x</a>");
        site_->Serve("feedback/android_info.php",
                     R"({"pkg":"com.example.tingshu","size":"400KB","title":"晨间听书",)"
                     R"("url":"apk/tingshu.apk"})");
        site_->Serve("apk/tingshu.apk", "PK\x03\x04" + std::string(400'000, 'x'));
    }

    static std::vector<std::string> Asked() {
        std::vector<std::string> lines;
        for (const SiteRequest& request : site_->Requests(0)) {
            lines.push_back(request.line);
        }
        return lines;
    }
    static std::vector<CDownloadTask> Tasks(TaskFilter filter) {
        return Window().PageServices().taskStore->LoadTaskList(filter).tasks;
    }
    // How far it came: the states of the tasks, the status, and what the site was asked for.
    static std::string Standing() {
        std::string states;
        for (const CDownloadTask& task : Tasks(TaskFilter::all)) {
            states += std::to_string(static_cast<int>(task.state)) + " ";
        }
        return "states: " + states + "status: " + Status().toStdString() +
               " asked: " + testing::PrintToString(Asked());
    }
    static bool WaitAllEnded() {
        return WaitFor(
            [] { return RunningJobs() == 0 && Window().PageServices().taskQueue.IsIdle(); });
    }

    static std::unique_ptr<SiteServer> site_;
    static std::unique_ptr<TemporaryFolder> kept_;
};

std::unique_ptr<SiteServer> StoreStory::site_;
std::unique_ptr<TemporaryFolder> StoreStory::kept_;

// The first test of the suite, whose window has not shown the store yet.
TEST_F(StoreStory, ASearchLeadsToAnItemAndItsPackageOntoThePhone) {
    Search(u8"听书");
    ASSERT_TRUE(WaitForHeading("found"));
    // What the first search found has not given way to the store's first page.
    EXPECT_THAT(Asked(),
                AllOf(Contains("GET /search.php?keywords=%E5%90%AC%E4%B9%A6&key=f3b8e03c HTTP/1.1"),
                      Not(Contains("GET / HTTP/1.1"))));
    ClickHtml(View(), QStringLiteral("#item"));
    ASSERT_TRUE(WaitForHeading("item"));
    ClickHtml(View(), QStringLiteral("#get"));
    ASSERT_TRUE(WaitFor([] { return Tasks(TaskFilter::done).size() == 1; })) << Standing();
    const CDownloadTask task = Tasks(TaskFilter::done)[0];
    EXPECT_EQ(task.title, Ansi(u8"晨间听书"));
    EXPECT_EQ(task.uniqueId, kPackage);
    EXPECT_EQ(task.length, "400KB");
    EXPECT_EQ(task.url, site_->Root() + "apk/tingshu.apk");
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_THAT(Desk().Rig().Adb({"shell", "pm", "list", "packages"}).output, HasSubstr(kPackage));
    // The page of the item stands as before.
    EXPECT_TRUE(WaitForHeading("item"));
    Command(StorePage::commandBack);
    EXPECT_TRUE(WaitForHeading("found"));
    Command(StorePage::commandHome);
    EXPECT_TRUE(WaitForHeading("home"));
}

TEST_F(StoreStory, ALinkThatNamesNoPackageIsToldAndMakesNoTask) {
    const std::size_t before = Tasks(TaskFilter::all).size();
    site_->Serve("search.php", "<h1>bad</h1> <a id=bad href='qvh:../x.apk'>x</a>");
    Search(u8"词典");
    ASSERT_TRUE(WaitForHeading("bad"));
    ClickHtml(View(), QStringLiteral("#bad"));
    ASSERT_TRUE(WaitFor([] {
        return Status() == ToQString(u8"【错误】应用的包名不正确，没有添加任务，请换一个应用下载");
    }));
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_EQ(Tasks(TaskFilter::all).size(), before);
}

}  // namespace
}  // namespace quorvi
