#include "pages/contacts/ContactList.h"

#include <utility>

#include "pages/contacts/ContactRecord.h"

namespace quorvi {
namespace {

// Nothing for a photo that is too long or not all there; the cursor moves past it all the same.
ContactPhoto TakePhoto(ReplyCursor& cursor, const std::shared_ptr<const ReplyBuffer>& reply) {
    // Of the length, too, only the low 32 bits count.
    const auto length = static_cast<std::uint32_t>(cursor.TakeUInt64());
    const std::size_t offset = cursor.Offset();
    cursor.SkipBytes(length);
    if (cursor.IsCut() || length > kContactPhotoCapacity) {
        return {};
    }
    return {reply, offset, length};
}

}  // namespace

ContactPhoto::ContactPhoto(const std::shared_ptr<const ReplyBuffer>& reply, std::size_t offset,
                           std::size_t length)
    : start_(length == 0 ? nullptr
                         : std::shared_ptr<const std::byte>(reply, reply->Data() + offset)),
      length_(static_cast<std::uint32_t>(length)) {}

ContactList ParseContactList(const std::shared_ptr<const ReplyBuffer>& reply,
                             const AttributionOf& attribution) {
    ContactList list;
    ReplyCursor cursor(*reply);
    do {
        ContactListRow row;
        row.contactId = cursor.TakeId();
        if (cursor.IsCut()) {
            return list;  // what is done to the row would befall another contact
        }
        row.secondId = cursor.TakeId();
        auto name = cursor.TakeText();
        if (!name) {
            list.EndByMark(row.contactId);
            return list;
        }
        row.name = std::move(*name);
        row.favourite = cursor.TakeUInt32() == 1;  // 2 is no favourite
        row.number = cursor.TakeTextOrEmpty();
        row.lastContact = ContactTimeText(cursor.TakeUInt64());
        cursor.SkipBytes(sizeof(std::uint32_t));  // reserved
        if (cursor.TakeUInt32() == 1) {
            row.photo = TakePhoto(cursor, reply);
        }
        if (cursor.Overran()) {
            return list;
        }
        row.attribution = attribution(row.number);
        list.rows.push_back(std::move(row));
    } while (!cursor.AtEnd());
    return list;
}

ContactListReply FetchContactList(const AgentSession& session, const AttributionOf& attribution,
                                  const AgentSession::Progress& progress) {
    return FetchList<ContactListRow>(
        session, BareRequest(AgentCommand::listContacts), progress, [&](ReplyBuffer&& reply) {
            return ParseContactList(std::make_shared<const ReplyBuffer>(std::move(reply)),
                                    attribution);
        });
}

Bytes DeleteContactsRequest(std::span<const std::uint32_t> ids) {
    return IdsRequest(AgentCommand::deleteContacts, ids);
}

}  // namespace quorvi
