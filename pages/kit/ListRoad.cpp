#include "pages/kit/ListRoad.h"

#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"

namespace quorvi {

void ListRoad::Delete(const std::vector<std::uint32_t>& ids, std::u8string_view question,
                      Bytes (*request)(std::span<const std::uint32_t> ids)) {
    if (ids.empty()) {
        (new CNothingCheckedDlg(&place_.window))->Open();
        return;
    }
    AskAndSend(ToQString(question).arg(ids.size()), request(ids));
}

void ListRoad::AskAndSend(const QString& question, Bytes request) {
    auto* dialog = new CConfirmDeleteDlg(question, &place_.window);
    dialog->Open([this, request = std::move(request)](int result) {
        if (result != QDialog::Accepted) {
            return;
        }
        SendChange(
            place_.host, place_.controls, place_.agent, request,
            [this](const AcknowledgedReply& reply) {
                if (reply.Connected() || place_.afterFailedChange == AfterFailedChange::refresh) {
                    Refresh();
                }
            });
    });
}

}  // namespace quorvi
