// Reads a list of contacts out of any bytes, whole or cut, and touches every photo kept.
//
// Input: see FuzzReplyOf.h.
#include <cstdlib>

#include "fuzz/agent/FuzzReplyOf.h"
#include "pages/contacts/ContactList.h"
#include "pages/kit/ReplyPicture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto reply = quorvi::fuzz::ReplyOf({data, size});
    if (!reply) {
        return 0;
    }
    const auto shared = std::make_shared<const quorvi::ReplyBuffer>(std::move(*reply));
    const auto list = quorvi::ParseContactList(
        shared, [](std::string_view number) { return std::string(number); });
    volatile unsigned sum = 0;
    for (const quorvi::ContactListRow& row : list.rows) {
        const auto photo = row.photo.Bytes();
        if (photo.size() > quorvi::kPictureCapacity || row.number != row.attribution) {
            std::abort();
        }
        for (const std::byte byte : photo) {
            sum = sum + static_cast<unsigned>(byte);
        }
    }
    return 0;
}
