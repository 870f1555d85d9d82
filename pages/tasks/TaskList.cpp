#include "pages/tasks/TaskList.h"

#include <fmt/format.h>

#include <utility>

#include "agent/ProcessImportance.h"
#include "base/Text.h"
#include "pages/kit/ReplyPicture.h"

namespace quorvi {

TaskList ParseTaskList(const SharedReply& reply) {
    return ReadRun<TaskRecord>(*reply, [&](ReplyCursor& cursor, TaskRecord& row) {
        row.memory = cursor.TakeUInt64();
        row.importance = cursor.TakeUInt32();
        row.cpu = cursor.TakeUInt32();
        row.pid = cursor.TakeUInt32();
        row.isSystem = cursor.TakeFlag();
        auto name = cursor.TakeText();
        if (!name) {
            return RecordEnd::mark;
        }
        row.name = std::move(*name);
        row.package = cursor.TakeTextOrEmpty();
        if (cursor.IsCut()) {
            return RecordEnd::cut;  // what is ended by it would be some other process
        }
        row.icon = TakePicture(cursor, reply);
        return cursor.Overran() ? RecordEnd::cut : RecordEnd::whole;
    });
}

TaskListReply FetchTaskList(const AgentSession& session, const AgentSession::Progress& progress) {
    return FetchList<TaskRecord>(
        session, BareRequest(AgentCommand::listProcesses), progress,
        [](ReplyBuffer&& reply) { return ParseTaskList(ShareReply(std::move(reply))); });
}

AcknowledgedReply FetchFreeMemory(const AgentSession& session) {
    return session.RunAcknowledged(BareRequest(AgentCommand::freeMemory));
}

std::string ImportanceText(std::uint32_t importance) {
    for (const ProcessImportance& known : kProcessImportances) {
        if (known.code == importance) {
            return Ansi(known.text);
        }
    }
    return Ansi(kUnknownImportance);
}

std::string CpuShareText(std::uint32_t cpu) {
    return fmt::format("{} %", static_cast<std::int32_t>(cpu));
}

Bytes EndProcessesRequest(std::span<const std::string> packages) {
    RequestBuilder request(AgentCommand::endProcesses);
    for (const std::string& package : packages) {
        request.BeginItem().AddRawText(package);
    }
    return request.Take();
}

}  // namespace quorvi
