// quorvictl groups, sms and calls against an agent on the suite's own port.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "base/Json.h"
#include "tests/support/AgentFixture.h"
#include "tests/support/GbkChosen.h"
#include "tests/support/RunProgram.h"

namespace quorvi::cli {
namespace {

// The programs that it runs live in one time zone.
class PersonalCommands : public AgentFixture {
  protected:
    PersonalCommands() { setenv("TZ", "Asia/Shanghai", 1); }

    // The whole document that a command prints with --json.
    static void ExpectDocument(const std::string& arguments, std::string_view document) {
        const Ended ended = Out(arguments + " --json");
        EXPECT_EQ(ended.status, 0);
        const auto printed = ParseJson(ended.output);
        ASSERT_TRUE(printed) << ended.output;
        EXPECT_EQ(*printed, ParseJson(document).value()) << ended.output;
    }
};

class GroupsCommand : public PersonalCommands {};
class SmsCommand : public PersonalCommands {};
class CallsCommand : public PersonalCommands {};

TEST_F(GroupsCommand, ListGivesEachGroup) {
    START_OR_SKIP({.bytes = Framed(Join({
                       Word(0),                   // leading word
                       LongWord(3),               // group id
                       Text("家人"),              // title
                       Text("lin@mail.example"),  // account
                       Word(1),                   // visible
                   }))});
    ExpectDocument(
        "groups list",
        R"([{"id": 3, "title": "家人", "account": "lin@mail.example", "visible": true}])");
    EXPECT_EQ(Request(0), Word(870140));
}

TEST_F(GroupsCommand, ListOfAPhoneWithoutGroupsIsEmpty) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    ExpectDocument("groups list", "[]");
}

TEST_F(GroupsCommand, AGroupWhoseVisibleValueIsNotOneIsHidden) {
    START_OR_SKIP({.bytes = Framed(Join({
                       Word(0),        // leading word
                       LongWord(3),    // group id
                       Text("A"),      // title
                       Text("phone"),  // account
                       Word(2),        // visible
                   }))});
    ExpectDocument("groups list",
                   R"([{"id": 3, "title": "A", "account": "phone", "visible": false}])");
    EXPECT_NE(Out("groups list").output.find("【隐藏】"), std::string::npos);
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
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    ExpectDocument("groups delete 5 2", R"({"deleted": [5, 2]})");
    EXPECT_EQ(DeleteBehindEmptyList(), Join({Word(870124), Word(20), Word(2), Word(5), Word(2)}));
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
    ExpectDocument("sms list", R"([{"id": 4294967294, "name": "中国移动", "number": "10086",
        "attribution": "中国移动", "date": "2011-06-18 09:42:10", "text": "余额"}])");
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
    ExpectDocument("sms show 5", R"([{"incoming": true, "address": "10086",
        "date": "2011-06-18 09:42:10", "text": "余额"}])");
    EXPECT_EQ(Request(0), Join({Word(870202), Word(5)}));
}

TEST_F(SmsCommand, AnAbsentNameDropsWhatWasReadBeforeIt) {
    START_OR_SKIP({.bytes = Framed(Join({
                       Word(0),                                         // leading word
                       LongWord(5), Text("A"), Text("1"), LongWord(0),  // a conversation
                       Word(0), Word(0), Text("x"),                     //
                       LongWord(6), Word(AbsentMark),                   // one without a name
                   }))});
    ExpectDocument("sms list", "[]");
}

TEST_F(SmsCommand, AnAbsentAddressDropsWhatWasReadBeforeIt) {
    START_OR_SKIP({.bytes = Framed(Join({
                       Word(0),                                       // leading word
                       LongWord(1), Word(1), Text("A"), LongWord(0),  // a message
                       Word(0), Text("x"), Word(0),                   //
                       LongWord(2), Word(1), Word(AbsentMark),        // one without an address
                   }))});
    EXPECT_EQ(Out("sms show 5").status, 3);
}

TEST_F(SmsCommand, AConversationThatIsNotThereIsNotFound) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    EXPECT_EQ(Out("sms show 5").status, 3);
}

TEST_F(SmsCommand, DeleteSendsTheId) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    EXPECT_EQ(Out("sms delete 5").status, 0);
    EXPECT_EQ(DeleteBehindEmptyList(), Join({Word(870206), Word(16), Word(1), Word(5)}));
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
    ExpectDocument("calls list", R"([{"id": 7, "name": "", "number": "10086",
        "attribution": "中国移动", "date": "2011-06-18 09:42:10", "duration": "01:01:40",
        "type": "未接来电"}])");
    EXPECT_EQ(Request(0), Word(870301));
}

TEST_F(CallsCommand, DeleteSendsTheIds) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    EXPECT_EQ(Out("calls delete 7 9").status, 0);
    EXPECT_EQ(DeleteBehindEmptyList(), Join({Word(870303), Word(20), Word(2), Word(7), Word(9)}));
}

TEST_F(CallsCommand, ClearSendsACountOfOneAndNothingBehindIt) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    EXPECT_EQ(Out("calls clear").status, 0);
    EXPECT_EQ(DeleteBehindEmptyList(), Join({Word(870304), Word(12), Word(1)}));
}

TEST_F(CallsCommand, TheTableHasTheTextsOfThePage) {
    START_OR_SKIP({.bytes = Framed(Join({
                       Word(0),           // leading word
                       LongWord(7),       // call id
                       Text("10086"),     // number
                       LongWord(0),       // date
                       LongWord(90'000),  // duration
                       Word(9),           // type
                       Text("移动"),      // name
                   }))});
    const std::string table = Out("calls list").output;
    for (const char* text :
         {"移动", "10086", "未知类型", "01:00:00", "1970-01-01 08:00:00", "中国移动"}) {
        EXPECT_NE(table.find(text), std::string::npos) << text;
    }
    EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 2);  // the headings and the call
}

TEST_F(PersonalCommands, AListThatTheAgentDoesNotAnswerIsStatusTwo) {
    START_OR_SKIP({.end = Answer::End::close});
    for (const char* call :
         {"contacts list", "contacts show 1", "groups list", "sms list", "sms show 1", "calls list",
          "alarms list", "bookmarks list", "contacts delete 1", "groups delete 1", "sms delete 1",
          "calls delete 1", "calls clear", "alarms delete 1", "bookmarks delete 1"}) {
        const Ended out = Out(std::string(call) + " --json");
        EXPECT_EQ(out.status, 2) << call;
        EXPECT_EQ(out.output, "") << call;
        EXPECT_EQ(Err(call).output, "quorvictl: 手机端没有回答，请重新连接手机后再试\n") << call;
    }
}

TEST_F(PersonalCommands, AChangeThatIsNotAcknowledgedIsStatusTwo) {
    START_OR_SKIP({.end = Answer::End::close});
    for (const char* call : {"groups add A", "groups rename 1 A", "sms send --to 1 --text x"}) {
        const Ended out = Out(std::string(call) + " --json");
        EXPECT_EQ(out.status, 2) << call;
        EXPECT_EQ(out.output, "") << call;
        EXPECT_EQ(Err(call).output, "quorvictl: 手机没有确认，请查看手机上是否已经生效\n") << call;
    }
}

TEST_F(PersonalCommands, AsDeliveredNoCharacterIsLost) {
    START_OR_SKIP({.bytes = Word(1)});
    EXPECT_EQ(Err("groups add 家🎈").output, "");
    EXPECT_EQ(Request(0), Join({Word(870121), Word(23), Word(1), Text("家🎈")}));
    EXPECT_EQ(Err("sms send --to 1 --text 🎈").output, "");
}

TEST_F(PersonalCommands, CharactersThatTheCodePageLacksAreSentWithAWarning) {
    const GbkChosen user;
    START_OR_SKIP({.bytes = Word(1)});
    EXPECT_EQ(Err("groups add 家🎈").output, "quorvictl: 有些字符无法保存，会变成“?”\n");
    EXPECT_EQ(Request(0), Join({Word(870121), Word(20), Word(1), Text("家?")}));
    EXPECT_EQ(Err("groups rename 3 🎈").output, "quorvictl: 有些字符无法保存，会变成“?”\n");
    EXPECT_EQ(Err("sms send --to 1 --text 🎈").output, "quorvictl: 有些字符无法发送，会变成“?”\n");
    EXPECT_EQ(Err("groups add 家").output, "");
    EXPECT_EQ(Err("sms send --to 1 --text 好").output, "");
}

TEST_F(PersonalCommands, WithoutALinkTheStatusSaysSo) {
    START_OR_SKIP({.bytes = Word(1)});
    Stop();
    for (const char* call : {"groups list", "groups add A", "groups rename 1 A", "groups delete 1",
                             "sms list", "sms show 1", "sms delete 1", "sms send --to 1 --text x",
                             "calls list", "calls delete 1", "calls clear", "alarms list",
                             "alarms delete 1", "bookmarks list", "bookmarks delete 1"}) {
        const Ended ended = Err(call);
        EXPECT_EQ(ended.status, 2) << call;
        EXPECT_NE(ended.output.find("【X】连接错误"), std::string::npos) << call;
    }
}

}  // namespace
}  // namespace quorvi::cli
