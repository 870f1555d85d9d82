#include "pages/kit/KeptDelete.h"

#include "base/Places.h"
#include "base/Text.h"
#include "pages/kit/PageSession.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"
#include "ui/page/DisabledJob.h"

namespace quorvi {
namespace {

DeletedItems TheDeletedItems() {
    return DeletedItems(ThePlaces().DeletedItems());
}

void End(const KeptDelete& deletion, const AcknowledgedReply& reply) {
    if (!reply.Connected()) {
        ShowConnectError(deletion.host);
    }
    deletion.done(reply);
}

void AskOnceMore(KeptDelete deletion, const DeleteStep& step) {
    const QString question =
        ToQString(u8"要删除的内容没能先保存到电脑：%1。这样删除以后就找不回来了，还要删除吗？")
            .arg(ToQString(step.whyNotKept));
    auto* dialog = new CConfirmDeleteDlg(question, &deletion.window);
    dialog->Open([deletion = std::move(deletion), step](int result) {
        if (result == QDialog::Accepted) {
            RunDisabled(
                deletion.controls,
                [agent = deletion.agent, request = deletion.request, step] {
                    return DeleteAllTheSame(TheDeletedItems(), agent, step, request);
                },
                [deletion](const AcknowledgedReply& reply) { End(deletion, reply); });
        } else if (step.backup) {
            RunJob(
                &deletion.controls,
                [backup = *step.backup] { return TheDeletedItems().Forget(backup); }, [](bool) {});
        }
    });
}

}  // namespace

void SendKeptDelete(KeptDelete deletion) {
    QWidget& controls = deletion.controls;
    auto work = [agent = deletion.agent, find = deletion.find, request = deletion.request] {
        return KeepAndDelete(TheDeletedItems(), agent, find, request);
    };
    RunDisabled(controls, std::move(work),
                [deletion = std::move(deletion)](const DeleteStep& step) {
                    if (step.reply) {
                        End(deletion, *step.reply);
                    } else {
                        AskOnceMore(deletion, step);
                    }
                });
}

}  // namespace quorvi
