#include "pages/contacts/ContactRecord.h"

#include <utility>

#include "base/Format.h"
#include "base/Text.h"

namespace quorvi {
namespace {

void SkipPhoto(ReplyCursor& cursor) {
    if (cursor.TakeFlag()) {
        cursor.SkipBytes(sizeof(std::uint64_t));  // row id
        cursor.SkipText();
    }
}

// A field with its text as it came.
ContactField TakeUtf8Field(ReplyCursor& cursor) {
    ContactField field;
    field.present = cursor.TakeFlag();
    if (field.present) {
        field.id = cursor.TakeId();
        cursor.SkipBytes(sizeof(std::uint32_t));  // reserved
        field.text = cursor.TakeUtf8().value_or(std::string_view());
    }
    return field;
}

// A text in ANSI. `lost` becomes true when the code page lacks a character of it.
std::string AnsiOf(std::string_view utf8, bool& lost) {
    lost = lost || !FitsCodePage(utf8);
    return ToAnsi(utf8);
}

ContactField TakeField(ReplyCursor& cursor, bool& lost) {
    ContactField field = TakeUtf8Field(cursor);
    field.came = std::move(field.text);
    field.text = AnsiOf(field.came, lost);
    return field;
}

void TakeItems(ReplyCursor& cursor, std::vector<ContactItem>& items, bool& lost) {
    const std::int32_t count = cursor.TakeInt32();
    // The phone may claim more items than it has sent: the list ends with the reply at the latest.
    for (std::int32_t i = 0; i < count && !cursor.AtEnd(); ++i) {
        ContactItem item;
        item.id = cursor.TakeId();
        if (cursor.IsCut()) {
            return;
        }
        item.type = cursor.TakeInt32();
        item.came = cursor.TakeUtf8().value_or(std::string_view());
        item.text = AnsiOf(item.came, lost);
        if (!cursor.Overran()) {
            items.push_back(std::move(item));
        }
    }
}

// Reads the single fields over those of `record` and adds list items behind its own. False when a
// length pointed outside the reply, or the reply was cut in the id; single fields are then as they
// were.
bool TakeRecord(ReplyCursor& cursor, ContactRecord& record) {
    ContactRecord next;
    next.charactersLost = record.charactersLost;
    next.id = cursor.TakeId();
    if (cursor.IsCut()) {
        return false;
    }
    next.favourite = cursor.TakeFlag();
    next.lastContact = ContactTimeText(cursor.TakeUInt64());
    next.timesContacted = static_cast<std::uint32_t>(cursor.TakeUInt64());
    SkipPhoto(cursor);
    next.structured = TakeUtf8Field(cursor);
    next.name = TakeField(cursor, next.charactersLost);
    next.nickname = TakeField(cursor, next.charactersLost);
    next.note = TakeField(cursor, next.charactersLost);
    if (cursor.Overran()) {
        return false;
    }
    bool lostInGroups = false;  // which nobody edits
    for (const ContactRecord::List list : kContactLists) {
        next.*list = std::move(record.*list);
        TakeItems(cursor, next.*list,
                  list == &ContactRecord::groups ? lostInGroups : next.charactersLost);
    }
    record = std::move(next);
    return !cursor.Overran();
}

}  // namespace

const std::string& ContactField::Shown() const {
    static const std::string nothing;
    return present ? text : nothing;
}

Bytes ReadContactRequest(std::uint32_t id) {
    return RequestBuilder(AgentCommand::readContact).BeginItem().AddUInt32(id).Take();
}

std::optional<ContactRecord> ParseContact(const ReplyBuffer& reply) {
    ReplyCursor cursor(reply);
    ContactRecord record;
    if (!TakeRecord(cursor, record)) {
        return std::nullopt;
    }
    while (!cursor.AtEnd()) {
        static_cast<void>(TakeRecord(cursor, record));
    }
    return record;
}

ContactReply FetchContact(const AgentSession& session, std::uint32_t id) {
    const PayloadReply reply = session.RunPayload(ReadContactRequest(id));
    return {reply.outcome, reply.HasPayload() ? ParseContact(reply.buffer) : std::nullopt};
}

std::string ContactTimeText(std::uint64_t milliseconds) {
    if (milliseconds == 0) {
        return "N/A";
    }
    return FormatUnixTime(static_cast<std::int64_t>(WholeSeconds(milliseconds)));
}

}  // namespace quorvi
