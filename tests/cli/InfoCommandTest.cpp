// quorvictl info against an agent on the suite's own port.
#include <gtest/gtest.h>

#include <algorithm>

#include "base/Json.h"
#include "tests/support/AgentFixture.h"
#include "tests/support/RunProgram.h"

namespace quorvi::cli {
namespace {

// The reply of a phone. `model` is the first field.
Bytes SystemInformation(const Bytes& model) {
    return Join({
        Word(0),                 // leading word
        model,                   //
        LongWord(90'061'000),    // milliseconds since boot
        Text("4.0.3"),           // system version
        Text("35693803564380"),  // IMEI
        Text("46000"),           // IMSI
        Text("640x960"),         // resolution
        Text("80"),              // battery level
        Text("双核"),            // CPU
        Text("1 GB"),            // RAM
        Text("8 GB"),            // ROM
        Text("3.5 GB"),          // SD card
        Word(1),                 // GPS
        Word(0),                 // Bluetooth
        Word(2),                 // WiFi
        Word(1),                 // gravity sensor
        Text("中国移动"),        // mobile network
        Text("home"),            // WiFi network
        Word(128),               // brightness
    });
}

class InfoCommand : public AgentFixture {};

TEST_F(InfoCommand, PrintsTheNineteenRowsInOrder) {
    START_OR_SKIP({.bytes = Framed(SystemInformation(Text("魅族 M9")))});
    const Ended ended = Out("info --json");
    EXPECT_EQ(ended.status, 0);
    const auto rows = ParseJson(ended.output);
    ASSERT_TRUE(rows && rows->isArray());
    ASSERT_EQ(rows->size(), 19u);
    EXPECT_EQ((*rows)[0]["caption"].asString(), "手机型号");
    EXPECT_EQ((*rows)[0]["text"].asString(), "魅族 M9");
    EXPECT_EQ((*rows)[1]["text"].asString(), "1 天 01 小时 01 分 \n");
    EXPECT_EQ((*rows)[6]["text"].asString(), "80 %");
    EXPECT_EQ((*rows)[11]["text"].asString(), "是");
    EXPECT_EQ((*rows)[13]["text"].asString(), "已禁用");
    EXPECT_EQ((*rows)[17]["text"].asString(), "128 / 255");
    EXPECT_EQ((*rows)[18]["text"].asString(), "无");
    // Chinese stands as itself in the output.
    EXPECT_NE(ended.output.find("手机型号"), std::string::npos);

    const auto exchanges = agent_->Exchanges(1);
    ASSERT_EQ(exchanges.size(), 1u);
    EXPECT_EQ(exchanges[0].firstPiece, Word(870004));
    EXPECT_EQ(exchanges[0].rest, Bytes());
}

TEST_F(InfoCommand, ATableForPeopleHasOneLineARow) {
    START_OR_SKIP({.bytes = Framed(SystemInformation(Text("魅族 M9")))});
    const Ended ended = Out("info");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(std::count(ended.output.begin(), ended.output.end(), '\n'), 1 + 19);
    EXPECT_NE(ended.output.find("手机型号  魅族 M9\n"), std::string::npos);
}

TEST_F(InfoCommand, WithoutALinkItSaysSoWithStatusTwo) {
    const Ended out = Out("info --json");
    EXPECT_EQ(out.status, 2);
    EXPECT_EQ(out.output, "");
    EXPECT_EQ(Err("info --json").output, "quorvictl: 【X】连接错误\n");
}

TEST_F(InfoCommand, AConnectionThatBreaksInsideThePayloadIsStatusTwo) {
    Bytes reply = Framed(SystemInformation(Text("M9")));
    reply.resize(40);
    START_OR_SKIP({.bytes = reply, .end = Answer::End::reset});
    const Ended ended = Out("info --json");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.output, "");
}

TEST_F(InfoCommand, ACutReplyIsShownAsFarAsItCame) {
    Bytes reply = Framed(SystemInformation(Text("M9")));
    reply.resize(4 + 4 + 6 + 8);  // the model and the time are there
    START_OR_SKIP({.bytes = reply, .end = Answer::End::close});
    const Ended ended = Out("info --json");
    EXPECT_EQ(ended.status, 0);
    const auto rows = ParseJson(ended.output);
    ASSERT_TRUE(rows && rows->size() == 19);
    EXPECT_EQ((*rows)[0]["text"].asString(), "M9");
    EXPECT_EQ((*rows)[2]["text"].asString(), "");
}

TEST_F(InfoCommand, AnAgentThatHasNothingToSayIsAnEmptyResultAndNoError) {
    const Answer answers[] = {
        {.bytes = Word(NoDataMark)},                                  // says so
        {.bytes = Framed(SystemInformation(Word(AbsentMark)))},       // has no model
        {.bytes = Framed(Join({Word(0), Word(0xFFFFFF), Word(0)}))},  // a length points outside
    };
    for (const Answer& answer : answers) {
        agent_.reset();
        START_OR_SKIP(answer);
        const Ended ended = Out("info --json");
        EXPECT_EQ(ended.status, 0);
        EXPECT_EQ(ended.output, "[]\n");
    }
}

TEST_F(InfoCommand, AnAgentThatClosesWithoutAReplyIsStatusTwo) {
    START_OR_SKIP({.end = Answer::End::close});
    const Ended out = Out("info --json");
    EXPECT_EQ(out.status, 2);
    EXPECT_EQ(out.output, "");
    EXPECT_EQ(Err("info --json").output, "quorvictl: 手机端没有回答，请重新连接手机后再试\n");
}

}  // namespace
}  // namespace quorvi::cli
