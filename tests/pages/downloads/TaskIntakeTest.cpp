// From a link to a task: what is asked, what is resolved, what is lost.
#include "tests/pages/downloads/DownloadPageFixture.h"
#include "tests/support/ScriptedSite.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int kDuplicate = 686;
constexpr int kTitle = 1391;
constexpr int kDate = 1392;
constexpr int kPath = 1393;
constexpr int kAgain = 1215;
constexpr int kInstall = 1216;
constexpr int kCancel = 1021;

class TaskIntakeTest : public DownloadPageTest {
  protected:
    using DownloadPageTest::DownloadPageTest;

    // What the site says of any package.
    void Answer(const std::string& package, const std::string& title, const std::string& path) {
        info_.AnswerPage(R"({"pkg":")" + package + R"(","size":"1.5MB","title":")" + title +
                         R"(","url":")" + path + R"("})");
    }
    void OpenWithSite() {
        services_.deployment.siteRoot = info_.Root();
        Open();
    }
    // As a page does that has met a link, and the window that passes the message on.
    void Queue(const std::string& package) {
        QueuePackage(host_, *made_, package);
        EXPECT_EQ(host_.posted.back(), FakeHost::Posted(Message::pageCommand, 3, 0));
        page_->Load();
    }
    [[nodiscard]] static QString In(int control) {
        return FindControl<QLabel>(OpenDialog(kDuplicate), control)->text();
    }
    void WaitForTheQuestion() {
        ASSERT_TRUE(WaitFor([] { return OpenDialog(kDuplicate) != nullptr; }));
    }
    void Press(int control) {
        PressIn(kDuplicate, control);
        Settle();
        WaitUntilIdle();
    }
    [[nodiscard]] std::vector<std::string> Table() const {
        return PackagesOf(*services_.taskStore, TaskFilter::all);
    }

    ScriptedSite info_;
};

// ---- resolving ---------------------------------------------------------------------------------

TEST_F(TaskIntakeTest, APackageOfTheSiteBecomesATaskThatIsDownloadedAndInstalled) {
    site_.Serve("tingshu.apk", "package");
    Answer("com.example.tingshu", "晨间听书", "files/tingshu.apk");
    OpenWithSite();
    Queue("com.example.tingshu");
    Settle();
    WaitUntilIdle();
    const FoundTask task = services_.taskStore->FindTaskByUniqueId("com.example.tingshu");
    EXPECT_EQ(task.found, FoundTask::Found::done);
    EXPECT_EQ(ToUtf8(task.title), "晨间听书");
    EXPECT_EQ(task.file, File("com.example.tingshu"));
    EXPECT_TRUE(host_.statuses.contains(ToQString(u8"【+】下载 晨间听书")));
    const auto row = services_.taskStore->LoadTaskForDownload(task.id);
    EXPECT_EQ(row->length, "1.5MB");
    EXPECT_EQ(row->url, site_.Root() + "files/tingshu.apk");
}

TEST_F(TaskIntakeTest, AReplyWithoutATitleGivesAnEmptyTitleAndATask) {
    info_.AnswerPage(R"({"pkg":"com.example.a","url":"files/none.apk"})");
    OpenWithSite();
    Queue("com.example.a");
    Settle();
    WaitUntilIdle();
    EXPECT_THAT(Table(), ElementsAre("com.example.a"));
    EXPECT_EQ(services_.taskStore->FindTaskByUniqueId("com.example.a").title, "");
}

TEST_F(TaskIntakeTest, AReplyThatIsNoJsonMakesNoTaskAndIsNotTold) {
    info_.AnswerPage("It works!");
    OpenWithSite();
    Queue("com.example.a");
    Settle();
    EXPECT_THAT(Table(), IsEmpty());
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(TaskIntakeTest, ASecondLinkDuringAResolveIsLost) {
    Answer("com.example.a", "一", "files/none.apk");
    info_.Hold();
    OpenWithSite();
    Queue("com.example.a");
    ASSERT_TRUE(WaitFor([&] { return info_.Bodies().size() == 1; }));
    Queue("com.example.b");
    ASSERT_TRUE(WaitFor([&] { return host_.status.contains(ToQString(u8"正在添加")); }));
    info_.Release();
    Settle();
    WaitUntilIdle();
    EXPECT_EQ(info_.Bodies().size(), 1u);
    EXPECT_THAT(Table(), ElementsAre("com.example.a"));
}

TEST_F(TaskIntakeTest, ANameThatIsNoPackagesMakesNoTaskAndALineInTheStatus) {
    OpenWithSite();
    Queue("../../etc/passwd");
    Settle();
    EXPECT_THAT(info_.Bodies(), IsEmpty());
    EXPECT_THAT(Table(), IsEmpty());
    EXPECT_THAT(host_.status.toStdString(), HasSubstr("包名不正确"));
}

TEST_F(TaskIntakeTest, AnInstalledFolderThatHasBeenRemovedLeadsToANewChoice) {
    Answer("com.example.a", "一", "files/none.apk");
    host_.settings.WriteText("Software\\Quorvi", "DownloadPath", "/nowhere/at/all");
    OpenWithSite();
    Queue("com.example.a");
    Settle();
    WaitUntilIdle();
    EXPECT_EQ(services_.taskStore->FindTaskByUniqueId("com.example.a").file,
              disk_.Path() / "QuorviDownload" / "com.example.a.apk");
}

TEST_F(TaskIntakeTest, WithoutAFolderThereIsNoTaskAndTheStatusSaysWhatToDo) {
    Answer("com.example.a", "一", "files/none.apk");
    host_.settings.Delete("Software\\Quorvi", "DownloadPath");
    std::ofstream(disk_.Path() / "QuorviDownload") << "in the way";
    OpenWithSite();
    Queue("com.example.a");
    Settle();
    EXPECT_THAT(Table(), IsEmpty());
    EXPECT_THAT(host_.status.toStdString(), HasSubstr("相关设置"));
}

TEST_F(TaskIntakeTest, ATitleWithAnApostropheMakesNoTask) {
    Answer("com.example.a", "it's", "files/none.apk");
    OpenWithSite();
    Queue("com.example.a");
    Settle();
    EXPECT_THAT(Table(), IsEmpty());
    EXPECT_EQ(host_.status, ToQString(StoreStatus(StoreResult::refused)));
}

// ---- the question ------------------------------------------------------------------------------

TEST_F(TaskIntakeTest, AKnownPackageIsAskedAboutWithItsTitleDateAndPath) {
    Add("com.a", TaskState::done);
    PutFile("com.a");
    OpenWithSite();
    Queue("com.a");
    WaitForTheQuestion();
    EXPECT_EQ(OpenDialog(kDuplicate)->windowTitle(), ToQString(u8"重复的任务"));
    EXPECT_EQ(In(kTitle), ToQString(u8"应用com.a"));
    EXPECT_EQ(In(kDate).size(), 19);
    EXPECT_EQ(In(kPath), QString::fromStdString(File("com.a").native()));
    EXPECT_THAT(info_.Bodies(), IsEmpty());
    Press(kCancel);
}

TEST_F(TaskIntakeTest, AnyStateOfATaskShowsTheQuestion) {
    for (int state = 0; state <= 8; ++state) {
        Add("s" + std::to_string(state), static_cast<TaskState>(state));
    }
    OpenWithSite();
    for (int state = 0; state <= 8; ++state) {
        Queue("s" + std::to_string(state));
        WaitForTheQuestion();
        Press(kCancel);
        EXPECT_EQ(OpenDialog(kDuplicate), nullptr);
    }
    EXPECT_EQ(Table().size(), 9u);
}

TEST_F(TaskIntakeTest, InstallingAgainIsOfferedOnlyWhereTheFileIs) {
    Add("com.a", TaskState::done);
    OpenWithSite();
    Queue("com.a");
    WaitForTheQuestion();
    EXPECT_FALSE(FindControl(OpenDialog(kDuplicate), kInstall)->isVisible());
    EXPECT_TRUE(FindControl(OpenDialog(kDuplicate), kAgain)->hasFocus());
    Press(kCancel);
    PutFile("com.a");
    Queue("com.a");
    WaitForTheQuestion();
    EXPECT_TRUE(FindControl(OpenDialog(kDuplicate), kInstall)->isVisible());
    EXPECT_TRUE(FindControl(OpenDialog(kDuplicate), kInstall)->hasFocus());
    Press(kCancel);
}

TEST_F(TaskIntakeTest, DownloadingAgainTakesTheFileAwayAndDownloadsIt) {
    const auto id = Add("com.a", TaskState::done);
    std::ofstream(File("com.a")) << "old";
    OpenWithSite();
    Queue("com.a");
    WaitForTheQuestion();
    Press(kAgain);
    EXPECT_EQ(StateOf(id), TaskState::done);
    EXPECT_EQ(std::filesystem::file_size(File("com.a")), ContentOf("com.a").size());
    EXPECT_EQ(site_.Requests(1).at(0).range, "");
}

TEST_F(TaskIntakeTest, InstallingAgainTakesTheFileThatIsThere) {
    const auto id = Add("com.a", TaskState::done);
    PutFile("com.a");
    OpenWithSite();
    Queue("com.a");
    WaitForTheQuestion();
    Press(kInstall);
    EXPECT_EQ(StateOf(id), TaskState::done);
    EXPECT_THAT(adb_.Calls(),
                ElementsAre(ElementsAre("-s", "HT04", "install", "-r", File("com.a").native())));
}

TEST_F(TaskIntakeTest, TheWayOutChangesNothing) {
    const auto id = Add("com.a", TaskState::paused);
    PutFile("com.a");
    OpenWithSite();
    Queue("com.a");
    WaitForTheQuestion();
    QTest::keyClick(OpenDialog(kDuplicate), Qt::Key_Escape);
    Settle();
    EXPECT_EQ(OpenDialog(kDuplicate), nullptr);
    EXPECT_EQ(StateOf(id), TaskState::paused);
    EXPECT_TRUE(std::filesystem::exists(File("com.a")));
}

TEST_F(TaskIntakeTest, ASecondNameWaitsForTheAnswer) {
    Add("com.a", TaskState::paused);
    Add("com.b", TaskState::paused);
    OpenWithSite();
    Queue("com.a");
    Queue("com.b");
    WaitForTheQuestion();
    Settle();
    EXPECT_EQ(In(kTitle), ToQString(u8"应用com.a"));
    PressIn(kDuplicate, kCancel);
    ASSERT_TRUE(WaitFor([&] {
        return OpenDialog(kDuplicate) != nullptr && In(kTitle) == ToQString(u8"应用com.b");
    }));
    Press(kCancel);
}

TEST_F(TaskIntakeTest, WithNothingWaitingNothingHappens) {
    OpenWithSite();
    page_->Load();
    Settle();
    EXPECT_TRUE(host_.statuses.isEmpty());
}

}  // namespace
}  // namespace quorvi
