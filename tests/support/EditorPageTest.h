// What the tests share of a page that is one list with an editor for its records.
#pragma once

#include <optional>

#include "pages/kit/PageNumbers.h"
#include "tests/support/AgentPageTest.h"
#include "tests/support/ControlDriver.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/WireBytes.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/SkinLabels.h"
#include "ui/list/ListColumns.h"

namespace quorvi {

// Of the page P, whose list L has the number kListNumber and is filled by kList; dialog
// kEditorNumber edits its records.
template <typename P, AgentCommand kList, typename L, int kListNumber, int kEditorNumber>
class EditorPageTest : public AgentPageTest<P, kList> {
  protected:
    // Dialogs that the page opens, and their buttons.
    static constexpr int kEditor = kEditorNumber;
    static constexpr int kConfirm = 548;
    static constexpr int kNothingChecked = 682;
    static constexpr int kOk = 1215;
    static constexpr int kCancel = 1021;

    P& OpenAt(std::uint16_t port) {
        this->MakeAt(port).show();
        return *this->page_;
    }
    P& Open() { return OpenAt(this->agent_.Port()); }
    P& OpenLoaded() {
        P& page = Open();
        page.Load();
        this->WaitForLoads(1);
        return page;
    }
    P& OpenLoaded(const WireBytes& payload) {
        this->agent_.AnswerPayload(kList, payload.Get());
        return OpenLoaded();
    }
    void LoadAgain() {
        this->page_->Load();
        ASSERT_TRUE(WaitFor([&] { return List().State() != ListState::loading; }));
    }

    L& List() { return *FindControl<L>(this->page_.get(), kListNumber); }
    Cell At(int row, int column) { return List().CellAt(row, column); }
    void Click(int row) { ClickCell(List(), row, 1); }

    // Waits for the editor that a command or a click opens.
    SkinDialog* Editor() {
        EXPECT_TRUE(WaitFor([] { return OpenDialog(kEditor) != nullptr; }));
        return OpenDialog(kEditor);
    }
    QString State() { return Editor()->template findChild<CSkinStateLabel*>()->text(); }
    // Ends the editor, and lets all come to its end that follows.
    void EndBy(int button) {
        PressIn(kEditor, button);
        ASSERT_TRUE(WaitFor([] { return OpenDialog(kEditor) == nullptr; }));
        this->Settle();
    }
};

}  // namespace quorvi
