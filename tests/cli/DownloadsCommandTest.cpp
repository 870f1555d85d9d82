// The commands of the downloads.
#include <thread>

#include "download/TaskQueue.h"
#include "tests/cli/DownloadsTest.h"
#include "tests/support/Await.h"

namespace quorvi::cli {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class DownloadsCommand : public DownloadsTest {
  protected:
    DownloadsCommand() : DownloadsTest("location /slow/ { alias FILES/files/; limit_rate 60k; }") {}

    static Arguments Ids(const std::vector<std::int32_t>& ids) {
        Arguments arguments;
        for (const std::int32_t id : ids) {
            arguments.operands.push_back(std::to_string(id));
        }
        return arguments;
    }
    // The packages that a filter lists.
    std::vector<std::string> Listed(const char* filter) {
        EXPECT_EQ(Run(&RunDownloadsList, {.operands = {}, .options = {{"--filter", filter}}}),
                  Status::done);
        std::vector<std::string> packages;
        for (const Json::Value& row : Said()) {
            packages.push_back(row["unique_id"].asString());
        }
        return packages;
    }
};

TEST_F(DownloadsCommand, AListHasEveryMemberOfARow) {
    const auto id = Add("com.a", TaskState::installFailed);
    ASSERT_EQ(Run(&RunDownloadsList), Status::done);
    const Json::Value rows = Said();
    ASSERT_EQ(rows.size(), 1U);
    const Json::Value& row = rows[0];
    EXPECT_EQ(row["id"].asInt(), id);
    EXPECT_EQ(row["type"].asInt(), 0);
    EXPECT_EQ(row["title"].asString(), "听书");
    EXPECT_EQ(row["url"].asString(), site_.Root() + "files/com.a.apk");
    EXPECT_EQ(row["state"].asInt(), 8);
    EXPECT_EQ(row["caption"].asString(), "安装失败");
    EXPECT_EQ(row["length"].asString(), "1.5MB");
    EXPECT_EQ(row["datetime"].asString().size(), 19U);
    EXPECT_EQ(row["unique_id"].asString(), "com.a");
    EXPECT_EQ(row["save_path"].asString(), save_.Path().native());
    EXPECT_EQ(row.size(), 10U);
}

TEST_F(DownloadsCommand, AListIsThatOfItsFilter) {
    Add("com.waiting");
    Add("com.paused", TaskState::paused);
    Add("com.done", TaskState::done);
    Add("com.failed", TaskState::failed);
    Add("com.installing", TaskState::installing);
    EXPECT_EQ(Listed("0").size(), 5U);
    EXPECT_THAT(Listed("1"),
                ElementsAre("com.waiting", "com.paused", "com.failed", "com.installing"));
    EXPECT_THAT(Listed("2"), ElementsAre("com.waiting", "com.paused"));
    EXPECT_THAT(Listed("3"), ElementsAre("com.installing"));
    EXPECT_THAT(Listed("4"), ElementsAre("com.done"));
    EXPECT_EQ(Run(&RunDownloadsList), Status::done);
    EXPECT_EQ(Said().size(), 5U);
    for (const char* none : {"5", "-1", "", "x"}) {
        EXPECT_EQ(Run(&RunDownloadsList, {.operands = {}, .options = {{"--filter", none}}}),
                  Status::wrongUsage)
            << none;
    }
    EXPECT_EQ(messages_, "quorvictl: --filter 的值应为 0 到 4\n");
}

TEST_F(DownloadsCommand, AListForPeopleHasARowForEachTask) {
    Add("com.a", TaskState::paused);
    EXPECT_EQ(Run(&RunDownloadsList, {}, false), Status::done);
    EXPECT_THAT(text_, HasSubstr("听书"));
    EXPECT_THAT(text_, HasSubstr("暂停下载"));
    EXPECT_THAT(text_, HasSubstr("com.a"));
}

TEST_F(DownloadsCommand, AnEmptyTableIsAnEmptyList) {
    EXPECT_EQ(Run(&RunDownloadsList), Status::done);
    EXPECT_TRUE(Said().isArray());
    EXPECT_TRUE(Said().empty());
    EXPECT_EQ(Run(&RunDownloadsRun), Status::done);
    EXPECT_EQ(text_ + messages_, "");
}

TEST_F(DownloadsCommand, TasksArePausedAndResumed) {
    const auto a = Add("com.a");
    const auto b = Add("com.b");
    EXPECT_EQ(Run(&RunDownloadsPause, Ids({a, b})), Status::done);
    EXPECT_EQ(Said()["paused"].size(), 2U);
    EXPECT_EQ(StateOf(a), TaskState::paused);
    EXPECT_EQ(StateOf(b), TaskState::paused);
    EXPECT_EQ(Run(&RunDownloadsRun), Status::done);
    EXPECT_THAT(Events(), IsEmpty());
    EXPECT_EQ(Run(&RunDownloadsResume, Ids({b})), Status::done);
    EXPECT_EQ(Said()["resumed"][0].asInt(), b);
    EXPECT_EQ(StateOf(a), TaskState::paused);
    EXPECT_EQ(StateOf(b), TaskState::downloading);
    EXPECT_EQ(Run(&RunDownloadsRun), Status::done);
    EXPECT_EQ(StateOf(b), TaskState::done);
}

TEST_F(DownloadsCommand, ReinstallingAsksForTheDownload) {
    const auto id = Add("com.a", TaskState::installFailed);
    EXPECT_EQ(Run(&RunDownloadsReinstall, Ids({id})), Status::done);
    EXPECT_EQ(Said()["reinstalled"][0].asInt(), id);
    EXPECT_EQ(StateOf(id), TaskState::downloading);
    EXPECT_EQ(Run(&RunDownloadsRun), Status::done);
    EXPECT_EQ(StateOf(id), TaskState::done);
    EXPECT_TRUE(FileContent(File("com.a")) == ContentOf("com.a"));
}

TEST_F(DownloadsCommand, RemovingATaskLeavesItsFile) {
    const auto id = Add("com.a", TaskState::done);
    std::ofstream(File("com.a")) << "whole";
    EXPECT_EQ(Run(&RunDownloadsRemove, Ids({id})), Status::done);
    EXPECT_EQ(Said()["removed"][0].asInt(), id);
    EXPECT_THAT(Listed("0"), IsEmpty());
    EXPECT_EQ(FileContent(File("com.a")), "whole");
}

TEST_F(DownloadsCommand, ATaskThatIsNotThereHoldsUpNoOther) {
    const auto id = Add("com.a");
    Arguments arguments = Ids({id + 1, id});
    arguments.operands.emplace_back("4294967295");
    EXPECT_EQ(Run(&RunDownloadsPause, arguments), Status::notFound);
    EXPECT_EQ(Said()["paused"].size(), 1U);
    EXPECT_EQ(StateOf(id), TaskState::paused);
    EXPECT_EQ(messages_, fmt::format("quorvictl: {}: 没有这个下载任务\n"
                                     "quorvictl: 4294967295: 没有这个下载任务\n",
                                     id + 1));
}

TEST_F(DownloadsCommand, WhatIsNoNumberChangesNothing) {
    const auto id = Add("com.a");
    Arguments arguments = Ids({id});
    arguments.operands.emplace_back("com.a");
    EXPECT_EQ(Run(&RunDownloadsRemove, arguments), Status::wrongUsage);
    EXPECT_EQ(messages_, "quorvictl: com.a: 不是下载任务的编号\n");
    EXPECT_EQ(StateOf(id), TaskState::waiting);
}

TEST_F(DownloadsCommand, ATableThatCannotBeUsedIsToldByEachCommand) {
    std::ofstream(table_) << std::string(10'000, 'x');
    for (const Function command :
         {&RunDownloadsList, &RunDownloadsRun, &RunDownloadsPause, &RunDownloadsRemove}) {
        EXPECT_EQ(Run(command, Ids({1})), Status::noLink);
        EXPECT_EQ(messages_, "quorvictl: 【错误】任务数据库已损坏，无法保存任务\n");
        EXPECT_EQ(text_, "");
    }
}

TEST_F(DownloadsCommand, ARunDownloadsAndInstallsAllThatWaits) {
    const auto a = Add("com.a");
    const auto b = Add("com.b", TaskState::downloading);
    const auto paused = Add("com.paused", TaskState::paused);
    EXPECT_EQ(Run(&RunDownloadsRun), Status::done);
    for (const std::string package : {"com.a", "com.b"}) {
        std::vector<std::string> own = Events();
        std::erase_if(own,
                      [&](const std::string& event) { return !event.ends_with(" " + package); });
        EXPECT_THAT(own, ElementsAre("started " + package, "complete " + package,
                                     "install_started " + package, "install_ended " + package));
        EXPECT_TRUE(FileContent(File(package)) == ContentOf(package));
    }
    EXPECT_EQ(Events().size(), 8U);
    EXPECT_EQ(StateOf(a), TaskState::done);
    EXPECT_EQ(StateOf(b), TaskState::done);
    EXPECT_EQ(StateOf(paused), TaskState::paused);
    const Json::Value last = Lines().back();
    EXPECT_EQ(last["result"].asString(), "success");
    EXPECT_EQ(last["title"].asString(), "听书");
    EXPECT_EQ(last["text"].asString(), "安装成功：听书");
    EXPECT_EQ(messages_, "");
}

TEST_F(DownloadsCommand, ARunForPeopleHasALineForEachEvent) {
    Add("com.a");
    EXPECT_EQ(Run(&RunDownloadsRun, {}, false), Status::done);
    EXPECT_EQ(text_, "【+】下载 听书\n已经下载：听书\n正在安装：听书\n安装成功：听书\n");
}

TEST_F(DownloadsCommand, ASlowDownloadTellsItsProgress) {
    Add("com.a", TaskState::waiting, "slow/FILE");
    EXPECT_EQ(Run(&RunDownloadsRun), Status::done);
    std::vector<Json::Value> lines = Lines();
    std::erase_if(lines, [](const Json::Value& line) { return line["event"] != "progress"; });
    ASSERT_FALSE(lines.empty());
    EXPECT_GT(lines[0]["speed"].asInt(), 10'240);
    EXPECT_GT(lines[0]["percent"].asInt(), 0);
    EXPECT_LT(lines[0]["percent"].asInt(), 100);
    EXPECT_EQ(lines[0]["id"].asInt(), 1);
    EXPECT_THAT(lines[0]["text"].asString(), HasSubstr("听书："));
    EXPECT_THAT(lines[0]["text"].asString(), HasSubstr("下载速度 "));
}

TEST_F(DownloadsCommand, AFailedDownloadIsToldAndTheNextIsTaken) {
    const auto gone = Add("com.gone", TaskState::waiting, "none/FILE");
    const auto b = Add("com.b");
    TaskStore(table_).SetTaskState(gone, TaskState::waiting);
    EXPECT_EQ(Run(&RunDownloadsRun), Status::noLink);
    EXPECT_THAT(Events(), testing::Contains("failed com.gone"));
    EXPECT_EQ(StateOf(b), TaskState::done);
}

TEST_F(DownloadsCommand, ARunGoesOnWhenAnotherProcessPausesItsTask) {
    const auto a = Add("com.a", TaskState::waiting, "slow/FILE");
    const auto b = Add("com.b");
    std::thread other([&] {
        TaskStore store(table_);
        EXPECT_TRUE(Await([&] { return std::filesystem::exists(Part("com.a")); }));
        EXPECT_EQ(store.SetTaskState(a, TaskState::paused), StoreResult::done);
    });
    EXPECT_EQ(Run(&RunDownloadsRun), Status::done);
    other.join();
    EXPECT_THAT(Events(),
                ElementsAre("started com.a", "stopped com.a", "started com.b", "complete com.b",
                            "install_started com.b", "install_ended com.b"));
    EXPECT_EQ(StateOf(a), TaskState::paused);
    EXPECT_EQ(StateOf(b), TaskState::done);
}

TEST_F(DownloadsCommand, ARunWaitsForAProcessThatDownloads) {
    const auto a = Add("com.a", TaskState::waiting, "slow/FILE");
    const TaskQueue window(std::make_shared<TaskStore>(table_),
                           PackageInstaller(adb_.Environment()), [] { return "HT04"; });
    window.StartNext();
    ASSERT_TRUE(Await([this] { return std::filesystem::exists(Part("com.a")); }));
    EXPECT_EQ(Run(&RunDownloadsRun), Status::done);
    EXPECT_EQ(messages_, "quorvictl: 另一个程序正在处理下载任务，等它结束后继续\n");
    EXPECT_EQ(StateOf(a), TaskState::done);
    EXPECT_TRUE(FileContent(File("com.a")) == ContentOf("com.a"));
    EXPECT_EQ(site_.Requests(1).size(), 1U);
    EXPECT_TRUE(Await([&] { return window.IsIdle(); }));
}

TEST_F(DownloadsCommand, ARunInstallsOnThePhoneThatIsNamed) {
    Add("com.a");
    EXPECT_EQ(Run(&RunDownloadsRun, {.operands = {}, .options = {{"--serial", "HT04"}}}),
              Status::done);
    EXPECT_EQ(Run(&RunDownloadsRun, {.operands = {}, .options = {{"--serial", "HT05"}}}),
              Status::notFound);
    EXPECT_EQ(messages_, "quorvictl: 没有找到设备 HT05\n");
}

class DownloadsWithoutAPhone : public DownloadsTest {
  protected:
    DownloadsWithoutAPhone() : DownloadsTest({}, "echo 'List of devices attached'") {}
};

TEST_F(DownloadsWithoutAPhone, ARunDownloadsAndTellsWhatIsMissing) {
    const auto id = Add("com.a");
    EXPECT_EQ(Run(&RunDownloadsRun, {}, false), Status::noLink);
    EXPECT_THAT(text_, HasSubstr("【错误】安装失败：听书，没有连接手机，请连接后重新安装\n"));
    EXPECT_EQ(StateOf(id), TaskState::installFailed);
    EXPECT_TRUE(FileContent(File("com.a")) == ContentOf("com.a"));
}

class DownloadsWithTwoPhones : public DownloadsTest {
  protected:
    DownloadsWithTwoPhones()
        : DownloadsTest({}, R"(
            case "$1" in
                devices) printf 'List of devices attached\nHT04\tdevice\nHT05\tdevice\n\n' ;;
                -s) test "$2" = HT05 && echo Success ;;
            esac)") {}
};

TEST_F(DownloadsWithTwoPhones, ARunInstallsOnTheOneThatIsNamedAlone) {
    const auto id = Add("com.a");
    EXPECT_EQ(Run(&RunDownloadsRun), Status::noLink);
    EXPECT_EQ(messages_, "quorvictl: 有多个设备，请用 --serial 选择\n");
    EXPECT_EQ(StateOf(id), TaskState::installFailed);
    EXPECT_EQ(TaskStore(table_).SetTaskState(id, TaskState::installing), StoreResult::done);
    EXPECT_EQ(Run(&RunDownloadsRun, {.operands = {}, .options = {{"--serial", "HT05"}}}),
              Status::done);
    EXPECT_EQ(StateOf(id), TaskState::done);
}

}  // namespace
}  // namespace quorvi::cli
