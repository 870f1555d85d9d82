#include "phone/agent/Applications.h"

#include <algorithm>
#include <cstdlib>

namespace quorvi::phone {
namespace {

constexpr std::string_view kSystemInstalled = "2011-03-02 20:00:00";

// The agent is none of them: it comes and goes. Of the system itself nobody knows when it was
// installed, the notes have no icon, and the audio books are larger than four gigabytes.
constexpr Application kApplications[] = {
    {u8"Android 系统", "android", "2.3.4", 13'624, "", true},
    {u8"电话", "com.android.phone", "2.3.4", 3'580, kSystemInstalled, true},
    {u8"联系人", "com.android.contacts", "2.3.4", 2'212, kSystemInstalled, true},
    {u8"联系人存储", "com.android.providers.contacts", "2.3.4", 908, kSystemInstalled, true},
    {u8"信息", "com.android.mms", "2.3.4", 1'976, kSystemInstalled, true},
    {u8"桌面", "com.android.launcher", "2.3.4", 2'748, kSystemInstalled, true},
    {u8"系统界面", "com.android.systemui", "2.3.4", 1'104, kSystemInstalled, true},
    {u8"设置", "com.android.settings", "2.3.4", 4'316, kSystemInstalled, true},
    {u8"闹钟", "com.android.alarmclock", "2.0.3", 1'188, kSystemInstalled, true},
    {u8"日历存储", "com.android.providers.calendar", "2.3.4", 316, kSystemInstalled, true},
    {u8"媒体存储", "com.android.providers.media", "2.3.4", 148, kSystemInstalled, true},
    {u8"下载内容", "com.android.providers.downloads", "2.3.4", 372, kSystemInstalled, true},
    {u8"浏览器", "com.android.browser", "2.3.4", 2'884, kSystemInstalled, true},
    {u8"电子邮件", "com.android.email", "2.3", 1'720, kSystemInstalled, true},
    {u8"蓝牙共享", "com.android.bluetooth", "2.3.4", 640, kSystemInstalled, true},
    {u8"音乐", "com.android.music", "2.3.4", 980, kSystemInstalled, true},
    {u8"照相机", "com.android.camera", "1.1.40030", 1'536, kSystemInstalled, true},
    {u8"图库", "com.android.gallery", "1.1.40030", 3'208, kSystemInstalled, true},
    {u8"计算器", "com.android.calculator2", "2.3.4", 216, kSystemInstalled, true},
    {u8"拼音输入法", "com.android.inputmethod.pinyin", "1.0.0", 2'908, kSystemInstalled, true},
    {u8"小区天气", "com.example.weather", "3.2", 1'364, "2011-04-09 21:14:37"},
    {u8"离线词典", "com.example.dictionary", "2011.05", 47'180, "2011-05-14 10:02:51"},
    {u8"便笺", "com.example.notes", "0.9.1", 88, "2011-05-20 07:48:09", false, false},
    {u8"听书", "com.example.audiobooks", "1.6.2", 4'519'936, "2011-05-28 22:31:44"},
    {u8"公交到站", "com.example.bus", "4.0.1", 2'632, "2011-06-01 08:05:12"},
    {u8"家庭账本", "com.example.ledger", "1.3", 512, "2011-06-03 19:20:00"},
    {u8"跑步记录 2.0", "com.example.run", "2.0.7", 3'716, "2011-06-07 06:11:25"},
    {u8"聊天小窝", "com.example.chat", "5.1.0 beta", 9'844, "2011-06-11 12:40:03"},
    {u8"五子棋", "com.example.gomoku", "1.0", 734, "2011-06-12 20:56:18"},
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
