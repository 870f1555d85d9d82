#include <gmock/gmock.h>

#include "tests/support/Ask.h"
#include "tests/support/Bytes.h"

namespace quorvi::phone {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SettingCommands : public testing::Test {
  protected:
    std::vector<std::uint32_t> Read() {
        const ReplyBuffer reply = PayloadOf(Ask(data_, BareRequest(AgentCommand::readSettings)));
        ReplyCursor cursor(reply);
        std::vector<std::uint32_t> fields;
        do {
            fields.push_back(cursor.TakeUInt32());
        } while (!cursor.AtEnd());
        return fields;
    }
    Outcome Write(std::uint32_t key, std::uint32_t value) {
        return Ask(data_, RequestBuilder(AgentCommand::writeSetting)
                              .BeginItem()
                              .AddUInt32(key)
                              .AddUInt32(value)
                              .Take());
    }

    Handset handset_{DeliveredProfile(0)};
    AgentData data_{handset_};
};

TEST_F(SettingCommands, TheRecordHoldsEachSettingAndTheDateFormatBeforeTheTimeFormat) {
    EXPECT_THAT(Read(), ElementsAre(1,       // WiFi
                                    0,       // Bluetooth
                                    0,       // aeroplane mode
                                    0,       // GPS
                                    1,       // gravity sensor
                                    1,       // vibration
                                    30'000,  // backlight
                                    5,       // ring volume
                                    9,       // music volume
                                    0,       // date format
                                    1));     // 24 hours
}

TEST_F(SettingCommands, AWrittenSettingIsReadBack) {
    const Outcome outcome = Ask(data_, Join({
                                           {0, 0x0d, 0x4c, 0x4e},  // 871502
                                           {0, 0, 0, 20},          // total
                                           {0, 0, 0, 1},           // items
                                           {0, 0, 0, 10},          // key: date format
                                           {0, 0, 0, 2},           // value
                                       }));
    EXPECT_THAT(outcome.deviations, IsEmpty());
    EXPECT_EQ(ReadUInt32(outcome.reply.bytes.data()), 1u);
    EXPECT_EQ(Read()[9], 2u);
    EXPECT_THAT(Write(9, 0).deviations, IsEmpty());
    EXPECT_EQ(Read()[10], 0u);
}

TEST_F(SettingCommands, WhatIsSwitchedShowsInTheSystemInformationToo) {
    static_cast<void>(Write(1, 1));  // Bluetooth
    static_cast<void>(Write(0, 0));  // WiFi
    const ReplyBuffer reply = PayloadOf(Ask(data_, BareRequest(AgentCommand::systemInformation)));
    ReplyCursor cursor(reply);
    cursor.SkipText();    // model
    cursor.SkipBytes(8);  // time since the start
    for (int text = 0; text < 9; ++text) {
        cursor.SkipText();
    }
    EXPECT_EQ(cursor.TakeUInt32(), 0u);  // GPS
    EXPECT_EQ(cursor.TakeUInt32(), 1u);  // Bluetooth
    EXPECT_EQ(cursor.TakeUInt32(), 0u);  // WiFi
    EXPECT_EQ(cursor.TakeUInt32(), 1u);  // gravity sensor
}

TEST_F(SettingCommands, AnUnknownKeyOrValueIsNamedAndRefused) {
    const auto before = Read();
    const Outcome outcome = Write(11, 1);
    EXPECT_THAT(outcome.deviations, ElementsAre("no setting 11"));
    EXPECT_EQ(ReadUInt32(outcome.reply.bytes.data()), 0u);
    EXPECT_THAT(Write(6, 45'000).deviations, ElementsAre("backlight cannot be 45000"));
    EXPECT_THAT(Write(0, 2).deviations, ElementsAre("wifi cannot be 2"));
    EXPECT_EQ(Read(), before);
}

TEST_F(SettingCommands, FillingThePhoneAnewUndoesWhatWasWritten) {
    static_cast<void>(Write(7, 0));
    data_.Fill({});
    EXPECT_EQ(Read()[7], 5u);
}

TEST_F(SettingCommands, AHostilePhoneSendsValuesThatNoListHas) {
    data_.Fill({.hostile = true});
    EXPECT_THAT(Read(), ElementsAre(2, 0xFFFFFFFF, 0, 0, 1, 1, 45'000, 9, 16, 3, 2));
}

}  // namespace
}  // namespace quorvi::phone
