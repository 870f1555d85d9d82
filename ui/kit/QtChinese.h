// The words that Qt itself shows, in Chinese.
#pragma once

class QApplication;

namespace quorvi {

// Puts the menus of text fields, and all else that Qt and its browser say of their own accord, into
// Chinese, whatever the desktop's language is: the suite speaks no other. Where Qt's translation
// (Debian's qt6-translations-l10n) is not installed, they stay as they are. Called once, before
// the first window is made.
void LoadQtChinese(QApplication& application);

}  // namespace quorvi
