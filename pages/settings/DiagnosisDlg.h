// Shows a report before it is saved.
#pragma once

#include <QString>

#include "ui/kit/SkinDialog.h"

namespace quorvi {

// Dialog 691. Ends with Accepted when it is to be saved, with Rejected for anything else.
class DiagnosisDlg : public SkinDialog {
    Q_OBJECT
  public:
    // `preview`: all that its user is to see of it.
    explicit DiagnosisDlg(const QString& preview, QWidget* parent = nullptr);
};

}  // namespace quorvi
