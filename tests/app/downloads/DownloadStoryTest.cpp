// A user's stories with downloads: from a link through the window to the phone, with a real server,
// the real engine, and adb.
#include <gmock/gmock.h>

#include <QDropEvent>
#include <QMimeData>
#include <fstream>

#include "base/Text.h"
#include "pages/downloads/DownloadPage.h"
#include "pages/kit/QueuePackage.h"
#include "tests/app/store/StoreDriver.h"
#include "tests/support/MenuDriver.h"
#include "tests/support/TemporaryFolder.h"
#include "ui/kit/SkinTree.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr int kDownloads = 5;
constexpr int kTree = 1222;
constexpr std::size_t kStart = 0;

constexpr int kDuplicate = 686;
constexpr int kAgain = 1215;
constexpr int kInstall = 1216;
constexpr int kCancel = 1021;

enum Column { columnIcon, columnName, columnType, columnProgress, columnState, columnTick };

constexpr const char* kInfoPath = "feedback/android_info.php";
constexpr const char* kPackage = "com.example.tingshu";

class DownloadStory : public StoreDriver {
  public:
    static void SetUpTestSuite() {
        site_ = std::make_unique<SiteServer>(std::string(kStoreLocation) + R"(
            location /files/ { alias FILES/; }
            location /slow/ { alias FILES/; limit_rate 60k; }
        )");
        kept_ = std::make_unique<TemporaryFolder>();
        StartProgram();
    }
    static void TearDownTestSuite() {
        EndProgram();
        kept_.reset();
        site_.reset();
    }

  protected:
    void SetUp() override {
        PagesOnPhone::SetUp();
        Desk().Settings().WriteText("Software\\Quorvi", "DownloadPath",
                                    ToAnsi(SaveFolder().native()));
        OpenPage(kDownloads);
        ASSERT_TRUE(WaitAllEnded());
    }
    // Each test begins with an empty table.
    void TearDown() override {
        Queue().StopCurrent();
        ASSERT_TRUE(WaitAllEnded());
        for (const CDownloadTask& task : Store().LoadTaskList(TaskFilter::all).tasks) {
            Queue().RemoveTask(task.id);
        }
        ASSERT_TRUE(WaitAllEnded());
        std::filesystem::remove_all(SaveFolder());
        PagesOnPhone::TearDown();
    }

    static void StartProgram() {
        StandUp(MakersAt({.siteRoot = site_->Root(),
                          .storeRoot = site_->Root(),
                          .downloadRoot = site_->Root()}),
                kept_->Path() / "Config.db");
    }
    // As when the process goes: what runs is cut off, and the table keeps what it holds.
    static void EndProgram() {
        Queue().StopCurrent();
        EXPECT_TRUE(WaitAllEnded());
        PagesOnPhone::TearDownTestSuite();
    }
    static std::filesystem::path SaveFolder() {
        std::filesystem::create_directories(kept_->Path() / "save");
        return kept_->Path() / "save";
    }
    static std::filesystem::path File() { return SaveFolder() / (std::string(kPackage) + ".apk"); }

    // A package as the phone takes it.
    static std::string Content() { return "PK\x03\x04" + std::string(400'000, 'x'); }
    // What the site tells of the package, and where it has it.
    static void Offer(const std::string& folder) {
        site_->Serve("tingshu.apk", Content());
        site_->Serve(kInfoPath, R"({"pkg":"com.example.tingshu","size":"400KB",)"
                                R"("title":"晨间听书","url":")" +
                                    folder + R"(/tingshu.apk"})");
    }
    static void FollowTheLink() { QueuePackage(Window(), Window().PageServices(), kPackage); }
    static bool WaitAllEnded() {
        int quiet = 0;
        return WaitFor([&] {
            quiet = RunningJobs() == 0 && Queue().IsIdle() ? quiet + 1 : 0;
            return quiet > 3;
        });
    }

    static TaskQueue Queue() { return Window().PageServices().taskQueue; }
    static TaskStore& Store() { return *Window().PageServices().taskStore; }
    static DownloadListCtrl& List() {
        return *Window().PageOfDialog(kDownloadsPage.dialog)->findChild<DownloadListCtrl*>();
    }
    static QString Text(int column) { return List().CellAt(0, column).text; }
    static void ClickNode(int top, int child) {
        auto& tree = OnPage<CSkinTree>(kTree);
        QTreeWidgetItem* node = tree.topLevelItem(top)->child(child);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(node).center());
        ASSERT_TRUE(WaitAllEnded());
    }
    static void Choose(int command) {
        ChooseFrom(OpenRowMenu(*Window().ShownPage(), List(), 0, columnName), command);
    }
    static std::string Installed() {
        return Desk().Rig().Adb({"shell", "pm", "list", "packages"}).output;
    }
    static std::string Downloaded() {
        std::ifstream stream(File(), std::ios::binary);
        return {std::istreambuf_iterator(stream), {}};
    }
    static int Badge() {
        return ItemsOf(Window()).item(kDownloads)->data(Qt::UserRole + 1).toInt();
    }
    // A task that is done, and whose file is there or not.
    static std::int32_t HaveDone(bool file) {
        CDownloadTask task;
        task.title = Ansi(u8"晨间听书");
        task.url = site_->Root() + "files/tingshu.apk";
        task.uniqueId = kPackage;
        task.savePath = ToAnsi(SaveFolder().native());
        task.state = TaskState::done;
        EXPECT_EQ(Store().InsertTask(task), StoreResult::done);
        if (file) {
            std::ofstream(File(), std::ios::binary) << "PK\x03\x04"
                                                    << "as it was";
        }
        return Store().FindTaskByUniqueId(kPackage).id;
    }
    static TaskState StateOf(std::int32_t id) {
        return Store().LoadTaskForDownload(id).value_or(CDownloadTask{}).state;
    }

    static std::unique_ptr<SiteServer> site_;
    static std::unique_ptr<TemporaryFolder> kept_;  // table and files, from run to run
};

std::unique_ptr<SiteServer> DownloadStory::site_;
std::unique_ptr<TemporaryFolder> DownloadStory::kept_;

TEST_F(DownloadStory, APackageOfTheStoreIsDownloadedPausedResumedByTheNextRunAndInstalled) {
    EXPECT_THAT(Installed(), Not(HasSubstr(kPackage)));
    Offer("slow");
    site_->Serve("search.php", "<h1>found</h1> <a id=item href='/archives/7.html'>x</a>");
    site_->Serve("archives/7.html",
                 "<h1>item</h1> <a id=get href='qvh:com.example.tingshu.apk'>x</a>");

    // A search, the item's page, and a click on its package.
    Search(u8"听书");
    ASSERT_TRUE(WaitForHeading("found"));
    ClickHtml(View(), QStringLiteral("#item"));
    ASSERT_TRUE(WaitForHeading("item"));
    ClickHtml(View(), QStringLiteral("#get"));
    ASSERT_TRUE(WaitFor([] { return Store().LoadTaskList(TaskFilter::all).tasks.size() == 1; }));

    OpenPage(kDownloads);
    ASSERT_TRUE(WaitFor([] { return List().RowCount() == 1; }));
    EXPECT_EQ(Text(columnName), ToQString(u8"晨间听书"));
    ASSERT_TRUE(WaitFor([] { return Badge() == 1; }));

    // Progress, in the cell and in the status.
    ASSERT_TRUE(WaitFor([] { return List().CellAt(0, columnProgress).value > 0; }));
    EXPECT_EQ(Text(columnState), ToQString(u8"下载中.."));
    EXPECT_TRUE(Status().startsWith(ToQString(u8"下载速度 ")));

    Choose(CDownloadPage::menuPause);
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_EQ(Text(columnState), ToQString(u8"暂停下载"));

    // The program ends and is started again.
    EndProgram();
    StartProgram();
    Desk().Settings().WriteText("Software\\Quorvi", "DownloadPath", ToAnsi(SaveFolder().native()));
    OpenPage(kDownloads);
    ASSERT_TRUE(WaitAllEnded());
    ASSERT_EQ(List().RowCount(), 1);
    EXPECT_EQ(Text(columnState), ToQString(u8"暂停下载"));
    ASSERT_TRUE(WaitFor([] { return Badge() == 1; }));
    EXPECT_TRUE(Queue().IsIdle());  // nothing goes on by itself

    Choose(CDownloadPage::menuResume);
    ASSERT_TRUE(WaitFor([] { return List().RowCount() == 0; }));
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_EQ(Status(), ToQString(u8"安装成功：晨间听书"));
    EXPECT_EQ(Downloaded(), Content());
    EXPECT_THAT(Installed(), HasSubstr(kPackage));
    EXPECT_TRUE(WaitFor([] { return Badge() == 0; }));

    ClickNode(1, 0);  // 已经完成
    ASSERT_EQ(List().RowCount(), 1);
    EXPECT_EQ(Text(columnName), ToQString(u8"晨间听书"));
    EXPECT_EQ(Text(columnState), ToQString(u8"下载完成"));
}

TEST_F(DownloadStory, ADownloadThatTheEndOfTheProgramCutOffGoesOnInTheNextRun) {
    Offer("slow");
    FollowTheLink();
    ASSERT_TRUE(WaitFor(
        [] { return List().RowCount() == 1 && List().CellAt(0, columnProgress).value > 0; }));
    EndProgram();
    StartProgram();
    OpenPage(kDownloads);
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_EQ(Text(columnState), ToQString(u8"下载中.."));
    const auto before = std::filesystem::file_size(SaveFolder() / "com.example.tingshu.tmp");
    EXPECT_GT(before, 0u);
    Command(kStart);
    ASSERT_TRUE(WaitFor([] { return List().RowCount() == 0; }));
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_EQ(Downloaded(), Content());
    EXPECT_EQ(site_->Requests(1).back().range, "bytes=" + std::to_string(before) + "-");
}

TEST_F(DownloadStory, AFailedInstallationSaysWhyAndIsInstalledAgainFromTheMenu) {
    Offer("files");
    Tell("install INSTALL_FAILED_INSUFFICIENT_STORAGE");
    FollowTheLink();
    ASSERT_TRUE(WaitFor(
        [] { return List().RowCount() == 1 && Text(columnState) == ToQString(u8"安装失败"); }));
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_THAT(Status().toStdString(), HasSubstr("手机空间不足"));
    EXPECT_THAT(List().CellAt(0, columnState).note.toStdString(), HasSubstr("手机空间不足"));
    Tell("install real");
    Choose(CDownloadPage::menuInstall);
    ASSERT_TRUE(WaitFor([] { return List().RowCount() == 0; }));
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_EQ(Status(), ToQString(u8"安装成功：晨间听书"));
}

// ---- a package that is known -------------------------------------------------------------------

TEST_F(DownloadStory, AKnownPackageIsDownloadedAgain) {
    Offer("files");
    const auto id = HaveDone(true);
    FollowTheLink();
    ASSERT_TRUE(WaitForDialog(kDuplicate));
    Press(kDuplicate, kAgain);
    ASSERT_TRUE(WaitForNoDialog(kDuplicate));
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_EQ(Downloaded(), Content());
    EXPECT_EQ(StateOf(id), TaskState::done);
}

TEST_F(DownloadStory, AKnownPackageIsInstalledAgain) {
    const auto id = HaveDone(true);
    const std::size_t asked = site_->Requests(0).size();
    FollowTheLink();
    ASSERT_TRUE(WaitForDialog(kDuplicate));
    Press(kDuplicate, kInstall);
    ASSERT_TRUE(WaitForNoDialog(kDuplicate));
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_EQ(StateOf(id), TaskState::done);
    EXPECT_EQ(Status(), ToQString(u8"安装成功：晨间听书"));
    EXPECT_EQ(site_->Requests(0).size(), asked);
}

TEST_F(DownloadStory, AKnownPackageIsLeftAlone) {
    const auto id = HaveDone(false);
    FollowTheLink();
    ASSERT_TRUE(WaitForDialog(kDuplicate));
    EXPECT_FALSE(In(kDuplicate, kInstall).isVisible());
    Press(kDuplicate, kCancel);
    ASSERT_TRUE(WaitForNoDialog(kDuplicate));
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_EQ(StateOf(id), TaskState::done);
    EXPECT_FALSE(std::filesystem::exists(File()));
}

// ---- packages of the user's own ----------------------------------------------------------------

TEST_F(DownloadStory, APackageThatIsDroppedOnTheWindowIsInstalled) {
    const std::filesystem::path file = SaveFolder() / "com.example.dropped.apk";
    std::ofstream(file, std::ios::binary) << Content();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(file.native()))});
    QDragEnterEvent enter(QPoint(400, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&Window(), &enter);
    QDropEvent drop(QPointF(400, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&Window(), &drop);
    ASSERT_TRUE(WaitForDialog(0));
    Press(0, 1);
    ASSERT_TRUE(WaitForNoDialog(0));
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_EQ(Status(), ToQString(u8"安装成功：com.example.dropped.apk"));
    EXPECT_THAT(Installed(), HasSubstr("com.example.dropped"));
    EXPECT_EQ(List().RowCount(), 0);
}

}  // namespace
}  // namespace quorvi
