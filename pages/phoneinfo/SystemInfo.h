// The state of the phone as command 870004 tells it, and the two ways in which it is shown: the
// rows of the system information table (also printed on the command line), and the two fragments
// of the dashboard.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "agent/AgentSession.h"
#include "agent/Reply.h"
#include "base/HtmlFragment.h"

namespace quorvi {

// One reply, fields in the order of the wire. Texts are ANSI; a text that the phone left out is
// empty.
struct SystemInfo {
    std::string model;
    std::uint64_t millisecondsSinceBoot = 0;
    std::string systemVersion;
    std::string imei;
    std::string imsi;
    std::string resolution;
    std::string batteryLevel;  // decimal text, 0 to 100
    std::string cpu;
    std::string ram;
    std::string rom;
    std::string sdCard;
    // States: 1 is on and 0 is off. Any other value is off in the table and on on the dashboard.
    std::uint32_t gps = 0;
    std::uint32_t bluetooth = 0;
    std::uint32_t wifi = 0;
    std::uint32_t gravity = 0;
    std::string mobileNetwork;
    std::string wifiNetwork;
    std::uint32_t brightness = 0;  // 0 to 255
};

// Reads the single record of the reply. Nothing when the model is AbsentMark, or when a length
// points outside the reply: what is shown then stays as it is.
[[nodiscard]] std::optional<SystemInfo> ParseSystemInfo(const ReplyBuffer& reply);

struct SystemInfoReply {
    SessionOutcome outcome = SessionOutcome::connectFailed;
    std::optional<SystemInfo> info;
};

// Asks the phone. Blocks, so it runs on a worker.
[[nodiscard]] SystemInfoReply FetchSystemInfo(const AgentSession& session);

struct SystemInfoRow {
    std::string caption;
    std::string text;
};

inline constexpr std::size_t kSystemInfoRows = 19;

// What each row is called, in the order of the table.
inline constexpr std::array<std::u8string_view, kSystemInfoRows> kSystemInfoCaptions{
    u8"手机型号", u8"运行时间", u8"系统版本", u8"IMEI串号", u8"IMSI网络",
    u8"主分辨率", u8"电池信息", u8"CPU 信息", u8"RAM 信息", u8"ROM 信息",
    u8"SD 信息",  u8"GPS 状态", u8"蓝牙状态", u8"WiFi状态", u8"重力感应",
    u8"移动网络", u8"WiFi网络", u8"屏幕亮度", u8"扩展硬件",
};

// The table's rows before the phone has told anything, ANSI: captions, and the one text that is
// always the same.
[[nodiscard]] std::array<SystemInfoRow, kSystemInfoRows> SystemInfoTableAtFirst();
// The table's rows, ANSI. A state shows as on for exactly 1. The text of row 1 ends in a blank and
// a line feed, kept on purpose: both are part of the text as it has always been.
[[nodiscard]] std::array<SystemInfoRow, kSystemInfoRows> SystemInfoTable(const SystemInfo& info);

// Inner HTML of the dashboard's elements "manufacturer" and "info_ul", with the phone's texts
// unescaped. A state shows as on for anything but 0.
[[nodiscard]] HtmlFragment DashboardHeader(const SystemInfo& info);
[[nodiscard]] HtmlFragment DashboardList(const SystemInfo& info);

// The dashboard's picture for a battery level in percent.
[[nodiscard]] std::string_view BatteryImage(int percent);

}  // namespace quorvi
