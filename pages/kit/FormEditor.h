// What the editors of a form, and those who open them, do alike: the form is sent, and kept until
// the phone has acknowledged it. All on the window's thread.
#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <utility>

#include "pages/kit/OfEachPhone.h"
#include "pages/kit/PageSession.h"
#include "ui/kit/SkinDialog.h"

namespace quorvi {

// Sends the form of a dialog, whose body is disabled meanwhile, and ends the dialog with Accepted,
// however it is closed and whether or not the phone was reached. `unsaved`, a member of the dialog,
// is the form from now on until the phone has acknowledged it; then the status says `said`.
template <typename Form>
void SendForm(SkinDialog& dialog, PageHost& host, AgentAddress agent, Bytes request, Form form,
              std::optional<Form>& unsaved, QString said) {
    dialog.EndWithOk();
    unsaved = std::move(form);
    SendChange(host, *dialog.Body(), agent, std::move(request),
               [&dialog, &host, &unsaved, said = std::move(said)](const AcknowledgedReply& reply) {
                   ShowAcknowledgement(host, reply.outcome);
                   if (reply.outcome == SessionOutcome::complete) {
                       unsaved.reset();
                       host.SetStatus(said);
                   }
                   dialog.accept();
               });
}

// The forms that did not get to a phone. A member of the page whose editors leave them.
template <typename Form>
class UnsavedForms {
  public:
    // `device` outlives it.
    explicit UnsavedForms(const DeviceContext& device) : changes_(device) {}

    // Opens the editor of a new thing, with the one that did not get to any phone.
    template <typename Editor>
    void OpenNew(Editor* editor, std::function<void()> refresh);
    // Opens the editor of the thing with this id, which begins with `begun`: with the change of it
    // that did not get to this phone, unless the phone has it by now, as its row shows.
    template <typename Editor>
    void OpenOf(Editor* editor, std::uint32_t id, const Form& begun, std::function<void()> refresh);

  private:
    OfEachPhone<std::map<std::uint32_t, Form>> changes_;  // by id
    std::optional<Form> new_;
};

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

template <typename Form>
template <typename Editor>
void UnsavedForms<Form>::OpenNew(Editor* editor, std::function<void()> refresh) {
    if (const auto form = std::exchange(new_, std::nullopt)) {
        editor->Resume(*form);
    }
    OpenEditor(
        editor, [this](const Form& form) { new_ = form; }, std::move(refresh));
}

template <typename Form>
template <typename Editor>
void UnsavedForms<Form>::OpenOf(Editor* editor, std::uint32_t id, const Form& begun,
                                std::function<void()> refresh) {
    auto& here = changes_.Here();
    if (const auto form = here.extract(id);
        form && SettingsOf(form.mapped()) != SettingsOf(begun)) {
        editor->Resume(form.mapped());
    }
    OpenEditor(
        editor, [&here, id](const Form& form) { here[id] = form; }, std::move(refresh));
}

}  // namespace quorvi
