// One run of a backup, and what the steps of all kinds have in common. For Backup.cpp and the
// steps.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "agent/AgentSession.h"
#include "backup/Backup.h"
#include "backup/BackupWriter.h"
#include "backup/ContactCard.h"
#include "backup/PhoneLists.h"
#include "backup/SideBySide.h"
#include "pages/alarms/AlarmList.h"
#include "pages/bookmarks/BookmarkList.h"
#include "pages/calls/CallLog.h"
#include "pages/contacts/ContactGroups.h"
#include "pages/contacts/ContactList.h"
#include "pages/kit/ListReply.h"
#include "pages/messages/Conversations.h"

namespace quorvi {

class BackupRun {
  public:
    using Progress = std::function<void(const BackupProgress&)>;
    BackupRun(AgentAddress agentAddress, BackupWriter& backupWriter, const Progress& toTell,
              const StopSignal& stopSignal)
        : agent(agentAddress), writer(backupWriter), stop(stopSignal), tell_(toTell) {}

    const AgentAddress agent;
    BackupWriter& writer;
    const StopSignal& stop;
    WhoseFolder folder = WhoseFolder::user;
    AttributionOf attribution = NoAttribution;
    BackupResult result;

    // Ends the run; false, for whoever ends with it.
    bool Fail(BackupEnd end, std::string why) {
        result.end = end;
        result.why = std::move(why);
        return false;
    }
    bool FailStopped();
    bool FailDisk(const std::error_code& error) {
        return Fail(BackupEnd::diskFailed, DiskErrorText(error, folder));
    }
    // Fails the run for any session that did not bring all of its reply. No data is a reply.
    bool Accept(SessionOutcome outcome);

    // A session of a list; nothing when the run has failed. No data gives an empty list.
    template <typename Reply>
    std::optional<Reply> FetchWhole(AgentCommand list,
                                    Reply (*fetch)(const AgentSession&,
                                                   const AgentSession::Progress&)) {
        return Await<Reply>([list, fetch, address = agent] {
            return FetchSurely(address, list, [&] { return fetch(AgentSession(address), {}); });
        });
    }
    template <typename Reply>
    std::optional<Reply> Await(std::function<Reply()> session) {
        auto reply = RunUntilStopped<Reply>(std::move(session), stop);
        if (!reply) {
            FailStopped();
        }
        return reply;
    }
    // Fails the run for a list that is not read to its end.
    template <typename Row>
    bool AcceptList(const ListReply<Row>& reply) {
        if (!Accept(reply.outcome)) {
            return false;
        }
        return (reply.list.EndedByMark() || reply.list.cut) ? FailNotWhole() : true;
    }
    bool FailNotWhole();

    void Begin(BackupKind kind, std::size_t of);
    void Step();
    void Skip(std::string what, std::u8string_view why);
    // The kind is done, with what was counted: closes its files.
    bool End(std::string content, const std::vector<BackupFile*>& files);
    // One less than was listed.
    void CountOneLess() { --counted_.count; }
    void SetCount(std::uint32_t count) { counted_.count = count; }

  private:
    const Progress& tell_;
    BackedUpKind counted_;
};

// Each writes what was listed, and reads what the list does not say; false when the run has ended
// with it.
bool WriteGroups(BackupRun& run, const std::vector<ContactGroup>& groups);
bool WriteContacts(BackupRun& run, const std::vector<ContactListRow>& rows);
bool WriteCards(BackupRun& run, const std::vector<ContactCard>& cards);
bool WriteConversations(BackupRun& run, const std::vector<Conversation>& conversations);
bool WriteCalls(BackupRun& run, const std::vector<CallLogRow>& rows);
bool WriteAlarms(BackupRun& run, const std::vector<AlarmRow>& rows);
bool WriteBookmarks(BackupRun& run, const std::vector<BookmarkRow>& rows);

// Each backs one kind up; false when the run has ended with it.
bool BackUpGroups(BackupRun& run);
bool BackUpContacts(BackupRun& run);
bool BackUpAlarms(BackupRun& run);
bool BackUpBookmarks(BackupRun& run);
bool BackUpMessages(BackupRun& run);
bool BackUpCalls(BackupRun& run);
bool BackUpPhone(BackupRun& run);
bool BackUpApplications(BackupRun& run);

}  // namespace quorvi
