#include <gmock/gmock.h>

#include "tests/support/Ask.h"

namespace quorvi::phone {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

struct Member {
    std::int32_t group;
    std::string name;
    std::string number;

    bool operator==(const Member&) const = default;
};

class GroupCommands : public testing::Test {
  protected:
    Outcome AskFor(const Bytes& request) { return Ask(data_, request); }

    std::vector<std::string> Titles() {
        std::vector<std::string> titles;
        const ReplyBuffer reply = PayloadOf(AskFor(BareRequest(AgentCommand::listGroupNames)));
        ReplyCursor cursor(reply);
        do {
            cursor.SkipBytes(8);
            titles.emplace_back(*cursor.TakeUtf8());
        } while (!cursor.AtEnd());
        EXPECT_FALSE(cursor.Overran());
        return titles;
    }

    std::vector<Member> Members() {
        std::vector<Member> members;
        const ReplyBuffer reply = PayloadOf(AskFor(BareRequest(AgentCommand::listGroupMembers)));
        ReplyCursor cursor(reply);
        do {
            const auto group = static_cast<std::int32_t>(cursor.TakeUInt64());
            std::string name(*cursor.TakeUtf8());
            members.push_back({group, std::move(name), std::string(*cursor.TakeUtf8())});
        } while (!cursor.AtEnd());
        EXPECT_FALSE(cursor.Overran());
        return members;
    }

    Handset handset_{DeliveredProfile(0)};
    AgentData data_{handset_};
};

TEST_F(GroupCommands, ListHoldsTitleAccountAndVisibility) {
    const ReplyBuffer reply = PayloadOf(AskFor(BareRequest(AgentCommand::listGroups)));
    ReplyCursor cursor(reply);
    EXPECT_EQ(cursor.TakeUInt64(), 1u);
    EXPECT_EQ(cursor.TakeUtf8(), "家人");
    EXPECT_EQ(cursor.TakeUtf8(), "手机");
    EXPECT_EQ(cursor.TakeUInt32(), 1u);
    EXPECT_FALSE(cursor.AtEnd());
}

TEST_F(GroupCommands, AMemberComesForEachNumberInEachGroup) {
    const auto members = Members();
    for (const char* number : {"13861234567", "0519-8812 3456"}) {
        EXPECT_THAT(members, Contains(Member{2, "林远舟", number}));
        EXPECT_THAT(members, Contains(Member{4, "林远舟", number}));
    }
    EXPECT_THAT(members, Contains(Member{-1, "房东 王阿姨", "13705710571"}));
}

TEST_F(GroupCommands, AnAddedGroupIsThere) {
    const Outcome outcome =
        AskFor(RequestBuilder(AgentCommand::addGroup).BeginItem().AddRawText("new").Take());
    EXPECT_THAT(outcome.deviations, IsEmpty());
    EXPECT_EQ(Titles().back(), "new");
}

TEST_F(GroupCommands, ARenamedGroupKeepsItsMembers) {
    AskFor(
        RequestBuilder(AgentCommand::renameGroup).BeginItem().AddUInt32(2).AddRawText("x").Take());
    EXPECT_EQ(Titles()[1], "x");
    EXPECT_THAT(Members(), Contains(Member{2, "林远舟", "13861234567"}));
}

TEST_F(GroupCommands, ADeletedGroupLeavesItsMembersInNone) {
    const Outcome outcome = AskFor(RequestBuilder(AgentCommand::deleteGroups)
                                       .BeginItem()
                                       .AddUInt32(1)
                                       .BeginItem()
                                       .AddUInt32(2)
                                       .Take());
    EXPECT_THAT(outcome.deviations, IsEmpty());
    EXPECT_THAT(Titles(), Not(Contains("家人")));
    const auto members = Members();
    EXPECT_THAT(members, Contains(Member{-1, "妈妈", "13861112233"}));
    // He is in another group still.
    EXPECT_THAT(members, Contains(Member{4, "林远舟", "13861234567"}));
    EXPECT_THAT(members, Not(Contains(Member{-1, "林远舟", "13861234567"})));
}

TEST_F(GroupCommands, AGroupThatIsCutShortIsNamedAndNotTaken) {
    const auto before = Titles();
    const Outcome outcome =
        AskFor(RequestBuilder(AgentCommand::addGroup).BeginItem().AddUInt32(5).Take());
    EXPECT_THAT(outcome.deviations, SizeIs(1));
    EXPECT_EQ(Titles(), before);
}

TEST_F(GroupCommands, APhoneWithoutGroupsHasNoData) {
    data_.Fill({.contacts = 0});
    EXPECT_TRUE(IsNoData(AskFor(BareRequest(AgentCommand::listGroups))));
    EXPECT_TRUE(IsNoData(AskFor(BareRequest(AgentCommand::listGroupNames))));
    EXPECT_TRUE(IsNoData(AskFor(BareRequest(AgentCommand::listGroupMembers))));
}

}  // namespace
}  // namespace quorvi::phone
