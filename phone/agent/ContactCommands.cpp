// Contacts: the list with photos, one contact whole, adding, changing by difference, deleting.
#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "phone/agent/AgentData.h"
#include "phone/agent/Commands.h"

namespace quorvi::phone {
namespace {

// What an update is to do with a data row.
enum class RowOperation : std::uint32_t { add = 0, remove = 1, update = 2, leave = 3 };

// The id of a row that is not on the phone yet: a 32-bit -1 with its sign carried on.
constexpr std::uint64_t kNewRow = ~std::uint64_t{0};

bool TakeFlag(Exchange& exchange, std::string_view name) {
    const std::uint32_t flag = exchange.request.UInt32();
    if (flag > 1) {
        exchange.Deviate(fmt::format("{} flag is {}", name, flag));
    }
    return flag == 1;
}

// Room for the fixed fields of a record in the list.
constexpr std::size_t kListRecordBytes = 64;

void ListContacts(Exchange& exchange) {
    std::size_t bytes = 0;
    for (const Contact& contact : exchange.data.book.contacts) {
        bytes +=
            kListRecordBytes + contact.Name().size() + (contact.photo ? contact.photo->size() : 0);
    }
    exchange.reply.Reserve(bytes);
    for (const Contact& contact : exchange.data.book.contacts) {
        const auto& phones = contact.List(ContactList::phones);
        exchange.reply.UInt64(contact.id)
            .UInt64(contact.id)
            .Text(contact.Name())
            .UInt32(contact.favourite)
            .Text(phones.empty() ? std::string_view() : phones.front().text)
            .UInt64(contact.lastContact)
            .UInt32(0)
            .UInt32(contact.photo ? 1 : 0);
        if (contact.photo) {
            exchange.reply.UInt64(contact.photo->size()).Raw(*contact.photo);
        }
    }
}

void WriteText(ReplyWriter& reply, const std::optional<ContactText>& field) {
    reply.UInt32(field ? 1 : 0);
    if (field) {
        reply.UInt64(field->row).UInt32(0).Text(field->text);
    }
}

void ReadContact(Exchange& exchange) {
    exchange.ExpectOneItem();
    const std::uint32_t id = exchange.request.UInt32();
    const Contact* contact = exchange.data.book.Find(id);
    exchange.note = fmt::format("contact {}", id);
    if (!contact) {
        return;
    }
    ReplyWriter& reply = exchange.reply;
    reply.UInt64(contact->id)
        .UInt32(contact->favourite)
        .UInt64(contact->lastContact)
        .UInt64(contact->timesContacted)
        .UInt32(contact->photo ? 1 : 0);
    if (contact->photo) {
        reply.UInt64(contact->photoRow).Blob(*contact->photo);
    }
    for (const auto* field :
         {&contact->structured, &contact->name, &contact->nickname, &contact->note}) {
        WriteText(reply, *field);
    }
    for (std::size_t list = 0; list < kContactLists; ++list) {
        const bool isGroups = list == static_cast<std::size_t>(ContactList::groups);
        reply.UInt32(static_cast<std::uint32_t>(contact->lists[list].size()));
        for (const ContactEntry& entry : contact->lists[list]) {
            reply.UInt64(entry.row)
                .UInt32(static_cast<std::uint32_t>(entry.type))
                .Text(isGroups
                          ? exchange.data.book.GroupTitle(static_cast<std::uint64_t>(entry.type))
                          : entry.text);
        }
    }
}

// A row of a new contact: eight zero bytes for its id, one word, the text.
ContactEntry TakeNewRow(Exchange& exchange, bool wordIsType) {
    if (const auto id = exchange.request.UInt64(); id != 0) {
        exchange.Deviate(fmt::format("a new contact's row has the id {}", id));
    }
    const std::uint32_t word = exchange.request.UInt32();
    if (!wordIsType && word != 0) {
        exchange.Deviate(fmt::format("a text's word is {}", word));
    }
    return {exchange.data.book.NewRow(), static_cast<std::int32_t>(word), exchange.request.Text()};
}

std::optional<ContactText> TakeNewText(Exchange& exchange, std::string_view name) {
    if (!TakeFlag(exchange, name)) {
        return std::nullopt;
    }
    ContactEntry row = TakeNewRow(exchange, false);
    return ContactText{row.row, std::move(row.text)};
}

void AddContact(Exchange& exchange) {
    exchange.ExpectOneItem();
    Contact contact;
    contact.favourite = TakeFlag(exchange, "favourite");
    if (TakeFlag(exchange, "structured")) {
        exchange.Deviate("a new contact has a structured field");
    }
    contact.name = TakeNewText(exchange, "name");
    if (!contact.name) {
        exchange.Deviate("a new contact has no name");
    }
    contact.nickname = TakeNewText(exchange, "nickname");
    contact.note = TakeNewText(exchange, "note");
    for (std::size_t list = 0; list < kContactLists; ++list) {
        const std::uint32_t count = exchange.request.UInt32();
        if (list == static_cast<std::size_t>(ContactList::groups) && count != 0) {
            exchange.Deviate(fmt::format("a new contact is in {} groups", count));
        }
        for (std::uint32_t i = 0; i < count && !exchange.request.Overran(); ++i) {
            contact.lists[list].push_back(TakeNewRow(exchange, true));
        }
    }
    exchange.reply.Word(1);
    if (!exchange.request.Overran()) {
        contact.id = exchange.data.book.NewContactId();
        exchange.note = fmt::format("contact {} \"{}\"", contact.id, contact.Name());
        exchange.data.book.contacts.push_back(std::move(contact));
    }
}

RowOperation TakeOperation(Exchange& exchange) {
    const std::uint32_t operation = exchange.request.UInt32();
    if (operation > static_cast<std::uint32_t>(RowOperation::leave)) {
        exchange.Deviate(fmt::format("operation {}", operation));
        return RowOperation::leave;
    }
    return static_cast<RowOperation>(operation);
}

// A field whose flag is 0 was cleared: the phone drops it.
void UpdateText(Exchange& exchange, std::string_view name, std::optional<ContactText>& field) {
    if (!TakeFlag(exchange, name)) {
        field.reset();
        return;
    }
    const std::uint64_t row = exchange.request.UInt64();
    const RowOperation operation = TakeOperation(exchange);
    if (const auto word = exchange.request.UInt32(); word != 0) {
        exchange.Deviate(fmt::format("a text's word is {}", word));
    }
    std::string text = exchange.request.Text();
    switch (operation) {
        case RowOperation::add:
            field = ContactText{exchange.data.book.NewRow(), std::move(text)};
            break;
        case RowOperation::remove:
            field.reset();
            break;
        case RowOperation::update:
            if (!field || field->row != row) {
                exchange.Deviate(fmt::format("{} has no row {}", name, row));
            }
            field = ContactText{row, std::move(text)};
            break;
        case RowOperation::leave:
            break;
    }
}

void UpdateEntry(Exchange& exchange, std::vector<ContactEntry>& list) {
    const std::uint64_t row = exchange.request.UInt64();
    const RowOperation operation = TakeOperation(exchange);
    const auto type = static_cast<std::int32_t>(exchange.request.UInt32());
    std::string text = exchange.request.Text();
    if (operation == RowOperation::leave || exchange.request.Overran()) {
        return;
    }
    if (operation == RowOperation::add) {
        if (row != kNewRow) {
            exchange.Deviate(fmt::format("a row to add has the id {}", row));
        }
        list.push_back({exchange.data.book.NewRow(), type, std::move(text)});
        return;
    }
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&](const ContactEntry& entry) { return entry.row == row; });
    if (found == list.end()) {
        exchange.Deviate(fmt::format("no row {}", row));
    } else if (operation == RowOperation::remove) {
        list.erase(found);
    } else {
        found->type = type;
        found->text = std::move(text);
    }
}

void UpdateContact(Exchange& exchange) {
    exchange.ExpectOneItem();
    exchange.reply.Word(1);
    const std::uint32_t id = exchange.request.UInt32();
    exchange.note = fmt::format("contact {}", id);
    Contact* known = exchange.data.book.Find(id);
    if (!known) {
        exchange.note += ", unknown";
        exchange.request.SkipRest();
        return;
    }
    Contact contact = *known;
    contact.favourite = TakeFlag(exchange, "favourite");
    if (TakeFlag(exchange, "structured")) {
        const std::uint64_t row = contact.structured ? contact.structured->row : 0;
        contact.structured = ContactText{row, exchange.request.Text()};
    }
    UpdateText(exchange, "name", contact.name);
    UpdateText(exchange, "nickname", contact.nickname);
    UpdateText(exchange, "note", contact.note);
    for (auto& list : contact.lists) {
        const std::uint32_t count = exchange.request.UInt32();
        for (std::uint32_t i = 0; i < count && !exchange.request.Overran(); ++i) {
            UpdateEntry(exchange, list);
        }
    }
    if (!exchange.request.Overran()) {
        *known = std::move(contact);
    }
}

void DeleteContacts(Exchange& exchange) {
    exchange.reply.Word(1);
    exchange.note = "contacts";
    auto& contacts = exchange.data.book.contacts;
    for (std::uint32_t i = 0; i < exchange.items && !exchange.request.Overran(); ++i) {
        const std::uint32_t id = exchange.request.UInt32();
        exchange.note += fmt::format(" {}", id);
        std::erase_if(contacts, [&](const Contact& contact) { return contact.id == id; });
    }
}

constexpr std::array kRows{
    AgentCommandRow{AgentCommand::listContacts, "listContacts", RequestForm::bare, ListContacts},
    AgentCommandRow{AgentCommand::readContact, "readContact", RequestForm::framed, ReadContact},
    AgentCommandRow{AgentCommand::addContact, "addContact", RequestForm::framed, AddContact},
    AgentCommandRow{AgentCommand::updateContact, "updateContact", RequestForm::framed,
                    UpdateContact},
    AgentCommandRow{AgentCommand::deleteContacts, "deleteContacts", RequestForm::framed,
                    DeleteContacts},
};

}  // namespace

std::span<const AgentCommandRow> ContactCommands() {
    return kRows;
}

}  // namespace quorvi::phone
