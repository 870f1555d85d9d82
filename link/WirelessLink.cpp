#include "link/WirelessLink.h"

#include <array>
#include <optional>
#include <utility>

#include "base/Text.h"
#include "link/AdbCapture.h"
#include "link/AdbCommand.h"
#include "link/WirelessAddress.h"

namespace quorvi {
namespace {

struct ServiceType {
    std::string_view type;
    FoundPhone::Waits waits;
};
constexpr ServiceType kServices[] = {
    {"_adb._tcp", FoundPhone::Waits::toConnect},
    {"_adb-tls-connect._tcp", FoundPhone::Waits::toConnect},
    {"_adb-tls-pairing._tcp", FoundPhone::Waits::toPair},
};

// What a line of adb's begins with, and what it means; the first row that fits a line decides.
template <typename Result>
struct LineStart {
    std::string_view words;
    Result result;
};
constexpr LineStart<ConnectResult> kConnectLines[] = {
    {"connected to ", ConnectResult::connected},
    {"already connected to ", ConnectResult::connected},
    {"failed to authenticate to ", ConnectResult::notAllowed},
};
constexpr LineStart<PairResult> kPairLines[] = {
    {"Successfully paired to ", PairResult::paired},
    {"Failed: Wrong password", PairResult::wrongCode},
    {"adb: unknown command", PairResult::tooOld},
    {"error: unknown host service", PairResult::tooOld},
};

template <typename Result, std::size_t Rows>
std::optional<Result> FindLine(std::string_view text, const LineStart<Result> (&rows)[Rows]) {
    for (const std::string_view line : SplitAt(text, '\n')) {
        for (const LineStart<Result>& row : rows) {
            if (line.starts_with(row.words)) {
                return row.result;
            }
        }
    }
    return std::nullopt;
}

// Row = ConnectResult.
constexpr std::array<std::u8string_view, 5> kConnectTexts{
    u8"无线连接成功",
    u8"【错误】手机还没有允许这台电脑：请在手机上按“确定”，或者先配对",
    u8"【错误】连不上这个地址：请看手机是否连着同一个网络，“无线调试”是否打开",
    u8"【错误】地址不对：请输入手机上显示的地址，例如 192.168.1.23:5555",
    u8"【错误】adb 没有启动，请重新安装",
};

// Row = PairResult.
constexpr std::array<std::u8string_view, 7> kPairTexts{
    u8"配对成功，可以连接了",
    u8"【错误】配对码不对：请输入手机上现在显示的六位数字",
    u8"【错误】连不上这个地址：请让手机停在“使用配对码配对设备”的画面",
    u8"【错误】配对要 31 版以上的 adb，请升级或接数据线",
    u8"【错误】地址不对：请输入配对画面上的地址和端口，例如 192.168.1.23:37123",
    u8"【错误】配对码是六位数字",
    u8"【错误】adb 没有启动，请重新安装",
};

}  // namespace

std::vector<FoundPhone> ParseMdnsServices(std::string_view text) {
    std::vector<FoundPhone> phones;
    for (const std::string_view line : SplitAt(text, '\n')) {
        const std::vector<std::string_view> fields = SplitAt(TrimRight(line), '\t');
        if (fields.size() != 3 || fields[0].empty() || phones.size() == kMostFoundPhones) {
            continue;
        }
        std::string_view type = Trim(fields[1]);
        while (type.ends_with('.')) {
            type.remove_suffix(1);
        }
        const std::optional<std::string> address = NormalAddress(fields[2], std::nullopt);
        for (const ServiceType& row : kServices) {
            if (row.type == type && address) {
                phones.push_back({std::string(fields[0]), *address, row.waits});
            }
        }
    }
    return phones;
}

ConnectResult ParseConnect(std::string_view text) {
    return FindLine(text, kConnectLines).value_or(ConnectResult::failed);
}

PairResult ParsePair(std::string_view text) {
    return FindLine(text, kPairLines).value_or(PairResult::failed);
}

std::string StatusText(ConnectResult result) {
    return Ansi(kConnectTexts.at(static_cast<std::size_t>(result)));
}

std::string StatusText(PairResult result) {
    return Ansi(kPairTexts.at(static_cast<std::size_t>(result)));
}

std::vector<FoundPhone> FindWirelessPhones(const LinkEnvironment& environment) {
    return ParseMdnsServices(RunAdbCapture(MdnsServicesCommand(environment)).text);
}

ConnectResult ConnectWireless(std::string_view address, const LinkEnvironment& environment) {
    std::optional<std::string> normal = NormalAddress(address);
    if (!normal) {
        return ConnectResult::noAddress;
    }
    const AdbCapture capture = RunAdbCapture(ConnectCommand(environment, std::move(*normal)));
    return capture.outcome == RunOutcome::started ? ParseConnect(capture.text)
                                                  : ConnectResult::noAdb;
}

PairResult PairWireless(std::string_view address, std::string_view code,
                        const LinkEnvironment& environment) {
    std::optional<std::string> normal = NormalAddress(address, std::nullopt);
    if (!normal) {
        return PairResult::noAddress;
    }
    if (!IsPairingCode(code)) {
        return PairResult::noCode;
    }
    const AdbCapture capture =
        RunAdbCapture(PairCommand(environment, std::move(*normal), std::string(code)));
    return capture.outcome == RunOutcome::started ? ParsePair(capture.text) : PairResult::noAdb;
}

}  // namespace quorvi
