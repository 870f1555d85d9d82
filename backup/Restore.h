// Brings a backup back to a phone: tells first what it is going to do, then adds what is missing,
// by the requests of the editors. It never deletes.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "agent/AgentAddress.h"
#include "agent/AgentCommand.h"
#include "agent/AgentSession.h"
#include "agent/Request.h"
#include "backup/BackupReader.h"
#include "backup/RestorePlan.h"
#include "base/os/StopSignal.h"
#include "pages/contacts/ContactList.h"
#include "pages/kit/ListReply.h"

namespace quorvi {

enum class RestoreEnd {
    whole,
    stopped,
    linkLost,   // no connection, or one that broke
    notWhole,   // the phone's answer can't be read: going on might double what it has
    backupBad,  // a file of the backup is not what the manifest says
};

struct RestoreStatus {
    RestoreEnd end = RestoreEnd::whole;
    std::string why;  // of any end but `whole`; ANSI
};

// Used on one thread, a worker; a stop ends each call at once, between two items. Whatever ends a
// restore, the next one finds what is on the phone by then and goes on from there.
class Restore {
  public:
    // `reader` must live longer. Kinds that can't be restored only stand in the plan.
    Restore(AgentAddress agent, const BackupReader& reader, std::vector<BackupKind> kinds);

    // Reads the backup and the phone, and makes the plan.
    [[nodiscard]] RestoreStatus Prepare(const StopSignal& stop);
    [[nodiscard]] const RestorePlan& Plan() const { return plan_; }

    // Does what the plan says; after Prepare, once. `progress` is told after each item that is
    // added or changed.
    using Progress = std::function<void(std::size_t done, std::size_t of)>;
    [[nodiscard]] RestoreStatus Run(const Progress& progress, const StopSignal& stop);
    // Items added or changed so far.
    [[nodiscard]] std::size_t Done() const { return done_; }

  private:
    [[nodiscard]] bool Wants(BackupKind kind) const;
    bool Fail(RestoreEnd end, std::u8string_view why);
    bool Accept(SessionOutcome outcome);
    template <typename Reply>
    std::optional<Reply> Await(std::function<Reply()> session,
                               std::chrono::milliseconds grace = {});
    template <typename Row>
    std::optional<std::vector<Row>> FetchRows(AgentCommand list,
                                              std::function<ListReply<Row>()> fetch);

    bool ReadPhone();
    bool ReadContacts();
    // The details of these rows of the list, as cards.
    bool ReadCards(const std::vector<ContactListRow>& rows, std::vector<ContactCard>& cards);
    bool ReadGroups();
    // Whether a phone that lists no contacts lists no numbers for messages either: if it does, all
    // would be doubled.
    bool HasNoMembers();

    bool DoItem(const RestoreItem& item);
    bool Send(const Bytes& request);
    bool CompleteContact(std::uint32_t id, const ContactCard& card);
    // New contacts are not in their groups yet.
    bool PutNewIntoGroups();
    // After the first of a kind of which the phone has said that it has none.
    bool ConfirmListed(BackupKind kind);

    AgentAddress agent_;
    const BackupReader& reader_;
    std::vector<BackupKind> kinds_;
    const StopSignal* stop_ = nullptr;
    RestoreStatus status_;
    RestoreContent content_;
    PhoneContent phone_;
    std::set<std::uint32_t> contactsBefore_;
    std::set<BackupKind> saidEmpty_;
    RestorePlan plan_;
    std::vector<std::size_t> added_;  // cards
    std::size_t done_ = 0;
};

}  // namespace quorvi
