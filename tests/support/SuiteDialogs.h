// Every dialog of the suite, each with something in it: over an agent and an adb that answer.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <ostream>
#include <vector>

#include "link/DeviceContext.h"
#include "tests/support/FakeAdb.h"
#include "tests/support/PageTest.h"
#include "tests/support/ScriptedAgent.h"
#include "tests/support/SmallPhoneDb.h"
#include "ui/kit/SkinDialog.h"

namespace quorvi {

// What the dialogs stand on.
struct DialogGround {
    DialogGround();
    ~DialogGround() { delete dialog; }

    ScriptedAgent agent;
    FakeAdb adb;
    DeviceContext device;
    ScratchDirectory scratch;
    FakeHost host;
    QWidget window;
    QPointer<SkinDialog> dialog;
};

struct SuiteDialog {
    const char* name;
    // The numbers of its controls that take part in the Tab key's round: top to bottom, a column
    // before the next one, and then the footer from left to right.
    const char* controls;
    std::function<SkinDialog*(DialogGround& ground)> make;
};

void PrintTo(const SuiteDialog& dialog, std::ostream* out);

// A dialog that is added to the suite is added here.
[[nodiscard]] std::vector<SuiteDialog> SuiteDialogs();

// A test of each of them.
class EachDialog : public testing::TestWithParam<SuiteDialog> {
  protected:
    // Opens the dialog of this test over a window, and waits until all that it loads is there.
    void SetUp() override;

    [[nodiscard]] SkinDialog& Dialog() { return *ground_.dialog; }

  private:
    DialogGround ground_;
};

}  // namespace quorvi
