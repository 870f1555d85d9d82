// A user's stories with contacts, groups, messages, calls, alarms and bookmarks, from the command
// line through the real adb to the phone and back.
#include <gmock/gmock.h>
#include <json/json.h>

#include <sstream>

#include "tests/support/PhoneRig.h"

namespace quorvi::e2e {
namespace {

using testing::HasSubstr;
using testing::Not;

class PersonalData : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(rig_.Error(), "");
        ASSERT_EQ(rig_.BringAgentUp(0), "");
    }
    // Each request of a story had the frame that its command asks for.
    void TearDown() override { EXPECT_EQ(rig_.Control(0, "deviations"), "ok\n"); }

    Json::Value Ask(std::vector<std::string> arguments, const std::string& input = {}) {
        arguments.push_back("--json");
        const ProgramResult result = rig_.Suite(std::move(arguments), input);
        EXPECT_EQ(result.status, 0) << result.messages;
        Json::Value value;
        if (!result.output.empty()) {
            std::istringstream(result.output) >> value;
        }
        return value;
    }

    // The element whose member is that text; null when there is none.
    static Json::Value Pick(const Json::Value& list, const char* member, const std::string& text) {
        for (const Json::Value& element : list) {
            if (element[member].asString() == text) {
                return element;
            }
        }
        return {};
    }

    PhoneRig rig_{1};
};

TEST_F(PersonalData, AContactIsAddedChangedReadBackAndDeleted) {
    Ask({"contacts", "add"}, R"({"name": "新朋友", "favourite": true, "nickname": "小新",
        "note": "同城", "phones": [{"type": 2, "text": "13861234500"}],
        "email": {"type": 1, "text": "new@example.com"}})");
    const Json::Value added = Pick(Ask({"contacts", "list"}), "name", "新朋友");
    ASSERT_FALSE(added.isNull());
    EXPECT_EQ(added["number"].asString(), "13861234500");
    const std::string id = added["id"].asString();

    Ask({"contacts", "update", id}, R"({"name": "老朋友", "nickname": "",
        "phones": [{"type": 3, "text": "13861234501"}, {"type": 1, "text": "051988880000"}]})");
    const Json::Value shown = Ask({"contacts", "show", id});
    EXPECT_EQ(shown["name"].asString(), "老朋友");
    EXPECT_EQ(shown["phones"].size(), 2u);
    EXPECT_EQ(shown["phones"][0]["text"].asString(), "13861234501");

    Ask({"contacts", "delete", id});
    EXPECT_TRUE(Pick(Ask({"contacts", "list"}), "name", "老朋友").isNull());
}

TEST_F(PersonalData, AnUpdateKeepsWhatTheEditorDoesNotShow) {
    const Json::Value before = Ask({"contacts", "show", "4"});
    ASSERT_EQ(before["phones"].size(), 5u);
    Ask({"contacts", "update", "4"}, R"({"name": "沈一鸣",
        "phones": [{"type": 2, "text": "13758880002"}]})");
    const Json::Value after = Ask({"contacts", "show", "4"});
    EXPECT_EQ(Pick(after["phones"], "text", "13758880002")["type"].asInt(), 2);
    EXPECT_FALSE(Pick(after["phones"], "text", "057188123458").isNull());
    EXPECT_EQ(after["groups"], before["groups"]);
}

TEST_F(PersonalData, EveryContactIsListedWithItsPhoto) {
    const Json::Value list = Ask({"contacts", "list"});
    EXPECT_EQ(list.size(), 48u);
    EXPECT_EQ(list[0]["photo_bytes"].asInt(), 3894);
    EXPECT_EQ(list[4]["last_contact"].asString(), "N/A");
}

TEST_F(PersonalData, HostileContactsAreListedAndShown) {
    rig_.Control(0, "data hostile 1");
    const Json::Value list = Ask({"contacts", "list"});
    EXPECT_EQ(list.size(), 48u + 14u);
    for (const Json::Value& contact : list) {
        EXPECT_EQ(rig_.Suite({"contacts", "show", contact["id"].asString()}).status, 0);
    }
}

TEST_F(PersonalData, TenThousandContactsWithPhotosAreListed) {
    rig_.Control(0, "data contacts 10000 photo-bytes 20000");
    EXPECT_EQ(Ask({"contacts", "list"}).size(), 10'000u);
}

TEST_F(PersonalData, AGroupIsAddedRenamedAndDeleted) {
    Ask({"groups", "add", "新组"});
    const Json::Value added = Pick(Ask({"groups", "list"}), "title", "新组");
    ASSERT_FALSE(added.isNull());
    Ask({"groups", "rename", added["id"].asString(), "旧组"});
    EXPECT_FALSE(Pick(Ask({"groups", "list"}), "title", "旧组").isNull());
    Ask({"groups", "delete", added["id"].asString(), "4"});
    const Json::Value groups = Ask({"groups", "list"});
    EXPECT_TRUE(Pick(groups, "title", "旧组").isNull());
    EXPECT_TRUE(Pick(groups, "title", "徒步小队").isNull());
    // Its members stay as contacts.
    EXPECT_EQ(Ask({"contacts", "show", "1"})["groups"].size(), 1u);
}

TEST_F(PersonalData, AMessageToTwoAppearsInBothConversations) {
    Ask({"sms", "send", "--to", "13861234567,13900000000", "--text", "七点见"});
    EXPECT_THAT(rig_.Control(0, "log"), HasSubstr("to 13861234567,13900000000: 七点见"));
    const Json::Value list = Ask({"sms", "list"});
    EXPECT_EQ(Pick(list, "number", "13900000000")["text"].asString(), "七点见");
    const Json::Value messages = Ask({"sms", "show", "12"});
    EXPECT_EQ(messages[messages.size() - 1]["text"].asString(), "七点见");
    EXPECT_FALSE(messages[messages.size() - 1]["incoming"].asBool());
}

TEST_F(PersonalData, AConversationIsDeletedByANegativeIdToo) {
    const Json::Value bank = Pick(Ask({"sms", "list"}), "number", "95588");
    ASSERT_FALSE(bank.isNull());
    Ask({"sms", "delete", bank["id"].asString()});
    EXPECT_TRUE(Pick(Ask({"sms", "list"}), "number", "95588").isNull());
}

TEST_F(PersonalData, CallsAreDeletedOneByOneAndAll) {
    const Json::Value calls = Ask({"calls", "list"});
    ASSERT_GT(calls.size(), 20u);
    Ask({"calls", "delete", calls[0]["id"].asString(), calls[2]["id"].asString()});
    EXPECT_EQ(Ask({"calls", "list"}).size(), calls.size() - 2);
    Ask({"calls", "clear"});
    EXPECT_EQ(Ask({"calls", "list"}).size(), 0u);
}

TEST_F(PersonalData, AnAlarmIsAddedChangedReadBackAndDeleted) {
    Ask({"alarms", "add"}, R"({"label": "赶飞机", "hour": 4, "minute": 20, "enabled": true})");
    const Json::Value added = Pick(Ask({"alarms", "list"}), "label", "赶飞机");
    ASSERT_FALSE(added.isNull());
    EXPECT_EQ(added["time"].asString(), "04:20");
    EXPECT_EQ(added["repeat"].asString(), "无重复");
    EXPECT_EQ(added["tone"].asString(), "默认铃声 (晨光)");
    EXPECT_TRUE(added["enabled"].asBool());
    const std::string id = added["id"].asString();

    Ask({"alarms", "update", id}, R"({"label": "晨跑", "hour": 5, "days": 127, "vibrate": true})");
    const Json::Value list = Ask({"alarms", "list"});
    const Json::Value changed = Pick(list, "label", "晨跑");
    EXPECT_EQ(changed["id"].asString(), id);
    EXPECT_EQ(changed["time"].asString(), "05:00");
    EXPECT_EQ(changed["repeat"].asString(), "每天");
    EXPECT_TRUE(changed["vibrate"].asBool());

    Ask({"alarms", "delete", id, "1"});
    EXPECT_EQ(Ask({"alarms", "list"}).size(), list.size() - 2);
}

TEST_F(PersonalData, HostileAlarmsAreListed) {
    const Json::ArrayIndex delivered = Ask({"alarms", "list"}).size();
    rig_.Control(0, "data hostile 1");
    EXPECT_EQ(Ask({"alarms", "list"}).size(), delivered + 10);
    EXPECT_EQ(rig_.Suite({"alarms", "list"}).status, 0);
}

TEST_F(PersonalData, ABookmarkIsAddedChangedReadBackAndDeleted) {
    Ask({"bookmarks", "add"}, R"({"title": "菜谱", "url": "http://cook.example/", "visits": 2})");
    const Json::Value added = Pick(Ask({"bookmarks", "list"}), "title", "菜谱");
    ASSERT_FALSE(added.isNull());
    EXPECT_EQ(added["url"].asString(), "http://cook.example/");
    EXPECT_EQ(added["visits"].asInt(), 2);
    EXPECT_EQ(added["last_visit"].asString(), "从未");
    EXPECT_EQ(added["thumbnail_bytes"].asInt(), 0);
    const std::string id = added["id"].asString();

    Ask({"bookmarks", "update", id}, R"({"title": "家常菜", "url": "http://home.example/"})");
    const Json::Value list = Ask({"bookmarks", "list"});
    const Json::Value changed = Pick(list, "title", "家常菜");
    EXPECT_EQ(changed["id"].asString(), id);
    EXPECT_EQ(changed["url"].asString(), "http://home.example/");
    EXPECT_EQ(changed["visits"].asInt(), 0);

    Ask({"bookmarks", "delete", id, "1"});
    EXPECT_EQ(Ask({"bookmarks", "list"}).size(), list.size() - 2);
}

TEST_F(PersonalData, HostileBookmarksAreListed) {
    const Json::ArrayIndex delivered = Ask({"bookmarks", "list"}).size();
    rig_.Control(0, "data hostile 1");
    const Json::Value list = Ask({"bookmarks", "list"});
    EXPECT_EQ(list.size(), delivered + 21);
    EXPECT_EQ(Pick(list, "title", "picture too long")["thumbnail_bytes"].asInt(), 0);
    EXPECT_EQ(rig_.Suite({"bookmarks", "list"}).status, 0);
}

TEST_F(PersonalData, AThousandBookmarksWithThumbnailsAreListed) {
    rig_.Control(0, "data bookmarks 1000 photo-bytes 20000");
    const Json::Value list = Ask({"bookmarks", "list"});
    ASSERT_EQ(list.size(), 1000u);
    EXPECT_EQ(list[999]["thumbnail_bytes"].asInt(), 20'000);
}

}  // namespace
}  // namespace quorvi::e2e
