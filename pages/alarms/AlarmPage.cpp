#include "pages/alarms/AlarmPage.h"

#include <QVBoxLayout>

#include "pages/alarms/AlarmEditDlg.h"
#include "pages/kit/CountLine.h"
#include "pages/kit/ViewSentences.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/page/PageKeys.h"

namespace quorvi {
namespace {

constexpr int kList = 1090;

}  // namespace

CAlarmPage::CAlarmPage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      agent_(services.agent),
      list_(SetControlNumber(new CAlarmListCtrl(this), kList, ToQString(u8"闹铃"))),
      road_({.host = host,
             .window = *this,
             .controls = *this,
             .agent = services.agent,
             .loadKey = kNumbers.loadKey},
            list_, &FetchAlarmList),
      unsaved_(services.device) {
    SayWhenEmpty(*list_, u8"手机上没有闹铃，或者还没有获取");
    SayWhenFailed(*list_, u8"刷新闹铃项");
    ShowCount(*this, *list_);
    list_->EnableFind();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(list_);

    HeedKeys(*this, {.refresh = [this] { RefreshAlarms(); },
                     .add = [this] { AddAlarm(); },
                     .list = list_,
                     .erase = [this] { DeleteChosen(); }});
    connect(list_, &CSkinListCtrl::rowClicked, this, &CAlarmPage::Select);
    // The selection by key leads to the same as a click.
    connect(list_, &CSkinListCtrl::rowSelected, this, &CAlarmPage::Select);
    connect(list_, &CSkinListCtrl::rowOpened, this, [this](int row) {
        if (list_->RecordAt(row) != nullptr) {
            Select(row);
            EditSelected();
        }
    });
}

void CAlarmPage::Select(int row) {
    if (const AlarmRow* alarm = list_->RecordAt(row)) {
        Host().Selection().Set(PageSelection::kAlarm, alarm->id);
        selected_ = *alarm;
    }
}

void CAlarmPage::RunCommand(int index) {
    switch (index) {
        case commandRefresh:
            RefreshAlarms();
            break;
        case commandAdd:
            AddAlarm();
            break;
        case commandEdit:
            EditSelected();
            break;
        case commandDelete:
            DeleteTicked();
            break;
        default:
            break;
    }
}

void CAlarmPage::AddAlarm() {
    unsaved_.OpenNew(new CAlarmEditDlg(Host(), this, agent_), [this] { RefreshAlarms(); });
}

void CAlarmPage::EditSelected() {
    const auto id = Host().Selection().Id(PageSelection::kAlarm);
    if (!id) {
        return;
    }
    const AlarmForm begun = FormOf(selected_);
    unsaved_.OpenOf(new CAlarmEditDlg(Host(), *id, begun, this, agent_), *id, begun,
                    [this] { RefreshAlarms(); });
}

void CAlarmPage::DeleteTicked() {
    Delete(list_->TickedRows());
}

void CAlarmPage::Delete(const std::vector<int>& rows) {
    road_.Delete({.ids = list_->OfRows(rows, &AlarmRow::id, MarkedRow::leftOut),
                  .rows = list_->RecordsOf(rows),
                  .names = list_->NamesOf(rows, MarkedRow::leftOut),
                  .question = u8"您真的要删除选择的【 %1 】条闹铃提醒吗？",
                  .said = u8"已删除 %1 个闹铃",
                  .request = &DeleteAlarmsRequest});
}

}  // namespace quorvi
