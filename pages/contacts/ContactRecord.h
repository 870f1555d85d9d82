// One contact in full, as command 870102 reads it. The detail view and the editor share it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "agent/AgentSession.h"
#include "agent/Reply.h"
#include "agent/Request.h"

namespace quorvi {

// What an update is to do with a data row on the phone.
enum class ContactItemOp : std::uint32_t {
    add = 0,
    remove = 1,
    update = 2,
    leave = 3,  // what a load gives to every row
};

// The id of a row that is not yet on the phone.
inline constexpr std::uint32_t kNewContactItem = 0xFFFFFFFF;

// One row of a list: a number, a group, an address.
struct ContactItem {
    std::uint32_t id = 0;
    ContactItemOp op = ContactItemOp::leave;
    std::int32_t type = 0;  // see ContactTypes.h
    // ANSI as it was read; in a record to send, the bytes that go out.
    std::string text;
    // The same text in the very bytes that came from the phone; empty in a row that is not from it.
    std::string came{};
};

// A field that a contact has once or not at all.
struct ContactField {
    bool present = false;
    ContactItemOp op = ContactItemOp::leave;
    std::uint32_t id = 0;
    std::string text;    // as ContactItem::text
    std::string came{};  // as ContactItem::came

    // What is shown: the text when the field is present, else nothing.
    [[nodiscard]] const std::string& Shown() const;
};

struct ContactRecord {
    std::uint32_t id = 0;
    bool favourite = false;
    std::string lastContact;  // see ContactTimeText
    std::uint32_t timesContacted = 0;
    // Carried by every record in front of the name; neither shown nor edited. Its text stays as it
    // came, in UTF-8: an update sends it back as the load found it, and a text that went through
    // the code page would come back changed.
    ContactField structured;
    ContactField name;
    ContactField nickname;
    ContactField note;
    // In the order of the wire.
    std::vector<ContactItem> phones;
    std::vector<ContactItem> groups;
    std::vector<ContactItem> emails;
    std::vector<ContactItem> ims;
    std::vector<ContactItem> websites;
    std::vector<ContactItem> addresses;
    std::vector<ContactItem> organisations;
    // A text that can be edited has characters that the code page lacks: each stands there as '?',
    // and is '?' on the phone once that text has been changed and saved.
    bool charactersLost = false;

    using List = std::vector<ContactItem> ContactRecord::*;
};

// The seven lists in the order in which each command carries them.
inline constexpr ContactRecord::List kContactLists[] = {
    &ContactRecord::phones,        &ContactRecord::groups,   &ContactRecord::emails,
    &ContactRecord::ims,           &ContactRecord::websites, &ContactRecord::addresses,
    &ContactRecord::organisations,
};

// The request of command 870102.
[[nodiscard]] Bytes ReadContactRequest(std::uint32_t id);

// Reads the reply. It is normally one record; each further one replaces the single fields and adds
// its list items behind those of the one before. A length that points outside the reply, or a cut
// in an id, ends the reading; nothing when that befalls the first record. All text but the
// structured field's is turned to ANSI.
[[nodiscard]] std::optional<ContactRecord> ParseContact(const ReplyBuffer& reply);

struct ContactReply {
    SessionOutcome outcome = SessionOutcome::connectFailed;
    std::optional<ContactRecord> record;
};

// One session that reads a contact. Any thread.
[[nodiscard]] ContactReply FetchContact(const AgentSession& session, std::uint32_t id);

// The time of the last contact, from milliseconds since 1970: local time, or "N/A" for 0.
[[nodiscard]] std::string ContactTimeText(std::uint64_t milliseconds);

}  // namespace quorvi
