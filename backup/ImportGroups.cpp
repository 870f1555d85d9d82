#include "backup/ImportGroups.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>

#include "backup/ContactMatch.h"
#include "backup/PhoneLists.h"
#include "base/Text.h"
#include "pages/contacts/ContactForm.h"
#include "pages/contacts/ContactGroups.h"
#include "pages/contacts/ContactList.h"
#include "pages/contacts/ContactRecord.h"

namespace quorvi {
namespace {

constexpr std::u8string_view kNotFound = u8"在手机上没有找到这个新联系人，没有放进分组";
constexpr std::u8string_view kNotPutIn = u8"没有放进分组，请在手机上放进去";

using Waiting = std::multimap<ContactKey, const AddedContact*>;

class GroupStep {
  public:
    explicit GroupStep(AgentAddress agent) : agent_(agent) {}

    TransferStatus status;

    bool ReadGroups() {
        auto reply = FetchSurely(agent_, AgentCommand::listGroups,
                                 [&] { return FetchContactGroups(AgentSession(agent_)); });
        status = StatusOfList(reply);
        if (status.end != TransferEnd::whole) {
            return false;
        }
        groups_ = std::move(reply.list.rows);
        return true;
    }
    // The groups of all that waits, made where there are none of that title.
    bool MakeGroups(const Waiting& waiting) {
        std::set<std::string> missing;
        for (const auto& [key, contact] : waiting) {
            missing.insert(contact->groups.begin(), contact->groups.end());
        }
        for (const ContactGroup& group : groups_) {
            missing.erase(CardText(group.titleCame));
        }
        for (const std::string& title : missing) {
            RequestBuilder request(AgentCommand::addGroup);
            request.BeginItem().AddRawText(title);
            if (!Send(request.Take())) {
                return false;
            }
        }
        return missing.empty() || ReadGroups();
    }
    bool PutIn(std::uint32_t id, const AddedContact& contact) {
        ContactReply reply = FetchContact(AgentSession(agent_), id);
        if (reply.outcome != SessionOutcome::complete || !reply.record || reply.record->id != id) {
            status =
                reply.outcome == SessionOutcome::complete ? NotWhole() : LinkLost(reply.outcome);
            return false;
        }
        ContactCard card;
        card.groups = contact.groups;
        const auto record = RecordToComplete(*std::move(reply.record), card, groups_);
        return !record || Send(UpdateContactRequest(*record));
    }

  private:
    bool Send(const Bytes& request) {
        const SessionOutcome outcome = AgentSession(agent_).RunAcknowledged(request).outcome;
        if (outcome != SessionOutcome::complete) {
            status = LinkLost(outcome);
        }
        return outcome == SessionOutcome::complete;
    }

    AgentAddress agent_;
    std::vector<ContactGroup> groups_;
};

std::string TextOf(const AddedContact& contact) {
    std::string text = contact.key.first + ": ";
    for (const std::string& title : contact.groups) {
        text += Ansi(text.ends_with(": ") ? u8"分组 " : u8"、分组 ") + ToAnsi(title);
    }
    return text;
}

}  // namespace

ContactKey KeyOfContact(std::string name, std::string_view number) {
    std::string digits;
    std::ranges::copy_if(number, std::back_inserter(digits), [](char c) {
        return std::string_view(" -().\t").find(c) == std::string_view::npos;
    });
    return {std::move(name), std::move(digits)};
}

void TellNotInGroups(const std::vector<AddedContact>& added, SkippedRecords& leftOut) {
    for (const AddedContact& contact : added) {
        if (!contact.groups.empty()) {
            leftOut.Add(TextOf(contact), kNotPutIn);
        }
    }
}

TransferStatus PutIntoGroups(AgentAddress agent, const std::vector<AddedContact>& added,
                             const std::set<std::uint32_t>& before, const TransferWatch& watch,
                             SkippedRecords& leftOut) {
    Waiting waiting;
    for (const AddedContact& contact : added) {
        if (!contact.groups.empty()) {
            waiting.emplace(contact.key, &contact);
        }
    }
    if (waiting.empty()) {
        return {};
    }
    GroupStep step(agent);
    ContactListReply list;
    if (step.ReadGroups() && step.MakeGroups(waiting)) {
        list = FetchContactList(AgentSession(agent), NoAttribution);
        step.status = StatusOfList(list);
    }
    for (const ContactListRow& row : list.list.rows) {
        if (waiting.empty() || step.status.end != TransferEnd::whole) {
            break;
        }
        const auto found = before.contains(row.contactId)
                               ? waiting.end()
                               : waiting.find(KeyOfContact(row.name, row.number));
        if (found == waiting.end()) {
            continue;
        }
        if (watch.IsStopped()) {
            step.status = Stopped();
        } else if (step.PutIn(row.contactId, *found->second)) {
            waiting.erase(found);
        }
    }
    for (const auto& [key, contact] : waiting) {
        leftOut.Add(TextOf(*contact),
                    step.status.end == TransferEnd::whole ? kNotFound : kNotPutIn);
    }
    return step.status;
}

}  // namespace quorvi
