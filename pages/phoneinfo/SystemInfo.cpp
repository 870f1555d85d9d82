#include "pages/phoneinfo/SystemInfo.h"

#include <fmt/format.h>

#include "base/Format.h"
#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::size_t kListReserve = 15000;

// One line of the dashboard's list: link key, picture, label, id of the span or none, value.
struct DashboardLine {
    std::string_view link;
    std::string_view image;
    std::u8string_view label;
    std::string_view spanId;
    HtmlFragment value;
};

void Append(HtmlFragment& list, const DashboardLine& line) {
    list.Own(u8"<li><div class='icon'><a href='qvh:").Text(line.link);
    list.Own(u8"'><img src='").Text(line.image);
    list.Own(u8"' alt='' /></a></div><div class='label'><a href='qvh:").Text(line.link);
    list.Own(u8"'>").Text(Ansi(line.label)).Own(u8"</a></div><span");
    if (!line.spanId.empty()) {
        list.Own(u8" id='").Text(line.spanId).Own(u8"'");
    }
    list.Own(u8">").Append(line.value).Own(u8"</span></li>");
}

std::string TimeSinceBoot(std::uint64_t milliseconds) {
    const std::uint64_t seconds = WholeSeconds(milliseconds);
    return fmt::format("{} {} {:02} {} {:02} {} \n", seconds / 86400, Ansi(u8"天"),
                       seconds / 3600 % 24, Ansi(u8"小时"), seconds / 60 % 60, Ansi(u8"分"));
}

// The table takes exactly 1 as on.
std::string TableState(std::uint32_t state) {
    return Ansi(state == 1 ? u8"是" : u8"已禁用");
}

// The dashboard takes anything but 0 as on. Kept on purpose, though the table differs.
HtmlFragment DashboardState(std::uint32_t state) {
    return state != 0 ? OwnMarkup(u8"开启") : OwnMarkup(u8"已禁用");
}

HtmlFragment FromPhone(std::string_view text) {
    return HtmlFragment().Foreign(text);
}

std::string BatteryText(const SystemInfo& info) {
    return info.batteryLevel + " %";
}

}  // namespace

std::optional<SystemInfo> ParseSystemInfo(const ReplyBuffer& reply) {
    ReplyCursor cursor(reply);
    std::optional<std::string> model = cursor.TakeText();
    if (!model) {
        return std::nullopt;
    }
    SystemInfo info;
    info.model = std::move(*model);
    info.millisecondsSinceBoot = cursor.TakeUInt64();
    info.systemVersion = cursor.TakeTextOrEmpty();
    info.imei = cursor.TakeTextOrEmpty();
    info.imsi = cursor.TakeTextOrEmpty();
    info.resolution = cursor.TakeTextOrEmpty();
    info.batteryLevel = cursor.TakeTextOrEmpty();
    info.cpu = cursor.TakeTextOrEmpty();
    info.ram = cursor.TakeTextOrEmpty();
    info.rom = cursor.TakeTextOrEmpty();
    info.sdCard = cursor.TakeTextOrEmpty();
    info.gps = cursor.TakeUInt32();
    info.bluetooth = cursor.TakeUInt32();
    info.wifi = cursor.TakeUInt32();
    info.gravity = cursor.TakeUInt32();
    info.mobileNetwork = cursor.TakeTextOrEmpty();
    info.wifiNetwork = cursor.TakeTextOrEmpty();
    info.brightness = cursor.TakeUInt32();
    if (cursor.Overran()) {
        return std::nullopt;
    }
    return info;
}

SystemInfoReply FetchSystemInfo(const AgentSession& session) {
    const PayloadReply reply = session.RunPayload(BareRequest(AgentCommand::systemInformation));
    return {reply.outcome, reply.HasPayload() ? ParseSystemInfo(reply.buffer) : std::nullopt};
}

std::array<SystemInfoRow, kSystemInfoRows> SystemInfoTableAtFirst() {
    std::array<SystemInfoRow, kSystemInfoRows> rows;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i].caption = Ansi(kSystemInfoCaptions[i]);
    }
    rows.back().text = Ansi(u8"无");  // no phone tells of such hardware
    return rows;
}

std::array<SystemInfoRow, kSystemInfoRows> SystemInfoTable(const SystemInfo& info) {
    const std::array<std::string, kSystemInfoRows - 1> texts{
        info.model,
        TimeSinceBoot(info.millisecondsSinceBoot),
        info.systemVersion,
        info.imei,
        info.imsi,
        info.resolution,
        BatteryText(info),
        info.cpu,
        info.ram,
        info.rom,
        info.sdCard,
        TableState(info.gps),
        TableState(info.bluetooth),
        TableState(info.wifi),
        TableState(info.gravity),
        info.mobileNetwork,
        info.wifiNetwork,
        fmt::format("{} / 255", static_cast<std::int32_t>(info.brightness)),
    };
    auto rows = SystemInfoTableAtFirst();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        rows[i].text = texts[i];
    }
    return rows;
}

HtmlFragment DashboardHeader(const SystemInfo& info) {
    return HtmlFragment(u8"<a href='qvh:device'>").Foreign(info.model).Own(u8"</a>");
}

HtmlFragment DashboardList(const SystemInfo& info) {
    const DashboardLine lines[] = {
        {"os", "w_os.gif", u8"操作系统", "status_os", FromPhone(info.systemVersion)},
        {"battery", BatteryImage(ToInt(info.batteryLevel)), u8"电池信息", "",
         FromPhone(info.batteryLevel).Own(u8" %")},
        {"space", "w_space.gif", u8"剩余空间", "status_space", FromPhone(info.sdCard)},
        {"gps", "w_gps.gif", u8"GPS状态", "", DashboardState(info.gps)},
        {"bluetooth", "w_bluetooth.gif", u8"蓝牙状态", "", DashboardState(info.bluetooth)},
        {"wifi", "w_wifi.gif", u8"WiFi状态", "", DashboardState(info.wifi)},
        {"gravity", "w_gravity.gif", u8"重力感应", "", DashboardState(info.gravity)},
    };
    HtmlFragment list;
    list.Reserve(kListReserve);
    for (const DashboardLine& line : lines) {
        Append(list, line);
    }
    return list;
}

std::string_view BatteryImage(int percent) {
    if (percent < 15) {
        return "w_battery_none.gif";
    }
    if (percent <= 30) {
        return "w_battery_low.gif";
    }
    if (percent < 70) {
        return "w_battery_mid.gif";
    }
    return "w_battery_full.gif";
}

}  // namespace quorvi
