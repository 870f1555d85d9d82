#include "backup/Restore.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <utility>

#include "backup/ContactMatch.h"
#include "backup/Content.h"
#include "backup/PhoneLists.h"
#include "backup/SideBySide.h"
#include "base/CodePageScope.h"
#include "base/Text.h"
#include "pages/alarms/AlarmList.h"
#include "pages/bookmarks/BookmarkList.h"
#include "pages/contacts/ContactForm.h"
#include "pages/contacts/ContactList.h"

namespace quorvi {
namespace {

constexpr std::u8string_view kUnreadable = u8"手机给出的内容不完整，为免重复，没有继续，请重试";

// A change that is on its way when the user stops is waited for: the next restore, which may follow
// at once, would not find it on the phone yet, and would make it a second time.
constexpr std::chrono::seconds kGraceForChange{5};

bool BrokeOff(const ContactReply& reply) {
    return reply.outcome != SessionOutcome::complete && reply.outcome != SessionOutcome::noData;
}

// The name of a row, as a card would have it, in ANSI.
std::string NameOf(const ContactListRow& row) {
    return ToAnsi(CardText(ToUtf8(row.name)));
}

std::string WithoutGroups(ContactCard card) {
    card.groups.clear();
    return ContentOf(card);
}

}  // namespace

Restore::Restore(AgentAddress agent, const BackupReader& reader, std::vector<BackupKind> kinds)
    : agent_(agent), reader_(reader), kinds_(std::move(kinds)) {}

bool Restore::Wants(BackupKind kind) const {
    return std::ranges::find(kinds_, kind) != kinds_.end() &&
           reader_.TheManifest().Find(kind) != nullptr;
}

bool Restore::Fail(RestoreEnd end, std::u8string_view why) {
    status_ = {end, Ansi(why)};
    return false;
}

bool Restore::Accept(SessionOutcome outcome) {
    switch (outcome) {
        case SessionOutcome::complete:
        case SessionOutcome::noData:
            return true;
        case SessionOutcome::connectFailed:
            return Fail(RestoreEnd::linkLost, u8"没有连接手机，请连接后重试");
        case SessionOutcome::cut:
        case SessionOutcome::noReply:
        case SessionOutcome::receiveFailed:
            break;
    }
    return Fail(RestoreEnd::linkLost, u8"和手机的连接断了，重新连接后再恢复一次，会接着做完");
}

template <typename Reply>
std::optional<Reply> Restore::Await(std::function<Reply()> session,
                                    std::chrono::milliseconds grace) {
    auto reply = RunUntilStopped<Reply>(std::move(session), *stop_, grace);
    if (!reply) {
        Fail(RestoreEnd::stopped, u8"已停止");
    }
    return reply;
}

// The rows of a list that was read to its end; nothing for any other.
template <typename Row>
std::optional<std::vector<Row>> Restore::FetchRows(AgentCommand list,
                                                   std::function<ListReply<Row>()> fetch) {
    auto reply = Await<ListReply<Row>>([list, agent = agent_, fetch = std::move(fetch)] {
        return FetchSurely(agent, list, fetch);
    });
    if (!reply || !Accept(reply->outcome)) {
        return std::nullopt;
    }
    if (reply->list.EndedByMark() || reply->list.cut) {
        Fail(RestoreEnd::notWhole, kUnreadable);
        return std::nullopt;
    }
    return std::move(reply->list.rows);
}

RestoreStatus Restore::Prepare(const StopSignal& stop) {
    const WholeTextScope wholeText;
    stop_ = &stop;
    status_ = {};
    std::string why;
    auto content = ReadRestoreContent(reader_, kinds_, why);
    if (!content) {
        return {RestoreEnd::backupBad, why};
    }
    content_ = *std::move(content);
    if (ReadPhone()) {
        plan_ = PlanRestore(content_, phone_, reader_.TheManifest(), kinds_);
    }
    return status_;
}

bool Restore::ReadGroups() {
    auto groups = FetchRows<ContactGroup>(AgentCommand::listGroups, [agent = agent_] {
        return FetchContactGroups(AgentSession(agent));
    });
    if (!groups) {
        return false;
    }
    phone_.groups = *std::move(groups);
    return true;
}

bool Restore::ReadPhone() {
    phone_ = {};
    if ((Wants(BackupKind::groups) || Wants(BackupKind::contacts)) && !ReadGroups()) {
        return false;
    }
    if (Wants(BackupKind::contacts) && !ReadContacts()) {
        return false;
    }
    if (Wants(BackupKind::alarms)) {
        const auto rows = FetchRows<AlarmRow>(AgentCommand::listAlarms, [agent = agent_] {
            return FetchAlarmList(AgentSession(agent));
        });
        if (!rows) {
            return false;
        }
        for (const AlarmRow& row : *rows) {
            phone_.alarms.push_back(SettingsToRestore(row));
        }
    }
    if (Wants(BackupKind::bookmarks)) {
        const auto rows = FetchRows<BookmarkRow>(AgentCommand::listBookmarks, [agent = agent_] {
            return FetchBookmarkList(AgentSession(agent));
        });
        if (!rows) {
            return false;
        }
        for (const BookmarkRow& row : *rows) {
            phone_.bookmarks.push_back(SettingsToRestore(row));
        }
    }
    const auto note = [&](BackupKind kind, bool empty) {
        if (empty) {
            saidEmpty_.insert(kind);
        }
    };
    note(BackupKind::groups, phone_.groups.empty());
    note(BackupKind::contacts, contactsBefore_.empty());
    note(BackupKind::alarms, phone_.alarms.empty());
    note(BackupKind::bookmarks, phone_.bookmarks.empty());
    return true;
}

bool Restore::ReadContacts() {
    const auto rows = FetchRows<ContactListRow>(AgentCommand::listContacts, [agent = agent_] {
        return FetchContactList(AgentSession(agent), NoAttribution);
    });
    if (!rows) {
        return false;
    }
    if (rows->empty() && !HasNoMembers()) {
        return false;
    }
    std::set<std::string> names;
    for (const ContactCard& card : content_.cards) {
        names.insert(ToAnsi(CalledOnPhone(card)));
    }
    // Whose name is empty, or lost characters in the code page, may be anybody.
    std::vector<ContactListRow> asked;
    for (const ContactListRow& row : *rows) {
        contactsBefore_.insert(row.contactId);
        if (row.name.empty() || row.name.find('?') != std::string::npos ||
            names.contains(NameOf(row))) {
            asked.push_back(row);
            asked.back().photo = {};
            phone_.contactIds.push_back(row.contactId);
        }
    }
    return ReadCards(asked, phone_.cards);
}

bool Restore::HasNoMembers() {
    const auto outcome = Await<SessionOutcome>([agent = agent_] {
        return AgentSession(agent).RunPayload(BareRequest(AgentCommand::listGroupMembers)).outcome;
    });
    if (!outcome || !Accept(*outcome)) {
        return false;
    }
    return *outcome == SessionOutcome::noData || Fail(RestoreEnd::notWhole, kUnreadable);
}

bool Restore::ReadCards(const std::vector<ContactListRow>& rows, std::vector<ContactCard>& cards) {
    auto ids = std::make_shared<std::vector<std::uint32_t>>();
    for (const ContactListRow& row : rows) {
        ids->push_back(row.contactId);
    }
    SideBySide<ContactReply> details(
        rows.size(), kMostSideBySide,
        [ids, agent = agent_](std::size_t index) {
            return FetchContact(AgentSession(agent), (*ids)[index]);
        },
        BrokeOff);
    for (const ContactListRow& row : rows) {
        const auto detail = details.Next(*stop_);
        if (!detail) {
            return Fail(RestoreEnd::stopped, u8"已停止");
        }
        if (!Accept(detail->outcome)) {
            return false;
        }
        // One that can't be read may be the very contact that would be doubled.
        if (!detail->record || !IsDetailOf(*detail->record, row)) {
            return Fail(RestoreEnd::notWhole, kUnreadable);
        }
        cards.push_back(CardOf(*detail->record));
    }
    return true;
}

RestoreStatus Restore::Run(const Progress& progress, const StopSignal& stop) {
    const WholeTextScope wholeText;
    stop_ = &stop;
    status_ = {};
    const std::size_t of = plan_.Count(RestoreAction::add) + plan_.Count(RestoreAction::change);
    bool groupsAreRead = false;
    for (const RestoreItem& item : plan_.items) {
        if (item.action != RestoreAction::add && item.action != RestoreAction::change) {
            continue;
        }
        if (stop.IsStopped()) {
            Fail(RestoreEnd::stopped, u8"已停止");
            return status_;
        }
        if (item.kind == BackupKind::contacts && !groupsAreRead) {
            if (!ReadGroups()) {  // with the new ones
                return status_;
            }
            groupsAreRead = true;
        }
        if (!DoItem(item)) {
            return status_;
        }
        ++done_;
        progress(done_, of);
    }
    static_cast<void>(PutNewIntoGroups());
    return status_;
}

bool Restore::DoItem(const RestoreItem& item) {
    if (const auto* group = std::get_if<GroupToAdd>(&item.step)) {
        RequestBuilder request(AgentCommand::addGroup);
        request.BeginItem().AddRawText(group->title);
        return Send(request.Take()) && ConfirmListed(item.kind);
    }
    if (const auto* card = std::get_if<CardToAdd>(&item.step)) {
        const auto record = RecordOf(content_.cards[card->card]);
        if (!record || !Send(AddContactRequest(*record))) {
            return false;
        }
        added_.push_back(card->card);
        return ConfirmListed(item.kind);
    }
    if (const auto* card = std::get_if<CardToComplete>(&item.step)) {
        return CompleteContact(card->contactId, content_.cards[card->card]);
    }
    if (const auto* alarm = std::get_if<AlarmSettings>(&item.step)) {
        return Send(AddAlarmRequest(*alarm)) && ConfirmListed(item.kind);
    }
    if (const auto* bookmark = std::get_if<BookmarkSettings>(&item.step)) {
        return Send(AddBookmarkRequest(*bookmark)) && ConfirmListed(item.kind);
    }
    return true;
}

bool Restore::Send(const Bytes& request) {
    const auto reply = Await<AcknowledgedReply>(
        [request, agent = agent_] { return AgentSession(agent).RunAcknowledged(request); },
        kGraceForChange);
    return reply && Accept(reply->outcome);
}

bool Restore::CompleteContact(std::uint32_t id, const ContactCard& card) {
    auto reply =
        Await<ContactReply>([id, agent = agent_] { return FetchContact(AgentSession(agent), id); });
    if (!reply || !Accept(reply->outcome)) {
        return false;
    }
    if (!reply->record || reply->record->id != id) {
        return Fail(RestoreEnd::notWhole, kUnreadable);
    }
    const auto record = RecordToComplete(*std::move(reply->record), card, phone_.groups);
    return !record || Send(UpdateContactRequest(*record));
}

bool Restore::PutNewIntoGroups() {
    std::multimap<std::string, std::size_t> waiting;  // by content; a card each
    for (const std::size_t card : added_) {
        if (!content_.cards[card].groups.empty()) {
            waiting.emplace(WithoutGroups(content_.cards[card]), card);
        }
    }
    if (waiting.empty()) {
        return true;
    }
    auto rows = FetchRows<ContactListRow>(AgentCommand::listContacts, [agent = agent_] {
        return FetchContactList(AgentSession(agent), NoAttribution);
    });
    if (!rows) {
        return false;
    }
    std::erase_if(
        *rows, [&](const ContactListRow& row) { return contactsBefore_.contains(row.contactId); });
    std::vector<ContactCard> cards;
    if (!ReadCards(*rows, cards)) {
        return false;
    }
    for (std::size_t i = 0; i < cards.size(); ++i) {
        const auto found = waiting.find(WithoutGroups(cards[i]));
        if (found == waiting.end()) {
            continue;
        }
        if (stop_->IsStopped()) {
            return Fail(RestoreEnd::stopped, u8"已停止");
        }
        if (!CompleteContact((*rows)[i].contactId, content_.cards[found->second])) {
            return false;
        }
        waiting.erase(found);
    }
    return true;
}

bool Restore::ConfirmListed(BackupKind kind) {
    if (saidEmpty_.erase(kind) == 0) {
        return true;
    }
    bool listed = false;
    const auto look = [&](const auto& rows) {
        listed = rows && !rows->empty();
        return rows.has_value();
    };
    bool asked = false;
    if (kind == BackupKind::groups) {
        asked = look(FetchRows<ContactGroup>(AgentCommand::listGroups, [agent = agent_] {
            return FetchContactGroups(AgentSession(agent));
        }));
    } else if (kind == BackupKind::contacts) {
        asked = look(FetchRows<ContactListRow>(AgentCommand::listContacts, [agent = agent_] {
            return FetchContactList(AgentSession(agent), NoAttribution);
        }));
    } else if (kind == BackupKind::alarms) {
        asked = look(FetchRows<AlarmRow>(AgentCommand::listAlarms, [agent = agent_] {
            return FetchAlarmList(AgentSession(agent));
        }));
    } else {
        asked = look(FetchRows<BookmarkRow>(AgentCommand::listBookmarks, [agent = agent_] {
            return FetchBookmarkList(AgentSession(agent));
        }));
    }
    if (asked && !listed) {
        return Fail(RestoreEnd::notWhole,
                    u8"手机不列出已有的内容，为免重复，只恢复了一项，请检查手机后重试");
    }
    return asked;
}

}  // namespace quorvi
