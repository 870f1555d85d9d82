#include "pages/apps/UninstallOutcome.h"

#include <algorithm>
#include <array>

#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::string_view kSuccess = "Success";
// Bytes of what adb said that are quoted.
constexpr std::size_t kMostQuoted = 96;

struct AdbWords {
    std::string_view words;  // in lower case
    UninstallOutcome outcome;
};
// In the order in which they are looked for, what tells more first.
constexpr auto kAdbWords = std::to_array<AdbWords>({
    {"delete_failed_device_policy_manager", UninstallOutcome::deviceAdmin},
    {"delete_failed_user_restricted", UninstallOutcome::notAllowed},
    {"delete_failed_owner_blocked", UninstallOutcome::notAllowed},
    {"delete_failed_app_pinned", UninstallOutcome::pinned},
    {"delete_failed_used_shared_library", UninstallOutcome::needed},
    {"delete_failed_aborted", UninstallOutcome::aborted},
    {"delete_failed_internal_error", UninstallOutcome::refused},
    {"not installed for", UninstallOutcome::notInstalled},
    {"unknown package", UninstallOutcome::notInstalled},
    {"more than one device", UninstallOutcome::severalPhones},
    {"more than one emulator", UninstallOutcome::severalPhones},
    {"unauthorized", UninstallOutcome::unauthorized},
    {"still authorizing", UninstallOutcome::unauthorized},
    {"device offline", UninstallOutcome::offline},
    {"still connecting", UninstallOutcome::offline},
    {"no permissions", UninstallOutcome::noPermission},
    {"insufficient permissions", UninstallOutcome::noPermission},
    {"no devices", UninstallOutcome::noPhone},
    {"device not found", UninstallOutcome::noPhone},
    {"connect to daemon", UninstallOutcome::noServer},
    {"failed to start daemon", UninstallOutcome::noServer},
    {"protocol fault", UninstallOutcome::brokenOff},
    {"error: closed", UninstallOutcome::brokenOff},
});

// Old phones give no reason behind this word.
constexpr std::string_view kFailure = "Failure";

struct Reason {
    UninstallOutcome outcome;
    std::u8string_view text;
};
constexpr auto kReasons = std::to_array<Reason>({
    {UninstallOutcome::notInstalled, u8"手机上已经没有它了，请重新获取应用"},
    {UninstallOutcome::deviceAdmin, u8"它是设备管理器，请先在手机的安全设置里停用它"},
    {UninstallOutcome::notAllowed, u8"手机不允许当前用户卸载，请在手机上解除限制后再试"},
    {UninstallOutcome::pinned, u8"它固定在手机屏幕上，请先在手机上取消固定"},
    {UninstallOutcome::needed, u8"其他应用还要用它，请先卸载那些应用"},
    {UninstallOutcome::aborted, u8"手机中止了卸载，请再试一次"},
    {UninstallOutcome::refused, u8"手机不肯卸载，它可能是系统应用，请在手机的应用设置里停用"},
    {UninstallOutcome::severalPhones, u8"电脑连着不止一部手机，请只留下一部再试"},
    {UninstallOutcome::noPhone, u8"没有找到手机，请检查数据线和 USB 调试"},
    {UninstallOutcome::offline, u8"手机没有响应，请重新插拔数据线再试"},
    {UninstallOutcome::unauthorized, u8"手机还没有允许 USB 调试，请在手机上点“允许”"},
    {UninstallOutcome::noPermission, u8"电脑没有使用手机的权限，请检查 USB 设备的权限"},
    {UninstallOutcome::brokenOff, u8"和手机的连接断了，请重新插拔数据线再试"},
    {UninstallOutcome::noServer, u8"adb 服务没有启动，请稍后再试"},
    {UninstallOutcome::noAdb, u8"没有找到 adb，请安装 adb 后再试"},
});

constexpr std::u8string_view kNothingSaid = u8"adb 没有说明原因，请再试一次";
constexpr std::u8string_view kSaid = u8"adb 说：";

bool HoldsLine(std::string_view said, std::string_view line) {
    const auto lines = SplitAt(said, '\n');
    return std::ranges::any_of(lines, [&](std::string_view each) { return Trim(each) == line; });
}

// ANSI.
std::string LastLine(std::string_view said) {
    said = Trim(said);
    std::string line(Trim(said.substr(said.rfind('\n') + 1)));
    std::ranges::replace_if(
        line, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    if (line.size() > kMostQuoted) {
        line.resize(kMostQuoted);
        // Not within a character.
        while (!line.empty() && (static_cast<unsigned char>(line.back()) & 0x80U) != 0) {
            line.pop_back();
        }
        line += "...";
    }
    return ToAnsi(line);
}

}  // namespace

UninstallOutcome ParseUninstall(std::string_view said) {
    if (HoldsLine(said, kSuccess)) {
        return UninstallOutcome::done;
    }
    const std::string words = ToLower(said);
    const auto found = std::ranges::find_if(
        kAdbWords, [&](const AdbWords& row) { return words.find(row.words) != std::string::npos; });
    if (found != kAdbWords.end()) {
        return found->outcome;
    }
    return HoldsLine(said, kFailure) ? UninstallOutcome::refused : UninstallOutcome::unknown;
}

std::string UninstallReason(UninstallOutcome outcome, std::string_view said) {
    if (outcome == UninstallOutcome::done) {
        return {};
    }
    if (const auto found = std::ranges::find(kReasons, outcome, &Reason::outcome);
        found != kReasons.end()) {
        return Ansi(found->text);
    }
    const std::string line = LastLine(said);
    return line.empty() ? Ansi(kNothingSaid) : Ansi(kSaid) + line;
}

}  // namespace quorvi
