// A phone's owner backs it up, loses all that is on it, and gets it back: through the real adb,
// with the program that the user runs.
#include <gmock/gmock.h>
#include <json/json.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <utility>

#include "tests/support/PhoneRig.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi::e2e {
namespace {

using testing::HasSubstr;

class BackupStory : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(rig_.Error(), "");
        ASSERT_EQ(rig_.BringAgentUp(0), "");
    }
    void TearDown() override { EXPECT_EQ(rig_.Control(0, "deviations"), "ok\n"); }

    [[nodiscard]] std::string Target(const char* name) const {
        return (folder_.Path() / name).native();
    }

    // The answer of a command that must succeed.
    Json::Value Ask(std::vector<std::string> arguments) {
        arguments.push_back("--json");
        const ProgramResult result = rig_.Suite(std::move(arguments), {}, std::chrono::seconds(60));
        EXPECT_EQ(result.status, 0) << result.messages;
        Json::Value value;
        std::istringstream(result.output) >> value;
        return value;
    }

    // What a restore can bring back of a backup, kind by kind.
    static std::map<std::string, std::string> ContentOf(const std::filesystem::path& backup) {
        std::ifstream file(backup / "manifest.json");
        Json::Value manifest;
        file >> manifest;
        std::map<std::string, std::string> content;
        for (const Json::Value& kind : manifest["kinds"]) {
            if (kind.isMember("content")) {
                content[kind["kind"].asString()] = kind["content"].asString();
            }
        }
        return content;
    }

    void EmptyThePhone() {
        EXPECT_EQ(rig_.Control(0, "data contacts 0 alarms 0 bookmarks 0 conversations 0 calls 0"),
                  "ok\n");
        EXPECT_EQ(Ask({"contacts", "list"}).size(), 0u);
    }

    PhoneRig rig_{1};
    TemporaryFolder folder_;
};

TEST_F(BackupStory, HoldsAllThatThePhoneHas) {
    const Json::Value made = Ask({"backup", Target("one")});
    EXPECT_TRUE(made["whole"].asBool());
    EXPECT_EQ(made["skipped_count"].asUInt(), 0u);
    EXPECT_EQ(made["counts"]["contacts"].asUInt(), 48u);
    EXPECT_EQ(made["counts"]["groups"].asUInt(), 8u);
    EXPECT_EQ(made["counts"]["alarms"].asUInt(), Ask({"alarms", "list"}).size());
    EXPECT_EQ(made["counts"]["bookmarks"].asUInt(), Ask({"bookmarks", "list"}).size());
    EXPECT_EQ(made["counts"]["calls"].asUInt(), Ask({"calls", "list"}).size());
    EXPECT_EQ(made["counts"]["applications"].asUInt(), Ask({"apps", "list"}).size());
    EXPECT_GT(made["counts"]["messages"].asUInt(), 20u);
    EXPECT_TRUE(Ask({"verify", Target("one")})["whole"].asBool());
}

TEST_F(BackupStory, SaysWhereNumbersComeFromAsTheListsDo) {
    const auto attributions = [](const Json::Value& records) {
        std::multiset<std::string> all;
        for (const Json::Value& record : records) {
            all.insert(record["attribution"].asString());
        }
        return all;
    };
    Ask({"backup", Target("one"), "--only", "messages,calls"});
    for (const auto& [file, list] :
         {std::pair("calls.json", "calls"), std::pair("messages.json", "sms")}) {
        Json::Value kept;
        std::ifstream(std::filesystem::path(Target("one")) / file) >> kept;
        EXPECT_EQ(attributions(kept), attributions(Ask({list, "list"}))) << file;
        EXPECT_GT(attributions(kept).size(), attributions(kept).count("")) << file;
    }
}

TEST_F(BackupStory, RestoredToAnEmptiedPhoneAndBackedUpAgainIsTheSame) {
    Ask({"backup", Target("one")});
    EmptyThePhone();
    const Json::Value restored = Ask({"restore", Target("one")});
    EXPECT_TRUE(restored["whole"].asBool());
    EXPECT_EQ(restored["counts"]["contacts"]["added"].asUInt(), 48u);
    Ask({"backup", Target("two")});
    EXPECT_EQ(ContentOf(Target("two")), ContentOf(Target("one")));
    EXPECT_EQ(ContentOf(Target("one")).size(), 4u);
}

TEST_F(BackupStory, ARestoreOnThePhoneThatItCameFromChangesNothing) {
    Ask({"backup", Target("one.zip")});
    const Json::Value restored = Ask({"restore", Target("one.zip")});
    EXPECT_EQ(restored["done"].asUInt(), 0u);
    EXPECT_EQ(restored["counts"]["contacts"]["there"].asUInt(), 48u);
    EXPECT_FALSE(restored["counts"]["contacts"].isMember("added")) << restored["items"];
    EXPECT_FALSE(restored["counts"]["contacts"].isMember("changed")) << restored["items"];
}

TEST_F(BackupStory, ASecondRestoreChangesNothing) {
    Ask({"backup", Target("one")});
    EmptyThePhone();
    Ask({"restore", Target("one")});
    EXPECT_EQ(Ask({"restore", Target("one")})["done"].asUInt(), 0u);
}

TEST_F(BackupStory, WhatThePhoneDoesNotTakeIsTold) {
    Ask({"backup", Target("one")});
    EmptyThePhone();
    const Json::Value plan = Ask({"restore", Target("one"), "--dry-run"});
    std::string told;
    for (const Json::Value& item : plan["items"]) {
        if (item["action"].asString() == "impossible") {
            told += item["kind"].asString() + " " + item["what"].asString() + "\n";
        }
    }
    EXPECT_THAT(told, HasSubstr("contacts 8 张头像"));
    EXPECT_THAT(told, HasSubstr("messages 短信"));
    EXPECT_THAT(told, HasSubstr("calls 通话记录"));
    EXPECT_EQ(plan["done"].asUInt(), 0u);
    EXPECT_EQ(Ask({"contacts", "list"}).size(), 0u) << "a dry run sends nothing";
}

TEST_F(BackupStory, AContactWithFewerItemsGetsTheMissingOnes) {
    Ask({"backup", Target("one")});
    // The owner removes a number of the first contact, and gives the second another nickname.
    const ProgramResult changed =
        rig_.Suite({"contacts", "update", "1"},
                   R"({"name": "林远舟", "favourite": true, "nickname": "舟子",
                       "phones": [{"type": 2, "text": "13861234567"}]})");
    ASSERT_EQ(changed.status, 0) << changed.messages;
    const Json::Value restored = Ask({"restore", Target("one")});
    EXPECT_EQ(restored["done"].asUInt(), 1u) << restored["items"];
    EXPECT_EQ(restored["counts"]["contacts"]["changed"].asUInt(), 1u);
    const Json::Value contact = Ask({"contacts", "show", "1"});
    EXPECT_EQ(contact["nickname"].asString(), "舟子") << "what the phone has stays";
    EXPECT_EQ(contact["phones"].size(), 2u);
    EXPECT_EQ(contact["groups"].size(), 2u);
    EXPECT_EQ(Ask({"contacts", "list"}).size(), 48u);
    EXPECT_EQ(Ask({"restore", Target("one")})["done"].asUInt(), 0u);
}

TEST_F(BackupStory, OnlyWhatIsAskedForIsBackedUpAndRestored) {
    const Json::Value made = Ask({"backup", Target("one"), "--only", "alarms,bookmarks"});
    EXPECT_EQ(made["counts"].getMemberNames(), (std::vector<std::string>{"alarms", "bookmarks"}));
    EmptyThePhone();
    Ask({"restore", Target("one"), "--only", "alarms"});
    EXPECT_EQ(Ask({"alarms", "list"}).size(), made["counts"]["alarms"].asUInt());
    EXPECT_EQ(Ask({"bookmarks", "list"}).size(), 0u);
    const ProgramResult wrong = rig_.Suite({"backup", Target("two"), "--only", "photos"});
    EXPECT_EQ(wrong.status, 1);
    EXPECT_THAT(wrong.messages, HasSubstr("contacts"));
}

TEST_F(BackupStory, HostileRecordsAreBackedUpAndFoundAgain) {
    rig_.Control(0, "data hostile 1");
    EXPECT_TRUE(Ask({"backup", Target("one.zip")})["whole"].asBool());
    EXPECT_TRUE(Ask({"verify", Target("one.zip")})["whole"].asBool());
    const Json::Value plan = Ask({"restore", Target("one.zip"), "--dry-run"});
    EXPECT_EQ(plan["counts"]["contacts"]["there"].asUInt(), 62u) << plan["items"];
    EXPECT_FALSE(plan["counts"]["alarms"].isMember("added")) << plan["items"];
    EXPECT_FALSE(plan["counts"]["bookmarks"].isMember("added")) << plan["items"];
}

TEST_F(BackupStory, WithoutALinkThereIsNoBackup) {
    rig_.Control(0, "unplug");
    const ProgramResult result = rig_.Suite({"backup", Target("one")});
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

TEST_F(BackupStory, ATargetThatIsThereIsNotOverwritten) {
    Ask({"backup", Target("one")});
    const ProgramResult again = rig_.Suite({"backup", Target("one")});
    EXPECT_EQ(again.status, 1);
    EXPECT_THAT(again.messages, HasSubstr("已经有这个名字"));
    EXPECT_TRUE(Ask({"verify", Target("one")})["whole"].asBool());
}

}  // namespace
}  // namespace quorvi::e2e
