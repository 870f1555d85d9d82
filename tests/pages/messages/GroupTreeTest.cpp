#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "base/Text.h"
#include "pages/messages/GroupTree.h"
#include "tests/support/WireBytes.h"

namespace quorvi {
namespace {

WireBytes Start() {
    return WireBytes().U32(0);  // leading word
}

WireBytes& AddMember(WireBytes& bytes, std::uint64_t group, std::string_view name,
                     std::string_view number) {
    return bytes
        .U64(group)     // group id
        .Text(name)     // name
        .Text(number);  // number
}

TEST(GroupNamesReading, StartsWithTheContactsOfNoGroup) {
    const GroupNames names = InitialGroupNames();
    ASSERT_EQ(names.size(), 1u);
    EXPECT_EQ(names.at(kNoGroup), Ansi(u8"【未分组】"));
}

TEST(GroupNamesReading, AddsIdsAndTitlesUpToAnAbsentOne) {
    WireBytes bytes = Start();
    bytes.U64(4).Text("同事").U64(5).Absent().U64(6).Text("never read");
    GroupNames names = InitialGroupNames();
    ReadGroupNames(bytes.Buffer(), names);
    EXPECT_EQ(names.size(), 2u);
    EXPECT_EQ(names.at(4), Ansi(u8"同事"));
}

TEST(GroupMembersReading, SortsMembersByGroupAndName) {
    WireBytes bytes = Start();
    AddMember(bytes, 4, "b", "2");
    AddMember(bytes, 0xFFFFFFFF, "n", "9");  // of no group
    AddMember(bytes, 4, "a", "1");
    GroupMembers members;
    EXPECT_TRUE(ReadGroupMembers(bytes.Buffer(), members));
    ASSERT_EQ(members.size(), 2u);
    EXPECT_EQ(members.begin()->first, kNoGroup);
    EXPECT_EQ(members.at(4), (std::map<std::string, std::string>{{"a", "1"}, {"b", "2"}}));
}

TEST(GroupNamesReading, AnIdThatIsThereKeepsItsTitle) {
    WireBytes bytes = Start();
    bytes.U64(4).Text("first").U64(4).Text("second").U64(0xFFFFFFFF).Text("none");
    GroupNames names = InitialGroupNames();
    ReadGroupNames(bytes.Buffer(), names);
    EXPECT_EQ(names.at(4), "first");
    EXPECT_EQ(names.at(kNoGroup), Ansi(u8"【未分组】"));
}

TEST(GroupNamesReading, IdsAreTheLowWordAsASignedNumber) {
    WireBytes bytes = Start();
    bytes.U64(0x100000004).Text("A").U64(0x80000000).Text("B");
    GroupNames names;
    ReadGroupNames(bytes.Buffer(), names);
    EXPECT_EQ(names, (GroupNames{{std::numeric_limits<std::int32_t>::min(), "B"}, {4, "A"}}));
}

TEST(GroupNamesReading, ALengthThatPointsOutsideEndsTheRun) {
    WireBytes bytes = Start();
    bytes.U64(4).Text("A").U64(5).U32(0x10000).Raw("B");
    GroupNames names;
    ReadGroupNames(bytes.Buffer(), names);
    EXPECT_EQ(names, (GroupNames{{4, "A"}}));
}

TEST(GroupMembersReading, OfAContactsSeveralNumbersTheFirstStays) {
    WireBytes bytes = Start();
    AddMember(bytes, 4, "a", "1");
    AddMember(bytes, 4, "a", "2");
    AddMember(bytes, 5, "a", "3");
    GroupMembers members;
    EXPECT_TRUE(ReadGroupMembers(bytes.Buffer(), members));
    EXPECT_EQ(members, (GroupMembers{{4, {{"a", "1"}}}, {5, {{"a", "3"}}}}));
}

TEST(GroupMembersReading, AnAbsentNumberIsEmpty) {
    WireBytes bytes = Start();
    bytes.U64(4).Text("a").Absent();
    GroupMembers members;
    EXPECT_TRUE(ReadGroupMembers(bytes.Buffer(), members));
    EXPECT_EQ(members, (GroupMembers{{4, {{"a", ""}}}}));
}

TEST(GroupMembersReading, ALengthThatPointsOutsideEndsTheRun) {
    WireBytes bytes = Start();
    AddMember(bytes, 4, "a", "1");
    bytes.U64(4).Text("b").U32(0x10000).Raw("2");
    GroupMembers members;
    EXPECT_TRUE(ReadGroupMembers(bytes.Buffer(), members));
    EXPECT_EQ(members, (GroupMembers{{4, {{"a", "1"}}}}));
}

TEST(GroupMembersReading, ARecordThatACutReplyDoesNotHoldWholeIsDropped) {
    WireBytes bytes = Start();
    AddMember(bytes, 4, "a", "10086");
    for (std::size_t came = 4; came < bytes.Get().size(); ++came) {
        GroupMembers members;
        EXPECT_TRUE(ReadGroupMembers(bytes.CutAfter(came), members));
        EXPECT_TRUE(members.empty()) << came;  // "1008" would be somebody else's number
    }
}

TEST(GroupMembersReading, AnAbsentNameStopsTheTreeFromBeingBuilt) {
    WireBytes bytes = Start();
    AddMember(bytes, 4, "a", "1");
    bytes.U64(4).Absent();
    GroupMembers members;
    EXPECT_FALSE(ReadGroupMembers(bytes.Buffer(), members));
}

// How the two sessions of the tree end.
class GroupTreeReading : public testing::Test {
  protected:
    static PayloadReply Names() {
        return {SessionOutcome::complete, Start().U64(4).Text("A").Buffer()};
    }
    static PayloadReply Members() {
        WireBytes bytes = Start();
        AddMember(bytes, 4, "a", "1");
        return {SessionOutcome::complete, bytes.Buffer()};
    }
};

TEST_F(GroupTreeReading, BothRepliesMakeTheTree) {
    const GroupTree tree = ReadGroupTree(Names(), Members());
    EXPECT_TRUE(tree.connected);
    EXPECT_TRUE(tree.complete);
    EXPECT_EQ(tree.names.at(4), "A");
    EXPECT_EQ(tree.members, (GroupMembers{{4, {{"a", "1"}}}}));
}

TEST_F(GroupTreeReading, WhenThePhoneIsNotFoundForTheNamesTheTreeIsNotBuilt) {
    const GroupTree tree = ReadGroupTree({SessionOutcome::connectFailed, {}}, Members());
    EXPECT_FALSE(tree.connected);
    EXPECT_FALSE(tree.complete);
}

TEST_F(GroupTreeReading, WhenThePhoneIsNotFoundForTheMembersTheTreeIsNotBuilt) {
    const GroupTree tree = ReadGroupTree(Names(), {SessionOutcome::connectFailed, {}});
    EXPECT_FALSE(tree.connected);
    EXPECT_FALSE(tree.complete);
}

TEST_F(GroupTreeReading, APhoneWithoutGroupsShowsThoseOfNoGroup) {
    const GroupTree tree = ReadGroupTree({SessionOutcome::noData, {}}, Members());
    EXPECT_TRUE(tree.complete);
    EXPECT_EQ(tree.names, InitialGroupNames());
}

TEST_F(GroupTreeReading, NothingOfTheMembersIsNoTree) {
    for (const auto outcome :
         {SessionOutcome::noData, SessionOutcome::noReply, SessionOutcome::receiveFailed}) {
        const GroupTree tree = ReadGroupTree(Names(), {outcome, {}});
        EXPECT_TRUE(tree.connected);
        EXPECT_FALSE(tree.complete);
    }
}

}  // namespace
}  // namespace quorvi
