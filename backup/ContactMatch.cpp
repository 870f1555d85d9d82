#include "backup/ContactMatch.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "backup/Content.h"
#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::size_t kNobody = static_cast<std::size_t>(-1);

constexpr ContactCard::List kReached[] = {&ContactCard::phones, &ContactCard::emails,
                                          &ContactCard::ims};

// By what two items are one: a number without the marks between its digits, an e-mail address
// without regard to case. The type does not count: it may have been changed on the phone.
std::string KeyOf(ContactCard::List list, std::string_view text) {
    if (list == &ContactCard::emails) {
        return ToLower(text);
    }
    std::string key(text);
    if (list == &ContactCard::phones) {
        std::erase_if(key, [](char c) { return c == ' ' || c == '-' || c == '(' || c == ')'; });
    }
    return key;
}

using Keys = std::map<std::string, std::size_t, std::less<>>;

Keys KeysOf(const ContactCard& card, ContactCard::List list) {
    Keys keys;
    for (const CardItem& item : card.*list) {
        ++keys[KeyOf(list, item.text)];
    }
    return keys;
}

// The items of `card` that `keys` has no counterpart for.
std::vector<CardItem> Missing(const ContactCard& card, ContactCard::List list, Keys keys) {
    std::vector<CardItem> missing;
    for (const CardItem& item : card.*list) {
        const auto found = keys.find(KeyOf(list, item.text));
        if (found == keys.end() || found->second == 0) {
            missing.push_back(item);
        } else {
            --found->second;
        }
    }
    return missing;
}

std::set<std::string> MissingGroups(const ContactCard& card, const ContactCard& onPhone) {
    std::set<std::string> missing(card.groups.begin(), card.groups.end());
    for (const std::string& title : onPhone.groups) {
        missing.erase(title);
    }
    return missing;
}

bool LacksItems(const ContactCard& onPhone, const ContactCard& card,
                const std::set<std::string>& groups) {
    for (const CardList& list : kCardLists) {
        if (!Missing(card, list.card, KeysOf(onPhone, list.card)).empty()) {
            return true;
        }
    }
    const auto missing = MissingGroups(card, onPhone);
    return std::ranges::any_of(missing,
                               [&](const std::string& title) { return groups.contains(title); });
}

bool LacksField(const std::string& onPhone, const std::string& inCard) {
    return onPhone.empty() && !inCard.empty();
}
bool HasOtherField(const std::string& onPhone, const std::string& inCard) {
    return !onPhone.empty() && !inCard.empty() && onPhone != inCard;
}

bool ReachesNobody(const ContactCard& card) {
    return std::ranges::all_of(kReached, [&](auto list) { return (card.*list).empty(); });
}

bool IsSamePerson(const ContactCard& a, const ContactCard& b) {
    if (ReachesNobody(a) || ReachesNobody(b)) {
        return true;
    }
    return std::ranges::any_of(kReached, [&](auto list) {
        const Keys keys = KeysOf(a, list);
        return std::ranges::any_of(
            b.*list, [&](const CardItem& item) { return keys.contains(KeyOf(list, item.text)); });
    });
}

// One side of the matching, and the content of each of its cards, worked out once.
struct Side {
    explicit Side(std::span<const ContactCard> ofThese) : cards(ofThese) {
        for (const ContactCard& card : cards) {
            contents.push_back(ContentOf(card));
            ContactCard withoutGroups = card;
            withoutGroups.groups.clear();
            bare.push_back(ContentOf(withoutGroups));
        }
    }
    std::span<const ContactCard> cards;
    std::vector<std::string> contents;
    // Without groups: a contact that is new on the phone is put into them by a second request, and
    // may still lack them.
    std::vector<std::string> bare;
};

// The cards and contacts of one name.
class Namesakes {
  public:
    Namesakes(const Side& backup, const Side& phone, const std::set<std::string>& groups,
              std::vector<CardMatch>& matches)
        : backup_(backup), phone_(phone), groups_(groups), matches_(matches) {}

    std::vector<std::size_t> inBackup;
    std::vector<std::size_t> onThePhone;

    // The closest first, so that none takes the place of another.
    void Match() {
        standsFor_.assign(onThePhone.size(), kNobody);
        MatchTheSame(&Side::contents);
        MatchTheSame(&Side::bare);
        MatchBy([&](const ContactCard& card, const ContactCard& contact) {
            return HasAll(contact, card);
        });
        MatchBy([&](const ContactCard& card, const ContactCard& contact) {
            return HasAll(card, contact) && IsSamePerson(card, contact);
        });
        MatchBy(IsSamePerson);
        for (const std::size_t card : inBackup) {
            if (!matched_.contains(card)) {
                MatchInAnother(card);
            }
        }
    }

  private:
    [[nodiscard]] bool HasAll(const ContactCard& contact, const ContactCard& card) const {
        return !LacksItems(contact, card, groups_) &&
               (card.nickname.empty() || card.nickname == contact.nickname) &&
               (card.note.empty() || card.note == contact.note);
    }

    void MatchTheSame(std::vector<std::string> Side::*contents) {
        std::multimap<std::string_view, std::size_t> byContent;
        for (std::size_t i = 0; i < onThePhone.size(); ++i) {
            if (standsFor_[i] == kNobody) {
                byContent.emplace((phone_.*contents)[onThePhone[i]], i);
            }
        }
        for (const std::size_t card : inBackup) {
            const auto found = byContent.find((backup_.*contents)[card]);
            if (found != byContent.end() && !matched_.contains(card)) {
                MatchTo(card, found->second);
                byContent.erase(found);
            }
        }
    }

    template <typename Fits>
    void MatchBy(Fits fits) {
        for (const std::size_t card : inBackup) {
            for (std::size_t i = 0; i < onThePhone.size() && !matched_.contains(card); ++i) {
                if (standsFor_[i] == kNobody &&
                    fits(backup_.cards[card], phone_.cards[onThePhone[i]])) {
                    MatchTo(card, i);
                }
            }
        }
    }

    void MatchTo(std::size_t card, std::size_t place) {
        standsFor_[place] = card;
        matched_.insert(card);
        Tell(card, onThePhone[place]);
    }

    void MatchInAnother(std::size_t card) {
        for (std::size_t i = 0; i < onThePhone.size(); ++i) {
            const bool standsForATwin = standsFor_[i] != kNobody &&
                                        backup_.contents[standsFor_[i]] == backup_.contents[card];
            if (!standsForATwin && HasAll(phone_.cards[onThePhone[i]], backup_.cards[card])) {
                Tell(card, onThePhone[i]);
                return;
            }
        }
    }

    void Tell(std::size_t index, std::size_t contactIndex) {
        const ContactCard& card = backup_.cards[index];
        const ContactCard& contact = phone_.cards[contactIndex];
        CardMatch& match = matches_[index];
        match.onPhone = contactIndex;
        match.action = LacksItems(contact, card, groups_) ||
                               LacksField(contact.nickname, card.nickname) ||
                               LacksField(contact.note, card.note)
                           ? CardMatch::Action::complete
                           : CardMatch::Action::there;
        match.keepsOther = HasOtherField(contact.nickname, card.nickname) ||
                           HasOtherField(contact.note, card.note);
    }

    const Side& backup_;
    const Side& phone_;
    const std::set<std::string>& groups_;
    std::vector<CardMatch>& matches_;
    std::vector<std::size_t> standsFor_;  // of onThePhone, a card or kNobody
    std::set<std::size_t> matched_;
};

// The bytes that came, so that a text that the code page can't hold goes back as it is.
template <typename Loaded>
void KeepAsItCame(Loaded& loaded) {
    loaded.text = loaded.came;
}

bool AddField(ContactField& field, const std::string& text) {
    if (field.present && !field.text.empty()) {
        return false;
    }
    if (text.empty()) {
        return false;
    }
    field.op = field.present ? ContactItemOp::update : ContactItemOp::add;
    if (!field.present) {
        field.id = kNewContactItem;
    }
    field.present = true;
    field.text = text;
    return true;
}

}  // namespace

bool IsDetailOf(const ContactRecord& record, const ContactListRow& row) {
    return record.id == row.contactId && record.name.Shown().empty() == row.name.empty();
}

std::string CalledOnPhone(const ContactCard& card) {
    auto record = RecordOf(card);
    return record ? std::move(record->name.text) : std::string();
}

std::vector<CardMatch> MatchCards(std::span<const ContactCard> cards,
                                  std::span<const ContactCard> onPhone,
                                  const std::set<std::string>& groups) {
    std::vector<CardMatch> matches(cards.size());
    const Side backup(cards);
    const Side phone(onPhone);
    std::map<std::string, Namesakes> byName;
    const auto namesakes = [&](const std::string& name) -> Namesakes& {
        return byName.try_emplace(name, backup, phone, groups, matches).first->second;
    };
    for (std::size_t i = 0; i < cards.size(); ++i) {
        if (const std::string name = CalledOnPhone(cards[i]); name.empty()) {
            matches[i].action = CardMatch::Action::impossible;
        } else {
            namesakes(name).inBackup.push_back(i);
        }
    }
    for (std::size_t i = 0; i < onPhone.size(); ++i) {
        namesakes(CalledOnPhone(onPhone[i])).onThePhone.push_back(i);
    }
    for (auto& [name, same] : byName) {
        same.Match();
    }
    return matches;
}

std::optional<ContactRecord> RecordToComplete(ContactRecord loaded, const ContactCard& card,
                                              std::span<const ContactGroup> groups) {
    ContactRecord record = std::move(loaded);
    const ContactCard onPhone = CardOf(record);
    for (ContactField* field : {&record.name, &record.nickname, &record.note}) {
        KeepAsItCame(*field);
    }
    for (const ContactRecord::List list : kContactLists) {
        for (ContactItem& item : record.*list) {
            KeepAsItCame(item);
        }
    }
    bool lacks = AddField(record.nickname, card.nickname);
    lacks = AddField(record.note, card.note) || lacks;
    for (const CardList& list : kCardLists) {
        for (const CardItem& item : Missing(card, list.card, KeysOf(onPhone, list.card))) {
            (record.*list.record)
                .push_back({kNewContactItem, ContactItemOp::add, item.type, item.text});
            lacks = true;
        }
    }
    for (const std::string& title : MissingGroups(card, onPhone)) {
        const auto group = std::ranges::find_if(
            groups, [&](const ContactGroup& one) { return CardText(one.titleCame) == title; });
        if (group != groups.end()) {
            record.groups.push_back({kNewContactItem, ContactItemOp::add,
                                     static_cast<std::int32_t>(group->id), group->titleCame});
            lacks = true;
        }
    }
    return lacks ? std::optional(std::move(record)) : std::nullopt;
}

}  // namespace quorvi
