// The guide for users, which is delivered with the suite and needs no network.
#pragma once

#include <QObject>
#include <functional>
#include <string_view>

#include "base/Places.h"

namespace quorvi {

// What the status shows when it does not open.
inline constexpr std::u8string_view kGuideNotOpened =
    u8"【X】没有打开使用指南，请检查桌面有没有浏览器";

// Opens it with the desktop's browser; looks for the file on a worker, since the disk may be slow.
// `failed` is called when there is no such file or no browser, and not at all when `context` is
// gone by then. `places` differ in tests only. The window's thread.
void OpenGuide(QObject* context, std::function<void()> failed, Places places = ThePlaces());

}  // namespace quorvi
