#include <gmock/gmock.h>

#include "backup/ContactMatch.h"

namespace quorvi {
namespace {

using Action = CardMatch::Action;
using testing::ElementsAre;

ContactCard Card(std::string name, std::vector<std::string> phones,
                 std::vector<std::string> groups = {}) {
    ContactCard card;
    card.name = std::move(name);
    for (std::string& phone : phones) {
        card.phones.push_back({2, std::move(phone)});
    }
    card.groups = std::move(groups);
    return card;
}

std::vector<Action> Actions(const std::vector<ContactCard>& cards,
                            const std::vector<ContactCard>& onPhone,
                            const std::set<std::string>& groups = {}) {
    std::vector<Action> actions;
    for (const CardMatch& match : MatchCards(cards, onPhone, groups)) {
        actions.push_back(match.action);
    }
    return actions;
}

TEST(MatchCards, OneThatIsNotThereIsAdded) {
    EXPECT_THAT(Actions({Card("a", {"1"})}, {}), ElementsAre(Action::add));
    EXPECT_THAT(Actions({Card("a", {"1"})}, {Card("b", {"1"})}), ElementsAre(Action::add));
}

TEST(MatchCards, TheSameIsThere) {
    EXPECT_THAT(Actions({Card("a", {"1"})}, {Card("a", {"1"})}), ElementsAre(Action::there));
}

TEST(MatchCards, OneWithMoreOnThePhoneIsThere) {
    EXPECT_THAT(Actions({Card("a", {"1"})}, {Card("a", {"1", "2"})}), ElementsAre(Action::there));
}

TEST(MatchCards, OneWithFewerItemsIsCompleted) {
    EXPECT_THAT(Actions({Card("a", {"1", "2"})}, {Card("a", {"1"})}),
                ElementsAre(Action::complete));
    EXPECT_THAT(Actions({Card("a", {"1"})}, {Card("a", {})}), ElementsAre(Action::complete));
}

TEST(MatchCards, TwoPeopleOfOneNameStayTwo) {
    EXPECT_THAT(Actions({Card("a", {"1"})}, {Card("a", {"2"})}), ElementsAre(Action::add));
}

TEST(MatchCards, WhatTheBackupHasTwiceIsBroughtBackTwice) {
    const ContactCard twin = Card("a", {"1"});
    EXPECT_THAT(Actions({twin, twin}, {}), ElementsAre(Action::add, Action::add));
    EXPECT_THAT(Actions({twin, twin}, {twin}), ElementsAre(Action::there, Action::add));
    EXPECT_THAT(Actions({twin, twin}, {twin, twin}), ElementsAre(Action::there, Action::there));
}

TEST(MatchCards, TwoCardsThatThePhoneHasInOneContactAreThere) {
    EXPECT_THAT(Actions({Card("a", {"1"}), Card("a", {"2"})}, {Card("a", {"1", "2"})}),
                ElementsAre(Action::there, Action::there));
}

TEST(MatchCards, NewContactsThatAreNotInTheirGroupsYetAreNotTakenForEachOther) {
    const auto matches =
        MatchCards(std::vector{Card("a", {"1", "2"}, {"g"}), Card("a", {"1", "3"}, {"g"})},
                   std::vector{Card("a", {"1", "3"}), Card("a", {"1", "2"})}, {"g"});
    EXPECT_EQ(matches[0].action, Action::complete);
    EXPECT_EQ(matches[0].onPhone, 1u);
    EXPECT_EQ(matches[1].action, Action::complete);
    EXPECT_EQ(matches[1].onPhone, 0u);
}

TEST(MatchCards, AGroupThatThePhoneDoesNotHaveDoesNotCount) {
    EXPECT_THAT(Actions({Card("a", {"1"}, {"g"})}, {Card("a", {"1"})}), ElementsAre(Action::there));
    EXPECT_THAT(Actions({Card("a", {"1"}, {"g"})}, {Card("a", {"1"})}, {"g"}),
                ElementsAre(Action::complete));
}

TEST(MatchCards, ANumberIsTheSameWithAndWithoutMarksBetweenItsDigits) {
    EXPECT_THAT(Actions({Card("a", {"138-1234 5678"})}, {Card("a", {"13812345678"})}),
                ElementsAre(Action::there));
}

TEST(MatchCards, AnotherTypeOfTheSameNumberIsThere) {
    ContactCard other = Card("a", {"1"});
    other.phones[0].type = 3;
    EXPECT_THAT(Actions({Card("a", {"1"})}, {other}), ElementsAre(Action::there));
}

TEST(MatchCards, AnotherNoteOnThePhoneStays) {
    ContactCard card = Card("a", {"1"});
    ContactCard contact = card;
    card.note = "old";
    contact.note = "new";
    const auto match = MatchCards(std::vector{card}, std::vector{contact}, {}).front();
    EXPECT_EQ(match.action, Action::there);
    EXPECT_TRUE(match.keepsOther);
}

TEST(MatchCards, AMissingNoteIsCompleted) {
    ContactCard card = Card("a", {"1"});
    card.note = "old";
    EXPECT_THAT(Actions({card}, {Card("a", {"1"})}), ElementsAre(Action::complete));
}

TEST(MatchCards, OneWithoutANameIsTheContactThatIsCalledByItsNumber) {
    EXPECT_THAT(Actions({Card("", {"110"})}, {Card("110", {"110"})}), ElementsAre(Action::there));
    EXPECT_THAT(Actions({Card("", {"110"})}, {Card("", {"110"})}), ElementsAre(Action::there));
}

TEST(MatchCards, OneThatCanBeCalledNothingIsImpossible) {
    ContactCard card;
    card.note = "only a note";
    EXPECT_THAT(Actions({card}, {}), ElementsAre(Action::impossible));
}

ContactRecord Loaded() {
    ContactRecord record;
    record.id = 7;
    record.favourite = true;
    record.name = {true, ContactItemOp::leave, 1, "a", "a"};
    record.note = {true, ContactItemOp::leave, 2, "note", "note"};
    record.phones = {{11, ContactItemOp::leave, 2, "1", "1"}};
    return record;
}

TEST(RecordToComplete, AddsWhatIsMissingAndLeavesTheRest) {
    ContactCard card = Card("a", {"1", "2"}, {"g", "unknown"});
    card.note = "another";
    card.nickname = "nick";
    const std::vector<ContactGroup> groups{
        {.id = 5, .title = "g", .account = "", .visible = true, .titleCame = "g"}};
    const auto record = RecordToComplete(Loaded(), card, groups);
    ASSERT_TRUE(record);
    EXPECT_TRUE(record->favourite);
    EXPECT_EQ(record->name.op, ContactItemOp::leave);
    EXPECT_EQ(record->note.op, ContactItemOp::leave);
    EXPECT_EQ(record->note.text, "note");
    EXPECT_EQ(record->nickname.op, ContactItemOp::add);
    EXPECT_EQ(record->nickname.text, "nick");
    ASSERT_EQ(record->phones.size(), 2u);
    EXPECT_EQ(record->phones[0].op, ContactItemOp::leave);
    EXPECT_EQ(record->phones[1].op, ContactItemOp::add);
    EXPECT_EQ(record->phones[1].id, kNewContactItem);
    EXPECT_EQ(record->phones[1].text, "2");
    ASSERT_EQ(record->groups.size(), 1u);
    EXPECT_EQ(record->groups[0].type, 5);
}

TEST(RecordToComplete, OfOneThatLacksNothingIsNothing) {
    EXPECT_FALSE(RecordToComplete(Loaded(), Card("a", {"1"}), {}));
}

}  // namespace
}  // namespace quorvi
