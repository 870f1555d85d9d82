#include <memory>
#include <utility>
#include <vector>

#include "backup/BackupRun.h"
#include "backup/ContactCard.h"
#include "backup/ContactMatch.h"
#include "backup/Content.h"
#include "backup/RecordFiles.h"
#include "backup/VCardWriter.h"
#include "base/ByteText.h"
#include "base/Text.h"
#include "pages/contacts/ContactList.h"
#include "pages/contacts/ContactRecord.h"

namespace quorvi {
namespace {

// A contact as it stands in the file, and what of it can be restored; or why it cannot be had.
struct CardReply {
    SessionOutcome outcome = SessionOutcome::connectFailed;
    bool isRead = false;
    std::string card;
    std::string content;
};

bool BrokeOff(const CardReply& reply) {
    return reply.outcome != SessionOutcome::complete && reply.outcome != SessionOutcome::noData;
}

std::string Called(const ContactListRow& row) {
    return !row.name.empty() ? row.name : row.number;
}

CardReply FetchCard(AgentAddress agent, const ContactListRow& row) {
    const ContactReply detail = FetchContact(AgentSession(agent), row.contactId);
    if (!detail.record || !IsDetailOf(*detail.record, row)) {
        return {detail.outcome, false, {}, {}};
    }
    const ContactCard card = CardOf(*detail.record, AsText(row.photo.Bytes()));
    return {detail.outcome, true, WriteVCard(card), ContentOf(card)};
}

void WriteCard(const std::string& card, const std::string& record, BackupFile& file,
               ContentSum& content) {
    file.Write(card);
    if (!record.empty()) {
        content.Add(record);
    }
}

}  // namespace

bool WriteGroups(BackupRun& run, const std::vector<ContactGroup>& groups) {
    run.Begin(BackupKind::groups, groups.size());
    BackupFile file = run.writer.Begin("groups.json");
    ContentSum content;
    file.Write(kRecordsBegin);
    bool first = true;
    for (const ContactGroup& group : groups) {
        file.Write(RecordLine(RecordDocument(group), std::exchange(first, false)));
        if (!group.title.empty()) {
            content.Add(ToUtf8(group.title));
        }
        run.Step();
    }
    file.Write(kRecordsEnd);
    return run.End(content.Hex(), {&file});
}

bool WriteCards(BackupRun& run, const std::vector<ContactCard>& cards) {
    run.Begin(BackupKind::contacts, cards.size());
    BackupFile file = run.writer.Begin("contacts.vcf");
    ContentSum content;
    for (const ContactCard& card : cards) {
        WriteCard(WriteVCard(card), ContentOf(card), file, content);
        run.Step();
    }
    return run.End(content.Hex(), {&file});
}

bool WriteContacts(BackupRun& run, const std::vector<ContactListRow>& rows) {
    run.Begin(BackupKind::contacts, rows.size());
    BackupFile file = run.writer.Begin("contacts.vcf");
    ContentSum content;
    // The cards are made beside the sessions too: photos take their time.
    SideBySide<CardReply> details(
        rows.size(), kMostSideBySide,
        [owned = std::make_shared<const std::vector<ContactListRow>>(rows),
         agent = run.agent](std::size_t index) { return FetchCard(agent, (*owned)[index]); },
        BrokeOff);
    for (const ContactListRow& row : rows) {
        const auto detail = details.Next(run.stop);
        if (!detail) {
            return run.FailStopped();
        }
        if (!run.Accept(detail->outcome)) {
            return false;
        }
        if (file.Error()) {
            return run.FailDisk(file.Error());
        }
        if (!detail->isRead) {
            run.Skip(Called(row), detail->outcome == SessionOutcome::noData
                                      ? u8"手机没有给出这个联系人的资料"
                                      : u8"手机给出的资料读不懂");
            run.CountOneLess();
        } else {
            WriteCard(detail->card, detail->content, file, content);
        }
        run.Step();
    }
    return run.End(content.Hex(), {&file});
}

bool BackUpGroups(BackupRun& run) {
    const auto reply = run.FetchWhole(AgentCommand::listGroups, FetchContactGroups);
    return reply && run.AcceptList(*reply) && WriteGroups(run, reply->list.rows);
}

bool BackUpContacts(BackupRun& run) {
    const auto reply = run.Await<ContactListReply>([agent = run.agent] {
        return FetchSurely(agent, AgentCommand::listContacts,
                           [&] { return FetchContactList(AgentSession(agent), NoAttribution); });
    });
    return reply && run.AcceptList(*reply) && WriteContacts(run, reply->list.rows);
}

}  // namespace quorvi
