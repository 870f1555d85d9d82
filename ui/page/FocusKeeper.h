// Where the keys are while controls are disabled.
#pragma once

#include <QPointer>
#include <QWidget>

namespace quorvi {

// Qt hands the focus of a control that is disabled on to the next one, into which the user would go
// on to type. Instead the window itself takes it for that time. The window's thread.
class FocusKeeper {
  public:
    // To be made before `controls`, or some controls in it, are disabled.
    explicit FocusKeeper(const QWidget& controls);
    // To be called when they are enabled again: the one that had the focus gets it back, unless it
    // can't be seen or the user has given the focus to another.
    void GiveBack() const;

  private:
    QPointer<QWidget> had_;
};

}  // namespace quorvi
