#include "download/QueueText.h"

#include <fmt/format.h>

#include <array>

#include "base/Format.h"
#include "base/Text.h"

namespace quorvi {
namespace {

// A task's title between two texts.
struct AboutTask {
    std::u8string_view before;
    std::u8string_view behind;

    [[nodiscard]] std::string With(std::string_view title) const {
        return Ansi(before).append(title).append(Ansi(behind));
    }
};

// Row = DownloadFault.
constexpr std::array<AboutTask, 4> kFaultTexts{{
    {u8"【错误】下载失败：", u8"，请稍后继续下载"},
    {u8"【错误】下载失败：", u8"，连接不到服务器，请检查网络后继续下载"},
    {u8"【错误】下载失败：", u8"，磁盘空间不足，请清理磁盘后继续下载"},
    {u8"【错误】下载失败：", u8"，无法写入保存目录，请检查目录后继续下载"},
}};

// Row = InstallResult.
constexpr std::array<AboutTask, 5> kInstallTexts{{
    {u8"安装成功：", u8""},
    {u8"【错误】安装失败：", u8"，无法运行adb，请检查后重新安装"},
    {u8"【错误】安装失败：", u8"，签名错误，请先卸载手机上的老版本"},
    {u8"【错误】安装失败：", u8"，手机空间不足，请清理手机后重新安装"},
    {u8"【错误】安装失败：", u8"，请检查手机的连接后重新安装"},
}};

constexpr AboutTask kNoPhoneText{u8"【错误】安装失败：", u8"，没有连接手机，请连接后重新安装"};

// Row = StoreResult.
constexpr std::array<std::u8string_view, 7> kStoreTexts{
    u8"",
    u8"【错误】任务的名称不正确，没有添加",
    u8"【错误】无法打开任务数据库，请检查程序目录的权限",
    u8"【错误】磁盘空间不足，无法保存任务，请清理磁盘后重试",
    u8"【错误】任务数据库无法写入，请检查程序目录的权限",
    u8"【错误】任务数据库正忙，请稍后重试",
    u8"【错误】任务数据库已损坏，无法保存任务",
};

}  // namespace

std::string ProgressCell(std::int32_t percent) {
    return fmt::format("{} %", percent);
}

std::string SpeedStatus(std::int32_t speed) {
    return Ansi(u8"下载速度 ")
        .append(FormatByteSize(static_cast<std::uint64_t>(speed)))
        .append(Ansi(u8"/秒"));
}

std::string FaultStatus(DownloadFault fault, std::string_view title) {
    return kFaultTexts.at(static_cast<std::size_t>(fault)).With(title);
}

std::string InstallStatus(InstallResult result, bool phoneChosen, std::string_view title) {
    if (result == InstallResult::failed && !phoneChosen) {
        return kNoPhoneText.With(title);
    }
    return kInstallTexts.at(static_cast<std::size_t>(result)).With(title);
}

std::string StoreStatus(StoreResult result) {
    return Ansi(kStoreTexts.at(static_cast<std::size_t>(result)));
}

std::string NothingCheckedStatus() {
    return Ansi(u8"【提示】勾选复选框后才可删除");
}

}  // namespace quorvi
