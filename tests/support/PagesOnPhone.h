// The main window with the suite's own pages, on a desk with one phone: what a page asks for goes
// through the real adb server's forward to the agent. One window for all tests of a suite: the
// browser's set-up is dear.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/DialogDriver.h"
#include "tests/support/HtmlDriver.h"
#include "tests/support/PhoneDesk.h"
#include "tests/support/PrintQt.h"
#include "tests/support/WindowDriver.h"
#include "tests/support/WireBytes.h"
#include "ui/kit/QtText.h"

namespace quorvi {

// The suite's pages, at this site instead of the delivered one.
[[nodiscard]] PageMakers MakersAt(const Deployment& deployment);

class PagesOnPhone : public testing::Test {
  public:
    static void SetUpTestSuite();
    static void TearDownTestSuite();

  protected:
    // Sets the desk up with a window of these pages, in the place of SetUpTestSuite.
    static void StandUp(PageMakers makers, const std::filesystem::path& taskDatabase = {});

    // Page numbers.
    static constexpr int kContacts = 10;
    static constexpr int kMessages = 11;
    static constexpr int kCalls = 12;
    static constexpr int kAlarms = 13;
    static constexpr int kBookmarks = 16;
    static constexpr int kFiles = 15;

    // The phone as it was delivered and linked, its log empty, no dialog open, the status label as
    // at the start.
    void SetUp() override;
    // Expects that each request of the test had the frame that its command asks for.
    void TearDown() override;

    static PhoneDesk& Desk() { return *desk_; }
    static CMainDlg& Window() { return desk_->Window(); }

    // A line for the phone's control; its answer.
    static std::string Tell(std::string_view line) { return desk_->Rig().Control(0, line); }
    // The requests of one command that the phone took, as its log has them, in their order.
    [[nodiscard]] static std::vector<std::string> Requests(int code);
    // Ends every fault, plugs the phone in, and forwards the port to its running agent.
    static void Restore();

    // Comes to a page by its tab and its item, and waits until it stands.
    static void OpenPage(int page);
    // The same, with what the phone holds now; its log is empty then.
    static void OpenFresh(int page);
    // Presses a command button above the page, and lets what follows begin.
    static void Command(std::size_t index);
    // Until the page and the dialogs that can be seen are at no work.
    [[nodiscard]] static bool WaitIdle();
    [[nodiscard]] static bool Idle();
    // Until no page reads anything, those that are not shown included: one that meets a fault that
    // was not meant for it says so in the status.
    [[nodiscard]] static bool WaitNoPageReads();
    // Until the dialog of a number stands, or is gone, and nothing is at work.
    [[nodiscard]] static bool WaitForDialog(int number);
    [[nodiscard]] static bool WaitForNoDialog(int number);
    // Presses a button of an open dialog with the mouse.
    static void Press(int dialog, int control);
    // A control of the page that is shown, or of an open dialog.
    template <typename Control = QWidget>
    [[nodiscard]] static Control& OnPage(int control) {
        return *FindControl<Control>(Window().ShownPage(), control);
    }
    template <typename Control = QWidget>
    [[nodiscard]] static Control& In(int dialog, int control) {
        return *FindControl<Control>(OpenDialog(dialog), control);
    }
    // The list of the page that is shown, of one that has no other.
    [[nodiscard]] static CSkinListCtrl& TheList() {
        return *Window().ShownPage()->findChild<CSkinListCtrl*>();
    }
    // Answers a question about a deletion; its text.
    static QString ConfirmDelete();

    [[nodiscard]] static QString Status() { return StatusOf(Window()); }

  private:
    static std::unique_ptr<PhoneDesk> desk_;
};

// A request as the phone's log writes it.
[[nodiscard]] std::string Hex(const WireBytes& request);

}  // namespace quorvi
