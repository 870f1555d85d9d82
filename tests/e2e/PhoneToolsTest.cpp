// A user's stories with the phone's processes and with what can be cleaned on it, from the command
// line through the real adb to the phone and back.
#include <gmock/gmock.h>
#include <json/json.h>

#include <algorithm>
#include <sstream>

#include "tests/support/PhoneRig.h"

namespace quorvi::e2e {
namespace {

using testing::HasSubstr;

class PhoneTools : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(rig_.Error(), "");
        ASSERT_EQ(rig_.BringAgentUp(0), "");
    }
    // Each request of a story had the frame that its command asks for.
    void TearDown() override { EXPECT_EQ(rig_.Control(0, "deviations"), "ok\n"); }

    Json::Value Ask(std::vector<std::string> arguments) {
        arguments.push_back("--json");
        const ProgramResult result = rig_.Suite(std::move(arguments), {});
        EXPECT_EQ(result.status, 0) << result.messages;
        Json::Value value;
        if (!result.output.empty()) {
            std::istringstream(result.output) >> value;
        }
        return value;
    }
    static bool Names(const Json::Value& list, const char* member, const std::string& text) {
        return std::any_of(list.begin(), list.end(), [&](const Json::Value& element) {
            return element[member].asString() == text;
        });
    }

    PhoneRig rig_{1};
};

TEST_F(PhoneTools, EndedProcessesAreGoneAndTheirMemoryIsFree) {
    const Json::Value list = Ask({"processes", "list"});
    ASSERT_EQ(list.size(), 21u);
    EXPECT_EQ(list[0]["importance"].asString(), "前台");
    EXPECT_TRUE(list[0]["system"].asBool());
    const Json::UInt before = Ask({"processes", "memory"})["free"].asUInt();
    Ask({"processes", "end", "com.example.chat", "com.example.gomoku"});
    const Json::Value after = Ask({"processes", "list"});
    EXPECT_EQ(after.size(), 18u);  // the chat had two
    EXPECT_FALSE(Names(after, "package", "com.example.gomoku"));
    EXPECT_EQ(Ask({"processes", "memory"})["free"].asUInt(),
              before + (11'080u + 6'344u + 9'192u) * 1024);
}

TEST_F(PhoneTools, WhatIsCleanedIsGone) {
    const Json::Value list = Ask({"cleaner", "scan"});
    ASSERT_EQ(list.size(), 14u);
    EXPECT_EQ(list[1]["name"].asString(), "浏览器历史");
    EXPECT_EQ(list[1]["size"].asString(), "N/A");
    EXPECT_EQ(list[3]["size"].asString(), "38.3 MB");
    Ask({"cleaner", "clean", "--browser-history", "com.android.gallery"});
    EXPECT_THAT(rig_.Control(0, "log"),
                HasSubstr("cleaned browser-history: 7 com.android.gallery: 1"));
    const Json::Value after = Ask({"cleaner", "scan"});
    EXPECT_EQ(after.size(), 13u);
    EXPECT_FALSE(Names(after, "description", "com.android.gallery"));
    Ask({"cleaner", "clean", "--browser-history"});
    EXPECT_THAT(rig_.Control(0, "log"), HasSubstr("cleaned browser-history: 0"));
}

TEST_F(PhoneTools, HostileRecordsAreListed) {
    rig_.Control(0, "data hostile 1");
    EXPECT_EQ(Ask({"processes", "list"}).size(), 21u + 20u);
    EXPECT_EQ(Ask({"cleaner", "scan"}).size(), 14u + 20u);
    EXPECT_EQ(rig_.Suite({"processes", "list"}).status, 0);
    EXPECT_EQ(rig_.Suite({"cleaner", "scan"}).status, 0);
}

TEST_F(PhoneTools, FiveThousandOfEachAreListedWithTheirIcons) {
    rig_.Control(0, "data processes 5000 caches 5000 icon-bytes 10000");
    EXPECT_EQ(Ask({"processes", "list"}).size(), 5'000u);
    EXPECT_EQ(Ask({"cleaner", "scan"}).size(), 5'003u);
}

}  // namespace
}  // namespace quorvi::e2e
