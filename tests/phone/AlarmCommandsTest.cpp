#include <gmock/gmock.h>

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "phone/agent/LocalTime.h"
#include "tests/support/Ask.h"

namespace quorvi::phone {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct Listed {
    Alarm alarm;
    std::optional<std::string> tone;
};

class AlarmCommands : public testing::Test {
  protected:
    Outcome AskFor(const Bytes& request) { return Ask(data_, request); }

    std::vector<Listed> List() {
        std::vector<Listed> all;
        const ReplyBuffer reply = PayloadOf(AskFor(BareRequest(AgentCommand::listAlarms)));
        ReplyCursor cursor(reply);
        do {
            Listed listed;
            listed.alarm.id = cursor.TakeUInt64();
            listed.alarm.hour = cursor.TakeUInt32();
            listed.alarm.minute = cursor.TakeUInt32();
            listed.alarm.days = cursor.TakeUInt32();
            listed.alarm.enabled = cursor.TakeUInt32();
            listed.alarm.vibrate = cursor.TakeUInt32();
            listed.alarm.label = cursor.TakeUtf8().value_or("");
            listed.tone = cursor.TakeUtf8();
            listed.alarm.alertTime = cursor.TakeUInt64();
            listed.alarm.alert = cursor.TakeUtf8().value_or("");
            all.push_back(std::move(listed));
        } while (!cursor.AtEnd());
        EXPECT_FALSE(cursor.Overran());
        return all;
    }

    // The fields of an alarm, as requests carry them.
    static RequestBuilder& AddFields(RequestBuilder& request, std::uint64_t alertTime = 0,
                                     std::uint32_t enabled = 1) {
        return request
            .AddUInt32(6)           // hour
            .AddUInt32(40)          // minute
            .AddUInt32(0x41)        // days
            .AddUInt64(alertTime)   // alert time
            .AddUInt32(enabled)     // enabled
            .AddUInt32(0)           // vibrate
            .AddRawText("run")      // label
            .AddRawText("file:x");  // alert
    }

    Handset handset_{DeliveredProfile(0)};
    AgentData data_{handset_};
};

TEST_F(AlarmCommands, ListHoldsEveryFieldOfEveryAlarm) {
    setenv("TZ", "Asia/Shanghai", 1);
    tzset();
    data_.Fill({});
    const auto listed = List();
    ASSERT_THAT(listed, SizeIs(data_.clock.alarms.size()));
    EXPECT_EQ(listed[0].alarm.id, 1u);
    EXPECT_EQ(listed[0].alarm.hour, 7u);
    EXPECT_EQ(listed[0].alarm.minute, 5u);
    EXPECT_EQ(listed[0].alarm.days, 0x1Fu);
    EXPECT_EQ(listed[0].alarm.enabled, 1u);
    EXPECT_EQ(listed[0].alarm.vibrate, 1u);
    EXPECT_EQ(listed[0].alarm.label, "起床上班");
    EXPECT_EQ(listed[0].tone, "晨光");
    EXPECT_EQ(listed[0].alarm.alertTime, LocalMilliseconds("2011-06-20 07:05:00"));
    EXPECT_EQ(listed[0].alarm.alert, "content://media/internal/audio/media/4");
}

TEST_F(AlarmCommands, AnAddedAlarmIsTheLastWithAnIdOfItsOwn) {
    const std::uint64_t last = data_.clock.alarms.back().id;
    RequestBuilder request(AgentCommand::addAlarm);
    EXPECT_THAT(AskFor(AddFields(request.BeginItem()).Take()).deviations, IsEmpty());
    const Listed added = List().back();
    EXPECT_EQ(added.alarm.id, last + 1);
    EXPECT_EQ(added.alarm.hour, 6u);
    EXPECT_EQ(added.alarm.minute, 40u);
    EXPECT_EQ(added.alarm.days, 0x41u);
    EXPECT_EQ(added.alarm.enabled, 1u);
    EXPECT_EQ(added.alarm.vibrate, 0u);
    EXPECT_EQ(added.alarm.label, "run");
    EXPECT_EQ(added.alarm.alert, "file:x");
    EXPECT_EQ(added.tone, std::nullopt);  // a tone that the phone does not have
}

TEST_F(AlarmCommands, AChangedAlarmKeepsItsIdAndPlace) {
    const std::size_t before = data_.clock.alarms.size();
    RequestBuilder request(AgentCommand::updateAlarm);
    EXPECT_THAT(AskFor(AddFields(request.BeginItem().AddUInt32(2)).Take()).deviations, IsEmpty());
    const auto listed = List();
    ASSERT_THAT(listed, SizeIs(before));
    EXPECT_EQ(listed[1].alarm.id, 2u);
    EXPECT_EQ(listed[1].alarm.label, "run");
    EXPECT_EQ(listed[0].alarm.label, "起床上班");
}

TEST_F(AlarmCommands, ChangingAnUnknownAlarmChangesNothing) {
    RequestBuilder request(AgentCommand::updateAlarm);
    const Outcome outcome = AskFor(AddFields(request.BeginItem().AddUInt32(99)).Take());
    EXPECT_THAT(outcome.deviations, IsEmpty());
    EXPECT_EQ(outcome.note, "alarm 99 06:40 \"run\", unknown");
    for (const Listed& listed : List()) {
        EXPECT_NE(listed.alarm.label, "run");
    }
}

TEST_F(AlarmCommands, DeletesEachAlarmNamedAndIdsAreNotUsedAgain) {
    const std::uint64_t last = data_.clock.alarms.back().id;
    const Outcome outcome = AskFor(RequestBuilder(AgentCommand::deleteAlarms)
                                       .BeginItem()
                                       .AddUInt32(1)
                                       .BeginItem()
                                       .AddUInt32(static_cast<std::uint32_t>(last))
                                       .Take());
    EXPECT_THAT(outcome.deviations, IsEmpty());
    EXPECT_THAT(data_.clock.alarms, SizeIs(last - 2));
    RequestBuilder request(AgentCommand::addAlarm);
    AskFor(AddFields(request.BeginItem()).Take());
    EXPECT_EQ(List().back().alarm.id, last + 1);
}

TEST_F(AlarmCommands, WithoutAlarmsTheListIsNoData) {
    data_.clock.alarms.clear();
    EXPECT_TRUE(IsNoData(AskFor(BareRequest(AgentCommand::listAlarms))));
}

TEST_F(AlarmCommands, WhatNoSuiteSendsIsNamedADeviation) {
    RequestBuilder timed(AgentCommand::addAlarm);
    EXPECT_THAT(AskFor(AddFields(timed.BeginItem(), 5).Take()).deviations,
                ElementsAre("alert time 5"));
    RequestBuilder switched(AgentCommand::addAlarm);
    EXPECT_THAT(AskFor(AddFields(switched.BeginItem(), 0, 2).Take()).deviations,
                ElementsAre("switches 2 and 0"));
}

TEST_F(AlarmCommands, AFrameThatIsTooShortChangesNothing) {
    const std::size_t before = data_.clock.alarms.size();
    EXPECT_THAT(
        AskFor(RequestBuilder(AgentCommand::addAlarm).BeginItem().AddUInt32(6).Take()).deviations,
        ElementsAre("the frame ends before the fields of its 1 items do"));
    EXPECT_THAT(AskFor(RequestBuilder(AgentCommand::updateAlarm).BeginItem().AddUInt32(1).Take())
                    .deviations,
                SizeIs(1));
    EXPECT_THAT(data_.clock.alarms, SizeIs(before));
    EXPECT_EQ(data_.clock.alarms[0].label, "起床上班");
}

TEST_F(AlarmCommands, MadeUpAndHostileAlarmsAreAsManyAsAskedFor) {
    data_.Fill({.alarms = 20'000});
    EXPECT_THAT(List(), SizeIs(20'000));
    data_.Fill({.alarms = 0, .hostile = true});
    EXPECT_THAT(List(), SizeIs(10));
}

}  // namespace
}  // namespace quorvi::phone
