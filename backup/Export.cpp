#include "backup/Export.h"

#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "backup/BookmarkFile.h"
#include "backup/CallFile.h"
#include "backup/ContactCard.h"
#include "backup/ContactTable.h"
#include "backup/FileEnding.h"
#include "backup/MessageFile.h"
#include "backup/PhoneLists.h"
#include "backup/SideBySide.h"
#include "backup/VCardWriter.h"
#include "base/ByteText.h"
#include "base/CodePageScope.h"
#include "base/Text.h"
#include "base/os/WholeFile.h"
#include "pages/bookmarks/BookmarkList.h"
#include "pages/calls/CallLog.h"
#include "pages/contacts/ContactList.h"
#include "pages/contacts/ContactRecord.h"
#include "pages/messages/Conversations.h"

namespace quorvi {
namespace {

constexpr std::u8string_view kContactIsGone = u8"手机上已经没有这个联系人";

bool HasFailed(SessionOutcome outcome) {
    return outcome == SessionOutcome::connectFailed || outcome == SessionOutcome::noReply ||
           outcome == SessionOutcome::receiveFailed;
}

// How conversations and their messages were read: see StatusOfList.
template <typename Reply>
TransferStatus StatusOfMessages(const Reply& reply) {
    if (HasFailed(reply.outcome)) {
        return LinkLost(reply.outcome);
    }
    const bool whole = reply.outcome == SessionOutcome::noData ||
                       (reply.outcome == SessionOutcome::complete && reply.whole);
    return whole ? TransferStatus() : NotWhole();
}

TransferStatus Committed(WholeFile& file) {
    const std::error_code failed = file.Commit();
    if (!failed) {
        return {};
    }
    if (failed == std::errc::no_space_on_device) {
        return FileFailed(u8"磁盘空间不足，没有写文件，请清出空间后再试");
    }
    return FileFailed(u8"文件写不进去，请换一个文件夹再试");
}

void KeepOnly(const std::vector<std::uint32_t>& ids, std::vector<ContactListRow>& rows,
              ExportResult& result) {
    const std::set<std::uint32_t> wanted(ids.begin(), ids.end());
    std::erase_if(rows, [&](const ContactListRow& row) { return !wanted.contains(row.contactId); });
    std::set<std::uint32_t> gone = wanted;
    for (const ContactListRow& row : rows) {
        gone.erase(row.contactId);
    }
    for (const std::uint32_t id : gone) {
        result.skipped.Add(std::to_string(id), kContactIsGone);
    }
}

// One session, whose wait ends with a stop: nothing then.
template <typename Reply>
std::optional<Reply> Await(const TransferWatch& watch, std::function<Reply()> session) {
    return watch.stop ? RunUntilStopped<Reply>(std::move(session), *watch.stop) : session();
}

// Reads one contact after the other and hands each on; where one cannot be had, `result` tells.
template <typename Take>
void EachContact(AgentAddress agent, const std::vector<ContactListRow>& rows,
                 const TransferWatch& watch, ExportResult& result, Take take) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const ContactListRow& row = rows[i];
        const auto reply = Await<ContactReply>(
            watch, [agent, id = row.contactId] { return FetchContact(AgentSession(agent), id); });
        if (!reply || watch.IsStopped()) {
            result.status = Stopped();
            return;
        }
        if (HasFailed(reply->outcome)) {
            result.status = LinkLost(reply->outcome);
            return;
        }
        if (reply->outcome == SessionOutcome::complete && reply->record) {
            take(CardOf(*reply->record, AsText(row.photo.Bytes())));
            ++result.exported;
        } else {
            result.skipped.Add(row.name, reply->outcome == SessionOutcome::noData
                                             ? kContactIsGone
                                             : u8"没有读全这个联系人的资料");
        }
        watch.Tell(i + 1, rows.size());
    }
}

}  // namespace

ExportResult ExportContacts(AgentAddress agent, const std::filesystem::path& file,
                            const TransferWatch& watch, const std::vector<std::uint32_t>& only) {
    const WholeTextScope wholeText;
    auto reply = Await<ContactListReply>(
        watch, [agent] { return FetchContactList(AgentSession(agent), NoAttribution); });
    if (!reply) {
        return {Stopped()};
    }
    ExportResult result{StatusOfList(*reply)};
    if (result.status.end != TransferEnd::whole) {
        return result;
    }
    std::vector<ContactListRow>& rows = reply->list.rows;
    if (!only.empty()) {
        KeepOnly(only, rows, result);
    }
    WholeFile out(file);
    if (EndingOf(file.native()) == "csv") {
        std::vector<ContactCard> cards;
        EachContact(agent, rows, watch, result, [&](ContactCard&& card) {
            card.photo.clear();  // a table has none, and all cards are held for its columns
            cards.push_back(std::move(card));
        });
        out.Append(WriteContactTable(cards));
    } else {
        EachContact(agent, rows, watch, result,
                    [&](const ContactCard& card) { out.Append(WriteVCard(card)); });
    }
    if (result.status.end == TransferEnd::whole) {
        result.status = Committed(out);
    }
    return result;
}

ExportResult ExportMessages(AgentAddress agent, const AttributionOf& attribution,
                            std::optional<std::uint32_t> conversation,
                            const std::filesystem::path& file, const TransferWatch& watch) {
    const WholeTextScope wholeText;
    auto list = Await<ConversationListReply>(watch, [agent, attribution] {
        return FetchConversations(AgentSession(agent), attribution);
    });
    if (!list) {
        return {Stopped()};
    }
    ExportResult result{StatusOfMessages(*list)};
    if (result.status.end != TransferEnd::whole) {
        return result;
    }
    if (conversation) {
        std::erase_if(list->conversations,
                      [&](const Conversation& one) { return one.id != *conversation; });
        if (list->conversations.empty()) {
            result.skipped.Add(std::to_string(*conversation), u8"手机上没有这个会话");
        }
    }
    const MessageFormat format = MessageFormatOf(file.native()).value_or(MessageFormat::text);
    WholeFile out(file);
    out.Append(MessageFileHead(format));
    for (std::size_t i = 0; i < list->conversations.size(); ++i) {
        const Conversation& one = list->conversations[i];
        const auto reply = Await<ConversationReply>(
            watch, [agent, id = one.id] { return FetchConversation(AgentSession(agent), id); });
        if (!reply || watch.IsStopped()) {
            result.status = Stopped();
            return result;
        }
        result.status = StatusOfMessages(*reply);
        if (result.status.end != TransferEnd::whole) {
            return result;
        }
        out.Append(ConversationInFile(format, i, one, reply->messages));
        result.exported += reply->messages.size();
        watch.Tell(i + 1, list->conversations.size());
    }
    out.Append(MessageFileFoot(format));
    result.status = Committed(out);
    return result;
}

ExportResult ExportCalls(AgentAddress agent, const AttributionOf& attribution,
                         const std::filesystem::path& file, const TransferWatch& watch) {
    const WholeTextScope wholeText;
    const auto reply = Await<CallLogReply>(
        watch, [agent, attribution] { return FetchCallLog(AgentSession(agent), attribution); });
    if (!reply) {
        return {Stopped()};
    }
    ExportResult result{StatusOfList(*reply)};
    if (result.status.end != TransferEnd::whole) {
        return result;
    }
    WholeFile out(file);
    out.Append(
        WriteCallFile(CallFormatOf(file.native()).value_or(CallFormat::csv), reply->list.rows));
    result.status = Committed(out);
    result.exported = reply->list.rows.size();
    watch.Tell(result.exported, result.exported);
    return result;
}

ExportResult ExportBookmarks(AgentAddress agent, const std::filesystem::path& file,
                             const TransferWatch& watch) {
    const WholeTextScope wholeText;
    const auto reply =
        Await<BookmarkListReply>(watch, [agent] { return FetchBookmarkList(AgentSession(agent)); });
    if (!reply) {
        return {Stopped()};
    }
    ExportResult result{StatusOfList(*reply)};
    if (result.status.end != TransferEnd::whole) {
        return result;
    }
    std::vector<FileBookmark> bookmarks;
    for (const BookmarkRow& row : reply->list.rows) {
        bookmarks.push_back({CardText(ToUtf8(row.title)), CardText(ToUtf8(row.url)), row.visits});
    }
    WholeFile out(file);
    out.Append(WriteBookmarkFile(bookmarks));
    result.status = Committed(out);
    result.exported = bookmarks.size();
    watch.Tell(result.exported, result.exported);
    return result;
}

}  // namespace quorvi
