#include <gtest/gtest.h>

#include "base/Text.h"
#include "download/DownloadTask.h"

namespace quorvi {
namespace {

TEST(DownloadTask, EachStateHasItsCaption) {
    EXPECT_EQ(StateCaption(TaskState::waiting), u8"等待开始");
    EXPECT_EQ(StateCaption(TaskState::downloading), u8"下载中..");
    EXPECT_EQ(StateCaption(TaskState::paused), u8"暂停下载");
    EXPECT_EQ(StateCaption(TaskState::done), u8"下载完成");
    EXPECT_EQ(StateCaption(TaskState::failed), u8"下载失败");
    EXPECT_EQ(StateCaption(TaskState::installing), u8"安装APK");
    EXPECT_EQ(StateCaption(TaskState::installingXap), u8"安装XAP");
    EXPECT_EQ(StateCaption(TaskState::converting), u8"视频转换");
    EXPECT_EQ(StateCaption(TaskState::installFailed), u8"安装失败");
}

TEST(DownloadTask, EachTypeHasItsCaption) {
    EXPECT_EQ(TypeCaption(TaskType::application), u8"应用");
    EXPECT_EQ(TypeCaption(TaskType::music), u8"音乐");
    EXPECT_EQ(TypeCaption(TaskType::ringtone), u8"铃声");
    EXPECT_EQ(TypeCaption(TaskType::video), u8"视频");
    EXPECT_EQ(TypeCaption(TaskType::novel), u8"小说");
    EXPECT_EQ(TypeCaption(TaskType::wallpaper), u8"壁纸");
}

TEST(DownloadTask, AnyOtherNumberIsUnknown) {
    for (const int number : {-1, 9, 1000, -2'147'483'647}) {
        EXPECT_EQ(StateCaption(static_cast<TaskState>(number)), u8"未知") << number;
        EXPECT_EQ(TypeCaption(static_cast<TaskType>(number)), u8"未知") << number;
    }
    EXPECT_EQ(TypeCaption(static_cast<TaskType>(6)), u8"未知");
}

TEST(DownloadTask, ItsFileBearsThePackagesName) {
    EXPECT_EQ(TaskFile("/home/li/QuorviDownload", "com.example.a"),
              "/home/li/QuorviDownload/com.example.a.apk");
    EXPECT_EQ(TaskFile("/home/li/", "com.example.a"), "/home/li/com.example.a.apk");
    EXPECT_EQ(TaskFile(Ansi(u8"/home/李/下载"), "a"),
              std::filesystem::path(u8"/home/李/下载/a.apk"));
}

TEST(DownloadTask, NoNameLeadsItsFileOutOfTheFolder) {
    for (const char* name : {"", "..", "../a", "/etc/a", "a/b", "a/../../b", ".a", "a b", "a\nb"}) {
        EXPECT_EQ(TaskFile("/home/li", name), std::nullopt) << name;
    }
    EXPECT_EQ(TaskFile("", "com.example.a"), std::nullopt);
}

}  // namespace
}  // namespace quorvi
