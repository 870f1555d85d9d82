#include <gtest/gtest.h>

#include "base/Text.h"
#include "pages/messages/Recipients.h"

namespace quorvi {
namespace {

using Numbers = std::vector<std::string>;

const GroupMembers kMembers{
    {kNoGroup, {{"Wang", "10086"}}},
    {4, {{"Gu", "13512340098"}, {"Lin", "+8613861234567"}}},
    {9, {{"Lin", "+8613861234567"}}},
};

TEST(RecipientEntry, IsTheNameInQuotesAndTheNumberInAngles) {
    EXPECT_EQ(RecipientEntry("Lin", "138"), "\"Lin\" <138>;");
}

TEST(RecipientNumbers, ReadsEntriesAndBareNumbers) {
    EXPECT_EQ(RecipientNumbers("\"Lin\" <138>;10086;\"Gu\" <135>;"),
              (Numbers{"138", "10086", "135"}));
}

TEST(RecipientNumbers, TheTrailingSemicolonEndsTheSplit) {
    EXPECT_EQ(RecipientNumbers("\"Lin\" <138>;"), Numbers{"138"});
    EXPECT_EQ(RecipientNumbers("138;;139"), Numbers{"138"});
    EXPECT_EQ(RecipientNumbers(""), Numbers{});
}

TEST(RecipientNumbers, AnAngleThatIsNotClosedGivesWhatIsBehindIt) {
    EXPECT_EQ(RecipientNumbers("\"Lin\" <138"), Numbers{"138"});
}

TEST(RecipientNumbers, ABlankBehindASeparatorBelongsToTheNumber) {
    EXPECT_EQ(RecipientNumbers("138; 139"), (Numbers{"138", " 139"}));
}

TEST(RecipientNumbers, ASemicolonInANameCutsItsEntryInTwo) {
    EXPECT_EQ(RecipientNumbers("\"Lin; work\" <138>;"), (Numbers{"\"Lin", "138"}));
}

TEST(RecipientNumbers, AnAngleInANameIsTakenForTheNumbers) {
    EXPECT_EQ(RecipientNumbers("\"L<in\" <138>;"), Numbers{"in\" <138"});
    EXPECT_EQ(RecipientNumbers("\"L>in\" <138>;"), Numbers{"138"});
}

TEST(RecipientNumbers, AQuoteInANameIsNoDifference) {
    EXPECT_EQ(RecipientNumbers("\"Lin \"Boss\"\" <138>;"), Numbers{"138"});
}

TEST(WithOwnSeparators, ListsFromElsewhereComeToBeSplitAtSemicolons) {
    EXPECT_EQ(WithOwnSeparators("138\n139\r\n140\t141,142"), "138;139;140;141;142");
    EXPECT_EQ(WithOwnSeparators(Ansi(u8"138；139，140、141")), "138;139;140;141");
}

TEST(WithOwnSeparators, NoPartComesOutEmpty) {
    EXPECT_EQ(WithOwnSeparators("\n138 ,\r\n ;139;\n"), "138;139;");
}

TEST(WithOwnSeparators, AFieldWithoutForeignOnesStaysAsItIs) {
    EXPECT_EQ(WithOwnSeparators("138;; 139 "), "138;; 139 ");
    EXPECT_EQ(WithOwnSeparators(""), "");
}

TEST(WithOwnSeparators, NamesAndNumbersInTheirMarksStayAsTheyAre) {
    EXPECT_EQ(WithOwnSeparators("\"Lin, Yu\" <1,38>;139,140"), "\"Lin, Yu\" <1,38>;139;140");
    EXPECT_EQ(WithOwnSeparators("\"Lin, Y"), "\"Lin, Y");  // still being typed
}

TEST(ResolveRecipient, ANumberThatAContactHasTurnsIntoItsEntry) {
    EXPECT_EQ(ResolveRecipient("13512340098", kMembers), "\"Gu\" <13512340098>;");
}

TEST(ResolveRecipient, ACountryPrefixOnEitherSideIsNoDifference) {
    EXPECT_EQ(ResolveRecipient("13861234567", kMembers), "\"Lin\" <13861234567>;");
    EXPECT_EQ(ResolveRecipient("+8613512340098", kMembers), "\"Gu\" <+8613512340098>;");
}

TEST(ResolveRecipient, AShorterNumberHasToMatchInWhole) {
    EXPECT_EQ(ResolveRecipient("10086", kMembers), "\"Wang\" <10086>;");
    EXPECT_EQ(ResolveRecipient("0086", kMembers), std::nullopt);
    EXPECT_EQ(ResolveRecipient("1340098", kMembers), std::nullopt);
}

TEST(ResolveRecipient, NothingTypedFindsNobodyEvenWithoutANumber) {
    EXPECT_EQ(ResolveRecipient("", {{1, {{"Nobody", ""}}}}), std::nullopt);
}

TEST(ResolveRecipient, SeveralEntriesAreNoNumber) {
    EXPECT_EQ(ResolveRecipient("10010;13512340098", kMembers), std::nullopt);
    EXPECT_EQ(ResolveRecipient("\"Lin\" <138>;13512340098", kMembers), std::nullopt);
}

TEST(ResolveRecipient, TheFirstMemberGroupByGroupIsTheOne) {
    const GroupMembers members{{kNoGroup, {{"z", "1"}}}, {4, {{"a", "1"}}}};
    EXPECT_EQ(ResolveRecipient("1", members), "\"z\" <1>;");
}

TEST(ResolveRecipient, AnEntryInTheFieldIsNotResolvedAgain) {
    EXPECT_EQ(ResolveRecipient("\"Gu\" <13512340098>;", kMembers), std::nullopt);
}

TEST(RecipientTree, ShowsGroupsBySignedIdWithTheirMembersByName) {
    GroupNames names = InitialGroupNames();
    names[4] = "Work";
    names[5] = "Empty";
    const auto tree = RecipientTree(names, kMembers);
    ASSERT_EQ(tree.size(), 3u);
    EXPECT_EQ(tree[0].text, Ansi(u8"【未分组】 [1]"));
    EXPECT_EQ(tree[0].members, Numbers{"Wang [10086]"});
    EXPECT_EQ(tree[1].text, "Work [2]");
    EXPECT_EQ(tree[1].members, (Numbers{"Gu [13512340098]", "Lin [+8613861234567]"}));
}

TEST(RecipientTree, AGroupWithoutMembersGetsNoNodeAndOneWithoutTitleAnEmptyOne) {
    const auto tree = RecipientTree({{5, "Empty"}}, {{9, {{"Lin", "138"}}}});
    ASSERT_EQ(tree.size(), 1u);
    EXPECT_EQ(tree[0].text, " [1]");
}

TEST(RecipientTree, NamesStandInTheOrderOfTheirAnsiBytes) {
    const GroupMembers members{
        {1, {{Ansi(u8"一"), "1"}, {Ansi(u8"阿"), "2"}, {"z", "3"}, {"Z", "4"}}}};
    const auto tree = RecipientTree({}, members);
    ASSERT_EQ(tree.size(), 1u);
    EXPECT_EQ(tree[0].members, (Numbers{"Z [4]", "z [3]", Ansi(u8"阿 [2]"), Ansi(u8"一 [1]")}));
}

TEST(RecipientTree, AContactInTwoGroupsShowsTwice) {
    const auto tree = RecipientTree({}, kMembers);
    ASSERT_EQ(tree.size(), 3u);
    EXPECT_EQ(tree[1].members[1], tree[2].members[0]);
}

TEST(RecipientOfNode, ReadsNameAndNumberBackWithTheBlankBehindTheName) {
    EXPECT_EQ(RecipientOfNode("Lin [138]"), "\"Lin \" <138>;");
}

TEST(RecipientOfNode, ABracketInANameCutsTheName) {
    EXPECT_EQ(RecipientOfNode("Lin[work] [138]"), "\"Lin\" <work] [138>;");
}

TEST(RecipientOfNode, AClosingBracketInANameOrNumberCutsNothing) {
    EXPECT_EQ(RecipientOfNode("Lin] [138]"), "\"Lin] \" <138>;");
    EXPECT_EQ(RecipientOfNode("Lin [1]38]"), "\"Lin \" <1]38>;");
}

TEST(RecipientOfNode, AByteOfAChineseCharacterIsNoBracket) {
    const std::string name = Ansi(u8"王嘯天");
    ASSERT_NE(name.find('['), std::string::npos);
    EXPECT_EQ(RecipientOfNode(name + " [138]"), "\"" + name + " \" <138>;");
}

TEST(RecipientOfNode, TextWithoutBracketsHasNoNumber) {
    EXPECT_EQ(RecipientOfNode("Lin"), "\"Lin\" <>;");
}

}  // namespace
}  // namespace quorvi
