// Replies of a phone with contacts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tests/pages/WireBytes.h"

namespace quorvi {

struct ListedContact {
    std::uint64_t id = 1;
    std::string_view name = "A";
    std::string_view number = "10086";
    std::uint32_t favourite = 0;
    std::string photo = {};
    std::uint64_t lastContact = 0;
};

// The payload of the list's reply.
inline WireBytes ListPayload(const std::vector<ListedContact>& contacts) {
    WireBytes bytes;
    bytes.U32(0);  // leading word
    for (const ListedContact& contact : contacts) {
        bytes
            .U64(contact.id)           // contact id
            .U64(contact.id)           // second id
            .Text(contact.name)        // name
            .U32(contact.favourite)    // favourite
            .Text(contact.number)      // number
            .U64(contact.lastContact)  // last contact
            .U32(0);                   // reserved
        if (contact.photo.empty()) {
            bytes.U32(0);  // has photo
        } else {
            bytes.U32(1).U64(contact.photo.size()).Raw(contact.photo);
        }
    }
    return bytes;
}

struct ListedItem {
    std::uint64_t id = 80;
    std::uint32_t type = 2;
    std::string_view text = "111";
};

// The payload of a contact's reply, with a name and these phones.
inline WireBytes ContactPayload(std::uint64_t id, std::string_view name,
                                const std::vector<ListedItem>& phones = {}) {
    WireBytes bytes;
    bytes
        .U32(0)      // leading word
        .U64(id)     // contact id
        .U32(0)      // favourite
        .U64(0)      // last contact
        .U64(0)      // times contacted
        .U32(0)      // has photo
        .U32(0)      // structured flag
        .U32(1)      // name flag
        .U64(70)     // name row id
        .U32(0)      // reserved
        .Text(name)  // name
        .U32(0)      // nickname flag
        .U32(0);     // note flag
    bytes.U32(static_cast<std::uint32_t>(phones.size()));
    for (const ListedItem& phone : phones) {
        bytes.U64(phone.id).U32(phone.type).Text(phone.text);
    }
    for (int list = 0; list < 6; ++list) {
        bytes.U32(0);  // groups, e-mails, ims, websites, addresses, organisations
    }
    return bytes;
}

}  // namespace quorvi
