#include <gtest/gtest.h>

#include "base/Text.h"
#include "pages/contacts/ContactOrder.h"

namespace quorvi {
namespace {

ContactListRow Row(std::u8string_view name, std::string time, std::u8string_view attribution) {
    ContactListRow row;
    row.name = Ansi(name);
    row.lastContact = std::move(time);
    row.attribution = Ansi(attribution);
    return row;
}

std::vector<int> Order(const std::vector<ContactListRow>& rows, ContactSort by) {
    return RowsInOrder(RanksOfContacts(rows)[by], false);
}

TEST(ContactOrder, ByNameContactsStandByThePinyinAndThoseWithoutANameLast) {
    EXPECT_EQ(
        Order({Row(u8"", "N/A", u8""), Row(u8"张三", "N/A", u8""), Row(u8"李四", "N/A", u8"")},
              contactsByName),
        (std::vector<int>{2, 1, 0}));
}

TEST(ContactOrder, ByTimeTheYearCountsAsANumberAndWhoWasNeverContactedStandsLast) {
    EXPECT_EQ(
        Order({Row(u8"a", "N/A", u8""), Row(u8"b", "10000-01-01 00:00:00", u8""),
               Row(u8"c", "2026-11-22 09:00:00", u8""), Row(u8"d", "2026-02-01 09:00:00", u8"")},
              contactsByTime),
        (std::vector<int>{3, 2, 1, 0}));
}

TEST(ContactOrder, ByAttributionPlacesStandByThePinyinAndTheirContactsAsTheyCame) {
    EXPECT_EQ(Order({Row(u8"a", "N/A", u8"上海"), Row(u8"b", "N/A", u8"北京"),
                     Row(u8"c", "N/A", u8""), Row(u8"d", "N/A", u8"北京")},
                    contactsByAttribution),
              (std::vector<int>{1, 3, 0, 2}));
}

TEST(ContactOrder, AReplyKeepsWhatItBrought) {
    ContactListReply reply;
    reply.outcome = SessionOutcome::complete;
    reply.list.rows = {Row(u8"b", "N/A", u8""), Row(u8"a", "N/A", u8"")};
    reply.list.marked = Row(u8"c", "N/A", u8"");
    const RankedContactReply ranked = Ranked(std::move(reply));
    EXPECT_TRUE(ranked.Connected());
    EXPECT_FALSE(ranked.IsWhole());
    ASSERT_EQ(ranked.list.rows.size(), 2U);
    EXPECT_TRUE(ranked.list.EndedByMark());
    EXPECT_EQ(ranked.list.ranks[contactsByName], (std::vector<RowRank>{1, 0}));
}

}  // namespace
}  // namespace quorvi
