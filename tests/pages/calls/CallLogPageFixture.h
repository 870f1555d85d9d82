// The call log page with an agent that knows three calls.
#pragma once

#include <QLabel>
#include <cstdlib>
#include <ctime>

#include "pages/calls/CallLogPage.h"
#include "tests/pages/calls/CallReplies.h"
#include "tests/support/AgentPageTest.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/KeptDeletes.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {

inline constexpr int kConfirm = 548;
inline constexpr int kNothingChecked = 682;

inline const std::vector<ListedCall> kThreeCalls{
    {.id = 7},
    {.id = 8, .number = "95588", .duration = 3'700, .type = 2, .name = ""},
    {.id = 9, .date = 0, .duration = 90'000, .type = 3, .name = "妈妈"},
};

class CallLogPage : public AgentPageTest<CCallLogPage, AgentCommand::listCalls> {
  protected:
    void SetUp() override {
        setenv("TZ", "Asia/Shanghai", 1);
        tzset();
        agent_.AnswerPayload(AgentCommand::listCalls, ListBytes());
        agent_.AnswerAcknowledged(AgentCommand::deleteCalls);
        agent_.AnswerAcknowledged(AgentCommand::deleteAllCalls);
    }

    CCallLogPage& OpenAt(std::uint16_t port) {
        MakeAt(port).show();
        return *page_;
    }
    CCallLogPage& Open() { return OpenAt(agent_.Port()); }
    CCallLogPage& OpenLoaded() {
        CCallLogPage& page = Open();
        page.Load();
        WaitForLoads(1);
        return page;
    }

    // What the phone lists.
    [[nodiscard]] Bytes ListBytes() const { return CallsPayload(kThreeCalls).Get(); }

    KeptDeletes kept_;
    CCallLogListCtrl& List() { return *FindControl<CCallLogListCtrl>(page_.get(), 1072); }
    QString Text(int row, int column) { return List().CellAt(row, column).text; }
    // Loads once, with the list's one request answered as told before.
    void LoadAgain() {
        page_->Load();
        ASSERT_TRUE(WaitFor([&] { return List().State() != ListState::loading; }));
    }
    QString Question() {
        SkinDialog* dialog = OpenDialog(kConfirm);
        return dialog == nullptr ? QString() : FindControl<QLabel>(dialog, 1378)->text();
    }
};

}  // namespace quorvi
