// Replies of a phone with contacts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/WireBytes.h"

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

// A contact up to its single fields, never contacted and without a photo.
inline WireBytes ContactStart(std::uint64_t id) {
    return WireBytes()
        .U32(0)   // leading word
        .U64(id)  // contact id
        .U32(0)   // favourite
        .U64(0)   // last contact
        .U64(0)   // times contacted
        .U32(0);  // has photo
}

// The same up to its lists, with no single field but the name.
inline WireBytes ContactHead(std::uint64_t id, std::string_view name) {
    return ContactStart(id)
        .U32(0)      // structured flag
        .U32(1)      // name flag
        .U64(70)     // name row id
        .U32(0)      // reserved
        .Text(name)  // name
        .U32(0)      // nickname flag
        .U32(0);     // note flag
}

struct ListedItem {
    std::uint64_t id = 80;
    std::uint32_t type = 2;
    std::string_view text = "111";
};

// One list of a contact.
inline WireBytes& AddItems(WireBytes& bytes, const std::vector<ListedItem>& items) {
    bytes.U32(static_cast<std::uint32_t>(items.size()));
    for (const ListedItem& item : items) {
        bytes.U64(item.id).U32(item.type).Text(item.text);
    }
    return bytes;
}

inline WireBytes& AddEmptyLists(WireBytes& bytes, int lists = 7) {
    for (int list = 0; list < lists; ++list) {
        bytes.U32(0);
    }
    return bytes;
}

// The payload of a contact's reply, with a name and these phones.
inline WireBytes ContactPayload(std::uint64_t id, std::string_view name,
                                const std::vector<ListedItem>& phones = {}) {
    WireBytes bytes = ContactHead(id, name);
    return AddEmptyLists(AddItems(bytes, phones), 6);
}

// The payload of a contact with everything that one can hold.
inline WireBytes WholeContactPayload() {
    WireBytes bytes;
    bytes
        .U32(0xDEADBEEF)        // leading word, looked at by nobody
        .U64(0x500000007)       // contact id
        .U32(1)                 // favourite
        .U64(1308361330999)     // last contact: 2011-06-18 09:42:10 in Shanghai
        .U64(0x10000001B)       // times contacted
        .U32(1)                 // has photo
        .U64(3)                 // photo row id
        .Text("\xFF\xD8jpeg")   // photo
        .U32(1)                 // structured flag
        .U64(69)                // structured row id
        .U32(9)                 // reserved
        .Text("林 远舟")        // structured text
        .U32(1)                 // name flag
        .U64(0x20000000000046)  // name row id
        .U32(9)                 // reserved
        .Text("林远舟")         // name
        .U32(1)                 // nickname flag
        .U64(71)                // nickname row id
        .U32(9)                 // reserved
        .Text("阿舟")           // nickname
        .U32(1)                 // note flag
        .U64(72)                // note row id
        .U32(9)                 // reserved
        .Text("十月生日");      // note
    AddItems(bytes, {{80, 2, "13861234567"}, {81, 3, "0519-88123456"}});  // phones
    AddItems(bytes, {{82, 0, "朋友"}});                                   // groups
    AddItems(bytes, {{83, 1, "yz@example.com"}});                         // e-mails
    AddItems(bytes, {{84, 0xFFFFFFFF, "10240768"}});                      // ims
    AddItems(bytes, {{85, 0, "http://yz.example.com"}});                  // websites
    AddItems(bytes, {{86, 1, "常州市"}});                                 // addresses
    AddItems(bytes, {{87, 1, "测绘研究院"}});                             // organisations
    return bytes;
}

}  // namespace quorvi
