// The technical data of phone models, out of the file device.xml. Texts are ANSI.
#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Xml.h"

namespace quorvi {

// A section of the file, and its name for the user.
struct SpecsPlatform {
    std::string_view element;
    std::u8string_view caption;
};
inline constexpr std::array<SpecsPlatform, 5> kSpecsPlatforms{{
    {"android-device", u8"Android (谷歌)"},
    {"ophone-device", u8"Ophone (中国移动)"},
    {"symbian-device", u8"Symbian (诺基亚)"},
    {"apple-device", u8"iOS (苹果)"},
    {"windowsphone-device", u8"Windows Phone (微软)"},
}};

// What is told of a model, in the order of its elements.
inline constexpr std::array<std::u8string_view, 18> kSpecCaptions{
    u8"手机型号", u8"上市时间", u8"系统版本", u8"外观尺寸", u8"产品重量", u8"屏幕参数",
    u8"主分辨率", u8"网络制式", u8"拍照参数", u8"CPU信息",  u8"RAM信息",  u8"ROM信息",
    u8"GPS支持",  u8"WiFi支持", u8"重力感应", u8"电池型号", u8"待机时间", u8"通话时间",
};

// Which of each list is chosen: positions from 0.
struct SpecsChoice {
    std::size_t platform = 0;
    std::size_t maker = 0;
    std::size_t model = 0;
};

struct SpecsLists {
    std::vector<std::string> makers;
    std::vector<std::string> models;  // of the chosen maker
    // Of the chosen model, by the positions of kSpecCaptions; shorter where the file tells less.
    std::vector<std::string> values;
};

// The lists that a choice leads to. A platform that there is not counts as the first. A maker that
// there is not has no models, and a model that there is not no values. Of two makers whose elements
// have one name, both show what stands in the first. Nothing for a document that is no such file,
// or has no section for the platform. Any thread, one at a time.
[[nodiscard]] std::optional<SpecsLists> ReadSpecs(const XmlDocument& file,
                                                  const SpecsChoice& choice);

// The same of a file on the disk.
[[nodiscard]] std::optional<SpecsLists> ReadSpecs(const std::filesystem::path& file,
                                                  const SpecsChoice& choice);

// A line of a file that is not as it should be.
struct SpecsFinding {
    std::size_t line = 1;
    std::string text;
};

// What is wrong with a file, in the order of its lines; nothing when all is as it should be.
[[nodiscard]] std::vector<SpecsFinding> CheckSpecs(std::string_view bytes);

}  // namespace quorvi
