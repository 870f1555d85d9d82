#include "pages/contacts/ContactOrder.h"

#include <map>
#include <string>
#include <utility>

#include "base/Text.h"
#include "find/NameOrder.h"
#include "pages/contacts/ContactRecord.h"

namespace quorvi {
namespace {

// A text of a time is as long as its year has digits, four of them or more.
std::string TimeKey(const std::string& text) {
    return text == ContactTimeText(0) ? std::string()
                                      : std::string(1, static_cast<char>(text.size())) + text;
}

}  // namespace

std::vector<std::vector<RowRank>> RanksOfContacts(std::span<const ContactListRow> rows) {
    const NameOrder order;
    std::map<std::string, std::string> attributions;  // which are few
    std::vector<std::string> names;
    std::vector<std::string> times;
    std::vector<std::string> places;
    for (const ContactListRow& row : rows) {
        names.push_back(order.Key(ToUtf8(row.name)));
        times.push_back(TimeKey(row.lastContact));
        auto [place, isNew] = attributions.try_emplace(row.attribution);
        if (isNew) {
            place->second = order.Key(ToUtf8(row.attribution));
        }
        places.push_back(place->second);
    }
    return {RanksOf(names), RanksOf(times), RanksOf(places)};
}

RankedContactReply Ranked(ContactListReply reply) {
    RankedContactReply ranked;
    ranked.outcome = reply.outcome;
    ranked.list.ranks = RanksOfContacts(reply.list.rows);
    static_cast<ContactList&>(ranked.list) = std::move(reply.list);
    return ranked;
}

}  // namespace quorvi
