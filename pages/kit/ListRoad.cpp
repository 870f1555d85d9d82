#include "pages/kit/ListRoad.h"

#include "base/Text.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"

namespace quorvi {

void ListRoad::Delete(const std::vector<std::uint32_t>& ids, GoingRows rows,
                      std::u8string_view question,
                      Bytes (*request)(std::span<const std::uint32_t> ids)) {
    if (ids.empty()) {
        (new CNothingCheckedDlg(&place_.window))->Open();
        return;
    }
    Going going{std::move(rows)};
    const std::size_t known = std::visit([](const auto& some) { return some.size(); }, going.rows);
    if (known < ids.size()) {
        // Of a record in which the mark stands nothing but its id came.
        going.why =
            Ansi(u8"手机没有给出其中 ") + std::to_string(ids.size() - known) + Ansi(u8" 项的内容");
    }
    AskAndDelete(
        ToQString(question).arg(ids.size()),
        [going = std::move(going)](AgentAddress) { return going; }, request(ids));
}

void ListRoad::AskAndDelete(const QString& question, FindGoing find, Bytes request) {
    auto* dialog = new CConfirmDeleteDlg(question, &place_.window);
    dialog->Open([this, find = std::move(find), request = std::move(request)](int result) {
        if (result != QDialog::Accepted) {
            return;
        }
        SendKeptDelete({.host = place_.host,
                        .window = place_.window,
                        .controls = place_.controls,
                        .agent = place_.agent,
                        .find = find,
                        .request = request,
                        .done = [this](const AcknowledgedReply& reply) {
                            if (reply.Connected() ||
                                place_.afterFailedChange == AfterFailedChange::refresh) {
                                Refresh();
                            }
                        }});
    });
}

}  // namespace quorvi
