// The keys of the main window and its lists, as their user is told them.
//
// The table of the same name in Data/guide.html holds the same rows (test
// KeyTable.TheGuideHoldsTheSameRows).
#pragma once

#include <array>
#include <string_view>

namespace quorvi {

struct KeyRow {
    std::u8string_view keys;  // of several, any one; a blank between two
    std::u8string_view deed;
};

inline constexpr std::array<KeyRow, 13> kKeyTable{{
    {u8"F1", u8"打开使用指南，在浏览器里，不需要网络"},
    {u8"?", u8"显示这些按键"},
    {u8"Tab Shift+Tab", u8"到下一个控件，到上一个控件"},
    {u8"← → ↑ ↓", u8"在标签、导航和列表里移动"},
    {u8"F5", u8"刷新这一页"},
    {u8"Ctrl+N", u8"添加联系人、分组、闹铃或书签，编写短信"},
    {u8"Ctrl+F Esc", u8"在列表和打开的会话里查找，结束查找"},
    {u8"Ctrl+C", u8"复制选中的一行，屏幕截图页复制图片"},
    {u8"空格", u8"勾选列表里的一行，按下按钮"},
    {u8"Shift+空格 Shift+↑ Shift+↓", u8"连续勾选；按住 Shift 点复选框也可以"},
    {u8"Ctrl+A", u8"勾选列表里的全部，再按一次全部取消"},
    {u8"Delete", u8"删除勾选的；没有勾选时，删除选中的一行"},
    {u8"菜单键", u8"打开一行的菜单"},
}};

}  // namespace quorvi
