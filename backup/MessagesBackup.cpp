#include <memory>
#include <utility>
#include <vector>

#include "backup/BackupRun.h"
#include "backup/CallFile.h"
#include "backup/MessageFile.h"
#include "base/Text.h"
#include "pages/messages/Conversations.h"

namespace quorvi {
namespace {

// A conversation as it stands in the files.
struct ConversationTexts {
    SessionOutcome outcome = SessionOutcome::connectFailed;
    bool whole = false;
    std::size_t messages = 0;
    std::string json;
    std::string csv;
};

bool BrokeOff(const ConversationTexts& reply) {
    return reply.outcome != SessionOutcome::complete && reply.outcome != SessionOutcome::noData;
}

ConversationTexts FetchTexts(AgentAddress agent, std::size_t index,
                             const Conversation& conversation) {
    const ConversationReply reply = FetchConversation(AgentSession(agent), conversation.id);
    const auto in = [&](MessageFormat format) {
        return ConversationInFile(format, index, conversation, reply.messages);
    };
    return {reply.outcome, reply.whole, reply.messages.size(), in(MessageFormat::json),
            in(MessageFormat::csv)};
}

std::string Called(const Conversation& conversation) {
    return !conversation.name.empty() ? conversation.name : conversation.number;
}

}  // namespace

bool WriteConversations(BackupRun& run, const std::vector<Conversation>& conversations) {
    run.Begin(BackupKind::messages, conversations.size());
    BackupFile json = run.writer.Begin(std::string(kMessageRecords));
    BackupFile csv = run.writer.Begin("messages.csv");
    json.Write(MessageFileHead(MessageFormat::json));
    csv.Write(MessageFileHead(MessageFormat::csv));
    // The texts are made beside the sessions too.
    SideBySide<ConversationTexts> details(
        conversations.size(), kMostSideBySide,
        [owned = std::make_shared<const std::vector<Conversation>>(conversations),
         agent = run.agent](std::size_t index) {
            return FetchTexts(agent, index, (*owned)[index]);
        },
        BrokeOff);
    std::uint32_t count = 0;
    for (const Conversation& conversation : conversations) {
        const auto detail = details.Next(run.stop);
        if (!detail) {
            return run.FailStopped();
        }
        if (!run.Accept(detail->outcome)) {
            return false;
        }
        if (!detail->whole) {
            run.Skip(Called(conversation), detail->outcome == SessionOutcome::noData
                                               ? u8"手机没有给出这个会话的短信"
                                               : u8"手机给出的短信读不懂");
        }
        json.Write(detail->json);
        csv.Write(detail->csv);
        count += static_cast<std::uint32_t>(detail->messages);
        for (const BackupFile* file : {&json, &csv}) {
            if (file->Error()) {
                return run.FailDisk(file->Error());
            }
        }
        run.Step();
    }
    json.Write(MessageFileFoot(MessageFormat::json));
    csv.Write(MessageFileFoot(MessageFormat::csv));
    run.SetCount(count);
    return run.End({}, {&json, &csv});
}

bool WriteCalls(BackupRun& run, const std::vector<CallLogRow>& rows) {
    run.Begin(BackupKind::calls, rows.size());
    BackupFile json = run.writer.Begin("calls.json");
    BackupFile csv = run.writer.Begin("calls.csv");
    json.Write(WriteCallFile(CallFormat::json, rows));
    csv.Write(WriteCallFile(CallFormat::csv, rows));
    return run.End({}, {&json, &csv});
}

bool BackUpMessages(BackupRun& run) {
    const auto reply =
        run.Await<ConversationListReply>([agent = run.agent, attribution = run.attribution] {
            return FetchSurely(agent, AgentCommand::listConversations, [&] {
                return FetchConversations(AgentSession(agent), attribution);
            });
        });
    if (!reply || !run.Accept(reply->outcome)) {
        return false;
    }
    if (HasPayload(reply->outcome) && !reply->whole) {
        return run.FailNotWhole();
    }
    return WriteConversations(run, reply->conversations);
}

bool BackUpCalls(BackupRun& run) {
    const auto reply = run.Await<CallLogReply>([agent = run.agent, attribution = run.attribution] {
        return FetchSurely(agent, AgentCommand::listCalls,
                           [&] { return FetchCallLog(AgentSession(agent), attribution); });
    });
    return reply && run.AcceptList(*reply) && WriteCalls(run, reply->list.rows);
}

}  // namespace quorvi
