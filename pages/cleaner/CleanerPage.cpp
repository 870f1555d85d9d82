#include "pages/cleaner/CleanerPage.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <utility>

#include "pages/kit/CountLine.h"
#include "pages/kit/PageSession.h"
#include "pages/kit/ViewSentences.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinLabels.h"
#include "ui/page/PageKeys.h"

namespace quorvi {

using look::Metric;

namespace {

constexpr int kState = 1109;
constexpr int kGroup = 1198;
constexpr int kHelp = 1199;

constexpr std::u8string_view kAtFirst = u8"扫描系统搜索历史记录和应用缓存";
constexpr std::u8string_view kScanning = u8"正在获取应用的缓存信息，整个过程需要5秒左右，请稍等...";
constexpr std::u8string_view kScanned = u8"扫描完成";

}  // namespace

CCleanerPage::CCleanerPage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      agent_(services.agent),
      load_(*this, host.LoadState(), kNumbers.loadKey),
      list_(new CleanListCtrl(this)),
      state_(SetControlNumber(new CSkinStateLabel(ToQString(kAtFirst)), kState)) {
    list_->setObjectName(QStringLiteral("cleanList"));
    list_->setAccessibleName(ToQString(u8"可以清理的项目"));
    SayWhenEmpty(*list_, u8"还没有扫描");
    ShowCount(*this, *list_);
    HeedKeys(*this, {.refresh = [this] { Scan(); }});
    // While redraw is off, too, the user sees what will be cleaned.
    connect(list_, &CSkinListCtrl::tickFlipped, this, [this] {
        if (!list_->Redraw()) {
            KeepOnScreen();
        }
    });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(Metric::gap3);
    layout->addWidget(list_, 1);
    layout->addWidget(MakeFoot());
}

QWidget* CCleanerPage::MakeFoot() {
    auto* group = SetControlNumber(new CSkinGroupBox(ToQString(u8"手机系统清理")), kGroup);
    group->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    const QString caption = ToQString(u8"使用帮助");
    auto* help = SetControlNumber(new CSkinButton(caption), kHelp, caption);
    help->SetInert();
    auto* row = new QHBoxLayout(group);
    row->setContentsMargins({});
    row->setSpacing(Metric::gap4);
    row->addWidget(state_, 1);
    row->addWidget(help);
    return group;
}

void CCleanerPage::Scan() {
    load_.Start(
        [this] {
            state_->setText(ToQString(kScanning));
            list_->ShowTicked({FixedCleanRows()});
            KeepOnScreen();
            list_->SetState(ListState::loading);
        },
        [list = list_, agent = agent_](const LoadProgress& progress) {
            return FetchCleanList(AgentSession(agent), ProgressTo(progress, list));
        },
        [this](CleanListReply&& reply) { Show(std::move(reply)); });
}

void CCleanerPage::Show(CleanListReply&& reply) {
    ShowLoadOutcome(Host(), reply.outcome);
    const bool endsEarly = reply.Connected() && !reply.IsWhole();
    list_->SetState(reply.Connected() ? ListState::idle : ListState::failed);
    list_->ShowTicked(std::move(reply.list));
    if (!endsEarly) {
        list_->SetRedraw(true);
        state_->setText(ToQString(kScanned));
    }
}

void CCleanerPage::KeepOnScreen() {
    const ListState state = list_->State();
    list_->SetState(ListState::idle);  // the bar of a load is no part of what is kept
    list_->SetRedraw(true);
    list_->SetRedraw(false);
    list_->SetState(state);
}

void CCleanerPage::RunCommand(int index) {
    switch (index) {
        case commandScan:
            Scan();
            break;
        case commandClean:
            CleanChecked();
            break;
        default:
            break;
    }
}

void CCleanerPage::CleanChecked() {
    SendChange(Host(), *this, agent_,
               CleanRequest(list_->TickedFixedItems(), list_->TickedPackages()),
               [](const AcknowledgedReply&) {});
}

}  // namespace quorvi
