// What the editors of a form, and those who open them, do alike: the form is sent, and kept until
// the phone has acknowledged it. All on the window's thread.
#pragma once

#include <functional>
#include <optional>
#include <utility>

#include "pages/kit/PageSession.h"
#include "ui/kit/SkinDialog.h"

namespace quorvi {

// Sends the form of a dialog, whose body is disabled meanwhile, and ends the dialog with Accepted,
// however it is closed and whether or not the phone was reached. `unsaved`, a member of the dialog,
// is the form from now on until the phone has acknowledged it.
template <typename Form>
void SendForm(SkinDialog& dialog, PageHost& host, AgentAddress agent, Bytes request, Form form,
              std::optional<Form>& unsaved) {
    dialog.EndWithOk();
    unsaved = std::move(form);
    SendChange(host, *dialog.Body(), agent, std::move(request),
               [&dialog, &host, &unsaved](const AcknowledgedReply& reply) {
                   if (reply.outcome == SessionOutcome::complete) {
                       unsaved.reset();
                   }
                   ShowAcknowledgement(host, reply.outcome);
                   dialog.accept();
               });
}

// Opens an editor. At its end `keep` takes what it leaves unsaved, if anything; `refresh` follows
// when it ended with Accepted.
template <typename Editor, typename Keep>
void OpenEditor(Editor* editor, Keep keep, std::function<void()> refresh) {
    editor->Open(
        [editor, keep = std::move(keep), refresh = std::move(refresh)](int result) mutable {
            if (editor->Unsaved()) {
                keep(*editor->Unsaved());
            }
            if (result == QDialog::Accepted) {
                refresh();
            }
        });
}

}  // namespace quorvi
