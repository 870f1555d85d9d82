#include <fmt/format.h>

#include "agent/AgentSession.h"
#include "base/Json.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/ContactFormInput.h"
#include "cli/FormInput.h"
#include "cli/KeptDelete.h"
#include "cli/Output.h"
#include "cli/PhoneChange.h"
#include "pages/contacts/ContactForm.h"
#include "pages/contacts/ContactList.h"
#include "pages/contacts/ContactTypes.h"
#include "refdata/NumberAttribution.h"

namespace quorvi::cli {
namespace {

// One list of a record, as it is named and labelled.
struct NamedList {
    const char* name;
    ContactRecord::List items;
    const ContactTypeTable& types;
};
const NamedList kLists[] = {
    {"phones", &ContactRecord::phones, kPhoneTypes},
    {"groups", &ContactRecord::groups, kGroupTypes},
    {"emails", &ContactRecord::emails, kEmailTypes},
    {"ims", &ContactRecord::ims, kImTypes},
    {"websites", &ContactRecord::websites, kWebsiteTypes},
    {"addresses", &ContactRecord::addresses, kAddressTypes},
    {"organisations", &ContactRecord::organisations, kOrganisationTypes},
};

Json::Value DocumentOf(const std::vector<ContactListRow>& rows) {
    Json::Value document(Json::arrayValue);
    for (const ContactListRow& row : rows) {
        Json::Value item(Json::objectValue);
        item["id"] = row.contactId;
        item["name"] = JsonText(row.name);
        item["number"] = JsonText(row.number);
        item["attribution"] = JsonText(row.attribution);
        item["favourite"] = row.favourite;
        item["last_contact"] = JsonText(row.lastContact);
        item["photo_bytes"] = static_cast<Json::UInt64>(row.photo.Bytes().size());
        document.append(std::move(item));
    }
    return document;
}

Table TableOf(const std::vector<ContactListRow>& rows) {
    Table table{u8"编号", u8"联系人", u8"号码", u8"归属地", u8"收藏", u8"上次联系时间"};
    for (const ContactListRow& row : rows) {
        table.AddRow({std::to_string(row.contactId), row.name, row.number, row.attribution,
                      Ansi(row.favourite ? u8"★" : u8""), row.lastContact});
    }
    return table;
}

Json::Value DocumentOf(const ContactRecord& record) {
    Json::Value document(Json::objectValue);
    document["id"] = record.id;
    document["favourite"] = record.favourite;
    document["last_contact"] = JsonText(record.lastContact);
    document["times_contacted"] = record.timesContacted;
    document["structured"] = JsonText(ToAnsi(record.structured.Shown()));
    document["name"] = JsonText(record.name.Shown());
    document["nickname"] = JsonText(record.nickname.Shown());
    document["note"] = JsonText(record.note.Shown());
    for (const NamedList& list : kLists) {
        Json::Value& items = document[list.name] = Json::Value(Json::arrayValue);
        for (const ContactItem& item : record.*list.items) {
            Json::Value row(Json::objectValue);
            row["id"] = item.id;
            row["type"] = item.type;
            row["label"] = JsonText(list.types.Label(item.type));
            row["text"] = JsonText(item.text);
            items.append(std::move(row));
        }
    }
    return document;
}

Table TableOf(const ContactRecord& record) {
    Table table{u8"类型", u8"详细信息"};
    table.AddRow({Ansi(u8"姓名："), record.name.Shown()});
    table.AddRow({Ansi(u8"昵称："), record.nickname.Shown()});
    table.AddRow({Ansi(u8"收藏："), Ansi(record.favourite ? u8"是" : u8"否")});
    table.AddRow({Ansi(u8"联系次数："), std::to_string(record.timesContacted)});
    table.AddRow({Ansi(u8"上次联系："), record.lastContact});
    for (const NamedList& list : kLists) {
        for (const ContactItem& item : record.*list.items) {
            table.AddRow({list.types.Label(item.type), item.text});
        }
    }
    table.AddRow({Ansi(u8"备注："), record.note.Shown()});
    return table;
}

constexpr std::u8string_view kNoContactId = u8"不是联系人的编号";

// What a command can do with a reply that was cut: show the part that came, or nothing.
enum class Needed { whatCame, allOfIt };

// The contact of an id. Where there is none, `status` says why.
std::optional<ContactRecord> ReadContact(const Context& context, std::uint32_t id, Needed needed,
                                         Output& output, Status& status) {
    ContactReply reply = FetchContact(AgentSession(context.agent), id);
    status = output.Report(reply.outcome);
    if (needed == Needed::allOfIt && reply.outcome == SessionOutcome::cut) {
        status = Status::noLink;
        return std::nullopt;
    }
    if (status == Status::done && !reply.record) {
        output.Complain(std::to_string(id) + Ansi(u8": 没有这个联系人"));
        status = Status::notFound;
    }
    return std::move(reply.record);
}

// The form on standard input.
std::optional<ContactForm> ContactOfInput(Output& output) {
    return FormOfInput(ReadContactForm(StandardInput()), output);
}

}  // namespace

Status RunContactsList(const Arguments&, const Context& context, Output& output) {
    const ContactListReply reply =
        FetchContactList(AgentSession(context.agent), context.attribution);
    const Status status = output.Report(reply.outcome);
    if (status == Status::done) {
        output.Json() ? output.PrintDocument(DocumentOf(reply.list.rows))
                      : output.PrintTable(TableOf(reply.list.rows));
    }
    return status;
}

Status RunContactsShow(const Arguments& arguments, const Context& context, Output& output) {
    const auto ids = ReadIds(arguments.operands, kNoContactId, output);
    if (!ids) {
        return Status::wrongUsage;
    }
    Status status{};
    if (const auto record = ReadContact(context, ids->front(), Needed::whatCame, output, status)) {
        output.Json() ? output.PrintDocument(DocumentOf(*record))
                      : output.PrintTable(TableOf(*record));
    }
    return status;
}

Status RunContactsDelete(const Arguments& arguments, const Context& context, Output& output) {
    return DeleteRows(
        arguments, context, kNoContactId, AgentCommand::listContacts,
        [](const AgentSession& session) { return FetchContactList(session, NoAttribution); },
        &ContactListRow::contactId, &DeleteContactsRequest, output);
}

Status RunContactsAdd(const Arguments&, const Context& context, Output& output) {
    const auto form = ContactOfInput(output);
    if (!form) {
        return Status::wrongUsage;
    }
    const auto record = RecordToAdd(*form);
    if (!record) {
        output.Complain(Ansi(kEmptyContactName));
        return Status::wrongUsage;
    }
    return SendAndTell(context, AddContactRequest(*record), "added", JsonText(form->name), output);
}

Status RunContactsUpdate(const Arguments& arguments, const Context& context, Output& output) {
    const auto ids = ReadIds(arguments.operands, kNoContactId, output);
    const auto form = ids ? ContactOfInput(output) : std::nullopt;
    if (!form) {
        return Status::wrongUsage;
    }
    Status status{};
    // The whole contact is needed: an update sends all of it, and what a cut reply left out would
    // be deleted on the phone. In the window a user sees that something is missing.
    auto loaded = ReadContact(context, ids->front(), Needed::allOfIt, output, status);
    if (!loaded) {
        return status;
    }
    return SendAndTell(context, UpdateContactRequest(RecordToUpdate(*std::move(loaded), *form)),
                       "updated", ids->front(), output);
}

}  // namespace quorvi::cli
