#include "backup/DeletedItems.h"

#include <algorithm>
#include <memory>
#include <string>
#include <system_error>
#include <utility>

#include "backup/BackupReader.h"
#include "backup/BackupRun.h"
#include "backup/BackupWriter.h"
#include "backup/ContactCard.h"
#include "base/CodePageScope.h"
#include "base/Format.h"
#include "base/Text.h"
#include "pages/messages/GroupTree.h"

namespace quorvi {
namespace {

// "20261122-100056", of local time.
std::string NameOfTime(std::int64_t seconds) {
    std::string name;
    for (const char c : FormatUnixTime(seconds)) {
        if (c == ' ') {
            name += '-';
        } else if (c >= '0' && c <= '9') {
            name += c;
        }
    }
    return name;
}

// Who was in the groups, as cards of name, number and groups: a restore finds the contacts on the
// phone by them, and puts them back.
bool WriteMembers(BackupRun& run, const std::vector<ContactGroup>& groups) {
    const auto reply = run.Await<std::shared_ptr<PayloadReply>>([agent = run.agent] {
        return std::make_shared<PayloadReply>(
            AgentSession(agent).RunPayload(BareRequest(AgentCommand::listGroupMembers)));
    });
    if (!reply || !run.Accept((*reply)->outcome)) {
        return false;
    }
    GroupMembers members;
    if ((*reply)->HasPayload() && !ReadGroupMembers((*reply)->buffer, members)) {
        return run.FailNotWhole();
    }
    std::vector<ContactCard> cards;
    for (const ContactGroup& group : groups) {
        for (const auto& [name, number] : members[static_cast<std::int32_t>(group.id)]) {
            ContactCard card;
            card.name = CardText(ToUtf8(name));
            if (!number.empty()) {
                card.phones.push_back({0, CardText(ToUtf8(number))});
            }
            card.groups.push_back(CardText(group.titleCame));
            cards.push_back(std::move(card));
        }
    }
    return WriteCards(run, cards);
}

// For a name that nothing has, nor another program writes to: several deletions may fall into one
// second.
std::unique_ptr<BackupWriter> NewWriter(const std::filesystem::path& folder, std::int64_t now,
                                        std::filesystem::path& name) {
    const std::filesystem::path first = folder / NameOfTime(now);
    name = first;
    for (int number = 2;; ++number) {
        auto writer = std::make_unique<BackupWriter>(name);
        if (writer->Error() != std::errc::file_exists &&
            writer->Error() != std::errc::device_or_resource_busy) {
            return writer;
        }
        name = first;
        name += "-" + std::to_string(number);
    }
}

struct Write {
    BackupRun& run;

    bool operator()(const std::vector<ContactListRow>& rows) const {
        return WriteContacts(run, rows);
    }
    bool operator()(const std::vector<ContactGroup>& rows) const {
        return WriteGroups(run, rows) && WriteMembers(run, rows);
    }
    bool operator()(const std::vector<Conversation>& rows) const {
        return WriteConversations(run, rows);
    }
    bool operator()(const std::vector<CallLogRow>& rows) const { return WriteCalls(run, rows); }
    bool operator()(const std::vector<AlarmRow>& rows) const { return WriteAlarms(run, rows); }
    bool operator()(const std::vector<BookmarkRow>& rows) const {
        return WriteBookmarks(run, rows);
    }
};

}  // namespace

DeletedItems::DeletedItems(std::filesystem::path folder) : folder_(std::move(folder)) {}

KeepResult DeletedItems::Keep(AgentAddress agent, const GoingRows& rows, std::int64_t now,
                              const StopSignal& stop) const {
    const WholeTextScope wholeText;
    std::error_code failed;
    if (std::filesystem::create_directories(folder_, failed)) {
        std::filesystem::permissions(folder_, std::filesystem::perms::owner_all, failed);
    }
    std::filesystem::path backup;
    const std::unique_ptr<BackupWriter> writer = NewWriter(folder_, now, backup);
    const BackupRun::Progress tellNobody = [](const BackupProgress&) {};
    BackupRun run(agent, *writer, tellNobody, stop);
    run.folder = WhoseFolder::suite;
    run.result.manifest.made = now;
    if (writer->Error()) {
        run.FailDisk(writer->Error());
    } else if (std::visit(Write{run}, rows)) {
        if (const std::error_code error = writer->Finish(run.result.manifest, stop)) {
            error == std::errc::operation_canceled ? run.FailStopped() : run.FailDisk(error);
        }
    }
    return {std::move(run.result), backup};
}

std::vector<KeptDeletion> DeletedItems::List(std::int64_t now) const {
    RemoveUnfinishedBackups(folder_);
    std::vector<KeptDeletion> kept;
    std::error_code failed;
    std::filesystem::directory_iterator entry(folder_, failed);
    for (; !failed && entry != std::filesystem::directory_iterator(); entry.increment(failed)) {
        const OpenedBackup opened = BackupReader::Open(entry->path());
        if (!opened.reader) {
            continue;
        }
        KeptDeletion deletion{entry->path(), opened.reader->TheManifest()};
        if (now - deletion.manifest.made > kKeptSeconds) {
            static_cast<void>(Forget(deletion));
        } else {
            kept.push_back(std::move(deletion));
        }
    }
    std::ranges::sort(kept, [](const KeptDeletion& a, const KeptDeletion& b) {
        return std::pair(a.manifest.made, a.backup) > std::pair(b.manifest.made, b.backup);
    });
    return kept;
}

bool DeletedItems::Forget(const std::filesystem::path& backup) const {
    std::error_code failed;
    return backup.parent_path() == folder_ && std::filesystem::remove_all(backup, failed) > 0 &&
           !failed;
}

}  // namespace quorvi
