#include "pages/phoneinfo/SystemInfoPage.h"

#include <QVBoxLayout>
#include <array>

#include "pages/kit/PageSession.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/list/RecordListCtrl.h"
#include "ui/page/PageKeys.h"

namespace quorvi {
namespace {

enum Column : int { columnIcon, columnText, columnComparison };

constexpr std::array<ListColumn, 3> kColumns{{
    {u8"类型", 80, CellKind::icon},
    {.caption = u8"详细信息",
     .width = 448,
     .kind = CellKind::captioned,
     .align = CellAlign::left,
     .name = true},
    {u8"主流对比", 200, CellKind::text, CellAlign::left},  // stays empty
}};

// The icon of each row.
constexpr std::array<QStringView, kSystemInfoRows> kIcons{
    u"my-phone",   u"clock",        u"os",          u"info",        u"tab-data",
    u"screenshot", u"battery-full", u"system-info", u"performance", u"row-data",
    u"space",      u"gps",          u"bluetooth",   u"wifi",        u"gravity",
    u"web",        u"wifi",         u"brightness",  u"usb",
};

struct InfoRow {
    SystemInfoRow row;
    QStringView icon;
};

}  // namespace

class SystemInfoListCtrl : public RecordListCtrl<InfoRow> {
  public:
    using RecordListCtrl::RecordListCtrl;

  protected:
    [[nodiscard]] Cell CellOf(const InfoRow& record, int column) const override {
        const QString caption = ToQString(record.row.caption);
        switch (column) {
            case columnIcon:
                return {.text = caption, .icon = record.icon.toString()};
            case columnText:
                return {.text = caption, .second = ToQString(record.row.text)};
            default:
                return {};
        }
    }
};

CSystemInfoPage::CSystemInfoPage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      agent_(services.agent),
      load_(*this, host.LoadState(), kNumbers.loadKey),
      list_(new SystemInfoListCtrl(kColumns, look::Metric::rowCompact, this)) {
    SetControlNumber(list_, kList, ToQString(u8"系统信息"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(list_);
    HeedKeys(*this, {.refresh = [this] { Load(); }});
    std::vector<InfoRow> rows;
    const auto first = SystemInfoTableAtFirst();
    for (std::size_t i = 0; i < first.size(); ++i) {
        rows.push_back({first[i], kIcons[i]});
    }
    list_->SetRecords(std::move(rows));
}

void CSystemInfoPage::Load() {
    load_.Start([this] { list_->SetState(ListState::loading); },
                [agent = agent_] { return FetchSystemInfo(AgentSession(agent)); },
                [this](SystemInfoReply&& reply) { Show(reply); });
}

void CSystemInfoPage::Show(const SystemInfoReply& reply) {
    list_->SetState(ListState::idle);
    ShowLoadOutcome(Host(), reply.outcome);
    if (reply.info) {
        const auto rows = SystemInfoTable(*reply.info);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            list_->Edit(static_cast<int>(i), [&](InfoRow& record) { record.row = rows[i]; });
        }
    }
}

}  // namespace quorvi
