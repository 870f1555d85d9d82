// Contact groups: the list, adding, renaming, deleting; and what a composer of messages asks for:
// the groups' names, and who is in which.
#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "base/Utf8.h"
#include "phone/agent/AgentData.h"
#include "phone/agent/Commands.h"

namespace quorvi::phone {
namespace {

// The id under which contacts without a group are listed.
constexpr std::uint64_t kNoGroup = ~std::uint64_t{0};

void ListGroups(Exchange& exchange) {
    for (const ContactGroup& group : exchange.data.book.groups) {
        exchange.reply.UInt64(group.id).Text(group.title).Text(group.account).UInt32(group.visible);
    }
}

void ListGroupNames(Exchange& exchange) {
    for (const ContactGroup& group : exchange.data.book.groups) {
        exchange.reply.UInt64(group.id).Text(group.title);
    }
}

// A record for each number of a contact in each of its groups.
void ListGroupMembers(Exchange& exchange) {
    for (const Contact& contact : exchange.data.book.contacts) {
        for (const ContactEntry& phone : contact.List(ContactList::phones)) {
            const auto& memberships = contact.List(ContactList::groups);
            const auto add = [&](std::uint64_t group) {
                exchange.reply.UInt64(group).Text(contact.Name()).Text(phone.text);
            };
            for (const ContactEntry& membership : memberships) {
                add(static_cast<std::uint64_t>(membership.type));
            }
            if (memberships.empty()) {
                add(kNoGroup);
            }
        }
    }
}

void AddGroup(Exchange& exchange) {
    exchange.ExpectOneItem();
    exchange.reply.Word(1);
    std::string title = exchange.request.Text();
    if (!exchange.request.Overran()) {
        AddressBook& book = exchange.data.book;
        book.groups.push_back({book.NewGroupId(), std::move(title), Utf8(u8"手机"), 1});
        exchange.note =
            fmt::format("group {} \"{}\"", book.groups.back().id, book.groups.back().title);
    }
}

void RenameGroup(Exchange& exchange) {
    exchange.ExpectOneItem();
    exchange.reply.Word(1);
    const std::uint32_t id = exchange.request.UInt32();
    std::string title = exchange.request.Text();
    ContactGroup* group = exchange.data.book.FindGroup(id);
    exchange.note = fmt::format("group {} \"{}\"{}", id, title, group ? "" : ", unknown");
    if (group && !exchange.request.Overran()) {
        group->title = std::move(title);
    }
}

// Contacts stay when their group is deleted.
void DeleteGroups(Exchange& exchange) {
    exchange.reply.Word(1);
    exchange.note = "groups";
    for (std::uint32_t i = 0; i < exchange.items && !exchange.request.Overran(); ++i) {
        const std::uint32_t id = exchange.request.UInt32();
        exchange.note += fmt::format(" {}", id);
        if (!exchange.request.Overran()) {
            exchange.data.book.RemoveGroup(id);
        }
    }
}

constexpr std::array kRows{
    AgentCommandRow{AgentCommand::listGroupNames, "listGroupNames", RequestForm::bare,
                    ListGroupNames},
    AgentCommandRow{AgentCommand::addGroup, "addGroup", RequestForm::framed, AddGroup},
    AgentCommandRow{AgentCommand::renameGroup, "renameGroup", RequestForm::framed, RenameGroup},
    AgentCommandRow{AgentCommand::deleteGroups, "deleteGroups", RequestForm::framed, DeleteGroups},
    AgentCommandRow{AgentCommand::listGroups, "listGroups", RequestForm::bare, ListGroups},
    AgentCommandRow{AgentCommand::listGroupMembers, "listGroupMembers", RequestForm::bare,
                    ListGroupMembers},
};

}  // namespace

std::span<const AgentCommandRow> GroupCommands() {
    return kRows;
}

}  // namespace quorvi::phone
