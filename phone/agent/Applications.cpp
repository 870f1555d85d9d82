#include "phone/agent/Applications.h"

#include <algorithm>
#include <cstdlib>

namespace quorvi::phone {
namespace {

// The agent is none of them: it comes and goes.
constexpr Application kApplications[] = {
    {u8"Android 系统", "android", true},
    {u8"电话", "com.android.phone", true},
    {u8"联系人", "com.android.contacts", true},
    {u8"联系人存储", "com.android.providers.contacts", true},
    {u8"信息", "com.android.mms", true},
    {u8"桌面", "com.android.launcher", true},
    {u8"系统界面", "com.android.systemui", true},
    {u8"设置", "com.android.settings", true},
    {u8"闹钟", "com.android.alarmclock", true},
    {u8"日历存储", "com.android.providers.calendar", true},
    {u8"媒体存储", "com.android.providers.media", true},
    {u8"下载内容", "com.android.providers.downloads", true},
    {u8"浏览器", "com.android.browser", true},
    {u8"电子邮件", "com.android.email", true},
    {u8"蓝牙共享", "com.android.bluetooth", true},
    {u8"音乐", "com.android.music", true},
    {u8"照相机", "com.android.camera", true},
    {u8"图库", "com.android.gallery", true},
    {u8"计算器", "com.android.calculator2", true},
    {u8"拼音输入法", "com.android.inputmethod.pinyin", true},
    {u8"小区天气", "com.example.weather"},
    {u8"离线词典", "com.example.dictionary"},
    {u8"便笺", "com.example.notes"},
    {u8"听书", "com.example.audiobooks"},
    {u8"公交到站", "com.example.bus"},
    {u8"家庭账本", "com.example.ledger"},
    {u8"跑步记录 2.0", "com.example.run"},
    {u8"聊天小窝", "com.example.chat"},
    {u8"五子棋", "com.example.gomoku"},
};

}  // namespace

std::span<const Application> DeliveredApplications() {
    return kApplications;
}

const Application& ApplicationOf(std::string_view package) {
    const auto found = std::find_if(std::begin(kApplications), std::end(kApplications),
                                    [&](const Application& one) { return one.package == package; });
    if (found == std::end(kApplications)) {
        std::abort();  // a slip in one of the phone's own tables
    }
    return *found;
}

}  // namespace quorvi::phone
