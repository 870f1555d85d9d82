// quorvictl alarms against an agent on the suite's own port.
#include <gtest/gtest.h>

#include <algorithm>

#include "base/Json.h"
#include "base/Text.h"
#include "pages/alarms/AlarmForm.h"
#include "tests/support/AgentFixture.h"
#include "tests/support/Fed.h"
#include "tests/support/GbkChosen.h"
#include "tests/support/RunProgram.h"

namespace quorvi::cli {
namespace {

class AlarmsCommand : public AgentFixture {};

// The reply of a phone with one alarm.
Bytes OneAlarm() {
    return Framed(Join({
        Word(0),                            // leading word
        LongWord(7),                        // alarm id
        Word(6),                            // hour
        Word(5),                            // minute
        Word(0x41),                         // days
        Word(1),                            // enabled
        Word(0),                            // vibrate
        Text("起床"),                       // label
        Text("晨光"),                       // tone title
        LongWord(1'308'351'900'000),        // alert time
        Text("content://media/internal/4")  // alert
    }));
}

constexpr std::string_view kForm = R"({"label": "起床", "hour": 6, "minute": 5, "days": 65,
    "enabled": true, "vibrate": false, "alert": "content://x"})";

// The same as the editor saves it.
AlarmSettings Settings() {
    return {.hour = 6,
            .minute = 5,
            .days = 0x41,
            .enabled = true,
            .vibrate = false,
            .label = Ansi(u8"起床"),
            .alert = "content://x"};
}

TEST_F(AlarmsCommand, ListGivesEachFieldOfEachAlarm) {
    START_OR_SKIP({.bytes = OneAlarm()});
    const Ended ended = Out("alarms list --json");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ParseJson(ended.output), ParseJson(R"([{"id": 7, "time": "06:05",
        "repeat": "一 日 ", "hour": 6, "minute": 5, "days": 65, "enabled": true, "vibrate": false,
        "label": "起床", "tone": "晨光", "alert": "content://media/internal/4",
        "alert_time": 1308351900000}])"));
    EXPECT_EQ(Request(0), Word(870401));
}

TEST_F(AlarmsCommand, TheTableHasTheTextsOfThePage) {
    START_OR_SKIP({.bytes = OneAlarm()});
    const std::string table = Out("alarms list").output;
    for (const char* text : {"起床", "06:05", "一 日", "晨光", "振动关闭", "已启用"}) {
        EXPECT_NE(table.find(text), std::string::npos) << text;
    }
    EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 2);  // the headings and the alarm
}

TEST_F(AlarmsCommand, PhoneWithoutAlarmsGivesAnEmptyList) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    const Ended ended = Out("alarms list --json");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.output, "[]\n");
}

TEST_F(AlarmsCommand, AddSendsTheVeryBytesOfTheEditor) {
    START_OR_SKIP({.bytes = Word(1)});
    const Ended ended = Out(Fed("alarms add --json", kForm));
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ParseJson(ended.output), ParseJson(R"({"added": "起床"})"));
    EXPECT_EQ(Request(0), AddAlarmRequest(Settings()));
}

TEST_F(AlarmsCommand, UpdateSendsTheVeryBytesOfTheEditor) {
    START_OR_SKIP({.bytes = Word(1)});
    const Ended ended = Out(Fed("alarms update 7 --json", kForm));
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ParseJson(ended.output), ParseJson(R"({"updated": 7})"));
    EXPECT_EQ(Request(0), UpdateAlarmRequest(7, Settings()));
}

TEST_F(AlarmsCommand, AMemberLeftOutIsAsTheEditorOpensForANewAlarm) {
    START_OR_SKIP({.bytes = Word(1)});
    EXPECT_EQ(Out(Fed("alarms add", R"({"label": "x"})")).status, 0);
    AlarmSettings settings;
    settings.label = "x";
    EXPECT_EQ(Request(0), AddAlarmRequest(settings));
}

TEST_F(AlarmsCommand, DeleteNamesTheAlarmsInTheirOrder) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    const Ended ended = Out("alarms delete 9 3 --json");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ParseJson(ended.output), ParseJson(R"({"deleted": [9, 3]})"));
    EXPECT_EQ(DeleteBehindEmptyList(), Join({Word(870405), Word(20), Word(2), Word(9), Word(3)}));
}

TEST_F(AlarmsCommand, FirstAndLastOfEachRangeAreTaken) {
    START_OR_SKIP({.bytes = Word(1)});
    for (const char* form : {R"({"label": "x", "hour": 0, "minute": 0, "days": 0})",
                             R"({"label": "x", "hour": 23, "minute": 59, "days": 127})"}) {
        EXPECT_EQ(Out(Fed("alarms add", form)).status, 0) << form;
    }
}

TEST_F(AlarmsCommand, MalformedFormIsRefusedBeforeAnythingIsSentAndItsMemberNamed) {
    START_OR_SKIP({.bytes = Word(1)});
    const std::pair<std::string_view, std::string_view> forms[] = {
        {R"({"label": 5})", "label: 应为字符串"},
        {R"({"label": "x", "hour": 24})", "hour: 应为 0 到 23 的整数"},
        {R"({"label": "x", "hour": -1})", "hour: 应为 0 到 23 的整数"},
        {R"({"label": "x", "hour": 1.5})", "hour: 应为 0 到 23 的整数"},
        {R"({"label": "x", "hour": "8"})", "hour: 应为 0 到 23 的整数"},
        {R"({"label": "x", "minute": 60})", "minute: 应为 0 到 59 的整数"},
        {R"({"label": "x", "minute": 4294967296})", "minute: 应为 0 到 59 的整数"},
        {R"({"label": "x", "days": 128})", "days: 应为 0 到 127 的整数"},
        {R"({"label": "x", "enabled": 1})", "enabled: 应为 true 或 false"},
        {R"({"label": "x", "vibrate": "yes"})", "vibrate: 应为 true 或 false"},
        {R"({"label": "x", "alert": null})", "alert: 应为字符串"},
        {R"({"label": "x", "tone": "y"})", "tone: 没有这个成员"},
        {R"({"label": ""})", "label: 不能为空"},
        {R"({"hour": 8})", "label: 不能为空"},
        {R"({"label": "x", "alert": ""})", "alert: 不能为空"},
        {"[]", "标准输入应为一个 JSON 对象"},
        {"{", "标准输入应为一个 JSON 对象"},
        {"", "标准输入应为一个 JSON 对象"},
    };
    for (const auto& [form, complaint] : forms) {
        for (const char* call : {"alarms add", "alarms update 1"}) {
            const Ended ended = Err(Fed(call, form));
            EXPECT_EQ(ended.status, 1) << form;
            EXPECT_EQ(ended.output, "quorvictl: " + std::string(complaint) + "\n") << form;
        }
    }
    // The first thing that comes is what is sent now.
    EXPECT_EQ(Out(Fed("alarms add", kForm)).status, 0);
    EXPECT_EQ(Request(0), AddAlarmRequest(Settings()));
}

TEST_F(AlarmsCommand, CharactersThatTheCodePageLacksAreSavedWithAWarning) {
    const GbkChosen user;
    START_OR_SKIP({.bytes = Word(1)});
    EXPECT_EQ(Err(Fed("alarms add", R"({"label": "\ud83c\udf88"})")).output,
              "quorvictl: 有些字符无法保存，会变成“?”\n");
    AlarmSettings settings;
    settings.label = "?";
    EXPECT_EQ(Request(0), AddAlarmRequest(settings));
}

TEST_F(AlarmsCommand, IdThatIsNoNumberIsWrongUsage) {
    for (const char* arguments : {"alarms delete", "alarms delete 1 x", "alarms delete 4294967296",
                                  "alarms update", "alarms list 1"}) {
        EXPECT_EQ(Out(arguments).status, 1) << arguments;
    }
    EXPECT_EQ(Err(Fed("alarms update x", kForm)).output, "quorvictl: x: 不是闹铃的编号\n");
}

TEST_F(AlarmsCommand, AChangeWithoutALinkOrAnAcknowledgementIsStatusTwo) {
    for (const char* call : {"alarms add", "alarms update 1"}) {
        EXPECT_EQ(Out(Fed(call, kForm)).status, 2) << call;
    }
    START_OR_SKIP({.end = Answer::End::close});
    for (const char* call : {"alarms add", "alarms update 1"}) {
        const Ended ended = Err(Fed(call, kForm));
        EXPECT_EQ(ended.status, 2) << call;
        EXPECT_EQ(ended.output, "quorvictl: 手机没有确认，请查看手机上是否已经生效\n") << call;
    }
}

}  // namespace
}  // namespace quorvi::cli
