// What the tests of a dialog share: the dialog, its results, and an agent that answers it as the
// test says.
#pragma once

#include <QDialog>
#include <QPointer>
#include <vector>

#include "tests/support/PageTest.h"
#include "tests/support/ScriptedAgent.h"

namespace quorvi {

template <typename D>
class AgentDialogTest : public PageTest {
  protected:
    ~AgentDialogTest() override { delete dialog_; }

    void Show(D* dialog) {
        dialog_ = dialog;
        dialog_->Open([this](int result) { results_.push_back(result); });
    }
    // Waits for the first end.
    bool Ended(int result) {
        return WaitFor([&] { return !results_.empty(); }) && results_.front() == result;
    }
    bool Gone() {
        return WaitFor([&] { return dialog_ == nullptr; });
    }

    ScriptedAgent agent_;
    QPointer<D> dialog_;
    std::vector<int> results_;
};

}  // namespace quorvi
