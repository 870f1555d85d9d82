#include "pages/contacts/ContactForm.h"

namespace quorvi {
namespace {

// An id with its sign carried into the high word, so that a new row is eight bytes of 0xFF.
std::uint64_t WideId(std::uint32_t id) {
    return static_cast<std::uint64_t>(static_cast<std::int64_t>(static_cast<std::int32_t>(id)));
}

std::uint32_t Word(ContactItemOp op) {
    return static_cast<std::uint32_t>(op);
}

}  // namespace

Bytes AddContactRequest(const ContactRecord& record) {
    RequestBuilder request(AgentCommand::addContact);
    request.BeginItem();
    request.AddUInt32(record.favourite ? 1 : 0);
    request.AddUInt32(0);  // the structured field, which the editor does not have
    for (const ContactField* field : {&record.name, &record.nickname, &record.note}) {
        request.AddUInt32(field->present ? 1 : 0);
        if (field->present) {
            request.AddUInt64(0).AddUInt32(0).AddRawText(field->text);
        }
    }
    for (const ContactRecord::List list : kContactLists) {
        const auto& items = record.*list;
        request.AddUInt32(static_cast<std::uint32_t>(items.size()));
        for (const ContactItem& item : items) {
            request.AddUInt64(0)
                .AddUInt32(static_cast<std::uint32_t>(item.type))
                .AddRawText(item.text);
        }
    }
    return request.Take();
}

Bytes UpdateContactRequest(const ContactRecord& record) {
    RequestBuilder request(AgentCommand::updateContact);
    request.BeginItem();
    request.AddUInt32(record.id);
    request.AddUInt32(record.favourite ? 1 : 0);
    request.AddUInt32(record.structured.present ? 1 : 0);
    if (record.structured.present) {
        request.AddRawText(record.structured.text);
    }
    for (const ContactField* field : {&record.name, &record.nickname, &record.note}) {
        request.AddUInt32(field->present ? 1 : 0);
        if (field->present) {
            request.AddUInt64(field->id)
                .AddUInt32(Word(field->op))
                .AddUInt32(0)
                .AddRawText(field->text);
        }
    }
    for (const ContactRecord::List list : kContactLists) {
        const auto& items = record.*list;
        request.AddUInt32(static_cast<std::uint32_t>(items.size()));
        for (const ContactItem& item : items) {
            request.AddUInt64(WideId(item.id))
                .AddUInt32(Word(item.op))
                .AddUInt32(static_cast<std::uint32_t>(item.type))
                .AddRawText(item.text);
        }
    }
    return request.Take();
}

}  // namespace quorvi
