// quorvictl groups, sms and calls against an agent on the suite's own port.
#include <gtest/gtest.h>

#include "base/Json.h"
#include "tests/cli/AgentFixture.h"
#include "tests/cli/RunProgram.h"

namespace quorvi::cli {
namespace {

class GroupsCommand : public AgentFixture {};
class SmsCommand : public AgentFixture {};
class CallsCommand : public AgentFixture {};

TEST_F(GroupsCommand, ListGivesEachGroup) {
    START_OR_SKIP({.bytes = Framed(Join({
                       Word(0),                   // leading word
                       LongWord(3),               // group id
                       Text("家人"),              // title
                       Text("lin@mail.example"),  // account
                       Word(1),                   // visible
                   }))});
    const Ended ended = Out("groups list --json");
    EXPECT_EQ(ended.status, 0);
    const auto rows = ParseJson(ended.output);
    ASSERT_TRUE(rows && rows->isArray() && rows->size() == 1u);
    EXPECT_EQ((*rows)[0]["id"].asUInt(), 3u);
    EXPECT_EQ((*rows)[0]["title"].asString(), "家人");
    EXPECT_EQ((*rows)[0]["account"].asString(), "lin@mail.example");
    EXPECT_TRUE((*rows)[0]["visible"].asBool());
    EXPECT_EQ(Request(0), Word(870140));
}

TEST_F(GroupsCommand, AddSendsTheTitle) {
    START_OR_SKIP({.bytes = Word(1)});
    EXPECT_EQ(Out("groups add 家").status, 0);
    EXPECT_EQ(Request(0), Join({Word(870121), Word(19), Word(1), Text("家")}));
}

TEST_F(GroupsCommand, AnEmptyTitleIsRefusedAndNothingSent) {
    EXPECT_EQ(Out("groups add ''").status, 1);
    EXPECT_EQ(Out("groups rename 3 ''").status, 1);
}

TEST_F(GroupsCommand, RenameSendsIdAndTitle) {
    START_OR_SKIP({.bytes = Word(1)});
    EXPECT_EQ(Out("groups rename 3 A").status, 0);
    EXPECT_EQ(Request(0), Join({Word(870122), Word(21), Word(1), Word(3), Text("A")}));
}

TEST_F(GroupsCommand, DeleteSendsTheIds) {
    START_OR_SKIP({.bytes = Word(1)});
    const Ended ended = Out("groups delete 5 2 --json");
    EXPECT_EQ(ended.status, 0);
    const auto document = ParseJson(ended.output);
    ASSERT_TRUE(document);
    EXPECT_EQ((*document)["deleted"].size(), 2u);
    EXPECT_EQ(Request(0), Join({Word(870124), Word(20), Word(2), Word(5), Word(2)}));
}

TEST_F(GroupsCommand, AnIdThatIsNoneIsRefused) {
    EXPECT_EQ(Out("groups delete x").status, 1);
}

TEST_F(SmsCommand, ListGivesEachConversationWithItsAttribution) {
    START_OR_SKIP({.bytes = Framed(Join({
                       Word(0),                  // leading word
                       LongWord(0xFFFFFFFE),     // conversation id
                       Text("中国移动"),         // name
                       Text("10086"),            // number
                       LongWord(1308361330999),  // date
                       Word(0),                  // reserved
                       Word(0),                  // reserved
                       Text("余额"),             // last message
                   }))});
    const Ended ended = Out("sms list --json");
    EXPECT_EQ(ended.status, 0);
    const auto rows = ParseJson(ended.output);
    ASSERT_TRUE(rows && rows->isArray() && rows->size() == 1u);
    EXPECT_EQ((*rows)[0]["id"].asUInt(), 0xFFFFFFFEu);
    EXPECT_EQ((*rows)[0]["name"].asString(), "中国移动");
    EXPECT_EQ((*rows)[0]["number"].asString(), "10086");
    EXPECT_EQ((*rows)[0]["attribution"].asString(), "中国移动");
    EXPECT_EQ((*rows)[0]["text"].asString(), "余额");
    EXPECT_EQ(Request(0), Word(870201));
}

TEST_F(SmsCommand, ShowAsksInEightBytesAndGivesEachMessage) {
    START_OR_SKIP({.bytes = Framed(Join({
                       Word(0),                  // leading word
                       LongWord(1),              // message id
                       Word(1),                  // came in
                       Text("10086"),            // address
                       LongWord(1308361330999),  // date
                       Word(0),                  // reserved
                       Text("余额"),             // text
                       Word(0),                  // reserved
                   }))});
    const Ended ended = Out("sms show 5 --json");
    EXPECT_EQ(ended.status, 0);
    const auto rows = ParseJson(ended.output);
    ASSERT_TRUE(rows && rows->isArray() && rows->size() == 1u);
    EXPECT_TRUE((*rows)[0]["incoming"].asBool());
    EXPECT_EQ((*rows)[0]["address"].asString(), "10086");
    EXPECT_EQ((*rows)[0]["text"].asString(), "余额");
    EXPECT_EQ(Request(0), Join({Word(870202), Word(5)}));
}

TEST_F(SmsCommand, AConversationThatIsNotThereIsNotFound) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    EXPECT_EQ(Out("sms show 5").status, 3);
}

TEST_F(SmsCommand, DeleteSendsTheId) {
    START_OR_SKIP({.bytes = Word(1)});
    EXPECT_EQ(Out("sms delete 5").status, 0);
    EXPECT_EQ(Request(0), Join({Word(870206), Word(16), Word(1), Word(5)}));
}

TEST_F(SmsCommand, TheIdThatStandsForNoConversationIsNotSent) {
    EXPECT_EQ(Out("sms delete 4294967295").status, 3);
}

TEST_F(SmsCommand, SendCarriesEveryNumberAndTheText) {
    START_OR_SKIP({.bytes = Word(1)});
    EXPECT_EQ(Out("sms send --to '10086, 13861234567' --text 好").status, 0);
    EXPECT_EQ(Request(0), Join({
                              Word(870204),         // code
                              Word(43),             // total: 16 + 3 + 4 + 5 + 4 + 11
                              Word(2),              // count of recipients
                              Text("10086"),        //
                              Text("13861234567"),  //
                              Text("好"),           //
                          }));
}

TEST_F(SmsCommand, SendingToNobodyOrNothingIsRefused) {
    EXPECT_EQ(Out("sms send --text x").status, 1);
    EXPECT_EQ(Out("sms send --to , --text x").status, 1);
    EXPECT_EQ(Out("sms send --to 10086").status, 1);
}

TEST_F(CallsCommand, ListGivesEachCallWithoutTheLineFeedOfItsDuration) {
    START_OR_SKIP({.bytes = Framed(Join({
                       Word(0),                  // leading word
                       LongWord(7),              // call id
                       Text("10086"),            // number
                       LongWord(1308361330999),  // date
                       LongWord(3'700),          // duration
                       Word(3),                  // type
                       Text(""),                 // name
                   }))});
    const Ended ended = Out("calls list --json");
    EXPECT_EQ(ended.status, 0);
    const auto rows = ParseJson(ended.output);
    ASSERT_TRUE(rows && rows->isArray() && rows->size() == 1u);
    EXPECT_EQ((*rows)[0]["id"].asUInt(), 7u);
    EXPECT_EQ((*rows)[0]["name"].asString(), "");
    EXPECT_EQ((*rows)[0]["attribution"].asString(), "中国移动");
    EXPECT_EQ((*rows)[0]["duration"].asString(), "01:01:40");
    EXPECT_EQ((*rows)[0]["type"].asString(), "未接来电");
    EXPECT_EQ(Request(0), Word(870301));
}

TEST_F(CallsCommand, DeleteSendsTheIds) {
    START_OR_SKIP({.bytes = Word(1)});
    EXPECT_EQ(Out("calls delete 7 9").status, 0);
    EXPECT_EQ(Request(0), Join({Word(870303), Word(20), Word(2), Word(7), Word(9)}));
}

TEST_F(CallsCommand, ClearSendsACountOfOneAndNothingBehindIt) {
    START_OR_SKIP({.bytes = Word(1)});
    EXPECT_EQ(Out("calls clear").status, 0);
    EXPECT_EQ(Request(0), Join({Word(870304), Word(12), Word(1)}));
}

TEST_F(CallsCommand, WithoutALinkTheStatusSaysSo) {
    if (!Start({.bytes = Word(1)})) {
        GTEST_SKIP() << "port 50505 is in use";
    }
    Stop();
    EXPECT_EQ(Out("calls list").status, 2);
    EXPECT_NE(Err("calls clear").output.find("【X】连接错误"), std::string::npos);
}

}  // namespace
}  // namespace quorvi::cli
