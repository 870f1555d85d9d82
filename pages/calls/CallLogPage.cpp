#include "pages/calls/CallLogPage.h"

#include <QVBoxLayout>

#include "backup/PhoneLists.h"
#include "pages/kit/CountLine.h"
#include "pages/kit/ViewSentences.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinMenu.h"
#include "ui/page/PageKeys.h"

namespace quorvi {
namespace {

constexpr int kList = 1072;

}  // namespace

CCallLogPage::CCallLogPage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      list_(SetControlNumber(new CCallLogListCtrl(this), kList, ToQString(u8"通话记录"))),
      road_({.host = host,
             .window = *this,
             .controls = *this,
             .agent = services.agent,
             .loadKey = kNumbers.loadKey},
            list_,
            [attribution = services.attribution](const AgentSession& session,
                                                 const AgentSession::Progress& progress) {
                return FetchCallLog(session, attribution, progress);
            }),
      transfers_(host, *this, FileKind::calls,
                 {.write =
                      [agent = services.agent, attribution = services.attribution](
                          const std::filesystem::path& file, const TransferWatch& watch) {
                          return ExportCalls(agent, attribution, file, watch);
                      }}),
      numbers_(host, services) {
    ShowCount(*this, *list_);
    list_->EnableFind();
    SayWhenEmpty(*list_, u8"手机上没有通话记录，或者还没有获取");
    SayWhenFailed(*list_, u8"刷新通话记录");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(list_);
    HeedKeys(*this, {.refresh = [this] { RefreshCallLog(); },
                     .list = list_,
                     .erase = [this] { DeleteChosen(); }});
    connect(list_, &CSkinListCtrl::menuAsked, this, &CCallLogPage::OpenMenu);
}

void CCallLogPage::OpenMenu(int row, const QPoint& at) {
    auto* menu = new CSkinMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QStringList icons = NumberMenu::Icons();
    menu->SetStrip(icons + FileTransfers::Icons());
    std::string number;
    if (const CallLogRow* call = list_->RecordAt(row)) {
        number = call->number;
        NumberMenu::AddItems(*menu, 0, number);
    }
    transfers_.AddItems(*menu, static_cast<int>(icons.size()));
    connect(menu, &CSkinMenu::commandChosen, this, [this, number](int command) {
        if (isEnabled() && !numbers_.Take(command, number)) {
            transfers_.Take(command);
        }
    });
    menu->popup(at);
}

void CCallLogPage::RunCommand(int index) {
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
    Delete(list_->TickedRows());
}

void CCallLogPage::Delete(const std::vector<int>& rows) {
    road_.Delete({.ids = list_->IdsOf(rows),
                  .rows = list_->RecordsOf(rows),
                  .names = list_->NamesOf(rows, MarkedRow::counts),
                  .question = u8"您真的要删除选择的【 %1 】条通话记录吗？",
                  .said = u8"已删除 %1 条通话记录",
                  .request = &DeleteCallsRequest});
}

void CCallLogPage::DeleteAll() {
    // The phone may have more of them by now than the list shows.
    road_.AskAndDelete(
        ToQString(u8"您真的要删除【 所有 】通话记录吗？"),
        [](AgentAddress agent) {
            return GoingOf(FetchSurely(agent, AgentCommand::listCalls, [&] {
                return FetchCallLog(AgentSession(agent), NoAttribution);
            }));
        },
        DeleteAllCallsRequest(), ToQString(u8"已删除所有通话记录"));
}

}  // namespace quorvi
