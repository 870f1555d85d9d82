// quorvictl settings, autostart, processes and cleaner against an agent on the suite's own port.
#include <gtest/gtest.h>

#include <algorithm>

#include "base/Json.h"
#include "tests/support/AgentFixture.h"
#include "tests/support/RunProgram.h"

namespace quorvi::cli {
namespace {

class SystemCommands : public AgentFixture {
  protected:
    // The whole document that a command prints with --json.
    static void ExpectDocument(const std::string& arguments, std::string_view document) {
        const Ended ended = Out(arguments + " --json");
        EXPECT_EQ(ended.status, 0);
        const auto printed = ParseJson(ended.output);
        ASSERT_TRUE(printed) << ended.output;
        EXPECT_EQ(*printed, ParseJson(document).value()) << ended.output;
    }
    // A command that is wrong: nothing is sent, and its line says why.
    void ExpectRefused(const std::string& arguments, const std::string& line) {
        const Ended ended = Err(arguments);
        EXPECT_EQ(ended.status, 1) << arguments;
        EXPECT_EQ(ended.output, "quorvictl: " + line + "\n");
    }
};

class SettingsCommand : public SystemCommands {
  protected:
    static Answer Settings() {
        return {.bytes = Framed(Join({
                    Word(0),       // leading word
                    Word(1),       // WiFi
                    Word(2),       // Bluetooth
                    Word(0),       // aeroplane mode
                    Word(1),       // GPS
                    Word(0),       // gravity sensor
                    Word(1),       // vibration
                    Word(45'000),  // backlight
                    Word(9),       // ring volume
                    Word(15),      // music volume
                    Word(2),       // date format
                    Word(1),       // 24 hours
                }))};
    }
};

TEST_F(SettingsCommand, ReadGivesTheNumbersOfTheWire) {
    START_OR_SKIP(Settings());
    ExpectDocument("settings read", R"({"wifi": 1, "bluetooth": 2, "airplane": 0, "gps": 1,
        "gravity": 0, "vibrate": 1, "backlight": 45000, "ring_volume": 9, "music_volume": 15,
        "time_24": 1, "date_format": 2})");
    EXPECT_EQ(Request(0), Word(871501));
}

TEST_F(SettingsCommand, TheTableSaysWhatThePageShows) {
    START_OR_SKIP(Settings());
    const std::string table = Out("settings read").output;
    for (const char* text : {"蓝牙", "45000", "15 秒", "15 最大", "XX日XX月XXXX年"}) {
        EXPECT_NE(table.find(text), std::string::npos) << text << "\n" << table;
    }
    EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 12);  // the headings, the settings
}

TEST_F(SettingsCommand, ReadOfAPhoneThatHasNothingToTellIsEmpty) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    ExpectDocument("settings read", "{}");
}

TEST_F(SettingsCommand, WriteSendsKeyAndValue) {
    START_OR_SKIP({.bytes = Word(1)});
    ExpectDocument("settings write date_format 2", R"({"written": {"date_format": 2}})");
    EXPECT_EQ(Request(0), Join({
                              Word(871502),  // code
                              Word(20),      // total
                              Word(1),       // item count
                              Word(10),      // key
                              Word(2),       // value
                          }));
    EXPECT_EQ(Out("settings write backlight 600000").status, 0);
    EXPECT_EQ(Request(1), Join({Word(871502), Word(20), Word(1), Word(6), Word(600'000)}));
}

TEST_F(SettingsCommand, ARefusalOfThePhoneIsNotLookedAt) {
    START_OR_SKIP({.bytes = Word(0)});
    EXPECT_EQ(Out("settings write wifi 1").status, 0);
}

TEST_F(SettingsCommand, AnUnknownNameIsRefusedAndNothingSent) {
    ExpectRefused("settings write volume 1",
                  "volume: 没有这个设置，可以修改的有 wifi, bluetooth, airplane, gps, gravity, "
                  "vibrate, backlight, ring_volume, music_volume, time_24, date_format");
}

TEST_F(SettingsCommand, AValueThatThePageCannotWriteIsRefusedAndNothingSent) {
    ExpectRefused("settings write wifi 2", "2: wifi 不能设为这个值，可以用的有 0 (关), 1 (开)");
    ExpectRefused("settings write backlight 45000",
                  "45000: backlight 不能设为这个值，可以用的有 15000 (15 秒), 30000 (30 秒), "
                  "60000 (1 分钟), 120000 (2 分钟), 600000 (10 分钟), 1800000 (30 分钟)");
    for (const char* wrong : {"ring_volume 8", "music_volume 16", "date_format 3", "wifi on",
                              "wifi ''", "wifi 1x", "wifi 4294967297"}) {
        EXPECT_EQ(Err(std::string("settings write ") + wrong).status, 1) << wrong;
    }
}

class AutoStartCommand : public SystemCommands {
  protected:
    static Bytes Record(std::uint32_t event, std::string_view name, std::string_view package) {
        return Join({Word(event), Text(name), Text(package), Word(0)});
    }
};

TEST_F(AutoStartCommand, ListGivesTheEventsAscendingWithTheirApplications) {
    START_OR_SKIP({.bytes = Framed(Join({
                       Word(0),                   // leading word
                       Record(3, "天气", "p.a"),  //
                       Record(1, "闹钟", "p.b"),  //
                       Record(3, "公交", "p.c"),  //
                   }))});
    ExpectDocument("autostart list", R"([
        {"event": 1, "caption": "系统启动后", "applications": [{"name": "闹钟", "package": "p.b"}]},
        {"event": 3, "caption": "进入飞行模式时", "applications": [
            {"name": "天气", "package": "p.a"}, {"name": "公交", "package": "p.c"}]}])");
    EXPECT_EQ(Request(0), Word(871701));
    EXPECT_NE(Out("autostart list").output.find("进入飞行模式时"), std::string::npos);
}

TEST_F(AutoStartCommand, AnUnknownEventIsToldAndWhatCameBeforeIsShown) {
    START_OR_SKIP({.bytes = Framed(Join({
                       Word(0),                  // leading word
                       Record(144, "a", "p.a"),  //
                       Record(145, "b", "p.b"),  //
                       Record(1, "c", "p.c"),    //
                   }))});
    ExpectDocument("autostart list", R"([{"event": 144, "caption": "Widget小插件删除后",
        "applications": [{"name": "a", "package": "p.a"}]}])");
    EXPECT_EQ(Err("autostart list").output,
              "quorvictl: 【X】未知的启动事件 145，其后的启动项没有读取，请升级本软件\n");
}

TEST_F(AutoStartCommand, AnAbsentNameDropsWhatWasReadBeforeIt) {
    START_OR_SKIP(
        {.bytes = Framed(Join({Word(0), Record(1, "a", "p"), Word(2), Word(AbsentMark)}))});
    ExpectDocument("autostart list", "[]");
}

TEST_F(AutoStartCommand, ListOfAPhoneThatStartsNothingIsEmpty) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    ExpectDocument("autostart list", "[]");
}

class ProcessesCommand : public SystemCommands {
  protected:
    static Answer Processes() {
        return {.bytes = Framed(Join({
                    Word(0),                        // leading word
                    LongWord((1ULL << 32) + 2048),  // memory
                    Word(230),                      // importance
                    Word(12),                       // CPU share
                    Word(1301),                     // process identifier
                    Word(1),                        // came with the phone
                    Text("音乐"),                   // name
                    Text("com.android.music"),      // package
                    LongWord(4), Word(7),           // icon
                }))};
    }
};

TEST_F(ProcessesCommand, ListGivesEachProcessWithItsMemoryInBytes) {
    START_OR_SKIP(Processes());
    ExpectDocument("processes list", R"([{"name": "音乐", "package": "com.android.music",
        "importance": "未知", "cpu": 12, "memory": 4294969344, "pid": 1301, "system": true}])");
    EXPECT_EQ(Request(0), Word(871801));
}

TEST_F(ProcessesCommand, TheTableHasTheTextsOfThePage) {
    START_OR_SKIP(Processes());
    const std::string table = Out("processes list").output;
    for (const char* text : {"音乐", "com.android.music", "未知", "12 %", "2.00 KB", "1301"}) {
        EXPECT_NE(table.find(text), std::string::npos) << text << "\n" << table;
    }
}

TEST_F(ProcessesCommand, ListOfAPhoneOnWhichNothingRunsIsEmpty) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    ExpectDocument("processes list", "[]");
}

TEST_F(ProcessesCommand, EndSendsThePackages) {
    START_OR_SKIP({.bytes = Word(1)});
    ExpectDocument("processes end com.b a", R"({"ended": ["com.b", "a"]})");
    EXPECT_EQ(Request(0), Join({
                              Word(871804),   // code
                              Word(26),       // total
                              Word(2),        // count of packages
                              Text("com.b"),  //
                              Text("a"),      //
                          }));
}

TEST_F(ProcessesCommand, APackageThatCannotBeOneIsRefusedAndNothingSent) {
    ExpectRefused("processes end a ''", ": 不是应用的包名");
    EXPECT_EQ(Err("processes end").status, 1);
}

TEST_F(ProcessesCommand, MemoryGivesTheFreeBytes) {
    START_OR_SKIP({.bytes = Word(155'189'248)});
    ExpectDocument("processes memory", R"({"free": 155189248})");
    EXPECT_EQ(Request(0), Word(871806));
    EXPECT_EQ(Out("processes memory").output, "148 MB\n");
}

class CleanerCommand : public SystemCommands {
  protected:
    static Answer Caches() {
        return {.bytes = Framed(Join({
                    Word(0),                    // leading word
                    LongWord(13'317'000),       // bytes of the cache
                    Text("音乐"),               // name
                    Text("com.android.music"),  // package
                    LongWord(4), Word(7),       // icon
                }))};
    }
    static constexpr const char* kFixed =
        R"({"name": "浏览器搜索", "description": "删除系统自带浏览器的搜索记录", "period": "随时",
            "risk": "无", "size": "N/A"},
           {"name": "浏览器历史", "description": "删除系统自带浏览器的历史记录", "period": "随时",
            "risk": "无", "size": "N/A"},
           {"name": "Market搜索", "description": "删除Android Market搜索记录", "period": "每月",
            "risk": "无", "size": "N/A"})";
};

TEST_F(CleanerCommand, ScanGivesTheFixedItemsFirst) {
    START_OR_SKIP(Caches());
    ExpectDocument("cleaner scan", std::string("[") + kFixed + R"(, {"name": "音乐",
        "description": "com.android.music", "period": "随时", "risk": "无", "size": "12.7 MB"}])");
    EXPECT_EQ(Request(0), Word(871601));
    const std::string table = Out("cleaner scan").output;
    for (const char* text : {"清理项目", "浏览器历史", "每月", "com.android.music", "12.7 MB"}) {
        EXPECT_NE(table.find(text), std::string::npos) << text << "\n" << table;
    }
}

TEST_F(CleanerCommand, ScanOfAPhoneWithoutCachesGivesTheFixedItems) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    ExpectDocument("cleaner scan", std::string("[") + kFixed + "]");
}

TEST_F(CleanerCommand, CleanSendsAFlagForEachFixedItemAndThePackages) {
    START_OR_SKIP({.bytes = Word(1)});
    ExpectDocument("cleaner clean --market-searches com.b --browser-searches a",
                   R"({"cleaned": ["browser-searches", "market-searches", "com.b", "a"]})");
    EXPECT_EQ(Request(0), Join({
                              Word(871602),                                // code
                              Word(29),                                    // total
                              Word(2),                                     // count of names
                              {std::byte{1}, std::byte{0}, std::byte{1}},  // flags
                              Text("com.b"),                               //
                              Text("a"),                                   //
                          }));
    EXPECT_EQ(Out("cleaner clean --browser-history").status, 0);
    EXPECT_EQ(Request(1),
              Join({Word(871602), Word(15), Word(0), {std::byte{0}, std::byte{1}, std::byte{0}}}));
}

TEST_F(CleanerCommand, NothingToCleanIsSentAllTheSame) {
    START_OR_SKIP({.bytes = Word(1)});
    ExpectDocument("cleaner clean", R"({"cleaned": []})");
    EXPECT_EQ(Request(0), Join({Word(871602), Word(15), Word(0), Bytes(3)}));
}

TEST_F(CleanerCommand, WhatCannotBeCleanedIsRefusedAndNothingSent) {
    ExpectRefused("cleaner clean a ''", ": 不是应用的包名");
    const std::string usage =
        "\n用法: quorvictl cleaner clean [--browser-searches] [--browser-history] "
        "[--market-searches] [PACKAGE...] [--json]";
    ExpectRefused("cleaner clean --history", "未知选项 --history" + usage);
    ExpectRefused("cleaner clean --browser-history=1", "选项不带值: --browser-history" + usage);
}

TEST_F(SystemCommands, ACommandThatTheAgentDoesNotAnswerIsStatusTwo) {
    START_OR_SKIP({.end = Answer::End::close});
    for (const char* call : {"settings read", "autostart list", "processes list",
                             "processes memory", "cleaner scan"}) {
        const Ended out = Out(std::string(call) + " --json");
        EXPECT_EQ(out.status, 2) << call;
        EXPECT_EQ(out.output, "") << call;
        EXPECT_EQ(Err(call).output, "quorvictl: 手机端没有回答，请重新连接手机后再试\n") << call;
    }
}

TEST_F(SystemCommands, AChangeThatIsNotAcknowledgedIsStatusTwo) {
    START_OR_SKIP({.end = Answer::End::close});
    for (const char* call : {"settings write wifi 1", "processes end a", "cleaner clean a"}) {
        const Ended out = Out(std::string(call) + " --json");
        EXPECT_EQ(out.status, 2) << call;
        EXPECT_EQ(out.output, "") << call;
        EXPECT_EQ(Err(call).output, "quorvictl: 手机没有确认，请查看手机上是否已经生效\n") << call;
    }
}

TEST_F(SystemCommands, WithoutALinkTheStatusSaysSo) {
    START_OR_SKIP({.bytes = Word(1)});
    Stop();
    for (const char* call : {"settings read", "settings write wifi 1", "autostart list",
                             "processes list", "processes end a", "processes memory",
                             "cleaner scan", "cleaner clean --browser-history"}) {
        const Ended ended = Err(call);
        EXPECT_EQ(ended.status, 2) << call;
        EXPECT_NE(ended.output.find("【X】连接错误"), std::string::npos) << call;
    }
}

}  // namespace
}  // namespace quorvi::cli
