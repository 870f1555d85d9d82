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

std::vector<bool> AreNumbers(std::string_view field) {
    std::vector<bool> are;
    for (const Recipient& recipient : ReadRecipients(field).recipients) {
        are.push_back(recipient.isNumber);
    }
    return are;
}

TEST(ReadRecipients, GivesTheNamesOfEntries) {
    const RecipientList list = ReadRecipients("\"Lin \" <138>;10086;Gu <135>");
    ASSERT_EQ(list.recipients.size(), 3u);
    EXPECT_EQ(list.recipients[0].name, "Lin");
    EXPECT_EQ(list.recipients[1].name, "");
    EXPECT_EQ(list.recipients[2].name, "Gu");
    EXPECT_FALSE(list.cut);
}

TEST(ReadRecipients, ANameWithAMarkInItGivesPartsThatAreNoNumber) {
    EXPECT_EQ(AreNumbers("\"Lin; work\" <138>;"), (std::vector{false, true}));
    EXPECT_EQ(AreNumbers("\"L<in\" <138>;"), (std::vector{false}));
    EXPECT_EQ(AreNumbers("\"Lin\" <>;"), (std::vector{false}));
}

TEST(ReadRecipients, WhatAnEmptyPartHidesIsToldOf) {
    EXPECT_TRUE(ReadRecipients("138;;139").cut);
    EXPECT_TRUE(ReadRecipients(";139").cut);
    EXPECT_FALSE(ReadRecipients("138;").cut);
    EXPECT_FALSE(ReadRecipients("138;; ;").cut);
    EXPECT_FALSE(ReadRecipients("").cut);
}

TEST(IsPhoneNumber, TakesNumbersAsPeopleWriteThem) {
    for (const char* number : {"110", "13861234567", "+8613861234567", " 139", "0519-8812 3456",
                               "(0519)88123456", "106.5512 345 678"}) {
        EXPECT_TRUE(IsPhoneNumber(number)) << number;
    }
}

TEST(IsPhoneNumber, TakesNothingElse) {
    for (const char* text : {"", " ", "Lin", "12", "138a", "1+38", "+", "10086#", "--- ---",
                             "138612345671595123045"}) {  // two numbers run together
        EXPECT_FALSE(IsPhoneNumber(text)) << text;
    }
    EXPECT_FALSE(IsPhoneNumber(Ansi(u8"１３８６１２３４５６７")));
}

TEST(IsPhoneNumber, ADigitWithinACharactersBytesIsNone) {
    SetCodePage(CodePage::gb18030);
    EXPECT_FALSE(IsPhoneNumber(Ansi(u8"€𠀀𠀁")));  // four bytes each, two of them digits
    SetCodePage(CodePage::gbk);
}

TEST(NameOfNumber, IsThatOfTheFirstMember) {
    EXPECT_EQ(NameOfNumber("13861234567", kMembers), "Lin");
    EXPECT_EQ(NameOfNumber("86", kMembers), "");
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
    EXPECT_EQ(tree[1].title, "Work");
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
