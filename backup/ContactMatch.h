// Which contact on the phone a card of a backup stands for, and what that one lacks.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "backup/ContactCard.h"
#include "pages/contacts/ContactGroups.h"
#include "pages/contacts/ContactList.h"

namespace quorvi {

// False for a record that was not read rightly: it has another id, or lacks the name that the list
// has.
[[nodiscard]] bool IsDetailOf(const ContactRecord& record, const ContactListRow& row);

// What a card is called on the phone: its name, or what RecordOf calls it by. UTF-8; empty for one
// that can't be brought there.
[[nodiscard]] std::string CalledOnPhone(const ContactCard& card);

struct CardMatch {
    enum class Action {
        add,
        complete,  // the contact on the phone lacks some of it
        there,
        impossible,  // nothing that it could be called
    };
    Action action = Action::add;
    std::size_t onPhone = 0;  // index, for `complete` and `there`
    bool keepsOther = false;  // the contact on the phone has another nickname or note, which stays
};

// One match a card, in the order of `cards`. Each contact stands for one card at most, so that what
// the backup has twice is brought back twice; a card of which all stands in a contact that stands
// for another one is there too. Only contacts of the same name are looked at, and two of one name
// are the same person when they share a number, an e-mail address or a messenger's, or when one of
// them has none of these. Groups count only where `groups` has their titles.
[[nodiscard]] std::vector<CardMatch> MatchCards(std::span<const ContactCard> cards,
                                                std::span<const ContactCard> onPhone,
                                                const std::set<std::string>& groups);

// The record by which UpdateContactRequest gives a contact what it lacks of a card, and leaves all
// else as it is; nothing when it lacks nothing. `loaded` is as ParseContact gave it. A group of the
// card goes in by the id that the phone has for its title. Favourite, nickname and note of the
// phone stay.
[[nodiscard]] std::optional<ContactRecord> RecordToComplete(ContactRecord loaded,
                                                            const ContactCard& card,
                                                            std::span<const ContactGroup> groups);

}  // namespace quorvi
