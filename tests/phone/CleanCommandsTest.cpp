#include <gmock/gmock.h>

#include "agent/FixedCleanItems.h"
#include "tests/support/Ask.h"
#include "tests/support/Bytes.h"

namespace quorvi::phone {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class CleanCommands : public testing::Test {
  protected:
    // The packages that have a cache.
    std::vector<std::string> Scan() {
        const Outcome outcome = Ask(data_, BareRequest(AgentCommand::scanForCleaning));
        EXPECT_THAT(outcome.deviations, IsEmpty());
        if (ReadUInt32(outcome.reply.bytes.data()) == NoDataMark) {
            return {};
        }
        const ReplyBuffer reply = PayloadOf(outcome);
        ReplyCursor cursor(reply);
        std::vector<std::string> packages;
        do {
            EXPECT_GT(cursor.TakeUInt64(), 0u);  // bytes of the cache
            cursor.SkipText();
            packages.emplace_back(cursor.TakeUtf8().value_or(""));
            const std::uint64_t icon = cursor.TakeUInt64();
            iconBytes_ = icon;
            cursor.SkipBytes(icon);
        } while (!cursor.AtEnd());
        EXPECT_FALSE(cursor.Overran());
        return packages;
    }
    Outcome Clean(std::initializer_list<int> flags, std::initializer_list<std::string> packages) {
        RequestBuilder request(AgentCommand::clean);
        request.AddBytes(Piece(flags).Value());
        for (const std::string& package : packages) {
            request.BeginItem().AddRawText(package);
        }
        return Ask(data_, request.Take());
    }

    Handset handset_{DeliveredProfile(0)};
    AgentData data_{handset_};
    std::uint64_t iconBytes_ = 0;  // of the cache listed last
};

TEST_F(CleanCommands, TheScanListsEachCacheWithTheIconOfItsApplication) {
    EXPECT_EQ(Scan().size(), data_.cleaning.caches.size());
    EXPECT_GT(Scan().size(), 8u);
    EXPECT_GT(iconBytes_, 0u);
}

TEST_F(CleanCommands, ACleanedCacheIsGone) {
    const std::size_t before = Scan().size();
    EXPECT_THAT(Scan(), Contains("com.example.bus"));
    const Outcome outcome = Ask(data_, Join({
                                           {0, 0x0d, 0x4c, 0xb2},  // 871602
                                           {0, 0, 0, 34},          // total
                                           {0, 0, 0, 1},           // count of names
                                           {0, 0, 0},              // flags
                                           {0, 0, 0, 15},          // bytes of the name
                                           "com.example.bus",      //
                                       }));
    EXPECT_THAT(outcome.deviations, IsEmpty());
    EXPECT_EQ(ReadUInt32(outcome.reply.bytes.data()), 1u);
    EXPECT_THAT(Scan(), Not(Contains("com.example.bus")));
    EXPECT_EQ(Scan().size(), before - 1);
}

TEST_F(CleanCommands, EachFlagForgetsItsOwn) {
    for (std::size_t i = 0; i < kFixedCleanItems.size(); ++i) {
        EXPECT_THAT(data_.cleaning.remembered[i], Not(IsEmpty())) << i;
    }
    const Outcome outcome = Clean({1, 0, 1}, {});
    EXPECT_THAT(outcome.deviations, IsEmpty());
    EXPECT_EQ(outcome.note, "cleaned browser-searches: 5 market-searches: 3");
    EXPECT_THAT(data_.cleaning.remembered[0], IsEmpty());
    EXPECT_THAT(data_.cleaning.remembered[1], SizeIs(7));
    EXPECT_THAT(data_.cleaning.remembered[2], IsEmpty());
    static_cast<void>(Clean({0, 1, 0}, {}));
    EXPECT_THAT(data_.cleaning.remembered[1], IsEmpty());
}

TEST_F(CleanCommands, APhoneWithoutCachesHasNoData) {
    data_.cleaning.caches.clear();
    const Outcome outcome = Ask(data_, BareRequest(AgentCommand::scanForCleaning));
    EXPECT_EQ(ReadUInt32(outcome.reply.bytes.data()), NoDataMark);
}

TEST_F(CleanCommands, NothingChosenChangesNothing) {
    const std::size_t before = Scan().size();
    EXPECT_THAT(Clean({0, 0, 0}, {}).deviations, IsEmpty());
    EXPECT_EQ(Scan().size(), before);
    EXPECT_THAT(data_.cleaning.remembered[0], Not(IsEmpty()));
}

TEST_F(CleanCommands, WhatHasNoCacheIsNoDeviation) {
    EXPECT_THAT(Clean({0, 0, 0}, {"com.example.gone"}).deviations, IsEmpty());
}

TEST_F(CleanCommands, AFlagThatIsNeitherIsNamed) {
    EXPECT_THAT(Clean({0, 2, 0}, {}).deviations, ElementsAre("flag 2 of browser-history"));
    EXPECT_THAT(data_.cleaning.remembered[1], Not(IsEmpty()));
}

TEST_F(CleanCommands, AFrameWithoutItsFlagsIsNamed) {
    const Outcome outcome = Ask(data_, Join({{0, 0x0d, 0x4c, 0xb2}, {0, 0, 0, 12}, {0, 0, 0, 0}}));
    EXPECT_THAT(outcome.deviations,
                ElementsAre("the frame ends before the fields of its 0 items do"));
}

TEST_F(CleanCommands, MadeUpCachesAreAsManyAsAskedFor) {
    data_.Fill({.caches = 5'000, .iconBytes = 10'000});
    EXPECT_EQ(Scan().size(), 5'000u);
    EXPECT_EQ(iconBytes_, 10'000u);
}

TEST_F(CleanCommands, AHostilePhoneListsWhatIsDeliveredToo) {
    const std::size_t delivered = Scan().size();
    data_.Fill({.hostile = true});
    EXPECT_GT(Scan().size(), delivered + 9);
}

}  // namespace
}  // namespace quorvi::phone
