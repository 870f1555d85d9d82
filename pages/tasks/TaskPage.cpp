#include "pages/tasks/TaskPage.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "base/Format.h"
#include "pages/kit/CountLine.h"
#include "pages/kit/PageSession.h"
#include "pages/kit/ViewSentences.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinLabels.h"
#include "ui/page/PageKeys.h"

namespace quorvi {

using look::Color;
using look::Metric;

namespace {

constexpr int kFreeMemory = 1363;
constexpr int kGroup = 1179;
constexpr int kRelease = 1180;

constexpr std::u8string_view kNotKnown = u8"N/A";

QLabel* Value(Color ink) {
    return new PlainLabel(ToQString(kNotKnown), look::Size::s13, ink, nullptr, true);
}

QHBoxLayout* Fact(std::u8string_view caption, QLabel* value) {
    auto* fact = new QHBoxLayout;
    fact->setSpacing(Metric::gap3);
    fact->addWidget(new RemarkLabel(ToQString(caption)));
    fact->addWidget(value);
    return fact;
}

}  // namespace

CTaskPage::CTaskPage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      agent_(services.agent),
      list_(new TaskListCtrl(this)),
      freeMemory_(SetControlNumber(Value(Color::ink), kFreeMemory)),
      road_({.host = host,
             .window = *this,
             .controls = *this,
             .agent = services.agent,
             .loadKey = kNumbers.loadKey},
            list_,
            [this, page = QPointer<QObject>(this)](const AgentSession& session,
                                                   const AgentSession::Progress& progress) {
                const AcknowledgedReply memory = FetchFreeMemory(session);
                if (memory.outcome == SessionOutcome::complete) {
                    PostToWindow(page, [this, free = memory.word] { ShowFreeMemory(free); });
                }
                return FetchTaskList(session, progress);
            }) {
    list_->setObjectName(QStringLiteral("taskList"));
    list_->setAccessibleName(ToQString(u8"手机进程"));
    SayWhenEmpty(*list_, u8"手机上没有运行的进程，或者还没有获取");
    SayWhenFailed(*list_, u8"刷新手机进程");
    ShowCount(*this, *list_);
    HeedKeys(*this,
             {.refresh = [this] { Refresh(); }, .list = list_, .erase = [this] { EndChosen(); }});
    list_->EnableFind();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(Metric::gap3);
    layout->addWidget(list_, 1);
    layout->addWidget(MakeFoot());
    SetControlNumber(new CSkinButton(ToQString(u8"释放内存"), this), kRelease)->hide();
}

QWidget* CTaskPage::MakeFoot() {
    auto* group =
        SetControlNumber(new CSkinGroupBox(ToQString(u8"Quorvi 手机任务管理器统计信息")), kGroup);
    group->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* cpu = Value(Color::ink2);
    cpu->setObjectName(QStringLiteral("cpuShare"));
    cpu->setFixedHeight(Metric::hitHeight);
    auto* facts = new QHBoxLayout(group);
    facts->setContentsMargins({});
    facts->setSpacing(Metric::factGap);
    facts->addLayout(Fact(u8"CPU使用率", cpu));
    facts->addLayout(Fact(u8"剩余运行内存 (RAM) ", freeMemory_));
    facts->addStretch();
    return group;
}

void CTaskPage::ShowFreeMemory(std::uint32_t bytes) {
    freeMemory_->setText(ToQString(FormatByteSize(bytes)));
}

void CTaskPage::RunCommand(int index) {
    switch (index) {
        case commandRefresh:
            Refresh();
            break;
        case commandEnd:
            EndChecked();
            break;
        default:
            break;
    }
}

void CTaskPage::EndChosen() {
    if (const std::vector<int> rows = list_->ChosenRows(); !rows.empty()) {
        End(rows);
    }
}

void CTaskPage::End(const std::vector<int>& rows) {
    const auto packages = list_->OfRows(rows, &TaskRecord::package, MarkedRow::leftOut);
    SendChange(Host(), *this, agent_, EndProcessesRequest(packages),
               [this, count = packages.size()](const AcknowledgedReply& reply) {
                   if (reply.outcome == SessionOutcome::complete && count > 0) {
                       Host().SetStatus(ToQString(u8"已结束 %1 个进程").arg(count));
                   }
                   Refresh();
               });
}

}  // namespace quorvi
