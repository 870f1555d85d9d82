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

bool BrokeOff(const ConversationReply& reply) {
    return reply.outcome != SessionOutcome::complete && reply.outcome != SessionOutcome::noData;
}

std::string Called(const Conversation& conversation) {
    return !conversation.name.empty() ? conversation.name : conversation.number;
}

}  // namespace

bool WriteConversations(BackupRun& run, const std::vector<Conversation>& conversations) {
    run.Begin(BackupKind::messages, conversations.size());
    BackupFile json = run.writer.Begin("messages.json");
    BackupFile csv = run.writer.Begin("messages.csv");
    json.Write(MessageFileHead(MessageFormat::json));
    csv.Write(MessageFileHead(MessageFormat::csv));
    auto ids = std::make_shared<std::vector<std::uint32_t>>();
    for (const Conversation& conversation : conversations) {
        ids->push_back(conversation.id);
    }
    SideBySide<ConversationReply> details(
        conversations.size(), kMostSideBySide,
        [ids, agent = run.agent](std::size_t index) {
            return FetchConversation(AgentSession(agent), (*ids)[index]);
        },
        BrokeOff);
    std::size_t index = 0;
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
        json.Write(ConversationInFile(MessageFormat::json, index, conversation, detail->messages));
        csv.Write(ConversationInFile(MessageFormat::csv, index, conversation, detail->messages));
        ++index;
        count += static_cast<std::uint32_t>(detail->messages.size());
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
    const auto reply = run.Await<ConversationListReply>([agent = run.agent] {
        return FetchSurely(agent, AgentCommand::listConversations,
                           [&] { return FetchConversations(AgentSession(agent), NoAttribution); });
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
    const auto reply = run.Await<CallLogReply>([agent = run.agent] {
        return FetchSurely(agent, AgentCommand::listCalls,
                           [&] { return FetchCallLog(AgentSession(agent), NoAttribution); });
    });
    return reply && run.AcceptList(*reply) && WriteCalls(run, reply->list.rows);
}

}  // namespace quorvi
