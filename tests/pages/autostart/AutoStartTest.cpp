#include <gtest/gtest.h>

#include <set>
#include <string_view>

#include "base/Text.h"
#include "pages/autostart/AutoStart.h"
#include "tests/pages/autostart/AutoStartReplies.h"

namespace quorvi {
namespace {

AutoStartList Parse(const WireBytes& bytes) {
    return ParseAutoStart(bytes.Buffer());
}

TEST(StartEvents, EachNumberHasItsCaption) {
    EXPECT_EQ(StartEventCaption(0), u8"系统引导时");
    EXPECT_EQ(StartEventCaption(1), u8"系统启动后");
    EXPECT_EQ(StartEventCaption(16), u8"输出入法改变后");  // not 输入法: kept as it has always been
    EXPECT_EQ(StartEventCaption(50), u8"用户加载后");
    EXPECT_EQ(StartEventCaption(80), u8"收到短信后");
    EXPECT_EQ(StartEventCaption(100), u8"蓝牙适配器扫描开始");
    EXPECT_EQ(StartEventCaption(130), u8"蓝牙状态变后");
    EXPECT_EQ(StartEventCaption(144), u8"Widget小插件删除后");
}

TEST(StartEvents, SomeCaptionsStandMoreThanOnce) {
    EXPECT_EQ(StartEventCaption(74), StartEventCaption(77));
    EXPECT_EQ(StartEventCaption(98), StartEventCaption(116));
    EXPECT_EQ(StartEventCaption(108), StartEventCaption(131));
    EXPECT_EQ(StartEventCaption(115), StartEventCaption(119));
    EXPECT_EQ(StartEventCaption(115), StartEventCaption(132));
    std::set<std::u8string_view> captions;
    for (std::size_t event = 0; event < kStartEvents; ++event) {
        EXPECT_FALSE(StartEventCaption(event).empty()) << event;
        captions.insert(StartEventCaption(event));
    }
    EXPECT_EQ(captions.size(), kStartEvents - 5);
}

TEST(AutoStartReading, ReadsEachFieldOfARecord) {
    WireBytes bytes;
    bytes
        .U32(0)                   // leading word
        .U32(80)                  // event
        .Text("短信")             // name
        .Text("com.android.mms")  // package
        .U32(0xFFFFFFFF);         // reserved
    const AutoStartList list = Parse(bytes);
    ASSERT_EQ(list.groups.size(), 1u);
    ASSERT_EQ(list.groups.at(80).size(), 1u);
    EXPECT_EQ(list.groups.at(80)[0].name, Ansi(u8"短信"));
    EXPECT_EQ(list.groups.at(80)[0].package, "com.android.mms");
    EXPECT_FALSE(list.endedByMark);
    EXPECT_FALSE(list.unknownEvent);
}

TEST(AutoStartReading, EventsAscendAndTheirApplicationsStayInTheOrderOfArrival) {
    const AutoStartList list =
        Parse(AutoStartPayload({{3, "a", "p.a"}, {1, "b", "p.b"}, {3, "c", "p.c"}}));
    ASSERT_EQ(list.groups.size(), 2u);
    EXPECT_EQ(list.groups.begin()->first, 1);
    const auto& last = *list.groups.rbegin();
    EXPECT_EQ(last.first, 3);
    ASSERT_EQ(last.second.size(), 2u);
    EXPECT_EQ(last.second[0].name, "a");
    EXPECT_EQ(last.second[1].name, "c");
}

TEST(AutoStartReading, EventsOfOneCaptionAreTwoGroups) {
    const AutoStartList list = Parse(AutoStartPayload({{77, "a", "p"}, {74, "a", "p"}}));
    ASSERT_EQ(list.groups.size(), 2u);
    EXPECT_EQ(list.groups.count(74), 1u);
    EXPECT_EQ(list.groups.count(77), 1u);
}

TEST(AutoStartReading, AnAbsentNameLeavesNothingOfTheList) {
    WireBytes bytes = AutoStartPayload({{1}, {2}});
    bytes.U32(3).Absent();
    const AutoStartList list = Parse(bytes);
    EXPECT_TRUE(list.endedByMark);
    EXPECT_TRUE(list.groups.empty());
}

TEST(AutoStartReading, AnAbsentPackageIsEmptyAndTheReadingGoesOn) {
    WireBytes bytes;
    bytes
        .U32(0)  // leading word
        .U32(1)  // event
        .Text("a")
        .Absent()  // name, no package
        .U32(0)    // reserved
        .U32(2)    // event
        .Text("b")
        .Text("p.b")
        .U32(0);  // reserved
    const AutoStartList list = Parse(bytes);
    EXPECT_FALSE(list.endedByMark);
    ASSERT_EQ(list.groups.size(), 2u);
    EXPECT_EQ(list.groups.at(1)[0].package, "");
    EXPECT_EQ(list.groups.at(2)[0].package, "p.b");
}

TEST(AutoStartReading, AnUnknownEventEndsTheReadingWithWhatCameBefore) {
    const AutoStartList list = Parse(AutoStartPayload({{144}, {145}, {1}}));
    EXPECT_EQ(list.groups.size(), 1u);
    EXPECT_EQ(list.groups.count(144), 1u);
    EXPECT_EQ(list.unknownEvent, 145u);
    EXPECT_FALSE(list.endedByMark);
}

TEST(AutoStartReading, ANegativeEventIsUnknown) {
    const AutoStartList list = Parse(AutoStartPayload({{0xFFFFFFFF}}));
    EXPECT_TRUE(list.groups.empty());
    EXPECT_EQ(list.unknownEvent, 0xFFFFFFFFu);
}

TEST(AutoStartReading, TheStatusNamesTheUnknownEvent) {
    EXPECT_EQ(UnknownEventText(145),
              Ansi(u8"【X】未知的启动事件 145，其后的启动项没有读取，请升级本软件"));
}

TEST(AutoStartReading, ALengthThatPointsOutsideEndsTheRun) {
    WireBytes bytes = AutoStartPayload({{1}});
    bytes.U32(2).U32(0x7FFFFFFF).Raw("x");  // a name longer than the reply
    const AutoStartList list = Parse(bytes);
    EXPECT_EQ(list.groups.size(), 1u);
    EXPECT_FALSE(list.endedByMark);
    EXPECT_FALSE(list.unknownEvent);
}

TEST(AutoStartReading, ARecordInWhoseEventACutReplyEndsIsDropped) {
    const std::size_t first = AutoStartPayload({{1}}).Get().size();
    const WireBytes bytes = AutoStartPayload({{1}, {0x50}});
    EXPECT_EQ(ParseAutoStart(bytes.CutAfter(first + 3)).groups.size(), 1u);  // 0 is another event
    EXPECT_EQ(ParseAutoStart(bytes.CutAfter(first + 4)).groups.count(0x50), 1u);
}

TEST(AutoStartReading, TheLastRecordCountsWithoutItsReservedWord) {
    const WireBytes bytes = AutoStartPayload({{1}, {2}});
    const auto cut = std::span(bytes.Get()).first(bytes.Get().size() - 4);
    EXPECT_EQ(ParseAutoStart(ReplyBuffer::Holding(cut)).groups.size(), 2u);
}

}  // namespace
}  // namespace quorvi
