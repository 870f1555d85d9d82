#include "pages/kit/KeptDelete.h"

#include <ctime>
#include <filesystem>

#include "base/Places.h"
#include "base/Text.h"
#include "pages/kit/PageSession.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"
#include "ui/page/DisabledJob.h"

namespace quorvi {
namespace {

// How the keeping has ended, and, where all was kept, the sending.
struct Step {
    std::string whyNotKept;                       // ANSI; empty when all is
    std::optional<std::filesystem::path> backup;  // what is kept
    std::optional<AcknowledgedReply> reply;       // nothing where the user is to be asked first
};

DeletedItems TheDeletedItems() {
    return DeletedItems(ThePlaces().DeletedItems());
}

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

void Keep(AgentAddress agent, const GoingRows& rows, Step& step) {
    KeepResult kept = TheDeletedItems().Keep(agent, rows, std::time(nullptr), StopSignal());
    if (!kept.connected) {
        step.reply.emplace();  // the delete would not get there either
    } else if (kept.end != BackupEnd::whole) {
        step.whyNotKept = std::move(kept.why);
    } else {
        step.backup = std::move(kept.backup);
        if (std::string why = WhyOf(kept.manifest); !why.empty()) {
            step.whyNotKept = std::move(why);
        }
    }
}

void Forget(const std::optional<std::filesystem::path>& backup) {
    if (backup) {
        static_cast<void>(TheDeletedItems().Forget(*backup));
    }
}

AcknowledgedReply Send(AgentAddress agent, const Bytes& request,
                       const std::optional<std::filesystem::path>& backup) {
    const AcknowledgedReply reply = AgentSession(agent).RunAcknowledged(request);
    if (!reply.Connected()) {
        Forget(backup);
    }
    return reply;
}

Step KeepAndSend(AgentAddress agent, const FindGoing& find, const Bytes& request) {
    Step step;
    Going going = find(agent);
    step.whyNotKept = std::move(going.why);
    if (!going.connected) {
        step.reply.emplace();
    } else if (!IsEmpty(going.rows)) {
        Keep(agent, going.rows, step);
    }
    if (!step.reply && step.whyNotKept.empty()) {
        step.reply = Send(agent, request, step.backup);
    }
    return step;
}

void End(const KeptDelete& deletion, const AcknowledgedReply& reply) {
    if (!reply.Connected()) {
        ShowConnectError(deletion.host);
    }
    deletion.done(reply);
}

void AskOnceMore(KeptDelete deletion, const Step& step) {
    const QString question =
        ToQString(u8"要删除的内容没能先保存到电脑：%1。这样删除以后就找不回来了，还要删除吗？")
            .arg(ToQString(step.whyNotKept));
    auto* dialog = new CConfirmDeleteDlg(question, &deletion.window);
    dialog->Open([deletion = std::move(deletion), backup = step.backup](int result) {
        if (result == QDialog::Accepted) {
            RunDisabled(
                deletion.controls,
                [agent = deletion.agent, request = deletion.request, backup] {
                    return Send(agent, request, backup);
                },
                [deletion](const AcknowledgedReply& reply) { End(deletion, reply); });
        } else {
            RunJob(
                &deletion.controls,
                [backup] {
                    Forget(backup);
                    return true;
                },
                [](bool) {});
        }
    });
}

}  // namespace

std::string WhyNotAll(SessionOutcome outcome, bool whole) {
    return outcome == SessionOutcome::noData || whole ? std::string()
                                                      : Ansi(u8"手机给出的内容不完整");
}

void SendKeptDelete(KeptDelete deletion) {
    QWidget& controls = deletion.controls;
    auto work = [agent = deletion.agent, find = deletion.find, request = deletion.request] {
        return KeepAndSend(agent, find, request);
    };
    RunDisabled(controls, std::move(work), [deletion = std::move(deletion)](const Step& step) {
        if (step.reply) {
            End(deletion, *step.reply);
        } else {
            AskOnceMore(deletion, step);
        }
    });
}

}  // namespace quorvi
