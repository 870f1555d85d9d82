// Replies of an agent for exports and imports: made-up people, byte by byte.
#pragma once

#include "tests/support/WireBytes.h"

namespace quorvi::test {

// A list of contacts: 林远舟, a favourite with a photo of four bytes, and Ada without either.
inline Bytes TwoContacts() {
    return WireBytes()
        .U32(0)                   // leading word
        .U64(7)                   // contact id
        .U64(7)                   // second id
        .Text("林远舟")           // name
        .U32(1)                   // favourite
        .Text("138 0013-8000")    // number
        .U64(0)                   // last contact
        .U32(0)                   // reserved
        .U32(1)                   // has photo
        .U64(4)                   // photo length
        .Raw("\xFF\xD8\xFF\xE0")  // photo
        .U64(8)                   // contact id
        .U64(8)                   // second id
        .Text("Ada")              // name
        .U32(0)                   // favourite
        .Text("")                 // number
        .U64(0)                   // last contact
        .U32(0)                   // reserved
        .U32(0)                   // has photo
        .Get();
}

// The contact that command 870102 gives, of one number, and of one group or none.
inline Bytes ContactReply(std::uint32_t id, std::string_view name, std::uint32_t numberType,
                          std::string_view number, std::string_view group = {}) {
    WireBytes bytes;
    bytes
        .U32(0)           // leading word
        .U64(id)          // contact id
        .U32(1)           // favourite
        .U64(0)           // last contact
        .U64(27)          // times contacted
        .U32(0)           // has photo
        .U32(0)           // structured flag
        .U32(1)           // name flag
        .U64(70)          // name row id
        .U32(0)           // reserved
        .Text(name)       // name
        .U32(0)           // nickname flag
        .U32(0)           // note flag
        .U32(1)           // phones
        .U64(80)          // row id
        .U32(numberType)  // type
        .Text(number);    // number
    if (group.empty()) {
        bytes.U32(0);  // groups
    } else {
        bytes
            .U32(1)        // groups
            .U64(81)       // row id
            .U32(3)        // group id
            .Text(group);  // title
    }
    return bytes
        .U32(0)  // e-mails
        .U32(0)  // ims
        .U32(0)  // websites
        .U32(0)  // addresses
        .U32(0)  // organisations
        .Get();
}

// Whichever contact is asked for.
inline Bytes OneContact() {
    return ContactReply(7, "林远舟", 2, "138 0013-8000", "家人");
}

inline Bytes OneConversation() {
    return WireBytes()
        .U32(0)               // leading word
        .U64(5)               // conversation id
        .Text("林远舟")       // name
        .Text("13800138000")  // number
        .U64(0)               // date
        .U32(0)               // reserved
        .U32(0)               // reserved
        .Text("在")           // the last message
        .Get();
}

inline Bytes TwoMessages() {
    return WireBytes()
        .U32(0)          // leading word
        .U64(1)          // message id
        .U32(1)          // incoming
        .Text("林远舟")  // address
        .U64(0)          // date
        .U32(0)          // reserved
        .Text("在吗？")  // text
        .U32(0)          // reserved
        .U64(2)          // message id
        .U32(0)          // went out
        .Text("林远舟")  // address
        .U64(0)          // date
        .U32(0)          // reserved
        .Text("在")      // text
        .U32(0)          // reserved
        .Get();
}

inline Bytes OneCall() {
    return WireBytes()
        .U32(0)            // leading word
        .U64(9)            // call id
        .Text("+8610086")  // number
        .U64(0)            // date
        .U64(100)          // duration
        .U32(2)            // went out
        .Text("客服")      // name
        .Get();
}

inline Bytes OneBookmark() {
    return WireBytes()
        .U32(0)                         // leading word
        .U64(4)                         // bookmark id
        .Text("天气")                   // title
        .Text("http://a.example/?b&c")  // url
        .U32(3)                         // visits
        .U64(0)                         // last visit
        .U32(0)                         // has favicon
        .U32(0)                         // has thumbnail
        .Get();
}

}  // namespace quorvi::test
