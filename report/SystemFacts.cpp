#include "report/SystemFacts.h"

#include <sys/utsname.h>

#include "base/Text.h"
#include "base/Version.h"
#include "base/os/SmallFile.h"

namespace quorvi {
namespace {

constexpr std::size_t kMostFact = 40;
constexpr const char* kOsRelease = "/etc/os-release";

bool IsKept(char c) {
    const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return isLetter || (c >= '0' && c <= '9') ||
           std::string_view(" .:;_-+@").find(c) != std::string_view::npos;
}

std::string Line(std::u8string_view name, std::string_view value) {
    const std::string fact = FactText(value);
    return Ansi(name) + ": " + (fact.empty() ? Ansi(u8"不知道") : fact) + "\n";
}

std::string Line(std::u8string_view name, const Environment& environment, const char* variable) {
    return Line(name, environment(variable).value_or(std::string()));
}

}  // namespace

std::string FactText(std::string_view text) {
    std::string fact;
    for (const char c : text.substr(0, kMostFact)) {
        fact += IsKept(c) ? c : '_';
    }
    return fact;
}

std::string ParseOsRelease(std::string_view text) {
    std::string id;
    std::string version;
    for (std::string_view line : SplitAt(text, '\n')) {
        line = Trim(line);
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) {
            continue;
        }
        std::string_view value = line.substr(equals + 1);
        if (value.size() > 1 && value.front() == value.back() &&
            (value.front() == '"' || value.front() == '\'')) {
            value = value.substr(1, value.size() - 2);
        }
        if (line.substr(0, equals) == "ID") {
            id = value;
        } else if (line.substr(0, equals) == "VERSION_ID") {
            version = value;
        }
    }
    return id + (id.empty() || version.empty() ? "" : " ") + version;
}

std::string SystemFactsText(const Environment& environment) {
    utsname system{};
    uname(&system);
    return Line(u8"奎维掌上工坊", ProductVersion()) +
           Line(u8"系统", ParseOsRelease(ReadSmallFile(kOsRelease).value_or(std::string()))) +
           Line(u8"内核", system.release) + Line(u8"处理器", system.machine) +
           Line(u8"桌面", environment, "XDG_CURRENT_DESKTOP") +
           Line(u8"会话", environment, "XDG_SESSION_TYPE") + Line(u8"语言", environment, "LANG") +
           Line(u8"文字编码", ActiveCodePage() == CodePage::gbk ? "GBK" : "GB18030");
}

}  // namespace quorvi
