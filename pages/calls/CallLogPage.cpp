#include "pages/calls/CallLogPage.h"

#include <QVBoxLayout>
#include <string>
#include <utility>

#include "agent/AgentSession.h"
#include "pages/kit/PageSession.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"

namespace quorvi {
namespace {

constexpr int kList = 1072;

}  // namespace

CCallLogPage::CCallLogPage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      agent_(services.agent),
      attribution_(services.attribution),
      load_(*this, host.LoadState(), kNumbers.loadKey),
      list_(SetControlNumber(new CCallLogListCtrl(this), kList, ToQString(u8"通话记录"))) {
    list_->SetEmptyText(ToQString(u8"列表是空的"),
                        ToQString(u8"手机上没有通话记录，或者还没有获取"));
    list_->SetFailedText(ToQString(u8"没有连上手机"),
                         ToQString(u8"请检查数据线，然后点“刷新通话记录”"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(list_);
}

void CCallLogPage::RefreshCallLog() {
    LoadList(load_, Host(), list_,
             [agent = agent_, attribution = attribution_](const AgentSession::Progress& progress) {
                 return FetchCallLog(AgentSession(agent), attribution, progress);
             });
}

void CCallLogPage::OnCommand(int index) {
    if (!isEnabled()) {
        return;  // a delete is on its way
    }
    switch (index) {
        case commandRefresh:
            RefreshCallLog();
            break;
        case commandDelete:
            DeleteTicked();
            break;
        case commandDeleteAll:
            DeleteAll();
            break;
        default:
            break;
    }
}

void CCallLogPage::DeleteTicked() {
    const std::vector<std::uint32_t> ids = list_->TickedIds();
    if (ids.empty()) {
        (new CNothingCheckedDlg(this))->Open();
        return;
    }
    AskAndSend(ToQString(u8"您真的要删除选择的【 %1 】条通话记录吗？").arg(ids.size()),
               DeleteCallsRequest(ids));
}

void CCallLogPage::DeleteAll() {
    AskAndSend(ToQString(u8"您真的要删除【 所有 】通话记录吗？"), DeleteAllCallsRequest());
}

void CCallLogPage::AskAndSend(const QString& question, Bytes request) {
    (new CConfirmDeleteDlg(question, this))->Open([this, request = std::move(request)](int result) {
        if (result == QDialog::Accepted) {
            SendChange(Host(), *this, agent_, request,
                       [this](const AcknowledgedReply&) { RefreshCallLog(); });
        }
    });
}

}  // namespace quorvi
