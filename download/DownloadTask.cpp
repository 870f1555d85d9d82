#include "download/DownloadTask.h"

#include <array>
#include <span>

#include "base/PackageName.h"
#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::array<std::u8string_view, 9> kStateCaptions{
    u8"等待开始", u8"下载中..", u8"暂停下载", u8"下载完成", u8"下载失败",
    u8"安装APK",  u8"安装XAP",  u8"视频转换", u8"安装失败",
};
constexpr std::array<std::u8string_view, 6> kTypeCaptions{
    u8"应用", u8"音乐", u8"铃声", u8"视频", u8"小说", u8"壁纸",
};
constexpr std::u8string_view kUnknown = u8"未知";

constexpr std::string_view kPackageSuffix = ".apk";

std::u8string_view CaptionOf(std::span<const std::u8string_view> captions, std::int32_t number) {
    const auto place = static_cast<std::size_t>(number);
    return number >= 0 && place < captions.size() ? captions[place] : kUnknown;
}

}  // namespace

std::u8string_view StateCaption(TaskState state) {
    return CaptionOf(kStateCaptions, static_cast<std::int32_t>(state));
}

std::u8string_view TypeCaption(TaskType type) {
    return CaptionOf(kTypeCaptions, static_cast<std::int32_t>(type));
}

std::optional<std::filesystem::path> TaskFile(std::string_view savePath,
                                              std::string_view uniqueId) {
    if (savePath.empty() || !IsPackageName(uniqueId)) {
        return std::nullopt;
    }
    return std::filesystem::path(ToUtf8(savePath)) / std::string(uniqueId).append(kPackageSuffix);
}

}  // namespace quorvi
