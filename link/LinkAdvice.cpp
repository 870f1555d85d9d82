#include "link/LinkAdvice.h"

#include <cstddef>

namespace quorvi {
namespace {

// Row = LinkTrouble.
constexpr std::array<LinkAdvice, 4> kAdvice{{
    {},
    {u8"手机在等您允许“USB 调试”",
     u8"手机还没有允许这台电脑",
     {u8"解锁手机，屏幕上会问“允许 USB 调试吗？”", u8"勾选“一律允许使用这台计算机进行调试”",
      u8"按“确定”，Quorvi 会自动接着连接"},
     u8"没有看到提示？拔下数据线再插一次；仍然没有，就在“开发者选项”里按“撤消 USB 调试授权”。"},
    {u8"系统不让 adb 打开手机：请安装软件包 android-sdk-platform-tools-common",
     u8"系统不让 adb 打开这部手机",
     {u8"安装软件包 android-sdk-platform-tools-common，里面有 udev 规则", u8"拔下数据线，再插一次",
      u8"Quorvi 会自动接着连接"},
     u8"仍然不行？把自己加入用户组 plugdev，注销后再登录。"},
    {u8"手机没有应答：请解锁手机，再插一次数据线",
     u8"手机没有应答",
     {u8"解锁手机，让屏幕亮着", u8"拔下数据线再插一次；用无线网络时，看手机是否还连着同一个网络",
      u8"手机有了应答，Quorvi 会自动接着连接"},
     u8"仍然没有应答？把手机上的“USB 调试”关掉再打开，或者重新启动手机。"},
}};

}  // namespace

const LinkAdvice& AdviceOn(LinkTrouble trouble) {
    return kAdvice.at(static_cast<std::size_t>(trouble));
}

}  // namespace quorvi
