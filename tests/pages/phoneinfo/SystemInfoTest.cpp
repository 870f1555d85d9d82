#include <gtest/gtest.h>

#include "base/Text.h"
#include "pages/phoneinfo/SystemInfo.h"
#include "tests/pages/phoneinfo/SystemInfoReply.h"

namespace quorvi {
namespace {

std::string DashboardOf(const WireBytes& reply) {
    return DashboardList(ParseSystemInfo(reply.Buffer()).value()).Html();
}

std::string RowOf(const WireBytes& reply, std::size_t row) {
    return SystemInfoTable(ParseSystemInfo(reply.Buffer()).value())[row].text;
}

TEST(SystemInfo, EachFieldStandsInItsRowOfTheTable) {
    const auto rows = SystemInfoTable(ParseSystemInfo(WholeSystemInfo().Buffer()).value());
    const std::pair<std::u8string_view, std::u8string_view> expected[] = {
        {u8"手机型号", u8"Aurora S2"},
        {u8"运行时间", u8"1 天 02 小时 03 分 \n"},
        {u8"系统版本", u8"Android 2.3.4"},
        {u8"IMEI串号", u8"356938035643809"},
        {u8"IMSI网络", u8"460001234567890"},
        {u8"主分辨率", u8"480*800"},
        {u8"电池信息", u8"82 %"},
        {u8"CPU 信息", u8"ARMv7 1.2GHz"},
        {u8"RAM 信息", u8"1024MB"},
        {u8"ROM 信息", u8"4GB"},
        {u8"SD 信息", u8"5.62 GB / 7.39 GB"},
        {u8"GPS 状态", u8"是"},
        {u8"蓝牙状态", u8"已禁用"},
        {u8"WiFi状态", u8"是"},
        {u8"重力感应", u8"已禁用"},
        {u8"移动网络", u8"中国移动"},
        {u8"WiFi网络", u8"home-wifi"},
        {u8"屏幕亮度", u8"128 / 255"},
        {u8"扩展硬件", u8"无"},
    };
    ASSERT_EQ(rows.size(), std::size(expected));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].caption, Ansi(expected[i].first)) << i;
        EXPECT_EQ(rows[i].text, Ansi(expected[i].second)) << i;
    }
}

TEST(SystemInfo, DashboardHeaderLinksTheModelToTheDeviceManager) {
    const SystemInfo info = ParseSystemInfo(WholeSystemInfo().Buffer()).value();
    EXPECT_EQ(DashboardHeader(info).Html(), "<a href='qvh:device'>Aurora S2</a>");
}

TEST(SystemInfo, DashboardListIsExactToTheByte) {
    EXPECT_EQ(
        DashboardOf(WholeSystemInfo()),
        Ansi(u8"<li><div class='icon'><a href='qvh:os'><img src='w_os.gif' alt='' /></a></div>"
             u8"<div class='label'><a href='qvh:os'>操作系统</a></div>"
             u8"<span id='status_os'>Android 2.3.4</span></li>"
             u8"<li><div class='icon'><a href='qvh:battery'><img src='w_battery_full.gif' alt='' />"
             u8"</a></div><div class='label'><a href='qvh:battery'>电池信息</a></div>"
             u8"<span>82 %</span></li>"
             u8"<li><div class='icon'><a href='qvh:space'><img src='w_space.gif' alt='' /></a>"
             u8"</div><div class='label'><a href='qvh:space'>剩余空间</a></div>"
             u8"<span id='status_space'>5.62 GB / 7.39 GB</span></li>"
             u8"<li><div class='icon'><a href='qvh:gps'><img src='w_gps.gif' alt='' /></a></div>"
             u8"<div class='label'><a href='qvh:gps'>GPS状态</a></div><span>开启</span></li>"
             u8"<li><div class='icon'><a href='qvh:bluetooth'><img src='w_bluetooth.gif' alt='' />"
             u8"</a></div><div class='label'><a href='qvh:bluetooth'>蓝牙状态</a></div>"
             u8"<span>已禁用</span></li>"
             u8"<li><div class='icon'><a href='qvh:wifi'><img src='w_wifi.gif' alt='' /></a></div>"
             u8"<div class='label'><a href='qvh:wifi'>WiFi状态</a></div><span>开启</span></li>"
             u8"<li><div class='icon'><a href='qvh:gravity'><img src='w_gravity.gif' alt='' /></a>"
             u8"</div><div class='label'><a href='qvh:gravity'>重力感应</a></div>"
             u8"<span>已禁用</span></li>"));
}

TEST(SystemInfo, BatteryImageChangesAt15And31And70) {
    EXPECT_EQ(BatteryImage(-1), "w_battery_none.gif");
    EXPECT_EQ(BatteryImage(14), "w_battery_none.gif");
    EXPECT_EQ(BatteryImage(15), "w_battery_low.gif");
    EXPECT_EQ(BatteryImage(30), "w_battery_low.gif");
    EXPECT_EQ(BatteryImage(31), "w_battery_mid.gif");
    EXPECT_EQ(BatteryImage(69), "w_battery_mid.gif");
    EXPECT_EQ(BatteryImage(70), "w_battery_full.gif");
    EXPECT_EQ(BatteryImage(100), "w_battery_full.gif");
}

TEST(SystemInfo, BatteryTextThatIsNoNumberCountsAsZeroAndIsShownAsItIs) {
    const std::string list = DashboardOf(WholeSystemInfo("unknown"));
    EXPECT_NE(list.find("w_battery_none.gif"), std::string::npos);
    EXPECT_NE(list.find("<span>unknown %</span>"), std::string::npos);
    EXPECT_EQ(RowOf(WholeSystemInfo("unknown"), 6), "unknown %");
}

TEST(SystemInfo, AbsentModelGivesNothingToShow) {
    EXPECT_FALSE(ParseSystemInfo(LeadingWord().Absent().U64(0).Buffer()));
}

TEST(SystemInfo, EmptyModelIsPresentAndShown) {
    WireBytes reply = LeadingWord().Text("").U64(0);
    for (int i = 0; i < 9; ++i) {
        reply.Absent();
    }
    const auto info =
        ParseSystemInfo(reply.U32(0).U32(0).U32(0).U32(0).Absent().Absent().U32(0).Buffer());
    ASSERT_TRUE(info);
    EXPECT_EQ(DashboardHeader(*info).Html(), "<a href='qvh:device'></a>");
    EXPECT_EQ(SystemInfoTable(*info)[6].text, " %");  // an absent level is an empty text
    EXPECT_EQ(SystemInfoTable(*info)[15].text, "");
}

TEST(SystemInfo, StateOf2IsOffInTheTableAndOnOnTheDashboard) {
    const WireBytes reply =
        WholeSystemInfo("82", {.gps = 2, .bluetooth = 0, .wifi = 0, .gravity = 0});
    EXPECT_EQ(RowOf(reply, 11), Ansi(u8"已禁用"));
    const std::string list = DashboardOf(reply);
    EXPECT_NE(list.find(Ansi(u8">GPS状态</a></div><span>开启</span>")), std::string::npos);
}

TEST(SystemInfo, BrightnessIsSignedAndUnchecked) {
    Bytes raw = WholeSystemInfo().Get();
    PackUInt32(0xFFFFFFFF, raw.data() + raw.size() - 4);
    const auto info = ParseSystemInfo(ReplyBuffer::Holding(raw));
    ASSERT_TRUE(info);
    EXPECT_EQ(SystemInfoTable(*info)[17].text, "-1 / 255");
}

TEST(SystemInfo, HoursAndMinutesSinceBootAreOfTheDay) {
    SystemInfo info;
    info.millisecondsSinceBoot = 86'400'000ULL * 365 - 1;
    EXPECT_EQ(SystemInfoTable(info)[1].text, Ansi(u8"364 天 23 小时 59 分 \n"));
    info.millisecondsSinceBoot = 59'999;
    EXPECT_EQ(SystemInfoTable(info)[1].text, Ansi(u8"0 天 00 小时 00 分 \n"));
}

TEST(SystemInfo, MarkupFromThePhoneIsNotEscaped) {
    SystemInfo info;
    info.model = "<b>S2</b>";
    EXPECT_EQ(DashboardHeader(info).Html(), "<a href='qvh:device'><b>S2</b></a>");
}

TEST(SystemInfo, LengthThatPointsOutsideGivesNothing) {
    for (std::size_t cut = 0; cut < WholeSystemInfo().Get().size(); ++cut) {
        Bytes raw = WholeSystemInfo().Get();
        raw.resize(cut);
        EXPECT_FALSE(ParseSystemInfo(ReplyBuffer::Holding(raw))) << cut;
    }
    EXPECT_FALSE(ParseSystemInfo(LeadingWord().U32(0x7FFFFFFF).U64(0).Buffer()));
}

TEST(SystemInfo, RestOfACutReplyReadsAsZero) {
    const Bytes raw = WholeSystemInfo().Get();
    ReplyBuffer cut(static_cast<std::uint32_t>(raw.size()));
    constexpr std::size_t kCame = 4 + 4 + 9 + 8;  // leading word, model, time since boot
    std::copy_n(raw.begin(), kCame, cut.Room().begin());
    cut.Commit(kCame);
    const auto info = ParseSystemInfo(cut);
    ASSERT_TRUE(info);
    EXPECT_EQ(info->model, "Aurora S2");
    EXPECT_EQ(info->systemVersion, "");
    EXPECT_EQ(info->gps, 0U);
}

}  // namespace
}  // namespace quorvi
