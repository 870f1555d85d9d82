// The alarm page with an agent that knows three alarms.
#pragma once

#include <QLineEdit>

#include "pages/alarms/AlarmPage.h"
#include "tests/pages/alarms/AlarmReplies.h"
#include "tests/support/AgentPageTest.h"
#include "tests/support/ControlDriver.h"
#include "tests/support/DialogDriver.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {

class AlarmPage : public AgentPageTest<CAlarmPage, AgentCommand::listAlarms> {
  protected:
    // Dialogs that the page opens, and their buttons.
    static constexpr int kEditor = 551;
    static constexpr int kConfirm = 548;
    static constexpr int kNothingChecked = 682;
    static constexpr int kOk = 1215;
    static constexpr int kCancel = 1021;

    const std::vector<ListedAlarm> three_{
        {.id = 0x500000007},
        {.id = 8, .hour = 12, .minute = 30, .days = 0, .enabled = 0, .vibrate = 1, .label = "午饭"},
        {.id = 9, .hour = 0, .days = 0x7F, .label = "吃药"},
    };

    void SetUp() override {
        agent_.AnswerPayload(AgentCommand::listAlarms, AlarmsPayload(three_).Get());
        agent_.AnswerAcknowledged(AgentCommand::addAlarm);
        agent_.AnswerAcknowledged(AgentCommand::updateAlarm);
        agent_.AnswerAcknowledged(AgentCommand::deleteAlarms);
    }

    CAlarmPage& OpenAt(std::uint16_t port) {
        MakeAt(port).show();
        return *page_;
    }
    CAlarmPage& Open() { return OpenAt(agent_.Port()); }
    CAlarmPage& OpenLoaded() {
        CAlarmPage& page = Open();
        page.Load();
        WaitForLoads(1);
        return page;
    }
    CAlarmPage& OpenLoaded(const std::vector<ListedAlarm>& alarms) {
        agent_.AnswerPayload(AgentCommand::listAlarms, AlarmsPayload(alarms).Get());
        return OpenLoaded();
    }

    CAlarmListCtrl& List() { return *FindControl<CAlarmListCtrl>(page_.get(), 1090); }
    Cell At(int row, int column) { return List().CellAt(row, column); }
    void Click(int row) { ClickCell(List(), row, 1); }
    void LoadAgain() {
        page_->Load();
        ASSERT_TRUE(WaitFor([&] { return List().State() != ListState::loading; }));
    }
    // Waits for the editor that a command or a click opens.
    SkinDialog* Editor() {
        EXPECT_TRUE(WaitFor([] { return OpenDialog(kEditor) != nullptr; }));
        return OpenDialog(kEditor);
    }
    QLineEdit& Label() { return *FindControl<QLineEdit>(Editor(), 1257); }
    QString State() { return Editor()->findChild<CSkinStateLabel*>()->text(); }
    // Ends the editor, and lets all come to its end that follows.
    void EndBy(int button) {
        PressIn(kEditor, button);
        ASSERT_TRUE(WaitFor([] { return OpenDialog(kEditor) == nullptr; }));
        Settle();
    }
    std::optional<std::uint32_t> Selected() { return host_.selection.Id(PageSelection::kAlarm); }
};

}  // namespace quorvi
