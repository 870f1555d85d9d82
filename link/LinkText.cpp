#include "link/LinkText.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "base/Text.h"

namespace quorvi {
namespace {

// Row = FindDeviceResult. The bracket that the third text opens is not closed; kept on purpose, as
// the text is known (FindDevice.TextOfAMissingAdbHasNoClosingBracket).
constexpr std::array<std::u8string_view, 5> kSearchTexts{
    u8"",
    u8"【内部错误】，请重新安装",
    u8"【组件丢失，请重新安装",
    u8"【错误】没有找到Android设备",
    u8"【错误】没有选择任何设备",
};

// Row = ForwardEvent.
struct ForwardTexts {
    std::u8string_view banner;
    std::u8string_view status;
};
constexpr std::array<ForwardTexts, 4> kForwardTexts{{
    {u8"【错误】没有找到Android设备", u8"【错误】没有找到设备"},
    {u8"【错误】连接端口失败", u8"【错误】连接端口失败"},
    {u8"【错误】连接协议失败", u8"【错误】连接协议失败"},
    {u8"", u8"连接协议成功"},
}};

// Row = InstallResult.
constexpr std::array<std::u8string_view, 5> kInstallTexts{
    u8"安装成功",
    u8"【错误】组件丢失，请到官网重下",
    u8"【错误】签名错误，先卸载老版本",
    u8"【错误】安装失败，手机空间不足",
    u8"【错误】安装失败，请到官网重下",
};

}  // namespace

std::string BannerText(FindDeviceResult result) {
    return Ansi(kSearchTexts.at(static_cast<std::size_t>(result)));
}

std::string BannerText(ForwardEvent event) {
    return Ansi(kForwardTexts.at(static_cast<std::size_t>(event)).banner);
}

std::string StatusText(ForwardEvent event) {
    return Ansi(kForwardTexts.at(static_cast<std::size_t>(event)).status);
}

std::string BannerText(InstallResult result) {
    return Ansi(kInstallTexts.at(static_cast<std::size_t>(result)));
}

}  // namespace quorvi
