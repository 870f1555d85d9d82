// The dialog of a sync between the bookmarks of the phone and of the PC, which is foreseen only.
#pragma once

#include "ui/kit/SkinDialog.h"

namespace quorvi {

// Dialog 554. There are no bookmarks on the PC yet, so that its 确定 is disabled and does nothing.
// The window's thread.
class CBookmarkSyncDlg : public SkinDialog {
    Q_OBJECT
  public:
    explicit CBookmarkSyncDlg(QWidget* parent = nullptr);
};

}  // namespace quorvi
