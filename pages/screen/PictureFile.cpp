#include "pages/screen/PictureFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <new>
#include <optional>
#include <system_error>

#include "base/Deployment.h"
#include "base/Text.h"
#include "base/os/SmallFile.h"
#include "pages/screen/ModelProperty.h"
#include "pages/screen/PictureEncoders.h"

namespace quorvi {
namespace {

struct Reason {
    std::errc error;
    std::u8string_view text;
};

constexpr std::u8string_view kNoMemory = u8"内存不足";

constexpr std::array kReasons{
    Reason{std::errc::permission_denied, u8"没有写入这个文件夹的权限"},
    Reason{std::errc::operation_not_permitted, u8"没有写入这个文件夹的权限"},
    Reason{std::errc::read_only_file_system, u8"这个磁盘是只读的"},
    Reason{std::errc::no_space_on_device, u8"磁盘空间不足"},
    Reason{std::errc::file_too_large, u8"文件太大，磁盘放不下"},
    Reason{std::errc::no_such_file_or_directory, u8"文件夹不存在"},
    Reason{std::errc::not_a_directory, u8"保存的位置不是文件夹"},
    Reason{std::errc::is_a_directory, u8"已经有同名的文件夹"},
    Reason{std::errc::filename_too_long, u8"文件名太长"},
    Reason{std::errc::not_enough_memory, kNoMemory},
    Reason{std::errc::io_error, u8"磁盘读写出错"},
};

std::string ReasonOf(const std::error_code& error) {
    const auto known = std::find_if(kReasons.begin(), kReasons.end(),
                                    [&](const Reason& reason) { return error == reason.error; });
    return known != kReasons.end()
               ? Ansi(known->text)
               : fmt::format(fmt::runtime(Ansi(u8"无法写入文件（错误 {}）")), error.value());
}

std::optional<std::string> Encode(const RgbPicture& picture, SaveFormat format, int quality) {
    const auto property = [] { return ModelProperty(SiteName(TheDeployment())).value_or(""); };
    switch (format) {
        case SaveFormat::jpg:
            return EncodeJpeg(picture, quality, property());
        case SaveFormat::gif:
            return EncodeGif(picture);
        case SaveFormat::png:
            return EncodePng(picture, property());
        case SaveFormat::bmp:
            return EncodeBmp(picture);
    }
    return std::nullopt;
}

std::optional<std::string> EncodeTurned(const ScreenFrame& frame, Rotation rotation,
                                        SaveFormat format, int quality) {
    try {
        return Encode(TurnedPicture(frame, rotation), format, quality);
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

}  // namespace

SaveResult SavePicture(const ScreenFrame& frame, Rotation rotation,
                       const std::filesystem::path& file, SaveFormat format, int quality) {
    const std::optional<std::string> bytes = EncodeTurned(frame, rotation, format, quality);
    if (!bytes) {
        return {false, Ansi(kNoMemory)};
    }
    if (const std::error_code failed = WriteWhole(file, *bytes)) {
        return {false, ReasonOf(failed)};
    }
    return {true, {}};
}

}  // namespace quorvi
