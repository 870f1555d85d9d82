// downloads add: packages become tasks.
#include <algorithm>

#include "base/SettingsFile.h"
#include "tests/cli/DownloadsTest.h"

namespace quorvi::cli {
namespace {

using testing::HasSubstr;

constexpr const char* kAnswerFile = "feedback/android_info.php";

class DownloadsAdd : public DownloadsTest {
  protected:
    void Answer(std::string_view answer) const { site_.Serve(kAnswerFile, answer); }
    Status Add(std::vector<std::string> packages, bool json = true) {
        return Run(&RunDownloadsAdd,
                   {.operands = std::move(packages), .options = {{"--to", save_.Path().native()}}},
                   json);
    }
    [[nodiscard]] std::vector<CDownloadTask> Rows() const {
        return TaskStore(table_).LoadTaskList(TaskFilter::all).tasks;
    }
};

TEST_F(DownloadsAdd, ANewPackageBecomesATask) {
    Answer(R"({"pkg":"com.a","size":"1.5MB","title":"听书","url":"files/a.apk"})");
    EXPECT_EQ(Add({"com.a"}), Status::done);
    ASSERT_EQ(Rows().size(), 1U);
    const CDownloadTask row = Rows()[0];
    EXPECT_EQ(row.title, Ansi(u8"听书"));
    EXPECT_EQ(row.url, site_.Root() + "files/a.apk");
    EXPECT_EQ(row.uniqueId, "com.a");
    EXPECT_EQ(row.length, "1.5MB");
    EXPECT_EQ(row.state, TaskState::waiting);
    EXPECT_EQ(row.savePath, save_.Path().native());
    const Json::Value said = Said();
    ASSERT_EQ(said.size(), 1U);
    EXPECT_EQ(said[0]["package"].asString(), "com.a");
    EXPECT_TRUE(said[0]["added"].asBool());
    EXPECT_EQ(said[0]["text"].asString(), "【+】下载 听书");
    EXPECT_EQ(said[0]["task"]["id"].asInt(), row.id);
    EXPECT_THAT(site_.Requests(1)[0].body, HasSubstr("com.a"));
}

TEST_F(DownloadsAdd, ForPeopleThereIsALineForEachPackage) {
    Answer(R"({"pkg":"com.a","title":"听书","url":"files/a.apk"})");
    EXPECT_EQ(Add({"com.a", "com.a"}, false), Status::done);
    EXPECT_EQ(text_, "com.a: 【+】下载 听书\ncom.a: 任务已经存在：听书，等待开始\n");
}

TEST_F(DownloadsAdd, APackageThatIsKnownStaysAsItIsAndAsksNobody) {
    for (const TaskState state : {TaskState::done, TaskState::failed}) {
        const std::string package = state == TaskState::done ? "com.done" : "com.failed";
        const auto id = DownloadsTest::Add(package, state);
        EXPECT_EQ(Add({package}), Status::done);
        EXPECT_FALSE(Said()[0]["added"].asBool());
        EXPECT_EQ(Said()[0]["task"]["id"].asInt(), id);
        EXPECT_EQ(StateOf(id), state);
    }
    EXPECT_EQ(Rows().size(), 2U);
    EXPECT_TRUE(site_.Requests(0).empty());
}

TEST_F(DownloadsAdd, APackageThatTheSiteCallsByAKnownNameIsNotDoubled) {
    const auto id = DownloadsTest::Add("com.real");
    Answer(R"({"pkg":"com.real","title":"听书","url":"files/a.apk"})");
    EXPECT_EQ(Add({"com.alias"}), Status::done);
    EXPECT_EQ(Said()[0]["task"]["id"].asInt(), id);
    EXPECT_EQ(Rows().size(), 1U);
}

TEST_F(DownloadsAdd, WhatDoesNotBecomeATaskIsToldAndHoldsUpNoOther) {
    Answer(R"({"pkg":"com.a","title":"听书","url":"files/a.apk"})");
    EXPECT_EQ(Add({"../com.a", "com.a"}), Status::wrongUsage);
    EXPECT_FALSE(Said()[0]["added"].asBool());
    EXPECT_TRUE(Said()[0]["task"].isNull());
    EXPECT_TRUE(Said()[1]["added"].asBool());
    EXPECT_THAT(messages_, testing::StartsWith("quorvictl: ../com.a: 【错误】应用的包名不正确"));
    EXPECT_EQ(Rows().size(), 1U);
}

TEST_F(DownloadsAdd, ANameOfTheSitesThatIsNoPackagesMakesNoTask) {
    Answer(R"({"pkg":"../../etc/passwd","title":"听书","url":"files/a.apk"})");
    EXPECT_EQ(Add({"com.a"}), Status::notFound);
    EXPECT_THAT(messages_, HasSubstr("包名不正确"));
    EXPECT_TRUE(Rows().empty());
}

TEST_F(DownloadsAdd, ATitleWithAnApostropheMakesNoTaskAndIsTold) {
    Answer(R"({"pkg":"com.a","title":"it's","url":"files/a.apk"})");
    EXPECT_EQ(Add({"com.a"}), Status::noLink);
    EXPECT_EQ(messages_, "quorvictl: com.a: 【错误】任务的名称不正确，没有添加\n");
    EXPECT_TRUE(Rows().empty());
}

TEST_F(DownloadsAdd, ASiteThatDoesNotAnswerIsTold) {
    EXPECT_EQ(Add({"com.a"}), Status::noLink);
    EXPECT_EQ(messages_, "quorvictl: com.a: 【错误】网站没有给出这个应用，请稍后再试\n");
    EXPECT_TRUE(Rows().empty());
}

TEST_F(DownloadsAdd, AFolderThatIsNotThereIsWrongUsage) {
    const std::string gone = save_.Path() / "gone";
    EXPECT_EQ(Run(&RunDownloadsAdd, {.operands = {"com.a"}, .options = {{"--to", gone}}}),
              Status::wrongUsage);
    EXPECT_EQ(messages_, "quorvictl: " + gone + ": 没有这个目录\n");
    EXPECT_TRUE(site_.Requests(0).empty());
}

TEST_F(DownloadsAdd, AFolderIsKeptAsItsWholePath) {
    Answer(R"({"pkg":"com.a","title":"听书","url":"files/a.apk"})");
    std::filesystem::create_directory(save_.Path() / "apk");
    const std::string named = save_.Path() / "apk" / ".." / "apk/";
    EXPECT_EQ(Run(&RunDownloadsAdd, {.operands = {"com.a"}, .options = {{"--to", named}}}),
              Status::done);
    EXPECT_EQ(Rows()[0].savePath, (save_.Path() / "apk").native());
}

TEST_F(DownloadsAdd, WithoutAFolderItIsThatOfTheWindow) {
    Answer(R"({"pkg":"com.a","title":"听书","url":"files/a.apk"})");
    SettingsFile settings;
    settings.WriteText(kSettingsKey, "DownloadPath", save_.Path().native());
    EXPECT_EQ(Run(&RunDownloadsAdd, {.operands = {"com.a"}, .options = {}}), Status::done);
    EXPECT_EQ(Rows()[0].savePath, save_.Path().native());
    settings.Delete(kSettingsKey, "DownloadPath");
}

}  // namespace
}  // namespace quorvi::cli
