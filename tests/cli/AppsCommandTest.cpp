// quorvictl apps against an agent on the suite's own port, and an adb that a test tells what to do.
#include <gmock/gmock.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "base/Json.h"
#include "tests/pages/apps/AppReplies.h"
#include "tests/support/AgentFixture.h"
#include "tests/support/BuildPlaces.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/FakeAdb.h"
#include "tests/support/RunProgram.h"

namespace quorvi::cli {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

Json::Value DocumentOf(const std::string& output) {
    return ParseJson(output).value_or("no document: " + output);
}

class AppsListCommand : public AgentFixture {};

TEST_F(AppsListCommand, GivesEveryFieldOfARow) {
    START_OR_SKIP({.bytes = Framed(AppsPayload({{.installed = 0}}).Get())});
    EXPECT_EQ(DocumentOf(Out("apps list --json").output), ParseJson(R"([{
        "name": "星图天气", "package": "com.example.xingtu", "version": "2.3", "size": 1363148,
        "installed": "从未", "icon_bytes": 4, "rating": 3, "store_id": -1, "category": "未知",
        "description": "N/A"}])"));
    EXPECT_EQ(Request(0), Word(870802));
}

TEST_F(AppsListCommand, TheSizeOfADocumentIsWholeAndThatOfTheTableHasItsLowerBits) {
    START_OR_SKIP({.bytes = Framed(AppsPayload({{.size = (1ULL << 32) + 532}}).Get())});
    EXPECT_EQ(DocumentOf(Out("apps list --json").output)[0]["size"].asUInt64(), (1ULL << 32) + 532);
    EXPECT_THAT(Out("apps list").output, HasSubstr("532 字节"));
}

TEST_F(AppsListCommand, TheTableSaysWhatThePageShows) {
    START_OR_SKIP({.bytes = Framed(AppsPayload({{}}).Get())});
    const std::string table = Out("apps list").output;
    for (const char* text : {"星图天气", "com.example.xingtu", "1.29 MB", "2011-10-3", "未知"}) {
        EXPECT_THAT(table, HasSubstr(text));
    }
}

TEST_F(AppsListCommand, NothingInstalledIsAnEmptyArray) {
    START_OR_SKIP({.bytes = Framed(WireBytes()
                                       .U32(0)    // leading word
                                       .U32(0)    // skipped
                                       .Absent()  // name
                                       .Get())});
    const Ended ended = Out("apps list --json");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(DocumentOf(ended.output), Json::Value(Json::arrayValue));
}

class AppsRunCommand : public AgentFixture {};

TEST_F(AppsRunCommand, SendsTheFrameOfItsOwn) {
    START_OR_SKIP({.bytes = Word(1)});
    const Ended ended = Out("apps run com.example.xingtu --json");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(DocumentOf(ended.output), ParseJson(R"({"started": "com.example.xingtu"})"));
    EXPECT_EQ(Request(0), Join({
                              Word(870805),                // code
                              Word(1),                     // count
                              Word(16 + 18),               // total
                              Text("com.example.xingtu"),  // name
                          }));
}

TEST_F(AppsRunCommand, WhatThePhoneAcknowledgesWithIsNotLookedAt) {
    START_OR_SKIP({.bytes = Word(0)});
    EXPECT_EQ(Out("apps run com.example.gone").status, 0);
}

TEST_F(AppsRunCommand, WithoutALinkItIsStatusTwo) {
    EXPECT_EQ(Out("apps run com.example.xingtu").status, 2);
}

TEST_F(AppsRunCommand, WhatIsNoPackageNameIsRefusedAndNothingSent) {
    // Nobody listens: a request would end in status 2.
    for (const char* wrong : {"''", "'a b'", "-- -k", "'a;reboot'", "应用", "'$(reboot)'", "a/b"}) {
        const Ended ended = Err(std::string("apps run ") + wrong);
        EXPECT_EQ(ended.status, 1) << wrong;
        EXPECT_THAT(ended.output, HasSubstr(": 不是应用的包名")) << wrong;
    }
}

class AppsUninstallCommand : public testing::Test {
  protected:
    // The program with the script as its adb, which lists one phone.
    Ended Run(const std::string& script, const std::string& arguments,
              const char* streams = "2>/dev/null") {
        return RunWith(
            "[ \"$1\" != devices ] || { printf 'List of devices attached\\nHT04\\tdevice\\n';"
            " exit; }\n" +
                script,
            arguments, streams);
    }
    Ended RunWith(const std::string& script, const std::string& arguments, const char* streams) {
        adb_ = std::make_unique<FakeAdb>(script);
        const EnvironmentVariable path("PATH",
                                       adb_->Directory().string() + ":" + std::getenv("PATH"));
        return RunLine(QUORVI_BIN_DIR "/quorvictl apps uninstall " + arguments + " " + streams);
    }

    // The argument vectors of all runs of adb but those that list its phones.
    std::vector<std::vector<std::string>> Calls() const {
        auto calls = adb_->Calls();
        std::erase(calls, std::vector<std::string>{"devices"});
        return calls;
    }

    std::unique_ptr<FakeAdb> adb_;
};

constexpr const char* kAllGo = "echo Success";
constexpr const char* kNothingIsThere = "[ \"$1\" != uninstall ] || echo Failure";

TEST_F(AppsUninstallCommand, RunsAdbForEachOneAfterTheOther) {
    // One that starts before the other has ended would find its mark.
    const Ended ended =
        Run("[ ! -e \"$dir/busy\" ] || exit 1\n"
            "touch \"$dir/busy\"; echo Success; rm \"$dir/busy\"",
            "com.a com.b com.c");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.output, "com.a: Success\ncom.b: Success\ncom.c: Success\n");
    EXPECT_THAT(Calls(),
                ElementsAre(ElementsAre("uninstall", "com.a"), ElementsAre("uninstall", "com.b"),
                            ElementsAre("uninstall", "com.c")));
}

TEST_F(AppsUninstallCommand, ASerialIsNamedToAdb) {
    EXPECT_EQ(Run(kAllGo, "com.a --serial HT04").status, 0);
    EXPECT_THAT(Calls(), ElementsAre(ElementsAre("-s", "HT04", "uninstall", "com.a")));
}

TEST_F(AppsUninstallCommand, ASerialThatIsNotThereIsStatusThreeAndNothingIsUninstalled) {
    const Ended ended = Run(kAllGo, "com.a --serial HT05", "2>&1");
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.output, "quorvictl: 没有找到设备 HT05\n");
    EXPECT_THAT(Calls(), IsEmpty());
}

// Adb would wait for one, and say so to nobody.
TEST_F(AppsUninstallCommand, WithoutAPhoneItIsStatusTwoAndAdbIsNotAskedToUninstall) {
    const Ended ended = RunWith("echo 'List of devices attached'; echo", "com.a", "2>&1");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.output, "quorvictl: 没有找到手机，请检查数据线和 USB 调试\n");
    EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(AppsUninstallCommand, TheDocumentSaysOfEachWhatAdbSaid) {
    const Ended ended = Run("[ \"$2\" = com.a ] && echo Success || echo 'Failure [not installed]'",
                            "com.a com.b --json");
    EXPECT_EQ(DocumentOf(ended.output), ParseJson(R"([
        {"package": "com.a", "uninstalled": true, "said": "Success"},
        {"package": "com.b", "uninstalled": false, "said": "Failure [not installed]"}])"));
}

TEST_F(AppsUninstallCommand, OneThatIsNotThereIsStatusThreeAndTheOthersGo) {
    const char* const onlyB =
        "[ \"$1\" = uninstall ] || exit 0\n"
        "[ \"$2\" = com.b ] && echo Success || echo Failure";
    const Ended ended = Run(onlyB, "com.a com.b");
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.output, "com.a: Failure\ncom.b: Success\n");
    EXPECT_EQ(Run(kNothingIsThere, "com.a", "2>&1 >/dev/null").output,
              "quorvictl: com.a: 手机上没有这个应用\n");
}

TEST_F(AppsUninstallCommand, OneThatThePhoneKeepsIsStatusTwo) {
    const char* const kept =
        "[ \"$1\" = uninstall ] && echo Failure || echo package:/system/app/com.a.apk";
    EXPECT_EQ(Run(kept, "com.a").status, 2);
    EXPECT_THAT(Calls(), ElementsAre(ElementsAre("uninstall", "com.a"),
                                     ElementsAre("shell", "pm", "path", "com.a")));
    EXPECT_THAT(Run(kept, "com.a", "2>&1 >/dev/null").output, HasSubstr("手机不肯卸载"));
}

TEST_F(AppsUninstallCommand, WhatAdbRefusesIsStatusTwoAndSaid) {
    const Ended ended =
        Run("echo 'error: more than one device/emulator' >&2; exit 1", "com.a", "2>&1");
    EXPECT_EQ(ended.status, 2);
    EXPECT_THAT(ended.output, HasSubstr("com.a: error: more than one device/emulator\n"));
    EXPECT_THAT(ended.output, HasSubstr("quorvictl: com.a: 电脑连着不止一部手机"));
}

TEST_F(AppsUninstallCommand, WithoutAdbItIsStatusTwo) {
    const Ended ended = RunLine("PATH=/nonexistent " QUORVI_BIN_DIR
                                "/quorvictl apps uninstall com.a 2>&1 >/dev/null");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.output, "quorvictl: com.a: 没有找到 adb，请安装 adb 后再试\n");
}

TEST_F(AppsUninstallCommand, WhatIsNoPackageNameIsRefusedAndAdbNotRun) {
    for (const char* wrong : {"com.a 'b c'", "''", "-- -k com.a", "'a;reboot'", "应用"}) {
        EXPECT_EQ(Run(kAllGo, wrong).status, 1) << wrong;
        EXPECT_THAT(adb_->Runs(), IsEmpty()) << wrong;
    }
}

}  // namespace
}  // namespace quorvi::cli
