#include "pages/kit/ListRoad.h"

#include "base/Text.h"
#include "pages/kit/ShownNames.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"

namespace quorvi {

void ListRoad::Delete(const ListDelete& deletion) {
    const auto& ids = deletion.ids;
    if (ids.empty()) {
        (new CNothingCheckedDlg(&place_.window))->Open();
        return;
    }
    Going going{deletion.rows};
    const std::size_t known = std::visit([](const auto& some) { return some.size(); }, going.rows);
    if (known < ids.size()) {
        // Of a record in which the mark stands nothing but its id came.
        going.why =
            Ansi(u8"手机没有给出其中 ") + std::to_string(ids.size() - known) + Ansi(u8" 项的内容");
    }
    auto* dialog =
        new CConfirmDeleteDlg(ToQString(deletion.question).arg(ids.size()), &place_.window);
    dialog->AddRemark(NamesInWords(deletion.names));
    const QString said =
        deletion.said.empty() ? QString() : ToQString(deletion.said).arg(ids.size());
    Ask(
        dialog, [going = std::move(going)](AgentAddress) { return going; }, deletion.request(ids),
        said);
}

void ListRoad::AskAndDelete(const QString& question, FindGoing find, Bytes request,
                            const QString& said) {
    Ask(new CConfirmDeleteDlg(question, &place_.window), std::move(find), std::move(request), said);
}

void ListRoad::Ask(CConfirmDeleteDlg* dialog, FindGoing find, Bytes request, const QString& said) {
    dialog->Open([this, find = std::move(find), request = std::move(request), said](int result) {
        if (result != QDialog::Accepted) {
            return;
        }
        SendKeptDelete({.host = place_.host,
                        .window = place_.window,
                        .controls = place_.controls,
                        .agent = place_.agent,
                        .find = find,
                        .request = request,
                        .done = [this, said](const AcknowledgedReply& reply) {
                            if (reply.outcome == SessionOutcome::complete && !said.isEmpty()) {
                                place_.host.SetStatus(said);
                            }
                            if (reply.Connected() ||
                                place_.afterFailedChange == AfterFailedChange::refresh) {
                                Refresh();
                            }
                        }});
    });
}

}  // namespace quorvi
