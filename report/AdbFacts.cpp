#include "report/AdbFacts.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <span>

#include "base/Text.h"
#include "base/os/HostSocket.h"
#include "base/os/StopSignal.h"
#include "link/AdbCapture.h"
#include "link/AdbCommand.h"
#include "log/LogLine.h"

namespace quorvi {
namespace {

constexpr std::string_view kProtocolStart = "Android Debug Bridge version ";
constexpr std::string_view kReleaseStart = "Version ";

constexpr std::string_view kListService = "host:track-devices";
constexpr std::string_view kOkay = "OKAY";
constexpr std::chrono::milliseconds kServerLimit{2000};
constexpr std::size_t kReadBytes = 4096;

struct StateName {
    DeviceState state;
    std::u8string_view name;
};
constexpr std::array<StateName, 5> kStates{{
    {DeviceState::ready, u8"可以使用"},
    {DeviceState::unauthorized, u8"手机还没有允许这台电脑"},
    {DeviceState::noPermissions, u8"系统没有给 adb 打开它的权限"},
    {DeviceState::offline, u8"没有回答"},
    {DeviceState::other, u8"其他状态"},
}};

std::string NameOf(DeviceState state) {
    for (const StateName& row : kStates) {
        if (row.state == state) {
            return Ansi(row.name);
        }
    }
    return {};
}

std::string VersionText(std::string_view text) {
    return std::string(LogValue::Version(text).Text());
}

// The first list that the server sends.
std::optional<TrackedDevices> AskServer(std::uint16_t port) {
    const StopSignal never;
    HostSocket server(never);
    const std::string request = AdbHostClient::Frame(kListService);
    if (!server.Connect("127.0.0.1", port) ||
        !server.Send(std::as_bytes(std::span(request)), kServerLimit)) {
        return std::nullopt;
    }
    std::string status;
    TrackReader reader;
    std::array<char, kReadBytes> bytes{};
    while (!reader.Broken()) {
        const std::ptrdiff_t count =
            server.Receive(std::as_writable_bytes(std::span(bytes)), kServerLimit);
        if (count <= 0) {
            break;
        }
        std::string_view come(bytes.data(), static_cast<std::size_t>(count));
        const std::size_t ofStatus = std::min(come.size(), kOkay.size() - status.size());
        status += come.substr(0, ofStatus);
        come.remove_prefix(ofStatus);
        if (!kOkay.starts_with(status)) {
            break;
        }
        reader.Feed(come);
        if (auto devices = reader.Take()) {
            return devices;
        }
    }
    return std::nullopt;
}

}  // namespace

AdbVersion ParseAdbVersion(std::string_view text) {
    AdbVersion version{VersionText({}), VersionText({})};
    for (const std::string_view line : SplitAt(text, '\n')) {
        if (line.starts_with(kProtocolStart)) {
            version.protocol = VersionText(Trim(line.substr(kProtocolStart.size())));
        } else if (line.starts_with(kReleaseStart)) {
            version.release = VersionText(Trim(line.substr(kReleaseStart.size())));
        }
    }
    return version;
}

AdbFacts AskAdb(const LinkEnvironment& environment) {
    AdbFacts facts;
    const AdbCapture capture = RunAdbCapture(VersionCommand(environment));
    if (capture.outcome == RunOutcome::started) {
        facts.version = ParseAdbVersion(capture.text);
    }
    facts.devices = AskServer(environment.hostPort);
    return facts;
}

std::string AdbFactsText(const AdbFacts& facts) {
    std::string text;
    if (facts.version) {
        text += "adb: " + facts.version->protocol + "\n";
        text += Ansi(u8"adb 的发行版本: ") + facts.version->release + "\n";
    } else {
        text += Ansi(u8"adb: 无法运行\n");
    }
    if (!facts.devices) {
        return text + Ansi(u8"adb 服务: 没有运行，或者没有回答\n");
    }
    text += Ansi(u8"adb 服务: 正在运行\n");
    text += Ansi(u8"adb 列出的手机: ") + std::to_string(facts.devices->size()) + "\n";
    for (const TrackedDevice& device : *facts.devices) {
        text.append("  ").append(LogValue::Serial(device.serial).Text());
        text += Ansi(IsWirelessSerial(device.serial) ? u8"，无线，" : u8"，数据线，");
        text += NameOf(device.state) + "\n";
    }
    return text;
}

}  // namespace quorvi
