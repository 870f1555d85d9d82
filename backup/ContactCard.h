// A contact as it is kept on the PC, whatever the format of the file: what the phone knows of it
// that can be brought back or shown elsewhere, and nothing that belongs to one phone alone, such as
// ids.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pages/contacts/ContactRecord.h"

namespace quorvi {

// A number, an address, a web page.
struct CardItem {
    std::int32_t type = 0;  // see ContactTypes.h
    std::string text;
    // How another program calls the item, where no type of ours says it. The phone has no place for
    // it: see RecordOf.
    std::string label{};

    bool operator==(const CardItem&) const = default;
};

// All texts are UTF-8, unlike those in memory elsewhere: a card stands between a file and the
// phone, both of which are UTF-8, and is to lose nothing in a code page on the way.
struct ContactCard {
    bool favourite = false;
    std::string name;
    std::string nickname;
    std::string note;
    std::vector<CardItem> phones;
    std::vector<std::string> groups;  // titles
    std::vector<CardItem> emails;
    std::vector<CardItem> ims;
    std::vector<CardItem> websites;
    std::vector<CardItem> addresses;
    std::vector<CardItem> organisations;
    std::string photo;  // the bytes of an image file, in any format; empty without one

    bool operator==(const ContactCard&) const = default;

    using List = std::vector<CardItem> ContactCard::*;
};

// A list of a card beside the same list of a record. Groups stand by themselves: a record's bear
// ids.
struct CardList {
    ContactCard::List card;
    ContactRecord::List record;
};
inline constexpr CardList kCardLists[] = {
    {&ContactCard::phones, &ContactRecord::phones},
    {&ContactCard::emails, &ContactRecord::emails},
    {&ContactCard::ims, &ContactRecord::ims},
    {&ContactCard::websites, &ContactRecord::websites},
    {&ContactCard::addresses, &ContactRecord::addresses},
    {&ContactCard::organisations, &ContactRecord::organisations},
};

// A text as every format can hold it: lines end with LF, other control characters than tabs are
// left out, and what is no UTF-8 becomes U+FFFD.
[[nodiscard]] std::string CardText(std::string_view utf8);

// The card of a contact that was read from the phone, and of its photo, which the list brings.
// Texts are those that came, as CardText gives them; items without a text say nothing and are left
// out. `record` is one of ParseContact. Any thread.
[[nodiscard]] ContactCard CardOf(const ContactRecord& record, std::string_view photo = {});

// The record by which AddContactRequest brings a card to the phone; nothing when there is nothing
// that it could be called. A card without a name is called by its nickname, its first organisation,
// number or e-mail address. All texts go out in UTF-8. What a new contact cannot be sent, groups
// and the photo, is left out. The labels of items go into the note, one line each. Any thread.
[[nodiscard]] std::optional<ContactRecord> RecordOf(const ContactCard& card);

}  // namespace quorvi
