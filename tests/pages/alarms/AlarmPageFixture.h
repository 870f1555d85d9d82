// The alarm page with an agent that knows three alarms.
#pragma once

#include <QLineEdit>

#include "pages/alarms/AlarmPage.h"
#include "tests/pages/alarms/AlarmReplies.h"
#include "tests/support/EditorPageTest.h"
#include "tests/support/KeptDeletes.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {

class AlarmPage
    : public EditorPageTest<CAlarmPage, AgentCommand::listAlarms, CAlarmListCtrl, 1090, 551> {
  protected:
    const std::vector<ListedAlarm> three_{
        {.id = 0x500000007},
        {.id = 8, .hour = 12, .minute = 30, .days = 0, .enabled = 0, .vibrate = 1, .label = "午饭"},
        {.id = 9, .hour = 0, .days = 0x7F, .label = "吃药"},
    };

    void SetUp() override {
        agent_.AnswerPayload(AgentCommand::listAlarms, ListBytes());
        agent_.AnswerAcknowledged(AgentCommand::addAlarm);
        agent_.AnswerAcknowledged(AgentCommand::updateAlarm);
        agent_.AnswerAcknowledged(AgentCommand::deleteAlarms);
    }

    using EditorPageTest::OpenLoaded;
    CAlarmPage& OpenLoaded(const std::vector<ListedAlarm>& alarms) {
        return EditorPageTest::OpenLoaded(AlarmsPayload(alarms));
    }

    // What the phone lists.
    [[nodiscard]] Bytes ListBytes() const { return AlarmsPayload(three_).Get(); }

    KeptDeletes kept_;
    QLineEdit& Label() { return *FindControl<QLineEdit>(Editor(), 1257); }
    std::optional<std::uint32_t> Selected() { return host_.selection.Id(PageSelection::kAlarm); }
};

}  // namespace quorvi
