// The dialog that shows the keys.
#pragma once

#include "ui/kit/SkinDialog.h"

namespace quorvi {

// Dialog 695: the rows of kKeyTable. The window's thread.
class KeysDlg : public SkinDialog {
    Q_OBJECT
  public:
    explicit KeysDlg(QWidget* parent);
};

}  // namespace quorvi
