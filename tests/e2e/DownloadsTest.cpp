// A user's stories with the downloads, from the command line: the site resolves and delivers, and
// the real adb installs on the phone.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <json/json.h>
#include <signal.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/support/Await.h"
#include "tests/support/OwnProgram.h"
#include "tests/support/PhoneRig.h"
#include "tests/support/SiteServer.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi::e2e {
namespace {

using testing::HasSubstr;

constexpr const char* kPackage = "com.example.tingshu";

class Downloads : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(rig_.Error(), "");
        ASSERT_TRUE(rig_.WaitForDevices(1));
        site_.Serve("feedback/android_info.php",
                    R"({"pkg":"com.example.tingshu","size":"300KB","title":"晨间听书",)"
                    R"("url":"files/tingshu.apk"})");
        site_.Serve("files/tingshu.apk", content_);
    }

    // Begins like an archive, which is all that the phone looks at.
    static std::string Content() {
        std::string content = "PK\x03\x04";
        for (int i = 0; content.size() < 300'000; ++i) {
            content += std::to_string(i);
        }
        return content;
    }
    Json::Value Ask(std::vector<std::string> arguments, int status = 0) const {
        arguments.insert(arguments.begin(), "downloads");
        arguments.emplace_back("--json");
        const ProgramResult result = RunProgram(program_.Line(std::move(arguments)));
        EXPECT_EQ(result.status, status) << result.messages;
        Json::Value value;
        std::istringstream(result.output) >> value;
        return value;
    }
    [[nodiscard]] ProgramResult Work() const {
        return RunProgram(program_.Line({"downloads", "run"}), {}, std::chrono::minutes(1));
    }
    // The first task's state.
    [[nodiscard]] int State() const { return Ask({"list"})[0]["state"].asInt(); }
    [[nodiscard]] std::string FileContent() const {
        std::ifstream stream(save_.Path() / "com.example.tingshu.apk", std::ios::binary);
        return {std::istreambuf_iterator(stream), {}};
    }
    [[nodiscard]] std::uintmax_t PartBytes() const {
        std::error_code none;
        const auto bytes =
            std::filesystem::file_size(save_.Path() / "com.example.tingshu.tmp", none);
        return none ? 0 : bytes;
    }
    bool IsOnPhone() {
        return rig_.Adb({"shell", "pm", "path", kPackage}).output.starts_with("package:");
    }

    const std::string content_ = Content();
    PhoneRig rig_{1};
    SiteServer site_{"location /slow/ { alias FILES/files/; limit_rate 100k; }"};
    OwnProgram program_{site_.Root()};
    TemporaryFolder save_;
};

TEST_F(Downloads, APackageOfTheSiteComesOntoThePhone) {
    const Json::Value added = Ask({"add", kPackage, "--to", save_.Path().native()});
    EXPECT_TRUE(added[0]["added"].asBool());
    EXPECT_EQ(added[0]["task"]["title"].asString(), "晨间听书");
    EXPECT_FALSE(IsOnPhone());
    const ProgramResult run = Work();
    EXPECT_EQ(run.status, 0) << run.messages;
    EXPECT_EQ(run.output,
              "【+】下载 晨间听书\n已经下载：晨间听书\n正在安装：晨间听书\n安装成功：晨间听书\n");
    EXPECT_TRUE(IsOnPhone());
    EXPECT_TRUE(FileContent() == content_);
    const Json::Value done = Ask({"list", "--filter", "4"});
    ASSERT_EQ(done.size(), 1U);
    EXPECT_EQ(done[0]["caption"].asString(), "下载完成");
    EXPECT_EQ(Ask({"list", "--filter", "1"}).size(), 0U);
}

TEST_F(Downloads, ARefusalOfThePhoneIsToldAndInstallingAgainSucceeds) {
    Ask({"add", kPackage, "--to", save_.Path().native()});
    rig_.Control(0, "install INSTALL_FAILED_INSUFFICIENT_STORAGE");
    const ProgramResult run = Work();
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.output, HasSubstr("手机空间不足"));
    EXPECT_EQ(State(), 8);
    rig_.Control(0, "install real");
    Ask({"reinstall", "1"});
    EXPECT_EQ(Work().status, 0);
    EXPECT_EQ(State(), 3);
    EXPECT_TRUE(IsOnPhone());
}

TEST_F(Downloads, CtrlCStopsARunAndTheNextOneGoesOn) {
    site_.Serve("feedback/android_info.php",
                R"({"pkg":"com.example.tingshu","title":"晨间听书","url":"slow/tingshu.apk"})");
    Ask({"add", kPackage, "--to", save_.Path().native()});
    const pid_t run = fork();
    if (run == 0) {
        std::vector<std::string> line = program_.Line({"downloads", "run"});
        std::vector<char*> words;
        for (std::string& word : line) {
            words.push_back(word.data());
        }
        words.push_back(nullptr);
        execv(words[0], words.data());
        _exit(127);
    }
    EXPECT_TRUE(Await([this] { return PartBytes() > 0; }));
    kill(run, SIGINT);
    int status = 0;
    ASSERT_EQ(waitpid(run, &status, 0), run);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 130);
    const auto stopped = PartBytes();
    EXPECT_GT(stopped, 0U);
    EXPECT_LT(stopped, content_.size());
    EXPECT_EQ(State(), 1);

    EXPECT_EQ(Work().status, 0);
    EXPECT_TRUE(FileContent() == content_);
    EXPECT_TRUE(IsOnPhone());
    EXPECT_EQ(site_.Requests(3).back().range, fmt::format("bytes={}-", stopped));
}

TEST_F(Downloads, WhatIsThereAlreadyIsNotAddedAgain) {
    Ask({"add", kPackage, "--to", save_.Path().native()});
    const Json::Value again = Ask({"add", kPackage, "--to", save_.Path().native()});
    EXPECT_FALSE(again[0]["added"].asBool());
    EXPECT_EQ(again[0]["task"]["id"].asInt(), 1);
    EXPECT_EQ(Ask({"list"}).size(), 1U);
}

}  // namespace
}  // namespace quorvi::e2e
