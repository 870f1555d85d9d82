#include "backup/KeepAndDelete.h"

#include <ctime>
#include <variant>

#include "base/CodePageScope.h"
#include "base/Text.h"
#include "base/os/StopSignal.h"

namespace quorvi {
namespace {

bool IsEmpty(const GoingRows& rows) {
    return std::visit([](const auto& some) { return some.empty(); }, rows);
}

// "林远舟: 手机没有给出这个联系人的资料" and how many there are like it.
std::string WhyOf(const Manifest& manifest) {
    if (manifest.skippedCount == 0) {
        return {};
    }
    std::string why;
    if (!manifest.skipped.empty()) {
        why = manifest.skipped.front().what + ": " + manifest.skipped.front().why;
    }
    if (manifest.skippedCount > 1) {
        why += Ansi(u8"；这样的共有 ") + std::to_string(manifest.skippedCount) + Ansi(u8" 项");
    }
    return why;
}

void Keep(const DeletedItems& items, AgentAddress agent, const GoingRows& rows, DeleteStep& step) {
    KeepResult kept = items.Keep(agent, rows, std::time(nullptr), StopSignal());
    if (!kept.connected) {
        step.reply.emplace();  // the delete would not get there either
    } else if (kept.end != BackupEnd::whole) {
        step.whyNotKept = std::move(kept.why);
        step.diskFailed = kept.end == BackupEnd::diskFailed;
    } else {
        step.backup = std::move(kept.backup);
        if (std::string why = WhyOf(kept.manifest); !why.empty()) {
            step.whyNotKept = std::move(why);
        }
    }
}

}  // namespace

std::string WhyNotAll(SessionOutcome outcome, bool whole) {
    return outcome == SessionOutcome::noData || whole ? std::string()
                                                      : Ansi(u8"手机给出的内容不完整");
}

DeleteStep KeepAndDelete(const DeletedItems& items, AgentAddress agent, const FindGoing& find,
                         const Bytes& request) {
    const WholeTextScope wholeText;
    DeleteStep step;
    Going going = find(agent);
    step.whyNotKept = std::move(going.why);
    step.asked = going.outcome;
    if (going.outcome == SessionOutcome::connectFailed) {
        step.reply.emplace();
    } else if (!IsEmpty(going.rows)) {
        Keep(items, agent, going.rows, step);
    }
    if (!step.reply && step.whyNotKept.empty()) {
        step.reply = DeleteAllTheSame(items, agent, step, request);
    }
    return step;
}

AcknowledgedReply DeleteAllTheSame(const DeletedItems& items, AgentAddress agent,
                                   const DeleteStep& step, const Bytes& request) {
    const AcknowledgedReply reply = AgentSession(agent).RunAcknowledged(request);
    if (!reply.Connected() && step.backup) {
        static_cast<void>(items.Forget(*step.backup));
    }
    return reply;
}

}  // namespace quorvi
