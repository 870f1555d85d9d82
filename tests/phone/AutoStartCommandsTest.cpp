#include <gmock/gmock.h>

#include <set>

#include "agent/StartEvents.h"
#include "phone/agent/Applications.h"
#include "tests/support/Ask.h"

namespace quorvi::phone {
namespace {

using testing::IsEmpty;

class AutoStartCommands : public testing::Test {
  protected:
    AutoStartRecords List() {
        const Outcome outcome = Ask(data_, BareRequest(AgentCommand::listAutoStart));
        EXPECT_THAT(outcome.deviations, IsEmpty());
        const ReplyBuffer reply = PayloadOf(outcome);
        ReplyCursor cursor(reply);
        AutoStartRecords records;
        do {
            AutoStart record;
            record.event = cursor.TakeUInt32();
            record.name = cursor.TakeUtf8().value_or("");
            record.package = cursor.TakeUtf8().value_or("");
            cursor.SkipBytes(4);
            records.push_back(record);
        } while (!cursor.AtEnd());
        EXPECT_FALSE(cursor.Overran());
        return records;
    }

    Handset handset_{DeliveredProfile(0)};
    AgentData data_{handset_};
};

TEST_F(AutoStartCommands, ListHoldsEachApplicationOfEachEvent) {
    const auto records = List();
    ASSERT_EQ(records.size(), data_.autoStarts.size());
    EXPECT_GT(records.size(), 50u);
    EXPECT_EQ(records[0].event, 1u);
    EXPECT_EQ(records[0].name, "电话");
    EXPECT_EQ(records[0].package, "com.android.phone");
}

TEST_F(AutoStartCommands, EveryEventIsOneOfTheTable) {
    for (const AutoStart& record : List()) {
        EXPECT_LT(record.event, kStartEvents);
    }
}

TEST_F(AutoStartCommands, MadeUpRecordsAreAsManyAsAskedForOverAllEvents) {
    data_.Fill({.autoStarts = 20'000});
    const auto records = List();
    std::set<std::uint32_t> events;
    for (const AutoStart& record : records) {
        events.insert(record.event);
    }
    EXPECT_EQ(records.size(), 20'000u);
    EXPECT_EQ(events.size(), kStartEvents);
}

TEST_F(AutoStartCommands, AHostilePhoneSendsAnUnknownEventLast) {
    data_.Fill({.hostile = true});
    const auto records = List();
    EXPECT_EQ(records.back().event, kStartEvents);
    EXPECT_LT(records[records.size() - 2].event, kStartEvents);
}

TEST(Applications, AreNamedByTheirPackageOnce) {
    std::set<std::string_view> packages;
    for (const Application& application : DeliveredApplications()) {
        EXPECT_TRUE(packages.insert(application.package).second) << application.package;
        EXPECT_EQ(&ApplicationOf(application.package), &application);
    }
}

}  // namespace
}  // namespace quorvi::phone
