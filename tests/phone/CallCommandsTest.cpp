#include <gmock/gmock.h>

#include "tests/support/Ask.h"
#include "tests/support/Bytes.h"

namespace quorvi::phone {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CallCommands : public testing::Test {
  protected:
    Outcome AskFor(const Bytes& request) { return Ask(data_, request); }

    Handset handset_{DeliveredProfile(0)};
    AgentData data_{handset_};
};

TEST_F(CallCommands, ListHoldsEveryCallTheNewestFirst) {
    const ReplyBuffer reply = PayloadOf(AskFor(BareRequest(AgentCommand::listCalls)));
    ReplyCursor cursor(reply);
    std::size_t count = 0;
    std::uint64_t before = UINT64_MAX;
    do {
        cursor.SkipBytes(8);
        cursor.SkipText();
        const std::uint64_t date = cursor.TakeUInt64();
        EXPECT_LT(date, before);
        before = date;
        cursor.SkipBytes(8 + 4);
        cursor.SkipText();
        ++count;
    } while (!cursor.AtEnd());
    EXPECT_FALSE(cursor.Overran());
    EXPECT_EQ(count, data_.calls.size());
}

TEST_F(CallCommands, NamesComeFromTheAddressBook) {
    EXPECT_EQ(data_.calls[0].name, "林远舟");
    EXPECT_EQ(data_.calls[8].name, "表哥 江北");  // its number has a country's prefix
    EXPECT_EQ(data_.calls[4].name, "");
}

TEST_F(CallCommands, DeletesEachCallNamed) {
    const std::size_t before = data_.calls.size();
    const Outcome outcome = AskFor(RequestBuilder(AgentCommand::deleteCalls)
                                       .BeginItem()
                                       .AddUInt32(40)
                                       .BeginItem()
                                       .AddUInt32(1)
                                       .Take());
    EXPECT_THAT(outcome.deviations, IsEmpty());
    EXPECT_EQ(data_.calls.size(), before - 2);
}

TEST_F(CallCommands, DeletingAllSaysOneItemAndHasNone) {
    const Outcome outcome = AskFor(Join({
        {0, 0x0d, 0x47, 0xa0},  // 870304
        {0, 0, 0, 12},          // total
        {0, 0, 0, 1},           // items
    }));
    EXPECT_THAT(outcome.deviations, IsEmpty());
    EXPECT_THAT(data_.calls, IsEmpty());
    EXPECT_TRUE(IsNoData(AskFor(BareRequest(AgentCommand::listCalls))));
}

TEST_F(CallCommands, DeletingAllWithACountOfZeroOrAnItemIsNamed) {
    EXPECT_THAT(AskFor(Join({{0, 0x0d, 0x47, 0xa0}, {0, 0, 0, 12}, {0, 0, 0, 0}})).deviations,
                ElementsAre("item count 0 for a single object"));
    EXPECT_THAT(
        AskFor(Join({{0, 0x0d, 0x47, 0xa0}, {0, 0, 0, 16}, {0, 0, 0, 1}, {0, 0, 0, 1}})).deviations,
        ElementsAre("4 bytes are left behind the last field"));
}

TEST_F(CallCommands, MadeUpCallsAreAsManyAsAskedFor) {
    data_.Fill({.calls = 20'000});
    EXPECT_EQ(data_.calls.size(), 20'000u);
    EXPECT_EQ(data_.calls.back().id, 1u);
}

}  // namespace
}  // namespace quorvi::phone
